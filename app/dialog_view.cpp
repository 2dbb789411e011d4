#include "app/dialog_view.h"

#include "app/app_error.h"
#include "cylinder/settings_table.h"

namespace app {

DialogView DialogView::find(const host::Host& host) {
    DialogView view;
    // With workspace panels the command shows the panel; without, a floating window.
    for (const std::string& name : host.panelNames()) {
        if (host.panelCreated(name) && host.panelShown(name)) {
            view.panel_ = host.panelView(name);
            return view;
        }
    }
    view.window_ = platform::findWindowByTitle(kProductName);
    if (view.window_ == nullptr) {
        throw HostFailure(std::string("the plug-in opened no \"") + kProductName + "\" window or panel");
    }
    return view;
}

ControlRef DialogView::control(SInt32 id) const {
    return window_ != nullptr ? platform::findControlById(window_, id) : platform::findControlById(panel_, id);
}

std::string DialogView::svg() const {
    return window_ != nullptr ? platform::windowToSvg(window_) : platform::viewToSvg(panel_);
}

}  // namespace app
