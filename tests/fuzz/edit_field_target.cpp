// Edit fields fed arbitrary text: whatever the text, the value read stays within the field's
// limits and is a finite number.
#include "fuzz_targets.h"
#include "lone_edit_field.h"

#include "adm_suites.h"
#include "controls/settings_table.h"
#include "platform/driver.h"
#include "shell/global_suites.h"

#include <cmath>
#include <string>
#include <vector>

namespace fuzz {

namespace {

std::vector<const ControlSpec*> editFields() {
    std::vector<const ControlSpec*> edits;
    for (const ControlSpec& c : cylinder_controls()) {
        if (c.kind == SettingKind::edit) {
            edits.push_back(&c);
        }
    }
    return edits;
}

std::string check(const ControlSpec& control, float value, ADMInt32 integer) {
    if (!std::isfinite(value) || value < control.minimum || value > control.maximum) {
        return std::string(control.name) + " read " + std::to_string(value) + " outside its limits";
    }
    if (integer < std::trunc(control.minimum) || integer > std::trunc(control.maximum)) {
        return std::string(control.name) + " read the integer " + std::to_string(integer) + " outside its limits";
    }
    return {};
}

}  // namespace

std::string editFieldText(const std::uint8_t* data, std::size_t size) {
    static const std::vector<const ControlSpec*> edits = editFields();
    if (size == 0) {
        return {};
    }
    const ControlSpec& control = *edits[data[0] % edits.size()];
    const bool typed = (data[0] & 0x80) != 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);

    const LoneEditField field(control);
    if (typed) {
        platform::typeText(platform::findControlById(platform::windows().back(), control.id), text,
                           platform::Force::yes);
    } else {
        sADMItem->SetText(field.item(), text.c_str());
    }
    const float value = sADMItem->GetFloatValue(field.item());
    const ADMInt32 integer = sADMItem->GetIntValue(field.item());
    return check(control, value, integer);
}

}  // namespace fuzz
