// What the preview frames and from where it looks: the surface's outline as pieces, the points the
// picture must show, and the view fitted to them.
#pragma once

#include "app/drawing/layer_corners.h"
#include "app/drawing/preview_view.h"
#include "app/report/run_outcome.h"
#include "host/project.h"

#include <utility>
#include <vector>

namespace app {

// Degrees above the horizontal: rows and the ring both read.
constexpr double kElevation = 28;

// The composition's frame in the host frame, corner by corner.
std::vector<Vec3> compFrame(const host::Comp& comp);

// The surface's outline as pieces: top and bottom rims (one ellipse for the equator and the ring),
// only the halves a sector admits with the edges where they end, and the axis.
std::vector<std::pair<Vec3, Vec3>> outlinePieces(const Surface& surface);

// The view of the picture: framed on the layers the run arranged and the surface where they are
// (on the layers the command takes and the whole surface when none was arranged; on the
// composition's frame when there is nothing else), and on the composition's frame as well where
// that keeps the layers large. Layers the run did not reach never widen it.
View previewView(const std::vector<const PlacedLayer*>& layers, const RunOutcome& outcome, const host::Comp& comp,
                 const Area& area);

}  // namespace app
