// The files a run writes, all or nothing: each is written beside its final name first and moved
// into place only when every one of them was written.
#pragma once

#include "app/report/run_outcome.h"
#include "app/run/options.h"
#include "app/run/session.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace app {

struct OutputFile {
    std::string option;  // "--out", "--preview", ... for messages
    std::string path;
    // Writes the file's content; a large file is made as it is written, never held whole.
    std::function<void(std::ostream&)> write;
};

// An output whose content is already made.
OutputFile outputOf(std::string option, std::string path, std::string bytes);

// Writes every file to a temporary file in its folder, then renames them into place; a device or
// a pipe named as an output is written to once every file is ready. On any failure nothing is
// replaced, the temporary files are removed, and AppError names the option, the file and the
// system's reason.
void writeAll(const std::vector<OutputFile>& files);

// Every file asked for but a scene going to standard output: --out, --preview, --dialog, --html
// (pictures in the format their names ask for) and --json-report.
// `preview_svg` is the preview as drawn for --preview (null without it).
std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, const RunOutcome& outcome,
                                    const std::string* preview_svg, const nlohmann::json& report);

}  // namespace app
