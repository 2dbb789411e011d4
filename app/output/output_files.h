// The outputs a run asked for, in the order they are written.
#pragma once

#include "app/output/output_file.h"
#include "app/report/run_outcome.h"
#include "app/run/options.h"
#include "app/run/session.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace app {

// --out (a file, or standard output for "-"), --preview, --dialog, --html (pictures in the format
// their names ask for) and --json-report. `preview_svg` is the preview as drawn for --preview
// (null without it).
std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, const RunOutcome& outcome,
                                    const std::string* preview_svg, const nlohmann::json& report);

}  // namespace app
