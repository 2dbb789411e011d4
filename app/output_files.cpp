#include "app/output_files.h"

#include "app/app_error.h"
#include "app/html_page.h"
#include "app/preview_picture.h"
#include "app/scene_data.h"

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
    if (!options.out.empty()) {
        files.emplace_back(options.out, host::sceneText(*result.host, result.settings));
    }
    if (!options.preview.empty()) {
        files.emplace_back(options.preview, previewSvg(result.host->project(), result.settings));
    }
    if (!options.dialog.empty()) {
        files.emplace_back(options.dialog, result.dialog_svg);
    }
    if (!options.html.empty()) {
        files.emplace_back(options.html, htmlPage(pageSceneData(result.before, result.host->project(), result.settings)));
    }
    for (const auto& [path, text] : files) {
        writeText(path, text);
    }
}

}  // namespace app
