// The driver acting as a user: typing, clicking, choosing popup items, closing windows.
#include "platform/internal.h"

namespace platform {

using namespace detail;

namespace {

bool isEffectivelyEnabled(const OpaqueControlRef* c) {
    for (const OpaqueControlRef* v = c; v; v = v->parent) {
        if (!v->enabled)
            return false;
    }
    return true;
}

// Why a user could not reach the control, or noErr.
OSStatus refusal(OpaqueControlRef* c, Force force) {
    if (force == Force::yes)
        return noErr;
    WindowRef window = ownerWindow(c);
    if (window && !window->visible)
        return kDriverWindowHidden;
    if (!isEffectivelyVisible(c))
        return kDriverControlHidden;
    if (!isEffectivelyEnabled(c))
        return kDriverControlDisabled;
    return noErr;
}

OSStatus sendCommand(OpaqueControlRef* c) {
    HICommandExtended command{};
    command.attributes = kHICommandFromControl;
    command.commandID = c->commandID;
    command.source.control = c;
    EventRef event = newEvent(kEventClassCommand, kEventCommandProcess);
    setParam(event, kEventParamDirectObject, typeHICommand, &command, sizeof command);
    OSStatus status = dispatchUpward(event, c);
    ReleaseEvent(event);
    return status;
}

bool isClickable(OSType kind) {
    return kind == kControlKindCheckBox || kind == kControlKindRadioButton || kind == kControlKindPushButton ||
           kind == kControlKindBevelButton;
}

}  // namespace

Outcome typeText(ControlRef editField, std::string_view text, Force force) {
    OpaqueControlRef* c = liveControl(editField);
    if (!c)
        return Outcome{kDriverNoSuchObject};
    if (c->kind != kControlKindEditUnicodeText && c->kind != kControlKindEditText) {
        return Outcome{kDriverWrongKind};
    }
    if (OSStatus refused = refusal(c, force))
        return Outcome{refused};
    bool valid = false;
    std::u16string chars = fromUtf8(text, &valid);
    if (!valid)
        return Outcome{paramErr};
    c->text = std::move(chars);
    return Outcome{noErr, eventNotHandledErr};  // typing sends no event
}

Outcome click(ControlRef control, Force force) {
    std::shared_ptr<OpaqueControlRef> keep = sharedControl(control);
    OpaqueControlRef* c = keep.get();
    if (!c)
        return Outcome{kDriverNoSuchObject};
    if (!isClickable(c->kind))
        return Outcome{kDriverWrongKind};
    if (OSStatus refused = refusal(c, force))
        return Outcome{refused};
    if (c->autoToggle && c->kind == kControlKindCheckBox)
        c->value = clampValue(*c, c->value ? 0 : 1);
    if (c->autoToggle && c->kind == kControlKindRadioButton)
        c->value = clampValue(*c, 1);
    return Outcome{noErr, sendCommand(c)};
}

Outcome choosePopupItem(ControlRef popup, SInt32 item, Force force) {
    std::shared_ptr<OpaqueControlRef> keep = sharedControl(popup);
    OpaqueControlRef* c = keep.get();
    if (!c)
        return Outcome{kDriverNoSuchObject};
    if (c->kind != kControlKindPopupButton)
        return Outcome{kDriverWrongKind};
    if (OSStatus refused = refusal(c, force))
        return Outcome{refused};
    SInt32 count = liveMenu(c->menu) ? static_cast<SInt32>(c->menu->items.size()) : 0;
    if (item < 1 || item > count || item < c->minimum || item > c->maximum) {
        return Outcome{kDriverOutOfRange};
    }
    c->value = item;
    return Outcome{noErr, sendCommand(c)};
}

Outcome pressCloseBox(WindowRef window) {
    std::shared_ptr<OpaqueWindowPtr> w = liveWindow(window);
    if (!w)
        return Outcome{kDriverNoSuchObject};
    if (!(w->attributes & kWindowCloseBoxAttribute))
        return Outcome{kDriverNoCloseBox};
    if (!w->visible)
        return Outcome{kDriverWindowHidden};
    EventRef event = newEvent(kEventClassWindow, kEventWindowCloseRequested);
    setParam(event, kEventParamDirectObject, typeWindowRef, &window, sizeof window);
    OSStatus status = dispatch(event, &w->target);
    ReleaseEvent(event);
    // The standard handler closes a window whose own handlers let the request through.
    if (status == eventNotHandledErr && !w->dead && (w->attributes & kWindowStandardHandlerAttribute)) {
        disposeWindow(w.get());
    }
    return Outcome{noErr, status};
}

Outcome closeWindow(WindowRef window) {
    if (!liveWindow(window))
        return Outcome{kDriverNoSuchObject};
    disposeWindow(window);
    return Outcome{noErr, noErr};
}

}  // namespace platform
