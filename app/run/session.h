// One run of the plug-in in the host stand-in: load the scene and the module, choose the menu
// command, set the dialog's controls as a user would, press "Apply", optionally undo; and keep
// what the run observed through the host and the window system.
#pragma once

#include "app/run/control_settings.h"
#include "app/run/dialog_controls.h"
#include "app/run/dialog_reading.h"
#include "app/run/options.h"
#include "host/host.h"
#include "host/scene_file.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

namespace app {

// What the host saw of "Apply", counted before any undo takes the copies away again.
struct ApplyFacts {
    bool pressed = false;
    std::vector<host::RefusedCall> refused;  // calls the host refused while it ran
    std::size_t copies = 0;                  // layers made as copies
    int duplicate_calls = 0;                 // copies asked for with AEGP_DuplicateLayer
    int duplicate_commands = 0;              // copies asked for with the Duplicate command (2080)
};

struct SessionResult {
    std::unique_ptr<host::Host> host;    // the host after the run, the module unloaded
    std::vector<ControlSetting> asked;   // what the scene's settings and --set asked for, in dialog order
    std::vector<ControlState> controls;  // the value controls as the window system shows them after the run
    bool dialog_enabled = false;         // not greyed out as a whole after the run ("Apply" enabled)
    DialogReading reading;               // the settings those controls hold
    nlohmann::json settings;             // every value control as the dialog held it, for the written scene
    std::string dialog_svg;              // the dialog as it stood after the run
    ApplyFacts apply;
    bool undo_asked = false;
    bool undone = false;  // one host undo step was taken back

    // The project as the scene made it: the host's own undo snapshot of the run, or the project
    // itself when nothing is left to undo. The run changes the project only inside its undo step,
    // so no copy of the project is kept for this.
    const host::Project& before() const;
};

// The scene to run: the file named on the command line, standard input for "-", or the
// built-in demo scene. Throws AppError.
host::Scene loadScene(const Options& options);

// A call the host refused, as a user reads it: a suite by its name, with what the error means.
std::string refusedCallText(const host::RefusedCall& call);

// "error N", naming the suite the host last refused (at or after the `since`-th refused call)
// when N is its missing-suite error.
std::string errorText(const host::Host& host, A_Err err, std::size_t since);

// The host's reports and the exceptions it stopped from the plug-in, one line each.
std::vector<std::string> hostReports(const host::Host& host);

// Runs everything up to the report. Throws AppError for bad input and HostFailure when the
// plug-in or the host fails before the dialog is up; in both cases before anything is written.
SessionResult runSession(const Options& options);

}  // namespace app
