// The driver's view of the window system: finding windows and controls and reading them.
#include "platform/internal.h"

namespace platform {

using namespace detail;

namespace {

ControlRef findIn(OpaqueControlRef* view, SInt32 id) {
    if (view->controlID.id == id && view->controlID.signature != 0)
        return view;
    for (OpaqueControlRef* child : view->children) {
        if (ControlRef found = findIn(child, id))
            return found;
    }
    return nullptr;
}

std::string fourCharName(OSType code) {
    std::string name;
    for (int shift = 24; shift >= 0; shift -= 8)
        name.push_back(static_cast<char>((code >> shift) & 0xFF));
    return name;
}

}  // namespace

std::string describeStatus(OSStatus status) {
    switch (status) {
        case noErr:
            return "done";
        case kDriverNoSuchObject:
            return "no such window or control";
        case kDriverControlHidden:
            return "the control is hidden";
        case kDriverControlDisabled:
            return "the control is disabled";
        case kDriverWindowHidden:
            return "the window is hidden";
        case kDriverWrongKind:
            return "the action does not apply to this kind of control";
        case kDriverOutOfRange:
            return "no such item";
        case kDriverNoCloseBox:
            return "the window has no close box";
        case eventNotHandledErr:
            return "not handled";
        default:
            return "error " + std::to_string(status);
    }
}

std::vector<WindowRef> windows() {
    std::vector<WindowRef> out;
    for (const auto& w : state().windows)
        out.push_back(w.get());
    return out;
}

WindowRef findWindowByTitle(std::string_view title) {
    std::u16string wanted = fromUtf8(title);
    for (const auto& w : state().windows) {
        if (w->title == wanted)
            return w.get();
    }
    return nullptr;
}

WindowRef activeWindow() { return state().active; }

ControlRef rootView(WindowRef window) {
    auto w = liveWindow(window);
    return w ? w->root : nullptr;
}

WindowRef windowOf(ControlRef control) {
    OpaqueControlRef* c = liveControl(control);
    return c ? ownerWindow(c) : nullptr;
}

ControlRef findControlById(WindowRef window, SInt32 id) {
    ControlRef root = rootView(window);
    return root ? findIn(root, id) : nullptr;
}

ControlRef findControlById(ControlRef view, SInt32 id) {
    OpaqueControlRef* v = liveControl(view);
    return v ? findIn(v, id) : nullptr;
}

std::vector<ControlRef> subviews(ControlRef view) {
    OpaqueControlRef* v = liveControl(view);
    return v ? std::vector<ControlRef>(v->children.begin(), v->children.end()) : std::vector<ControlRef>();
}

bool isLiveControl(ControlRef control) { return liveControl(control) != nullptr; }

bool isLiveWindow(WindowRef window) { return liveWindow(window) != nullptr; }

bool isEffectivelyVisible(ControlRef control) {
    OpaqueControlRef* c = liveControl(control);
    if (!c)
        return false;
    for (OpaqueControlRef* v = c; v; v = v->parent) {
        if (!v->visible)
            return false;
        if (v->rootOf && !v->rootOf->visible)
            return false;
    }
    return true;
}

std::string windowTitle(WindowRef window) {
    auto w = liveWindow(window);
    return w ? toUtf8(w->title) : std::string();
}

std::string controlTitle(ControlRef control) {
    OpaqueControlRef* c = liveControl(control);
    return c ? toUtf8(c->title) : std::string();
}

std::string controlText(ControlRef control) {
    OpaqueControlRef* c = liveControl(control);
    return c ? toUtf8(c->text) : std::string();
}

std::string controlKindName(ControlRef control) {
    OpaqueControlRef* c = liveControl(control);
    return c ? fourCharName(c->kind) : std::string();
}

std::vector<std::string> popupItems(ControlRef popup) {
    std::vector<std::string> out;
    OpaqueControlRef* c = liveControl(popup);
    if (!c || !liveMenu(c->menu))
        return out;
    for (const auto& item : c->menu->items)
        out.push_back(toUtf8(item.text));
    return out;
}

}  // namespace platform
