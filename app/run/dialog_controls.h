// The plug-in's dialog as the window system shows it, and setting its controls as a user would,
// through the window system's driver, and reading them back.
#pragma once

#include "app/run/control_settings.h"
#include "host/host.h"
#include "platform/driver.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace app {

// A floating window titled "Orbisett", or the host's workspace panel view. Controls are found by
// their dialog-manager identifiers.
class DialogView {
public:
    // Finds the open dialog; throws HostFailure when the plug-in opened none.
    static DialogView find(const host::Host& host);

    ControlRef control(SInt32 id) const;
    // The dialog as it stands, as SVG.
    std::string svg() const;
    bool inPanel() const { return window_ == nullptr; }

private:
    WindowRef window_ = nullptr;
    ControlRef panel_ = nullptr;
};

// Types into edit fields and clicks check boxes and radios whose state differs, so that every
// notification and rule of the dialog runs. Hidden and disabled controls are reached by force.
// Afterwards every wanted state is checked; a control that does not hold it is an AppError.
void setControls(const DialogView& dialog, const std::vector<ControlSetting>& settings);

// Presses a push button; throws HostFailure when the window system refuses.
void pressButton(const DialogView& dialog, const ControlSpec& button);

// Every named control that holds a value, as the dialog holds it: edits as the number the field
// reads from its text, check boxes and radios as booleans.
nlohmann::json readControls(const DialogView& dialog);

// What the window system shows of a control that holds a value.
struct ControlState {
    const ControlSpec* control = nullptr;
    bool enabled = false;  // greyed out when false
    bool on = false;       // check boxes and radios
    std::string text;      // edit fields
};

// Every control that holds a value, in the dialog's order.
std::vector<ControlState> controlStates(const DialogView& dialog);

}  // namespace app
