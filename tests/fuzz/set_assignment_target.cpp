// --set assignments fed arbitrary bytes: refused with a message, or taken, and then an edit
// field given the text reads exactly what the tool says it reads (the number in its warnings).
#include "fuzz_targets.h"
#include "lone_edit_field.h"

#include "adm_suites.h"
#include "app/run/app_error.h"
#include "app/run/control_settings.h"
#include "controls/control_notes.h"
#include "controls/field_reading.h"
#include "controls/settings_table.h"
#include "shell/global_suites.h"

#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace fuzz {

namespace {

std::vector<const ControlSpec*> valueControls() {
    std::vector<const ControlSpec*> controls;
    for (const ControlSpec& c : cylinder_controls()) {
        if (app::holdsValue(c)) {
            controls.push_back(&c);
        }
    }
    return controls;
}

// The first byte picks a control (most inputs then reach the value checks); 0xFF takes the
// whole input as the assignment.
std::string assignmentFrom(const std::uint8_t* data, std::size_t size) {
    static const std::vector<const ControlSpec*> controls = valueControls();
    const std::string rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] == 0xFF) {
        return rest;
    }
    return std::string(controls[data[0] % controls.size()]->name) + "=" + rest;
}

// What a field with the control's limits reads from the text, as the plug-in reads that field.
float fieldReads(const ControlSpec& control, const std::string& text) {
    const LoneEditField field(control);
    sADMItem->SetText(field.item(), text.c_str());
    const ControlNote* note = control_note(control.id);
    return note != nullptr && note->whole_number ? static_cast<float>(sADMItem->GetIntValue(field.item()))
                                                 : sADMItem->GetFloatValue(field.item());
}

}  // namespace

std::string setAssignment(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return {};
    }
    const std::string assignment = assignmentFrom(data, size);
    app::SettingsPlan plan;
    try {
        plan.addAssignment(assignment);
    } catch (const app::AppError&) {
        return {};
    }
    for (const app::ControlSetting& setting : plan.inDialogOrder()) {
        if (setting.control->kind != SettingKind::edit) {
            continue;
        }
        const float read = fieldReads(*setting.control, setting.text);
        const std::optional<double> said = controls::fieldReading(*setting.control, setting.text);
        const float want = said ? static_cast<float>(*said) : setting.control->value;
        if (!said || std::memcmp(&read, &want, sizeof read) != 0) {
            return "--set " + assignment + " was taken, but the field reads " + std::to_string(read) +
                   " where the tool says " + std::to_string(want);
        }
    }
    return {};
}

}  // namespace fuzz
