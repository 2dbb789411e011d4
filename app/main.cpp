// orbisett-host: runs the plug-in in the host stand-in on a scene, as a user would, and reports.
#include "app/drawing/preview_picture.h"
#include "app/output/output_files.h"
#include "app/output/write_outputs.h"
#include "app/page/scene_data.h"
#include "app/report/layer_table.h"
#include "app/report/run_report.h"
#include "app/run/app_error.h"
#include "app/run/control_list.h"
#include "app/run/options.h"
#include "app/run/session.h"
#include "host/scene_file.h"

#include <exception>
#include <iostream>
#include <optional>
#include <string>

#ifndef ORBISETT_PLUGIN_PATH
#define ORBISETT_PLUGIN_PATH ""
#endif

namespace {

constexpr int kDone = 0;
constexpr int kBadInput = 2;
constexpr int kFailure = 3;

int run(const app::Options& options) {
    const app::SessionResult result = app::runSession(options);
    const app::RunOutcome outcome = app::readRunOutcome(result.before(), *result.host, result.reading);
    app::RunReport report = app::describeRun(result, outcome);
    // Drawn before the summary, which names the layers the picture has to leave out.
    std::optional<app::PreviewPicture> preview;
    if (!options.preview.empty()) {
        preview = app::makePreview(result.host->project(), outcome);
        app::addPreviewWarnings(report, *preview);
    }
    std::optional<app::GltfScene> gltf;
    if (!options.gltf.empty()) {
        gltf = app::gltfScene(result.before(), result.host->project(), outcome);
        app::addGltfWarnings(report, *gltf);
    }
    // Made before the summary, like the preview, so that the layers the page cannot draw can be named.
    std::optional<app::PageData> page;
    if (!options.html.empty()) {
        page = app::pageSceneData(result.before(), result.host->project(), outcome);
        app::addPageWarnings(report, *page);
    }
    const int status = report.failures.empty() ? kDone : kFailure;
    std::vector<app::OutputFile> outputs =
        app::outputFiles(options, result, preview ? &preview->drawing : nullptr, page ? &*page : nullptr,
                         gltf ? &*gltf : nullptr, app::summaryJson(report, status));
    if (!options.quiet) {
        const bool scene_to_stdout = options.out == app::kStandardStream;
        const std::vector<host::Id> none;
        outputs.push_back(
            app::printedText(scene_to_stdout ? app::Destination::standard_error : app::Destination::standard_output,
                             app::layerTable(result.before(), result.host->project(),
                                             report.stopped_after ? none : outcome.not_reached) +
                                 app::summaryText(report)));
    }
    std::string failures;
    for (const std::string& failure : report.failures) {
        failures += "orbisett-host: " + failure + "\n";
    }
    if (!failures.empty()) {
        outputs.push_back(app::printedText(app::Destination::standard_error, std::move(failures)));
    }
    // What is printed is written before any file is renamed: when anything cannot be written,
    // nothing is replaced, and nothing is printed but why.
    app::writeAll(outputs);
    return status;
}

// What is printed without a run: help, the version, the list of controls.
int print(app::Destination destination, std::string text, int status) {
    app::writeAll({app::printedText(destination, std::move(text))});
    return status;
}

int runCommandLine(int argc, char** argv) {
    app::ParseExit parse_exit;
    const std::optional<app::Options> options = app::parseOptions(argc, argv, ORBISETT_PLUGIN_PATH, parse_exit);
    if (!options) {
        return print(parse_exit.to_error ? app::Destination::standard_error : app::Destination::standard_output,
                     parse_exit.text, parse_exit.status);
    }
    if (options->list_controls) {
        return print(app::Destination::standard_output, app::controlList(), kDone);
    }
    return run(*options);
}

// One line, whatever the text holds.
std::string oneLine(std::string text) {
    for (char& c : text) {
        c = c == '\n' || c == '\r' ? ' ' : c;
    }
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return runCommandLine(argc, argv);
    } catch (const app::AppError& e) {
        std::cerr << "orbisett-host: " << e.what() << "\n";
        return kBadInput;
    } catch (const app::HostFailure& e) {
        std::cerr << "orbisett-host: " << e.what() << "\n";
        for (const std::string& report : e.reports) {
            std::cerr << "orbisett-host: " << report << "\n";
        }
        return kFailure;
    } catch (const std::exception& e) {
        std::cerr << "orbisett-host: internal error, a fault of this tool: " << oneLine(e.what()) << "\n";
        return kFailure;
    } catch (...) {
        std::cerr << "orbisett-host: internal error, a fault of this tool: an unknown exception\n";
        return kFailure;
    }
}
