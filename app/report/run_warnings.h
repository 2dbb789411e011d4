// Warnings about a run, each read off what the run observed: the controls as the window system
// shows them after the run (greyed out or not, the text in a field), what was asked for, and
// what the host was asked to do. The reasons given are the notes kept with the control table.
#pragma once

#include "app/report/run_outcome.h"
#include "app/run/session.h"

#include <string>
#include <vector>

namespace app {

struct Warning {
    std::string control;  // the control it is about
    std::string kind;     // greyed_out, never_acts, read_differently, repeat_path, repeats_cut, stacked, search_cut,
                          // nothing_undone
    std::string text;     // the whole line, the control's name first
};

std::vector<Warning> runWarnings(const SessionResult& run, const RunOutcome& outcome);

}  // namespace app
