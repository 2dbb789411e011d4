// The bytes of every file a run was asked to write, by option.
#pragma once

#include "app/options.h"
#include "app/output_files.h"
#include "app/run_outcome.h"
#include "app/session.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace app {

// Every file asked for but a scene going to standard output: --out, --preview, --dialog, --html
// (pictures in the format their names ask for) and --json-report.
// `preview_svg` is the preview as drawn for --preview (null without it).
std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, const RunOutcome& outcome,
                                    const std::string* preview_svg, const nlohmann::json& report);

}  // namespace app
