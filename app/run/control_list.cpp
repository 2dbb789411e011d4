#include "app/run/control_list.h"

#include "app/report/display_text.h"
#include "app/run/control_settings.h"
#include "controls/control_notes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace app {

namespace {

std::string shortest(float value) {
    std::array<char, 32> buffer{};
    return std::string(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

std::string kindOf(const ControlSpec& c) {
    switch (c.kind) {
        case SettingKind::edit:
            return "edit field";
        case SettingKind::check_box:
            return "check box";
        case SettingKind::radio:
            return "radio button";
        default:
            return "";
    }
}

std::string rangeOf(const ControlSpec& c, const ControlNote* note) {
    if (c.kind != SettingKind::edit) {
        return std::string(c.kind == SettingKind::radio ? "on" : "on or off") + ", initially " +
               (c.value != 0.0f ? "on" : "off");
    }
    const char* kind = note != nullptr && note->whole_number ? "whole number " : "";
    return kind + shortest(c.minimum) + " to " + shortest(c.maximum) + ", initially " + shortest(c.value);
}

}  // namespace

std::string controlList() {
    std::vector<std::array<std::string, 5>> rows{{"name", "kind", "value", "dialog", "what it sets"}};
    for (const ControlSpec& c : cylinder_controls()) {
        if (!holdsValue(c)) {
            continue;
        }
        const ControlNote* note = control_note(c.id);
        rows.push_back(
            {c.name, kindOf(c), rangeOf(c, note), c.shown ? "shown" : "hidden", note != nullptr ? note->meaning : ""});
    }
    std::array<std::size_t, 5> widths{};
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], displayWidth(row[i]));
        }
    }
    std::string out;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i) {
            out += row[i] + std::string(widths[i] - displayWidth(row[i]) + 2, ' ');
        }
        out += row.back() + "\n";
    }
    return out +
           "A radio button is turned off by turning on another of its group. Hidden controls are set all the "
           "same: the dialog keeps them and the layout reads them.\n";
}

}  // namespace app
