// The table printed after a run: one row per layer of the composition.
#pragma once

#include "host/project.h"

#include <string>
#include <vector>

namespace app {

// What the run did to a layer, judged against the project before the run.
std::string layerChange(const host::Project& before, const host::Layer& layer);

// A layer's type as the table's column gives it: the scene file's name, with " 2D" for a 2D layer.
std::string layerKind(const host::Layer& layer);

// A value in at most ten characters: one decimal while that fits, else exponent form.
std::string tableNumber(double value);

// The table of the active composition's layers (number, name, type, position, orientation,
// scale, keyframe counts, what the run did, "not reached" for the layers in `not_reached`).
// Names are escaped and padded by the columns they take on a terminal; numbers line up in their
// columns.
std::string layerTable(const host::Project& before, const host::Project& after,
                       const std::vector<host::Id>& not_reached = {});

}  // namespace app
