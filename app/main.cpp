// orbisett-host: runs the plug-in in the host stand-in on a scene, as a user would, and reports.
#include "app/app_error.h"
#include "app/layer_table.h"
#include "app/options.h"
#include "app/output_files.h"
#include "app/session.h"

#include <iostream>

#ifndef ORBISETT_PLUGIN_PATH
#define ORBISETT_PLUGIN_PATH ""
#endif

int main(int argc, char** argv)
{
    app::ParseExit parse_exit;
    const std::optional<app::Options> options = app::parseOptions(argc, argv, ORBISETT_PLUGIN_PATH, parse_exit);
    if (!options) {
        (parse_exit.to_error ? std::cerr : std::cout) << parse_exit.text;
        return parse_exit.status;
    }
    try {
        const app::SessionResult result = app::runSession(*options);
        app::writeOutputs(*options, result);
        std::cout << app::layerTable(result.before(), result.host->project());
        if (result.undo_asked) {
            std::cout << (result.undone ? "Undone: one step.\n" : "Undo: nothing to undo.\n");
        }
        std::cout << app::hostReports(*result.host);
        return 0;
    } catch (const app::AppError& e) {
        std::cerr << "orbisett-host: " << e.what() << "\n";
        return 2;
    }
}
