// Calling into plug-in code: hooks with their refcons, escaped exceptions, idle and menu
// updates, and the reports the plug-in makes.
#include "host/host_state.h"

#include <exception>
#include <string>

namespace host {

namespace detail {

A_Err callHook(State& s, const char* hook, const std::function<A_Err()>& call) {
    try {
        return call();
    } catch (const std::exception& e) {
        s.escaped.push_back(EscapedException{hook, e.what()});
    } catch (int code) {
        s.escaped.push_back(EscapedException{hook, "int " + std::to_string(code)});
    } catch (...) {
        s.escaped.push_back(EscapedException{hook, "unknown"});
    }
    return A_Err_GENERIC;
}

AEGP_GlobalRefcon refconOf(const State& s, AEGP_PluginID plugin) {
    auto it = s.refcons.find(plugin);
    return it == s.refcons.end() ? nullptr : it->second;
}

}  // namespace detail

void Host::updateMenus() {
    detail::State& s = *state_;
    // A hook may register more hooks; walk by index over what was there when we started.
    const std::vector<detail::UpdateMenuHookEntry> hooks = s.update_menu_hooks;
    for (const auto& h : hooks) {
        detail::callHook(s, "update menu",
                         [&] { return h.hook(detail::refconOf(s, h.plugin), h.refcon, AEGP_WindowType{0}); });
    }
}

void Host::idle(int times) {
    detail::State& s = *state_;
    for (int i = 0; i < times; ++i) {
        const std::vector<detail::IdleHookEntry> hooks = s.idle_hooks;
        for (const auto& h : hooks) {
            A_long max_sleep = 100;
            detail::callHook(s, "idle", [&] { return h.hook(detail::refconOf(s, h.plugin), h.refcon, &max_sleep); });
        }
    }
}

const std::vector<Report>& Host::reports() const { return state_->reports; }

const std::vector<EscapedException>& Host::escapedExceptions() const { return state_->escaped; }

std::size_t Host::hookCount() const {
    const detail::State& s = *state_;
    std::size_t panels = 0;
    for (const detail::Panel& p : s.panels) {
        panels += p.hook != nullptr ? 1 : 0;
    }
    return s.command_hooks.size() + s.update_menu_hooks.size() + s.death_hooks.size() + s.idle_hooks.size() + panels;
}

}  // namespace host
