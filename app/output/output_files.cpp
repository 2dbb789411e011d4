#include "app/output/output_files.h"

#include "app/drawing/picture_file.h"
#include "app/drawing/png_painter.h"
#include "app/drawing/svg_writer.h"
#include "app/gltf/gltf_file.h"
#include "app/page/html_page.h"
#include "app/run/app_error.h"

#include <memory>

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

// The preview as SVG is written into its file as it is made; as PNG it is painted as the file is
// written, and a picture cairo cannot paint stops the run with nothing written. Either way the
// drawing is let go once written: the page, written after it, needs the room.
OutputFile previewFile(const std::string& path, Drawing&& drawing) {
    const std::optional<PictureFormat> format = pictureFormat(path);
    if (!format) {
        throw AppError(pictureNameProblem("--preview", path));
    }
    auto held = std::make_shared<Drawing>(std::move(drawing));
    if (*format == PictureFormat::png) {
        return {"--preview", path, [held](std::ostream& out) mutable {
                    const std::string png = paintPng(*held);
                    held.reset();
                    out.write(png.data(), static_cast<std::streamsize>(png.size()));
                }};
    }
    return {"--preview", path, [held](std::ostream& out) mutable {
                writeSvg(*held, out);
                held.reset();
            }};
}

}  // namespace

std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, Drawing* preview,
                                    const PageData* page, const GltfScene* gltf, const nlohmann::json& report) {
    std::vector<OutputFile> files;
    if (!options.out.empty()) {
        // Written as it is made: with keyframes the scene's text is larger than the project.
        files.push_back({"--out", options.out,
                         [&run](std::ostream& out) { host::writeScene(*run.host, out, run.settings); },
                         options.out == kStandardStream ? Destination::standard_output : Destination::file});
    }
    if (!options.preview.empty() && preview != nullptr) {
        files.push_back(previewFile(options.preview, std::move(*preview)));
    }
    if (!options.dialog.empty()) {
        files.push_back(outputOf("--dialog", options.dialog, picture("--dialog", options.dialog, run.dialog_svg)));
    }
    if (!options.html.empty() && page != nullptr) {
        files.push_back({"--html", options.html, [page](std::ostream& out) { writeHtmlPage(out, *page); }});
    }
    if (const std::optional<GltfFormat> format = gltfFormat(options.gltf); format && gltf != nullptr) {
        // Written as it is made, so that a large document is never held whole.
        files.push_back({"--gltf", options.gltf, [gltf, f = *format](std::ostream& out) { writeGltf(*gltf, f, out); }});
    }
    if (!options.json_report.empty()) {
        files.push_back(outputOf("--json-report", options.json_report, report.dump(2) + "\n"));
    }
    return files;
}

}  // namespace app
