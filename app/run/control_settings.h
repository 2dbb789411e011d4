// What the run sets in the dialog: values for named controls, from the scene's "settings" and
// from --set, each checked against its control's kind before the host or the module is touched.
#pragma once

#include "controls/settings_table.h"

#include <nlohmann/json.hpp>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// One control's wanted state. Edits get `text` typed into them; check boxes and radios `on`.
// A radio wanted off is only checked at the end: it goes off when another of its group is chosen.
struct ControlSetting {
    const ControlSpec* control = nullptr;
    std::string text;
    bool on = false;
    std::string where;  // where it was asked for, for messages: "--set ..." or "FILE: settings.NAME"
};

class SettingsPlan {
public:
    // The scene's "settings" object; `where` names the file in messages. Null adds nothing.
    void addSceneSettings(const nlohmann::json& settings, const std::string& where);
    // One --set NAME=VALUE; later assignments win. Turning a radio on wants its group mates off.
    void addAssignment(std::string_view assignment);
    // The wanted states in the dialog's creation order (top of the dialog first). Throws
    // AppError when a radio group would be left with none on.
    std::vector<ControlSetting> inDialogOrder() const;

private:
    void want(ControlSetting setting);
    void checkRadioGroups() const;
    std::map<ADMInt32, ControlSetting> wanted_;
};

// Whether a control holds a value that can be set and recorded (edits, check boxes, radios).
bool holdsValue(const ControlSpec& control);
// The radios of the control's group (consecutive identifiers), itself included.
std::vector<const ControlSpec*> radioGroup(const ControlSpec& radio);
// Every name that --set accepts, comma-separated, for messages.
std::string valueControlNames();
// A JSON number as the text a user would type: integers plainly, others in shortest round-trip form.
std::string numberText(double value);
// "on", "off", or the typed text: a wanted state as the user gave it.
std::string shownValue(const ControlSetting& setting);

}  // namespace app
