// Which shapes of a drawing leave no pixel of their own: those that opaque fills painted after
// them cover, pixel for pixel, including their outlines' and edges' blending. Painting skips them
// and the picture stays the same, bit for bit; in a crowd of thousands of faces most are such.
#pragma once

#include "app/drawing/drawing.h"

#include <vector>

namespace app {

// One flag per shape of `drawing.shapes()`: true where painting it would change no pixel.
std::vector<bool> hiddenShapes(const Drawing& drawing);

}  // namespace app
