#include "app/options.h"

#include "app/picture_file.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace app {

namespace {

void describe(CLI::App& cli, Options& options)
{
    cli.add_option("SCENE", options.scene, "Scene file (JSON); the built-in demo scene when absent");
    cli.add_option("--set", options.sets, "Set a dialog control by name, e.g. EDIT_DIM_X=1200 or RADIO_INWARD=on")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false)
        ->take_all();
    cli.add_flag("--no-apply", options.no_apply, "Set the controls but do not press \"Apply\"");
    cli.add_flag("--undo", options.undo, "Undo once in the host after the run");
    cli.add_option("--out", options.out, "Write the scene after the run (JSON)")->type_name("FILE.json");
    cli.add_option("--preview", options.preview, "Write a perspective picture of the composition (SVG or PNG)")
        ->type_name("FILE.svg|FILE.png");
    cli.add_option("--dialog", options.dialog, "Write a picture of the dialog as it stands (SVG or PNG)")
        ->type_name("FILE.svg|FILE.png");
    cli.add_option("--plugin", options.plugin, "The plug-in module to load")->type_name("PATH");
}

}  // namespace

std::optional<Options> parseOptions(int argc, const char* const* argv, const std::string& default_plugin,
                                    ParseExit& exit)
{
    Options options;
    options.plugin = default_plugin;
    CLI::App cli{"Runs the Orbisett plug-in in the host stand-in on a scene and reports what it did.",
                 "orbisett-host"};
    describe(cli, options);
    try {
        cli.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        std::ostringstream out;
        std::ostringstream err;
        const int status = cli.exit(e, out, err);
        exit.status = status == 0 ? 0 : 2;
        exit.to_error = status != 0;
        exit.text = status == 0 ? out.str() : err.str();
        return std::nullopt;
    }
    // Picture names are checked before anything runs, so a wrong one writes nothing.
    for (const auto& [option, path] : {std::pair{"--preview", options.preview}, std::pair{"--dialog", options.dialog}}) {
        const std::string problem = path.empty() ? std::string() : pictureNameProblem(option, path);
        if (!problem.empty()) {
            exit = {2, "orbisett-host: " + problem + "\n", true};
            return std::nullopt;
        }
    }
    return options;
}

}  // namespace app
