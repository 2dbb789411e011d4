// The single window system of the process and lookups that reject stale references.
#include "platform/internal.h"

#include <algorithm>

namespace platform::detail {

State& state() {
    // Never destroyed: a module's static destructors may still call in while the process ends.
    static State* instance = new State;
    static bool displaysReady = false;
    if (!displaysReady) {
        displaysReady = true;
        resetDisplays({Rect{0, 0, 1080, 1920}});
    }
    return *instance;
}

std::shared_ptr<OpaqueWindowPtr> liveWindow(WindowRef window) {
    if (!window)
        return nullptr;
    auto& windows = state().windows;
    auto it = std::find_if(windows.begin(), windows.end(), [window](const auto& w) { return w.get() == window; });
    return it == windows.end() ? nullptr : *it;
}

OpaqueControlRef* liveControl(ControlRef control) { return sharedControl(control).get(); }

std::shared_ptr<OpaqueControlRef> sharedControl(ControlRef control) {
    if (!control)
        return nullptr;
    auto& controls = state().controls;
    auto it = controls.find(control);
    return it == controls.end() ? nullptr : it->second;
}

OpaqueMenuRef* liveMenu(MenuRef menu) {
    if (!menu)
        return nullptr;
    auto& menus = state().menus;
    return menus.count(menu) ? menu : nullptr;
}

__CFString* liveString(CFStringRef string) {
    if (!string)
        return nullptr;
    auto& strings = state().strings;
    auto it = strings.find(string);
    return it == strings.end() ? nullptr : it->second.get();
}

CGContext* liveContext(CGContextRef context) {
    if (!context)
        return nullptr;
    return state().contexts.count(context) ? context : nullptr;
}

}  // namespace platform::detail

namespace platform {

using namespace detail;

void reset() {
    State& s = state();
    // Mark everything dead first, so that references kept by a running dispatch see it gone.
    for (auto& w : s.windows)
        w->dead = true;
    for (auto& [ptr, c] : s.controls)
        c->dead = true;
    for (auto& [ptr, h] : s.handlers)
        h->removed = true;
    s.windows.clear();
    s.controls.clear();
    s.menus.clear();
    s.strings.clear();
    s.handlers.clear();
    s.events.clear();
    s.contexts.clear();
    s.application.handlers.clear();
    s.active = nullptr;
    s.portFont = kThemeSmallSystemFont;
    resetDisplays({Rect{0, 0, 1080, 1920}});
}

LiveCounts liveCounts() {
    const State& s = state();
    return LiveCounts{s.windows.size(), s.controls.size(), s.menus.size(), s.strings.size(), s.handlers.size()};
}

}  // namespace platform
