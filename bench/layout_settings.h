// Dialog settings under which every record of a large list finds a place, one set per mode.
#pragma once

#include "bench/cylinder_stand.h"

namespace bench {

enum class Mode { evenly, given_steps, equator, radius, ring };

void choose_mode(CylinderStand& stand, Mode mode);

// Given steps of 1 degree and 20 pixels with "Don't Intersect" on a cylinder `width` wide and
// deep and `height` high (3,000 by 4,000 holds 2,000 layers of mixed sizes).
void choose_dont_intersect(CylinderStand& stand, float width, float height);

}  // namespace bench
