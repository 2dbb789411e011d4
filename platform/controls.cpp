// Controls: creation of each kind, disposal, values and their limits, state and bounds.
#include "platform/internal.h"

#include <algorithm>

namespace platform::detail {

OSStatus registerControl(WindowRef window, OSType kind, const Rect* bounds, ControlRef* out, OpaqueControlRef** made) {
    if (!bounds || !out)
        return paramErr;
    std::shared_ptr<OpaqueWindowPtr> owner;
    if (window) {
        owner = liveWindow(window);
        if (!owner)
            return errInvalidWindowRef;
    }
    auto control = std::make_shared<OpaqueControlRef>();
    control->kind = kind;
    control->bounds = *bounds;
    control->target.owner = OpaqueEventTargetRef::Owner::control;
    control->target.object = control.get();
    state().controls.emplace(control.get(), control);
    if (owner) {
        // A control made in a window is embedded in its root view, made on demand.
        ControlRef root = owner->root;
        if (!root)
            CreateRootControl(owner.get(), &root);
        HIViewAddSubview(root, control.get());
    }
    *out = control.get();
    if (made)
        *made = control.get();
    return noErr;
}

void detachFromParent(OpaqueControlRef* control) {
    if (OpaqueControlRef* parent = control->parent) {
        auto& siblings = parent->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), control), siblings.end());
        control->parent = nullptr;
    }
}

void disposeControlTree(OpaqueControlRef* control) {
    std::shared_ptr<OpaqueControlRef> keep = sharedControl(control);
    if (!keep || control->disposing)
        return;
    control->disposing = true;
    // Subviews go first, so that a view's handlers still find everything they own intact.
    std::vector<OpaqueControlRef*> children = control->children;
    for (OpaqueControlRef* child : children)
        disposeControlTree(child);
    EventRef disposed = newEvent(kEventClassControl, kEventControlDispose);
    setParam(disposed, kEventParamDirectObject, typeControlRef, &control, sizeof control);
    dispatch(disposed, &control->target);
    ReleaseEvent(disposed);
    clearHandlers(control->target);
    for (OpaqueControlRef* child : control->children)
        child->parent = nullptr;
    control->children.clear();
    detachFromParent(control);
    if (control->rootOf)
        control->rootOf->root = nullptr;
    if (control->menu)
        releaseMenu(control->menu);
    control->menu = nullptr;
    control->dead = true;
    state().controls.erase(control);
}

WindowRef ownerWindow(const OpaqueControlRef* control) {
    const OpaqueControlRef* top = control;
    while (top && top->parent)
        top = top->parent;
    return top ? top->rootOf : nullptr;
}

SInt32 clampValue(const OpaqueControlRef& control, SInt32 value) {
    // When the limits cross, the minimum wins.
    return std::max(control.minimum, std::min(value, control.maximum));
}

}  // namespace platform::detail

using namespace platform::detail;

namespace {

OpaqueControlRef* make(WindowRef window, OSType kind, const Rect* bounds, ControlRef* out, OSStatus* status) {
    OpaqueControlRef* control = nullptr;
    *status = registerControl(window, kind, bounds, out, &control);
    return control;
}

void setLimits(OpaqueControlRef* control, SInt32 value, SInt32 minimum, SInt32 maximum) {
    control->minimum = minimum;
    control->maximum = maximum;
    control->value = clampValue(*control, value);
}

// Check boxes and radio buttons: a title and a value from 0 to 1.
OSStatus makeToggle(WindowRef window, OSType kind, const Rect* bounds, CFStringRef title, SInt32 initialValue,
                    Boolean autoToggle, ControlRef* out) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kind, bounds, out, &status)) {
        c->title = charsOf(title);
        c->autoToggle = autoToggle;
        setLimits(c, initialValue, 0, 1);
    }
    return status;
}

}  // namespace

extern "C" {

OSStatus CreateGroupBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title, Boolean,
                               ControlRef* outControl) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kControlKindGroupBox, boundsRect, outControl, &status)) {
        c->title = charsOf(title);
    }
    return status;
}

OSStatus CreateBevelButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, ControlBevelThickness,
                                  ControlBevelButtonBehavior, ControlButtonContentInfoPtr, SInt16,
                                  ControlBevelButtonMenuBehavior, ControlBevelButtonMenuPlacement,
                                  ControlRef* outControl) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kControlKindBevelButton, boundsRect, outControl, &status)) {
        c->title = charsOf(title);
    }
    return status;
}

OSStatus CreateIconControl(WindowRef inWindow, const Rect* inBounds, const ControlButtonContentInfo*, Boolean,
                           ControlRef* outControl) {
    OSStatus status;
    make(inWindow, kControlKindIcon, inBounds, outControl, &status);
    return status;
}

