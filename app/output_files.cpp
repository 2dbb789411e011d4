#include "app/output_files.h"

#include "app/app_error.h"
#include "app/preview_picture.h"

#include <fstream>
#include <utility>
#include <vector>

namespace app {

namespace {

void writeText(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    if (!file) {
        throw AppError("cannot write " + path);
    }
}

}  // namespace

void writeOutputs(const Options& options, const SessionResult& result)
{
    std::vector<std::pair<std::string, std::string>> files;
    if (!options.preview.empty()) {
        files.emplace_back(options.preview, previewSvg(result.host->project(), result.settings));
    }
    if (!options.dialog.empty()) {
        files.emplace_back(options.dialog, result.dialog_svg);
    }
    // The scene goes to its file as it is made: with keyframes its text is larger than the project.
    if (!options.out.empty()) {
        try {
            host::saveScene(*result.host, options.out, result.settings);
        } catch (const host::SceneError&) {
            throw AppError("cannot write " + options.out);
        }
    }
    for (const auto& [path, text] : files) {
        writeText(path, text);
    }
}

}  // namespace app
