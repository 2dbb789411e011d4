// The summary printed after the table and written with --json-report: what the run arranged,
// the copies it made, the layers the layout did not reach, the surface it used, the undo steps,
// the warnings, and the failures the plug-in or the host reported.
#pragma once

#include "app/drawing/preview_picture.h"
#include "app/gltf/gltf_scene.h"
#include "app/page/scene_data.h"
#include "app/report/run_outcome.h"
#include "app/report/run_warnings.h"
#include "app/run/session.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace app {

struct NamedLayer {
    std::size_t number = 0;  // place in the composition after the run, 1 at the top
    std::string name;
    std::string kind;  // its type as the table gives it, e.g. "camera" or "av 2D"
};

struct RunReport {
    ApplyState apply = ApplyState::not_applied;
    std::size_t selected = 0;  // layers the command took
    std::size_t copies = 0;    // made by "Apply", counted before any undo
    std::size_t written = 0;   // layers the step wrote that still exist
    std::size_t arranged = 0;
    // Set when "Apply" stopped before it wrote every layer it took: how many of those it wrote to.
    std::optional<std::size_t> stopped_after;
    std::vector<NamedLayer> not_reached;  // empty when "Apply" stopped part-way
    // Selected layers a finished "Apply" did not write: the repeat cut took them from the list.
    std::vector<NamedLayer> left_out;
    // Layers selected in the composition that the command did not take (a camera, a 2D layer …).
    std::vector<NamedLayer> not_taken;
    std::string offset;   // added to every position written, e.g. "(960.0, 540.0, 0.0)"; empty when none
    std::string surface;  // mode, size and centre
    std::vector<std::string> surface_notes;    // the ring's closing among them
    std::vector<host::UndoGroup> undo_groups;  // outermost groups only
    std::vector<Warning> warnings;
    // What the plug-in or the host reported as failing; any makes the exit status 3.
    std::vector<std::string> failures;
};

RunReport describeRun(const SessionResult& run, const RunOutcome& outcome);

// A warning for each layer the preview could not draw.
void addPreviewWarnings(RunReport& report, const PreviewPicture& preview);
// A warning for each layer the glTF file leaves out.
void addGltfWarnings(RunReport& report, const GltfScene& scene);
// A warning for each layer the 3D page leaves out of what it draws.
void addPageWarnings(RunReport& report, const PageData& page);

// The summary as lines for the terminal, after the table.
std::string summaryText(const RunReport& report);
// The same as JSON, with the exit status.
nlohmann::json summaryJson(const RunReport& report, int status);

}  // namespace app
