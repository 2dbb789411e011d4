// The plug-in's dialog as the window system shows it: a floating window titled "Orbisett", or
// the host's workspace panel view. Controls are found by their dialog-manager identifiers.
#pragma once

#include "host/host.h"
#include "platform/driver.h"

#include <string>

namespace app {

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

}  // namespace app
