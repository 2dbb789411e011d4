// Lines of the picture broken where a name stands: a guide line painted over a name would cross its
// letters, so the line leaves a gap there instead, as on a map.
#pragma once

#include "app/drawing/box_index.h"
#include "app/drawing/drawing.h"

#include <span>
#include <utility>
#include <vector>

namespace app {

using Segment2 = std::pair<Point2, Point2>;

// The parts of the segment from `a` to `b` outside every box grown by `margin` on each side;
// parts shorter than a pixel are dropped.
std::vector<Segment2> outsideBoxes(Point2 a, Point2 b, std::span<const Box> boxes, double margin);

}  // namespace app
