#include "app/output/output_files.h"

#include "app/drawing/picture_file.h"
#include "app/gltf/gltf_file.h"
#include "app/page/html_page.h"
#include "app/page/scene_data.h"
#include "app/run/app_error.h"

namespace app {

namespace {

// Picture names were checked with the options.
std::string picture(const std::string& option, const std::string& path, const std::string& svg) {
    const std::optional<PictureFormat> format = pictureFormat(path);
    if (!format) {
        throw AppError(pictureNameProblem(option, path));
    }
    return pictureBytes(svg, *format);
}

}  // namespace

std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, const RunOutcome& outcome,
                                    const std::string* preview_svg, const GltfScene* gltf,
                                    const nlohmann::json& report) {
    std::vector<OutputFile> files;
    if (!options.out.empty()) {
        // Written as it is made: with keyframes the scene's text is larger than the project.
        files.push_back({"--out", options.out,
                         [&run](std::ostream& out) { host::writeScene(*run.host, out, run.settings); },
                         options.out == kStandardStream ? Destination::standard_output : Destination::file});
    }
    if (!options.preview.empty() && preview_svg != nullptr) {
        files.push_back(outputOf("--preview", options.preview, picture("--preview", options.preview, *preview_svg)));
    }
    if (!options.dialog.empty()) {
        files.push_back(outputOf("--dialog", options.dialog, picture("--dialog", options.dialog, run.dialog_svg)));
    }
    if (!options.html.empty()) {
        files.push_back({"--html", options.html, [&run, &outcome](std::ostream& out) {
                             writeHtmlPage(out, pageSceneData(run.before(), run.host->project(), outcome));
                         }});
    }
    if (const std::optional<GltfFormat> format = gltfFormat(options.gltf); format && gltf != nullptr) {
        // Made as it is written, so that a large one is not held beside the others.
        files.push_back({"--gltf", options.gltf,
                         [gltf, f = *format](std::ostream& out) { writeGltf(gltfDocument(*gltf, f), f, out); }});
    }
    if (!options.json_report.empty()) {
        files.push_back(outputOf("--json-report", options.json_report, report.dump(2) + "\n"));
    }
    return files;
}

}  // namespace app
