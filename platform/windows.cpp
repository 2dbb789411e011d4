// Windows: creation, disposal, visibility and activation, bounds and titles.
#include "platform/internal.h"

#include <algorithm>

namespace platform::detail {

namespace {

constexpr short kTitleBarHeight = 22;

Rect rootBoundsFor(const Rect& content) {
    return Rect{0, 0, static_cast<short>(content.bottom - content.top),
                static_cast<short>(content.right - content.left)};
}

}  // namespace

void disposeWindow(OpaqueWindowPtr* window) {
    std::shared_ptr<OpaqueWindowPtr> keep = liveWindow(window);
    if (!keep)
        return;
    if (!window->closedSent) {
        window->closedSent = true;
        EventRef closed = newEvent(kEventClassWindow, kEventWindowClosed);
        setParam(closed, kEventParamDirectObject, typeWindowRef, &window, sizeof window);
        dispatch(closed, &window->target);
        ReleaseEvent(closed);
        // A handler may have disposed the window itself; then there is nothing left to do.
        if (window->dead)
            return;
    }
    if (window->disposing)
        return;
    window->disposing = true;
    if (window->root)
        disposeControlTree(window->root);
    clearHandlers(window->target);
    State& s = state();
    if (s.active == window)
        s.active = nullptr;
    window->dead = true;
    s.windows.erase(std::remove(s.windows.begin(), s.windows.end(), keep), s.windows.end());
}

}  // namespace platform::detail

using namespace platform::detail;

extern "C" {

OSStatus CreateNewWindow(WindowClass windowClass, WindowAttributes attributes, const Rect* contentBounds,
                         WindowRef* outWindow) {
    if (!contentBounds || !outWindow)
        return paramErr;
    if (windowClass < kAlertWindowClass || windowClass > kDocumentWindowClass)
        return paramErr;
    auto window = std::make_shared<OpaqueWindowPtr>();
    window->windowClass = windowClass;
    window->attributes = attributes;
    window->content = *contentBounds;
    window->target.owner = OpaqueEventTargetRef::Owner::window;
    window->target.object = window.get();
    state().windows.push_back(window);
    *outWindow = window.get();
    return noErr;
}

void DisposeWindow(WindowRef window) { disposeWindow(window); }

OSStatus SetThemeWindowBackground(WindowRef inWindow, ThemeBrush inBrush, Boolean) {
    auto window = liveWindow(inWindow);
    if (!window)
        return errInvalidWindowRef;
    window->background = inBrush;
    return noErr;
}

void SetPortWindowPort(WindowRef) {
    // Drawing is not immediate here, so there is no current port to switch.
}

OSStatus UseThemeFont(ThemeFontID inFontID, ScriptCode) {
    state().portFont = inFontID;
    return noErr;
}

OSErr CreateRootControl(WindowRef inWindow, ControlRef* outControl) {
    auto window = liveWindow(inWindow);
    if (!window || !outControl)
        return paramErr;
    if (window->root) {
        *outControl = window->root;
        return errRootAlreadyExists;
    }
    Rect bounds = rootBoundsFor(window->content);
    OpaqueControlRef* root = nullptr;
    OSStatus status = registerControl(nullptr, kControlKindRoot, &bounds, outControl, &root);
    if (status != noErr)
        return static_cast<OSErr>(status);
    root->rootOf = window.get();
    window->root = root;
    return noErr;
}

OSErr GetRootControl(WindowRef inWindow, ControlRef* outControl) {
    auto window = liveWindow(inWindow);
    if (!window || !outControl)
        return paramErr;
    *outControl = window->root;
    return window->root ? OSErr(noErr) : OSErr(errNoRootControl);
}

void ShowWindow(WindowRef window) {
    auto w = liveWindow(window);
    if (!w)
        return;
    w->visible = true;
    state().active = w.get();
}

void HideWindow(WindowRef window) {
    auto w = liveWindow(window);
    if (!w)
        return;
    w->visible = false;
    if (state().active == w.get())
        state().active = nullptr;
}

Boolean IsWindowVisible(WindowRef window) {
    auto w = liveWindow(window);
    return w && w->visible;
}

Boolean IsWindowActive(WindowRef inWindow) {
    auto w = liveWindow(inWindow);
    return w && state().active == w.get();
}

OSStatus GetWindowBounds(WindowRef window, WindowRegionCode regionCode, Rect* globalBounds) {
    auto w = liveWindow(window);
    if (!w)
        return errInvalidWindowRef;
    if (!globalBounds)
        return paramErr;
    Rect r = w->content;
    if (regionCode == kWindowStructureRgn) {
        r.top = static_cast<short>(r.top - kTitleBarHeight);
    } else if (regionCode != kWindowContentRgn) {
        return paramErr;
    }
    *globalBounds = r;
    return noErr;
}

OSStatus SetWindowBounds(WindowRef window, WindowRegionCode regionCode, const Rect* globalBounds) {
    auto w = liveWindow(window);
    if (!w)
        return errInvalidWindowRef;
    if (!globalBounds)
        return paramErr;
    Rect r = *globalBounds;
    if (regionCode == kWindowStructureRgn) {
        r.top = static_cast<short>(r.top + kTitleBarHeight);
    } else if (regionCode != kWindowContentRgn) {
        return paramErr;
    }
    w->content = r;
    if (w->root)
        w->root->bounds = rootBoundsFor(r);
    return noErr;
}

OSStatus SetWindowTitleWithCFString(WindowRef inWindow, CFStringRef inString) {
    auto w = liveWindow(inWindow);
    if (!w)
        return errInvalidWindowRef;
    w->title = charsOf(inString);
    return noErr;
}

OSStatus CopyWindowTitleAsCFString(WindowRef inWindow, CFStringRef* outString) {
    auto w = liveWindow(inWindow);
    if (!w)
        return errInvalidWindowRef;
    if (!outString)
        return paramErr;
    *outString = makeString(w->title);
    return noErr;
}

OSStatus GetWindowClass(WindowRef inWindow, WindowClass* outClass) {
    auto w = liveWindow(inWindow);
    if (!w)
        return errInvalidWindowRef;
    if (!outClass)
        return paramErr;
    *outClass = w->windowClass;
    return noErr;
}

OSStatus GetWindowAttributes(WindowRef window, WindowAttributes* outAttributes) {
    auto w = liveWindow(window);
    if (!w)
        return errInvalidWindowRef;
    if (!outAttributes)
        return paramErr;
    *outAttributes = w->attributes;
    return noErr;
}

}  // extern "C"
