// A drawing painted into pixels with cairo, the way an SVG renderer paints the same drawing
// written as SVG, and encoded as PNG: no SVG text is made or read on the way.
#pragma once

#include "app/drawing/drawing.h"

#include <string>

namespace app {

// The PNG file's bytes, at the drawing's size. Throws AppError when cairo cannot paint or encode.
std::string paintPng(const Drawing& drawing);

}  // namespace app
