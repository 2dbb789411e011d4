#include "app/run/options.h"

#include "app/drawing/picture_file.h"
#include "app/gltf/gltf_file.h"
#include "controls/settings_table.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace app {

namespace {

// A line that cannot run: the message names the option or the argument.
class LineError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

const char* const kExamples = R"(
Examples:
  orbisett-host
      runs the built-in demo scene and prints its table and summary
  orbisett-host cards.json --set CHECK_DISTRIBUTE_EVENLY=on --set RADIO_INWARD=on --out after.json --preview after.png
      arranges the selected layers of cards.json in even rows facing the axis, writes the scene and a picture
  orbisett-host - --set RADIO_EQUATOR_ONLY=on --set CHECK_CREATE_RING=on --out - < cards.json > ring.json
      reads the scene from standard input and writes the result to standard output (the table goes to
      standard error)

--list-controls names every control --set takes, with its kind, range and whether the dialog shows it.
Exit status: 0 done, 2 bad input or an output that cannot be written (nothing replaced), 3 the plug-in
or the host reported a failure, or a fault of this tool.
)";

// The single-valued options that write files, by their option names.
const std::pair<const char*, std::string Options::*> kOutputs[] = {
    {"--out", &Options::out},   {"--preview", &Options::preview}, {"--dialog", &Options::dialog},
    {"--html", &Options::html}, {"--gltf", &Options::gltf},       {"--json-report", &Options::json_report},
};

void describe(CLI::App& cli, Options& options) {
    cli.add_option("SCENE", options.scene,
                   "Scene file (JSON); - reads standard input; the built-in demo scene when absent");
    cli.add_option("--set", options.sets,
                   "Set a dialog control by name: a number for an edit field, on or off for a check box, on for a "
                   "radio button, e.g. EDIT_DIM_X=1200 or RADIO_INWARD=on")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false)
        ->take_all();
    cli.add_flag("--no-apply", options.no_apply, "Set the controls but do not press \"Apply\"");
    cli.add_flag("--undo", options.undo, "Undo once in the host after the run");
    cli.add_option("--out", options.out, "Write the scene after the run (JSON); - writes it to standard output")
        ->type_name("FILE.json");
    cli.add_option("--preview", options.preview, "Write a perspective picture of the composition (SVG or PNG)")
        ->type_name("FILE.svg|FILE.png");
    cli.add_option("--dialog", options.dialog, "Write a picture of the dialog as it stands (SVG or PNG)")
        ->type_name("FILE.svg|FILE.png");
    cli.add_option("--html", options.html, "Write an interactive 3D page of the composition before and after the run")
        ->type_name("FILE.html");
    cli.add_option("--gltf", options.gltf,
                   "Write the composition as glTF 2.0, binary (.glb) or JSON (.gltf), with a before-to-after animation")
        ->type_name("FILE.glb|FILE.gltf");
    cli.add_option("--json-report", options.json_report, "Write the summary and its warnings as JSON")
        ->type_name("FILE");
    cli.add_flag("--quiet", options.quiet, "Print nothing but errors");
    cli.add_option("--plugin", options.plugin, "The plug-in module to load")->type_name("PATH");
    cli.add_flag("--list-controls", options.list_controls,
                 "List every control --set takes: name, kind, range, shown or hidden, and what it sets");
    cli.set_version_flag("--version", std::string("orbisett-host ") + kProductVersion, "Print the version");
    // Given twice is refused after parsing, with a message that names both values.
    for (const auto& [name, member] : kOutputs) {
        cli.get_option(name)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }
    cli.get_option("--plugin")->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    cli.footer(kExamples);
    cli.allow_extras();
}

// NAME=VALUE where NAME is a control: a setting that lost its --set.
bool looksLikeSetting(const std::string& arg) {
    const std::size_t equals = arg.find('=');
    return equals != std::string::npos && find_control(std::string_view(arg).substr(0, equals)) != nullptr;
}

std::string joined(const std::vector<std::string>& values) {
    std::string out;
    for (const std::string& v : values) {
        out += (out.empty() ? "" : ", ") + v;
    }
    return out;
}

void checkOnce(const CLI::App& cli, const char* name) {
    const std::vector<std::string>& values = cli.get_option(name)->results();
    if (values.size() > 1) {
        throw LineError(std::string(name) + " is given " + std::to_string(values.size()) + " times (" + joined(values) +
                        "); give it once");
    }
}

void checkArguments(const CLI::App& cli, const Options& options) {
    for (const std::string& extra : cli.remaining()) {
        if (looksLikeSetting(extra)) {
            throw LineError(extra + ": each setting needs its own --set (--set " + extra + ")");
        }
        if (extra.size() > 1 && extra.front() == '-') {
            throw LineError(extra + ": unknown option (see --help)");
        }
        throw LineError(extra + ": a second scene; give one scene file at most");
    }
    if (options.scene && looksLikeSetting(*options.scene) && !std::filesystem::exists(*options.scene)) {
        throw LineError(*options.scene + ": each setting needs its own --set (--set " + *options.scene +
                        "); without it, it is taken as the scene file");
    }
    for (const char* name : {"--plugin", "--out", "--preview", "--dialog", "--html", "--gltf", "--json-report"}) {
        checkOnce(cli, name);
    }
}

void checkOutputs(const Options& options) {
    std::vector<std::pair<const char*, std::string>> named;
    for (const auto& [name, member] : kOutputs) {
        const std::string& path = options.*member;
        if (path.empty()) {
            continue;
        }
        if (path == kStandardStream && std::string_view(name) != "--out") {
            throw LineError(std::string(name) + " -: only --out writes to standard output");
        }
        for (const auto& [other, other_path] : named) {
            if (other_path == path) {
                throw LineError(std::string(other) + " and " + name + " name the same file " + path);
            }
        }
        named.emplace_back(name, path);
    }
    // Picture names are checked before anything runs, so a wrong one writes nothing.
    for (const char* name : {"--preview", "--dialog"}) {
        const std::string& path = name == std::string_view("--preview") ? options.preview : options.dialog;
        if (const std::string problem = path.empty() ? std::string() : pictureNameProblem(name, path);
            !problem.empty()) {
            throw LineError(problem);
        }
    }
    if (const std::string problem = options.gltf.empty() ? std::string() : gltfNameProblem(options.gltf);
        !problem.empty()) {
        throw LineError(problem);
    }
}

}  // namespace

std::optional<Options> parseOptions(int argc, const char* const* argv, const std::string& default_plugin,
                                    ParseExit& exit) {
    Options options;
    CLI::App cli{
        "Runs the Orbisett plug-in in the host stand-in on a scene, as a user would in its dialog, and "
        "reports what it did.",
        "orbisett-host"};
    describe(cli, options);
    try {
        cli.parse(argc, argv);
        checkArguments(cli, options);
        checkOutputs(options);
    } catch (const CLI::ParseError& e) {
        std::ostringstream out;
        std::ostringstream err;
        const int status = cli.exit(e, out, err);
        exit.status = status == 0 ? 0 : 2;
        exit.to_error = status != 0;
        exit.text = status == 0 ? out.str() : "orbisett-host: " + err.str();
        return std::nullopt;
    } catch (const LineError& e) {
        exit = {2, std::string("orbisett-host: ") + e.what() + "\n", true};
        return std::nullopt;
    }
    if (options.plugin.empty()) {
        options.plugin = default_plugin;
    }
    return options;
}

}  // namespace app
