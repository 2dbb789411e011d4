// One run of the plug-in in the host stand-in: load the scene and the module, choose the menu
// command, set the dialog's controls as a user would, press "Apply", optionally undo.
#pragma once

#include "app/options.h"
#include "host/host.h"
#include "host/scene_file.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>

namespace app {

struct SessionResult {
    std::unique_ptr<host::Host> host;  // the host after the run, the module unloaded
    nlohmann::json settings;           // every value control as the dialog held it
    std::string dialog_svg;            // the dialog as it stood after the run
    bool undo_asked = false;
    bool undone = false;               // one host undo step was taken back

    // The project as the scene made it: the host's own undo snapshot of the run, or the project
    // itself when nothing is left to undo. The run changes the project only inside its undo step,
    // so no copy of the project is kept for this.
    const host::Project& before() const;
};

// The scene to run: the file named on the command line, or the built-in demo scene.
host::Scene loadScene(const Options& options);

// Runs everything up to the report. Throws AppError (with the scene's errors turned into it)
// before anything is written.
SessionResult runSession(const Options& options);

}  // namespace app
