// Constants of the cylinder layout.
#pragma once

#include "controls/placement_rules.h"
#include "math/constants.h"
#include "math/vector3d.h"

// Degenerate-length and degenerate-radius threshold; also the slack of the row-wrap test.
inline constexpr double EPS = controls::kLayoutEpsilon;

// Where a layer goes when there is no surface to place it on.
inline const math::TGeomVector3D<double> error(math::Constant_Nowhere, math::Constant_Nowhere, math::Constant_Nowhere);
