// A drawing as an SVG document. Every shape keeps its group, title and face, so readers of the
// picture (and the tests) can find each layer; coordinates are written to a tenth of a pixel.
#pragma once

#include "app/drawing/drawing.h"

#include <ostream>
#include <string>

namespace app {

void writeSvg(const Drawing& drawing, std::ostream& out);

// The same, as one string.
std::string svgText(const Drawing& drawing);

// A number for an attribute, with full precision (for values a reader checks).
std::string exactNumber(double value);

}  // namespace app
