// orbisett-host: runs the plug-in in the host stand-in on a scene, as a user would, and reports.
#include "app/drawing/preview_picture.h"
#include "app/output/output_files.h"
#include "app/report/layer_table.h"
#include "app/report/run_report.h"
#include "app/run/app_error.h"
#include "app/run/control_list.h"
#include "app/run/options.h"
#include "app/run/session.h"
#include "host/scene_file.h"

#include <iostream>
#include <optional>

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
    std::optional<app::Preview> preview;
    if (!options.preview.empty()) {
        preview = app::drawPreview(result.host->project(), outcome);
        app::addPreviewWarnings(report, *preview);
    }
    const int status = report.failures.empty() ? kDone : kFailure;
    // Every file first: when one cannot be written, nothing is, and nothing is printed but why.
    app::writeAll(app::outputFiles(options, result, outcome, preview ? &preview->svg : nullptr,
                                   app::summaryJson(report, status)));

    const bool scene_to_stdout = options.out == app::kStandardStream;
    if (!options.quiet) {
        std::ostream& table = scene_to_stdout ? std::cerr : std::cout;
        const std::vector<host::Id> none;
        table << app::layerTable(result.before(), result.host->project(),
                                 report.stopped_after ? none : outcome.not_reached)
              << app::summaryText(report);
    }
    if (scene_to_stdout) {
        host::writeScene(*result.host, std::cout, result.settings);
        std::cout << std::flush;
    }
    for (const std::string& failure : report.failures) {
        std::cerr << "orbisett-host: " << failure << "\n";
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    app::ParseExit parse_exit;
    const std::optional<app::Options> options = app::parseOptions(argc, argv, ORBISETT_PLUGIN_PATH, parse_exit);
    if (!options) {
        (parse_exit.to_error ? std::cerr : std::cout) << parse_exit.text;
        return parse_exit.status;
    }
    if (options->list_controls) {
        std::cout << app::controlList();
        return kDone;
    }
    try {
        return run(*options);
    } catch (const app::AppError& e) {
        std::cerr << "orbisett-host: " << e.what() << "\n";
        return kBadInput;
    } catch (const app::HostFailure& e) {
        std::cerr << "orbisett-host: " << e.what() << "\n";
        for (const std::string& report : e.reports) {
            std::cerr << "orbisett-host: " << report << "\n";
        }
        return kFailure;
    }
}