OSStatus CreatePopupButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, SInt16 menuID, Boolean,
                                  SInt16, SInt16, Style, ControlRef* outControl) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kControlKindPopupButton, boundsRect, outControl, &status)) {
        c->title = charsOf(title);
        // A popup shows the menu of that id when one exists; otherwise it starts without a menu.
        for (auto& [ptr, menu] : state().menus) {
            if (menu->id == menuID) {
                c->menu = ptr;
                RetainMenu(ptr);
                break;
            }
        }
        setLimits(c, 1, 1, c->menu ? static_cast<SInt32>(c->menu->items.size()) : 0);
    }
    return status;
}

OSStatus CreateCheckBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title, SInt32 initialValue,
                               Boolean autoToggle, ControlRef* outControl) {
    return makeToggle(window, kControlKindCheckBox, boundsRect, title, initialValue, autoToggle, outControl);
}

OSStatus CreateEditUnicodeTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text, Boolean isPassword,
                                      const ControlFontStyleRec* style, ControlRef* outControl) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kControlKindEditUnicodeText, boundsRect, outControl, &status)) {
        c->text = charsOf(text);
        c->password = isPassword;
        if (style)
            c->fontStyle = *style;
    }
    return status;
}

OSStatus CreatePushButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, ControlRef* outControl) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kControlKindPushButton, boundsRect, outControl, &status)) {
        c->title = charsOf(title);
    }
    return status;
}

OSStatus CreateRadioButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, SInt32 initialValue,
                                  Boolean autoToggle, ControlRef* outControl) {
    return makeToggle(window, kControlKindRadioButton, boundsRect, title, initialValue, autoToggle, outControl);
}

OSStatus CreateStaticTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text,
                                 const ControlFontStyleRec* style, ControlRef* outControl) {
    OSStatus status;
    if (OpaqueControlRef* c = make(window, kControlKindStaticText, boundsRect, outControl, &status)) {
        c->text = charsOf(text);
        if (style)
            c->fontStyle = *style;
    }
    return status;
}

void DisposeControl(ControlRef theControl) { disposeControlTree(liveControl(theControl)); }

WindowRef GetControlOwner(ControlRef inControl) {
    OpaqueControlRef* c = liveControl(inControl);
    return c ? ownerWindow(c) : nullptr;
}

void SetControl32BitValue(ControlRef theControl, SInt32 newValue) {
    if (OpaqueControlRef* c = liveControl(theControl))
        c->value = clampValue(*c, newValue);
}

SInt32 GetControl32BitValue(ControlRef theControl) {
    OpaqueControlRef* c = liveControl(theControl);
    return c ? c->value : 0;
}

void SetControl32BitMinimum(ControlRef theControl, SInt32 newMinimum) {
    OpaqueControlRef* c = liveControl(theControl);
    if (!c)
        return;
    c->minimum = newMinimum;
    if (c->value < newMinimum)
        c->value = newMinimum;
}

SInt32 GetControl32BitMinimum(ControlRef theControl) {
    OpaqueControlRef* c = liveControl(theControl);
    return c ? c->minimum : 0;
}

void SetControl32BitMaximum(ControlRef theControl, SInt32 newMaximum) {
    OpaqueControlRef* c = liveControl(theControl);
    if (!c)
        return;
    c->maximum = newMaximum;
    if (c->value > newMaximum)
        c->value = newMaximum;
}

SInt32 GetControl32BitMaximum(ControlRef theControl) {
    OpaqueControlRef* c = liveControl(theControl);
    return c ? c->maximum : 0;
}

void ShowControl(ControlRef inControl) {
    if (OpaqueControlRef* c = liveControl(inControl))
        c->visible = true;
}

void HideControl(ControlRef inControl) {
    if (OpaqueControlRef* c = liveControl(inControl))
        c->visible = false;
}

Boolean IsControlVisible(ControlRef inControl) {
    OpaqueControlRef* c = liveControl(inControl);
    return c && c->visible;
}

void EnableControl(ControlRef inControl) {
    if (OpaqueControlRef* c = liveControl(inControl))
        c->enabled = true;
}

void DisableControl(ControlRef inControl) {
    if (OpaqueControlRef* c = liveControl(inControl))
        c->enabled = false;
}

Boolean IsControlEnabled(ControlRef inControl) {
    OpaqueControlRef* c = liveControl(inControl);
    return c && c->enabled;
}

void SetControlBounds(ControlRef theControl, const Rect* bounds) {
    OpaqueControlRef* c = liveControl(theControl);
    if (c && bounds)
        c->bounds = *bounds;
}

Rect* GetControlBounds(ControlRef theControl, Rect* bounds) {
    if (!bounds)
        return bounds;
    OpaqueControlRef* c = liveControl(theControl);
    *bounds = c ? c->bounds : Rect{};
    return bounds;
}

}  // extern "C"
