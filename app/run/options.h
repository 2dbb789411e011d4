// The command line of orbisett-host.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace app {

// The name that stands for standard input (as the scene) or standard output (as --out).
inline constexpr const char* kStandardStream = "-";

struct Options {
    std::optional<std::string> scene;  // the built-in demo scene when absent; "-" reads standard input
    std::vector<std::string> sets;     // "NAME=VALUE", in the order given
    bool no_apply = false;
    bool undo = false;
    std::string out;  // "-" writes the scene to standard output
    std::string preview;
    std::string dialog;
    std::string html;
    std::string gltf;  // .glb or .gltf
    std::string json_report;
    std::string plugin;
    bool quiet = false;
    bool list_controls = false;
};

// Parsing ended without options to run: help or the version was asked for, or the line was wrong.
struct ParseExit {
    int status = 0;
    std::string text;       // what to print
    bool to_error = false;  // standard error rather than standard output
};

// Parses argv; `default_plugin` is the module path used without --plugin.
// Returns the options, or sets `exit` and returns nothing.
std::optional<Options> parseOptions(int argc, const char* const* argv, const std::string& default_plugin,
                                    ParseExit& exit);

}  // namespace app
