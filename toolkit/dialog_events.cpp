// Window and panel events of a dialog, and the panel's snap size.
#include "shell/global_suites.h"
#include "toolkit/iADMDialog.h"

namespace {

constexpr PF_App_ColorType kPanelBackgroundColor = 1000;

}  // namespace

OSStatus iADMDialog::S_EventHandler(EventHandlerCallRef /*call*/, EventRef event, void* user_data) {
    auto* dialog = static_cast<iADMDialog*>(user_data);
    if (GetEventClass(event) != kEventClassWindow) {
        return eventNotHandledErr;
    }
    switch (GetEventKind(event)) {
        case kEventWindowCloseRequested: {
            if (dialog == nullptr) {
                return noErr;
            }
            // The close box only hides: the dialog keeps its values until it is destroyed.
            WindowRef window = dialog->window;
            _Opaque_ADMNotifier notifier{nullptr, kADMCloseHitNotifier, 0};
            dialog->notify(&notifier);
            HideWindow(window);
            return noErr;
        }
        case kEventWindowClosed:
            if (dialog != nullptr && !dialog->destroying) {
                Destroy(dialog);
            }
            return eventNotHandledErr;
        default:
            return eventNotHandledErr;
    }
}

OSStatus iADMDialog::S_PanelEventHandler(EventHandlerCallRef /*call*/, EventRef event, void* user_data) {
    auto* dialog = static_cast<iADMDialog*>(user_data);
    if (GetEventClass(event) != kEventClassControl) {
        return eventNotHandledErr;
    }
    switch (GetEventKind(event)) {
        case kEventControlDraw: {
            CGContextRef context = nullptr;
            const OSStatus status = GetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, nullptr,
                                                      sizeof context, nullptr, &context);
            if (status != noErr) {
                return status;
            }
            HIRect bounds{};
            if (dialog != nullptr) {
                HIViewGetBounds(dialog->rootView, &bounds);
            }
            if (sPFAppSuite != nullptr) {
                SetColorFromSelector(context, sPFAppSuite, kPanelBackgroundColor);
                CGContextFillRect(context, bounds);
            }
            return status;  // handled: the platform paints no default background behind the host colour
        }
        case kEventControlDispose:
            if (dialog != nullptr && !dialog->destroying) {
                Destroy(dialog);
            }
            return eventNotHandledErr;
        default:
            return eventNotHandledErr;
    }
}

void iADMDialog::SetColorFromSelector(CGContextRef context, PFAppSuite2* app_suite, PF_App_ColorType color) {
    PF_App_Color rgb{0, 0, 0};
    if (app_suite != nullptr && app_suite->PF_AppGetColor != nullptr) {
        app_suite->PF_AppGetColor(color, &rgb);
    }
    CGContextSetRGBFillColor(context, rgb.red / 65535.0, rgb.green / 65535.0, rgb.blue / 65535.0, 1.0);
}

A_Err iADMDialog::S_GetSnapSizes(AEGP_PanelRefcon refcon, A_LPoint* snap_sizes, A_long* num_sizes) {
    const auto* dialog = reinterpret_cast<const iADMDialog*>(refcon);
    if (dialog == nullptr) {
        return A_Err_NONE;
    }
    if (snap_sizes != nullptr) {
        snap_sizes[0].x = dialog->panelBounds.right - dialog->panelBounds.left;
        snap_sizes[0].y = dialog->panelBounds.bottom - dialog->panelBounds.top;
    }
    if (num_sizes != nullptr) {
        *num_sizes = 1;
    }
    return A_Err_NONE;
}
