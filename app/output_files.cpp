#include "app/output_files.h"

#include "app/app_error.h"
#include "app/picture_file.h"
#include "app/preview_picture.h"
#include "app/run_outcome.h"

#include <fstream>
#include <utility>
#include <vector>

namespace app {

namespace {

// The picture's bytes in the format its name asks for (names were checked with the options).
std::string picture(const std::string& path, const std::string& svg)
{
    const std::optional<PictureFormat> format = pictureFormat(path);
    if (!format) {
        throw AppError(pictureNameProblem("picture", path));
    }
    return pictureBytes(svg, *format);
}

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
    if (!options.out.empty()) {
        files.emplace_back(options.out, host::sceneText(*result.host, result.settings));
    }
    if (!options.preview.empty()) {
        const RunOutcome outcome = readRunOutcome(result.before, *result.host, result.settings);
        files.emplace_back(options.preview, picture(options.preview, drawPreview(result.host->project(), outcome).svg));
    }
    if (!options.dialog.empty()) {
        files.emplace_back(options.dialog, picture(options.dialog, result.dialog_svg));
    }
    for (const auto& [path, text] : files) {
        writeText(path, text);
    }
}

}  // namespace app
