// The footprint of one placed layer on the cylinder: an angle range and a height range.
#pragma once

struct SolidAngle {
    double phi_begin;  // radians in [0, 2 pi): edge on the side of decreasing phi
    double phi_end;    // radians in [0, 2 pi): edge on the side of increasing phi
    double h_low;      // pixels
    double h_high;     // pixels
};
