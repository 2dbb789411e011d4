// The arithmetic "Distribute Evenly" has to do for each layer to give the layout's values bit for
// bit, and nothing else: the same library functions on the same operands in the same order, in a
// plain loop over arrays, with the settings as numbers. The layout's time over this one's is what
// its structure costs (dialog reads, the record list, matrices and their classification, the
// footprint list) on top of the arithmetic.
#pragma once

#include "cylinder/SolidAngle.h"
#include "host_api.h"

#include <vector>

namespace bench {

// The dialog's initial values unless changed.
struct EvenlySettings {
    // As the edit fields hold them; the halves of X and Z must be at least 1e-12.
    float dim_x = 1000;
    float dim_y = 2000;
    float dim_z = 1000;
    float centre_x = 0;
    float centre_y = 0;
    float centre_z = 0;
    double phi0 = 0;  // the angle of the Begin side (Front)
    bool inward = false;
};

struct Placed {
    AEGP_ThreeDVal position;
    AEGP_ThreeDVal orientation;
    SolidAngle footprint;
};

// Places sizes.size() layers; `out` is resized to match.
void place_evenly(const EvenlySettings& settings, const std::vector<A_LPoint>& sizes, std::vector<Placed>& out);

// Library calls per layer in place_evenly: sines, cosines, square roots and arc cosines.
constexpr int kLibraryCallsPerLayer = 31;

}  // namespace bench
