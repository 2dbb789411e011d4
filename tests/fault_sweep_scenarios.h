// The user-visible moments of the plug-in's life that the fault sweep breaks call by call: each
// prepares its starting point without faults and then does the one thing that is swept.
#pragma once

#include "controls/control_ids.h"
#include "fault_sweep_checks.h"
#include "fault_sweep_session.h"

#include <functional>
#include <string>
#include <vector>

namespace sweep {

struct Scenario {
    std::string name;
    HostKind kind;
    Span span = Span::within;
    std::function<bool(SweepSession&)> prepare;  // false when the starting point could not be reached
    std::function<void(SweepSession&)> act;
};

inline bool loaded(SweepSession& s) { return s.load() == A_Err_NONE; }

inline bool dialogOpen(SweepSession& s) {
    if (!loaded(s) || s.command() != A_Err_NONE) {
        return false;
    }
    s.host().idle();
    return s.control(BUTTON_APPLY) != nullptr;
}

inline bool keysOn(SweepSession& s) {
    return dialogOpen(s) && s.click(CHECK_KEY_POSITION) && s.click(CHECK_KEY_ORIENTATION) && s.click(CHECK_KEY_SCALE);
}

inline bool repeatsOn(SweepSession& s) {
    return dialogOpen(s) && s.click(CHECK_REPEAT_LAYERS) && s.type(EDIT_REPEAT_COUNT, "2") &&
           s.click(CHECK_REPEAT_SEQUENTIALLY);
}

inline void apply(SweepSession& s) { s.click(BUTTON_APPLY); }

inline std::vector<Scenario> scenarios() {
    const HostKind window{false, true};
    const HostKind panel{true, true};
    const HostKind old_host{false, false};
    return {
        {"start-up", window, Span::startup, [](SweepSession&) { return true; }, [](SweepSession& s) { s.load(); }},
        {"start-up with panels", panel, Span::startup, [](SweepSession&) { return true; },
         [](SweepSession& s) { s.load(); }},
        {"open window", window, Span::within, loaded, [](SweepSession& s) { s.command(); }},
        {"open panel", panel, Span::within, loaded, [](SweepSession& s) { s.command(); }},
        {"idle refresh", window, Span::within, dialogOpen, [](SweepSession& s) { s.host().idle(); }},
        {"idle refresh in panel", panel, Span::within, dialogOpen, [](SweepSession& s) { s.host().idle(); }},
        {"menu update", window, Span::within, dialogOpen, [](SweepSession& s) { s.host().updateMenus(); }},
        {"apply with keys", window, Span::within, keysOn, apply},
        {"apply with repeats by layer suite 10", window, Span::within, repeatsOn, apply},
        {"apply with repeats by command 2080", old_host, Span::within, repeatsOn, apply},
        {"unload", window, Span::shutdown, dialogOpen, [](SweepSession& s) { s.host().unloadPlugin(); }},
        {"unload with panel", panel, Span::shutdown, dialogOpen, [](SweepSession& s) { s.host().unloadPlugin(); }},
    };
}

}  // namespace sweep
