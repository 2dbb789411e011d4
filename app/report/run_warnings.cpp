#include "app/report/run_warnings.h"

#include "app/drawing/preview_caption.h"
#include "controls/control_notes.h"
#include "controls/field_reading.h"
#include "controls/step_search.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>

namespace app {

namespace {

// A field's reading as short as it reads back: fields hold single precision.
std::string readingText(const ControlSpec& control, double value) {
    std::array<char, 48> buffer{};
    const ControlNote* note = control_note(control.id);
    const auto end = note != nullptr && note->whole_number
                         ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr
                         : std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<float>(value)).ptr;
    return std::string(buffer.data(), end);
}

const ControlState* stateOf(const SessionResult& run, const ControlSpec& control) {
    for (const ControlState& state : run.controls) {
        if (state.control == &control) {
            return &state;
        }
    }
    return nullptr;
}

// Whether the setting asks for something else than the control starts with.
bool changesTheInitialValue(const ControlSetting& setting) {
    const ControlSpec& control = *setting.control;
    if (control.kind == SettingKind::edit) {
        const std::optional<double> reading = controls::fieldReading(control, setting.text);
        return reading && static_cast<float>(*reading) != control.value;
    }
    if (control.kind == SettingKind::radio) {
        return setting.on && control.value == 0.0f;
    }
    return setting.on != (control.value != 0.0f);
}

// A number typed into a field that the field reads otherwise: held at a limit, or cut to a
// whole number.
void readDifferently(const ControlSetting& setting, std::vector<Warning>& out) {
    const ControlSpec& control = *setting.control;
    const std::optional<controls::NumberInText> typed = controls::leadingNumber(setting.text);
    const std::optional<double> reading = controls::fieldReading(control, setting.text);
    if (!typed || !reading) {
        return;
    }
    const ControlNote* note = control_note(control.id);
    // A field holds single precision: a number it holds as typed is no news, one beyond what a
    // float holds always is.
    const bool as_typed = note != nullptr && note->whole_number
                              ? typed->value == *reading
                              : std::fabs(typed->value) <= std::numeric_limits<float>::max() &&
                                    static_cast<float>(typed->value) == static_cast<float>(*reading);
    if (!as_typed) {
        out.push_back({control.name, "read_differently",
                       std::string(control.name) + ": typed " + setting.text + ", the field reads " +
                           readingText(control, *reading)});
    }
}

void withoutEffect(const SessionResult& run, const ControlSetting& setting, std::vector<Warning>& out) {
    const ControlSpec& control = *setting.control;
    const ControlNote* note = control_note(control.id);
    const ControlState* state = stateOf(run, control);
    if (note == nullptr || state == nullptr || !changesTheInitialValue(setting)) {
        return;
    }
    const std::string set = std::string(control.name) + ": set " + shownValue(setting);
    if (*note->never_acts != '\0') {
        out.push_back({control.name, "never_acts", set + ", but it never acts: " + note->never_acts});
    } else if (run.dialog_enabled && !state->enabled && *note->acts_when != '\0') {
        out.push_back({control.name, "greyed_out", set + ", but the dialog greys it out: " + note->acts_when});
    }
}

std::optional<bool> stateOn(const SessionResult& run, ADMInt32 id) {
    const ControlState* state = stateOf(run, *find_control(id));
    return state != nullptr ? std::optional<bool>(state->on && state->enabled) : std::nullopt;
}

// Copies made by the layer suite go where the host puts them; only the command path reorders them.
void repeatPath(const SessionResult& run, std::vector<Warning>& out) {
    if (stateOn(run, CHECK_REPEAT_SEQUENTIALLY).value_or(false) && run.apply.duplicate_calls > 0 &&
        run.apply.duplicate_commands == 0) {
        out.push_back({"CHECK_REPEAT_SEQUENTIALLY", "repeat_path",
                       "CHECK_REPEAT_SEQUENTIALLY: on, but the host made the copies with AEGP_DuplicateLayer (AEGP "
                       "Layer Suite/10), which puts each copy above its original; it acts only on a host without that "
                       "suite, where copies come from the Duplicate command"});
    }
}

void repeatsCut(const SessionResult& run, const RunOutcome& outcome, std::vector<Warning>& out) {
    const ControlState* count = stateOf(run, *find_control(EDIT_REPEAT_COUNT));
    if (!run.apply.pressed || !stateOn(run, CHECK_REPEAT_LAYERS).value_or(false) || count == nullptr) {
        return;
    }
    const std::optional<double> repeats = controls::fieldReading(*count->control, count->text);
    if (!repeats) {
        return;
    }
    const double asked = *repeats * static_cast<double>(outcome.taken.size());
    if (static_cast<double>(run.apply.copies) < asked) {
        out.push_back({"EDIT_REPEAT_COUNT", "repeats_cut",
                       "EDIT_REPEAT_COUNT: " + readingText(*count->control, *repeats) +
                           (*repeats == 1 ? " repeat of " : " repeats of ") + std::to_string(outcome.taken.size()) +
                           (outcome.taken.size() == 1 ? " layer" : " layers") +
                           (*repeats == 1 ? " asks for " : " ask for ") + readingText(*count->control, asked) +
                           " copies; " + std::to_string(run.apply.copies) +
                           " were made (the repeats were cut to what fits)"});
    }
}

std::string placeText(const Vec3& p) {
    char text[96];
    std::snprintf(text, sizeof text, "(%.1f, %.1f, %.1f)", p.x, p.y, p.z);
    return text;
}

// Arranged layers the run put exactly where another one went: each hides the others.
void stacked(const SessionResult& run, const RunOutcome& outcome, std::vector<Warning>& out) {
    const host::Project& project = run.host->project();
    const host::Comp* comp = project.comp(outcome.comp);
    std::map<std::array<double, 3>, std::vector<std::string>> at;
    for (const host::Id id : outcome.arranged) {
        const host::Layer* layer = comp != nullptr ? project.layer(id) : nullptr;
        if (layer != nullptr) {
            const Vec3 p = layer->prop(host::Prop::position).valueAt(comp->time);
            at[{p.x, p.y, p.z}].push_back("\"" + layer->name + "\"");
        }
    }
    std::size_t count = 0;
    const std::vector<std::string>* largest = nullptr;
    Vec3 place;
    for (const auto& [p, names] : at) {
        count += names.size() > 1 ? names.size() : 0;
        if (names.size() > 1 && (largest == nullptr || names.size() > largest->size())) {
            largest = &names, place = {p[0], p[1], p[2]};
        }
    }
    if (largest != nullptr) {
        out.push_back({"", "stacked",
                       std::to_string(count) + " arranged layers share their place with another, " +
                           nameList(*largest, 3) + " at " + placeText(place) +
                           ": a step of 0, or one too small to move a layer, between places (EDIT_MIN_LONGITUDE, "
                           "EDIT_MIN_LATITUDE and their "
                           "increments) puts layers on one spot"});
    }
}

controls::SearchSettings searchSettings(const DialogReading& dialog) {
    controls::SearchSettings s;
    s.mode = dialog.mode();
    s.distribute_evenly = dialog.on(CHECK_DISTRIBUTE_EVENLY);
    s.min_longitude = static_cast<float>(dialog.number(EDIT_MIN_LONGITUDE));
    s.longitude_increment = static_cast<float>(dialog.number(EDIT_LONGITUDE_INCREMENT));
    s.min_latitude = static_cast<float>(dialog.number(EDIT_MIN_LATITUDE));
    s.latitude_increment = static_cast<float>(dialog.number(EDIT_LATITUDE_INCREMENT));
    s.dim_y = static_cast<float>(dialog.number(EDIT_DIM_Y));
    s.radius_layers = static_cast<int>(dialog.number(EDIT_RADIUS_LAYERS));
    s.dont_intersect = dialog.on(CHECK_DONT_INTERSECT);
    s.admits_nothing = dialog.on(RADIO_SECTOR) && controls::sectorAdmitsNone(dialog.sectorBoxes());
    return s;
}

// The layout bounds the work it spends looking for places; steps so small that a search would go
// on past that bound leave layers unreached that would have fit had the search gone on.
void searchCut(const SessionResult& run, const RunOutcome& outcome, std::vector<Warning>& out) {
    if (outcome.apply != ApplyState::applied || outcome.not_reached.empty() ||
        !controls::searchWasCut(searchSettings(run.reading), true)) {
        return;
    }
    out.push_back({"", "search_cut",
                   "the layout stopped looking for places after " + std::to_string(controls::kStepSearchBudget) +
                       " steps, before its rows were used up: the " +
                       (outcome.not_reached.size() == 1 ? std::string("layer") : "layers") +
                       " not reached might fit with larger steps (EDIT_MIN_LONGITUDE, EDIT_MIN_LATITUDE and their "
                       "increments)"});
}

// "--undo" takes back the step "Apply" made; without the press there is none.
void nothingUndone(const SessionResult& run, std::vector<Warning>& out) {
    if (run.undo_asked && !run.apply.pressed) {
        out.push_back({"", "nothing_undone", "--undo: nothing to take back, \"Apply\" was not pressed (--no-apply)"});
    }
}

}  // namespace

std::vector<Warning> runWarnings(const SessionResult& run, const RunOutcome& outcome) {
    std::vector<Warning> warnings;
    for (const ControlSetting& setting : run.asked) {
        if (setting.control->kind == SettingKind::edit) {
            readDifferently(setting, warnings);
        }
        withoutEffect(run, setting, warnings);
    }
    repeatPath(run, warnings);
    repeatsCut(run, outcome, warnings);
    stacked(run, outcome, warnings);
    searchCut(run, outcome, warnings);
    nothingUndone(run, warnings);
    return warnings;
}

}  // namespace app
