// Dialog settings under which every record of a large list finds a place, one set per mode.
#pragma once

#include "bench/cylinder_stand.h"

namespace bench {

enum class Mode { evenly, given_steps, equator, radius, ring };

void choose_mode(CylinderStand& stand, Mode mode);

// Given steps with "Don't Intersect" on a cylinder wide and tall enough for 2,000 layers of
// mixed sizes.
void choose_dont_intersect(CylinderStand& stand);

}  // namespace bench
