#include "app/run/control_settings.h"

#include "app/run/app_error.h"
#include "controls/field_reading.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <optional>
#include <system_error>

namespace app {

namespace {

const char* kindName(SettingKind kind) {
    switch (kind) {
        case SettingKind::static_text:
            return "a static text";
        case SettingKind::edit:
            return "an edit field";
        case SettingKind::check_box:
            return "a check box";
        case SettingKind::radio:
            return "a radio button";
        case SettingKind::push_button:
            return "a push button";
        case SettingKind::frame:
            return "a frame";
    }
    return "a control";
}

std::string lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

bool isBlank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

// Why the text is not one number as an edit field reads it (blanks around it are fine); empty
// when it is. Text after the number would be ignored by the field, so it is refused too.
std::string numberProblem(std::string_view text) {
    const std::optional<controls::NumberInText> number = controls::leadingNumber(text);
    if (!number) {
        return "takes a number, not \"" + std::string(text) + "\"";
    }
    const std::string_view rest = text.substr(number->length);
    if (!std::all_of(rest.begin(), rest.end(), isBlank)) {
        return "takes a number alone, and the field would ignore \"" + std::string(rest) + "\" after \"" +
               std::string(text.substr(0, number->length)) + "\"";
    }
    return {};
}

// On or off as a user would write it; nothing when the text is neither.
std::optional<bool> switchState(std::string_view text) {
    const std::string word = lower(text);
    if (word == "on" || word == "true") {
        return true;
    }
    if (word == "off" || word == "false") {
        return false;
    }
    return std::nullopt;
}

std::string names(const std::vector<const ControlSpec*>& controls) {
    std::string out;
    for (const ControlSpec* c : controls) {
        out += (out.empty() ? "" : ", ") + std::string(c->name);
    }
    return out;
}

const ControlSpec& knownControl(std::string_view name, const std::string& where) {
    const ControlSpec* control = find_control(name);
    if (control == nullptr) {
        throw AppError(where + ": unknown control \"" + std::string(name) + "\". Valid names: " + valueControlNames());
    }
    return *control;
}

// Checks a textual value against the control's kind; `allow_radio_off` for settings read from a
// scene, which record every radio of a group.
ControlSetting settingFromText(const ControlSpec& control, std::string_view value, const std::string& where,
                               bool allow_radio_off) {
    const std::string name = control.name;
    const std::string shown = "\"" + std::string(value) + "\"";
    ControlSetting setting{&control, {}, false, where};
    switch (control.kind) {
        case SettingKind::edit:
            if (const std::string problem = numberProblem(value); !problem.empty()) {
                throw AppError(where + ": " + name + " is an edit field and " + problem);
            }
            if (value.size() > controls::kFieldReadsCharacters) {
                throw AppError(where + ": " + name + " is an edit field, which reads only the first " +
                               std::to_string(controls::kFieldReadsCharacters) +
                               " characters of a number; this one has " + std::to_string(value.size()));
            }
            setting.text = std::string(value);
            return setting;
        case SettingKind::check_box:
        case SettingKind::radio: {
            const std::optional<bool> state = switchState(value);
            if (!state) {
                throw AppError(where + ": " + name + " is " + kindName(control.kind) + " and takes on or off, not " +
                               shown);
            }
            if (control.kind == SettingKind::radio && !*state && !allow_radio_off) {
                std::vector<const ControlSpec*> others;
                for (const ControlSpec* mate : radioGroup(control)) {
                    if (mate != &control) {
                        others.push_back(mate);
                    }
                }
                throw AppError(where + ": " + name +
                               " is a radio button and cannot be turned off; turn on another of its group instead (" +
                               names(others) + ")");
            }
            setting.on = *state;
            return setting;
        }
        case SettingKind::push_button:
            throw AppError(where + ": " + name + " is a push button and holds no value (the run presses \"Apply\" " +
                           "itself unless --no-apply is given)");
        case SettingKind::static_text:
        case SettingKind::frame:
            break;
    }
    throw AppError(where + ": " + name + " is " + kindName(control.kind) + " and holds no value");
}

std::string jsonValueText(const nlohmann::json& value, const std::string& where) {
    if (value.is_boolean()) {
        return value.get<bool>() ? "on" : "off";
    }
    if (value.is_number_integer()) {
        return value.dump();
    }
    if (value.is_number()) {
        return numberText(value.get<double>());
    }
    if (value.is_string()) {
        return value.get<std::string>();
    }
    throw AppError(where + ": expected a number, true or false, or a text, not " + value.dump());
}

}  // namespace

bool holdsValue(const ControlSpec& control) {
    return control.kind == SettingKind::edit || control.kind == SettingKind::check_box ||
           control.kind == SettingKind::radio;
}

std::vector<const ControlSpec*> radioGroup(const ControlSpec& radio) {
    auto radioWithId = [](ADMInt32 id) {
        const ControlSpec* c = find_control(id);
        return c != nullptr && c->kind == SettingKind::radio ? c : nullptr;
    };
    ADMInt32 first = radio.id;
    while (radioWithId(first - 1) != nullptr) {
        --first;
    }
    std::vector<const ControlSpec*> group;
    for (ADMInt32 id = first; const ControlSpec* c = radioWithId(id); ++id) {
        group.push_back(c);
    }
    return group;
}

std::string valueControlNames() {
    std::vector<const ControlSpec*> controls;
    for (const ControlSpec& c : cylinder_controls()) {
        if (holdsValue(c)) {
            controls.push_back(&c);
        }
    }
    return names(controls);
}

std::string shownValue(const ControlSetting& setting) {
    if (setting.control->kind == SettingKind::edit) {
        return setting.text;
    }
    return setting.on ? "on" : "off";
}

std::string numberText(double value) {
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return error == std::errc() ? std::string(buffer.data(), end) : std::string("nan");
}

void SettingsPlan::checkRadioGroups() const {
    for (const auto& [id, setting] : wanted_) {
        // A radio that starts on goes off only when another of its group is turned on.
        if (setting.control->kind != SettingKind::radio || setting.on || setting.control->value == 0.0f) {
            continue;
        }
        std::vector<const ControlSpec*> others = radioGroup(*setting.control);
        others.erase(std::find(others.begin(), others.end(), setting.control));
        const bool other_on = std::any_of(others.begin(), others.end(), [&](const ControlSpec* mate) {
            const auto it = wanted_.find(mate->id);
            return it != wanted_.end() && it->second.on;
        });
        if (!other_on) {
            throw AppError(setting.where + ": " + setting.control->name + " is off, but no other radio of its group (" +
                           names(others) + ") is on, and a radio button goes off only when another one is turned on");
        }
    }
}

void SettingsPlan::want(ControlSetting setting) {
    const ControlSpec& control = *setting.control;
    if (control.kind == SettingKind::radio && setting.on) {
        for (const ControlSpec* mate : radioGroup(control)) {
            if (mate != &control) {
                wanted_[mate->id] = ControlSetting{mate, {}, false, setting.where};
            }
        }
    }
    wanted_[control.id] = std::move(setting);
}

void SettingsPlan::addSceneSettings(const nlohmann::json& settings, const std::string& where) {
    if (settings.is_null()) {
        return;
    }
    if (!settings.is_object()) {
        throw AppError(where + ": settings: expected an object of control names and values");
    }
    // A scene lists every radio of a group; two of them on is a contradiction, not an order.
    std::map<ADMInt32, std::string> chosen_in_group;
    for (const auto& [name, value] : settings.items()) {
        const std::string place = where + ": settings." + name;
        const ControlSpec& control = knownControl(name, place);
        ControlSetting setting = settingFromText(control, jsonValueText(value, place), place, true);
        if (control.kind == SettingKind::radio && setting.on) {
            const ADMInt32 group = radioGroup(control).front()->id;
            if (auto [it, fresh] = chosen_in_group.emplace(group, name); !fresh) {
                throw AppError(place + ": " + it->second + " of the same radio group is on as well");
            }
        }
        if (control.kind == SettingKind::radio && !setting.on) {
            // Kept only when no other setting of the scene has said anything about it.
            wanted_.try_emplace(control.id, setting);
            continue;
        }
        want(std::move(setting));
    }
}

void SettingsPlan::addAssignment(std::string_view assignment) {
    const std::string where = "--set " + std::string(assignment);
    const std::size_t equals = assignment.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        throw AppError(where + ": expected NAME=VALUE");
    }
    const ControlSpec& control = knownControl(assignment.substr(0, equals), where);
    want(settingFromText(control, assignment.substr(equals + 1), where, false));
}

std::vector<ControlSetting> SettingsPlan::inDialogOrder() const {
    checkRadioGroups();
    std::vector<ControlSetting> ordered;
    for (const ControlSpec& c : cylinder_controls()) {
        if (auto it = wanted_.find(c.id); it != wanted_.end()) {
            ordered.push_back(it->second);
        }
    }
    return ordered;
}

}  // namespace app
