// What the preview shows, gathered before anything is drawn: the layers as faces on the picture in
// painting order with the names that stay readable, the surface's outline, the view, and the
// caption's lines.
#pragma once

#include "app/drawing/layer_corners.h"
#include "app/drawing/line_gaps.h"
#include "app/drawing/preview_label.h"
#include "app/drawing/preview_view.h"
#include "app/report/run_outcome.h"
#include "host/project.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace app {

constexpr int kPreviewWidth = 1200;
constexpr int kPreviewHeight = 800;
// A face's outline where faces do not crowd.
constexpr double kFaceOutline = 1.2;
// The caption's lines from the top margin down, one every `kCaptionLine` pixels.
constexpr double kMargin = 30;
constexpr double kCaptionLine = 18;

// A layer as drawn, or a piece of the surface's outline (`layer` null, from `a` to `b`).
struct PreviewItem {
    double depth = 0;
    const PlacedLayer* layer = nullptr;
    Vec3 a, b;
    // The outline's piece on the picture, in the scene's area, broken where names painted before it stand.
    std::vector<Segment2> pieces;
    std::array<Point2, 4> corners{};
    bool front = false;
    std::optional<Label> label;  // a name that fits and stays readable
};

struct PreviewContent {
    const host::Comp* comp = nullptr;  // none: nothing to show
    std::vector<PlacedLayer> placed;
    Area area;                         // the scene's part of the picture, below the caption
    std::optional<View> view;          // with a composition
    std::vector<PreviewItem> items;    // far to near
    double outline = 0;                // the faces' outline width
    std::vector<std::string> caption;  // lines, wrapped
    double caption_bottom = 0;         // below the caption's last line
    // The cross at the surface's centre, painted last, broken where names stand; empty without one.
    std::vector<Segment2> centre_cross;
    // Layers not drawn because their corners are not finite numbers (or too large for any picture).
    std::vector<std::string> left_out;
    // Layers that lie outside the picture's frame.
    std::vector<std::string> outside;
};

PreviewContent gatherPreview(const host::Project& project, const RunOutcome& outcome);

}  // namespace app
