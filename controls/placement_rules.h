// The small rules of the layout that a reader of a run needs as much as the layout itself: which
// placement the settings choose, where it begins, the box's half-axes, the extent a layer without
// a source is given, and which halves a sector admits. The plug-in decides by these, and a tool
// that reports on a run asks the same functions instead of working the rules out again.
#pragma once

#include <cstdint>

namespace controls {

// Below this a length or a half-axis counts as none; also the slack of the sector's front meridian.
inline constexpr double kLayoutEpsilon = 1e-12;

enum class PlacementMode { given_steps, evenly, equator, ring, radius_by_first };

struct ModeSwitches {
    bool distribute_evenly = false;  // CHECK_DISTRIBUTE_EVENLY
    bool radius_by_first = false;    // CHECK_RADIUS_BY_FIRST
    bool equator_only = false;       // RADIO_EQUATOR_ONLY
    bool create_ring = false;        // CHECK_CREATE_RING
};

// "Radius Set by First" when it is on and "Distribute Evenly" off, whatever the surface radios
// say; else "Distribute Evenly" or the given steps unless "Equator Only"; else the ring with
// "Create Ring With Layers", else steps along the equator.
PlacementMode placementMode(const ModeSwitches& switches);

// Whether the placement tests places against the sector: only the given steps and "Radius Set by
// First" do.
bool sectorActsIn(PlacementMode mode);

enum class BeginSide { front, back, left, right };

// The Begin radios are asked Front, Back, Left; none of them on means Right.
BeginSide beginSide(bool front, bool back, bool left);

// Half of a box extent as the layout takes it: the field's single-precision value halved in
// single precision, then widened.
double boxHalfAxis(float extent);

// A width and height in pixels, as the host gives them (32-bit).
struct Extent {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// Whether a source's area exceeds the largest one so far, both compared as the host's 32-bit
// signed product, wrapping as it does. Ties keep the one found first.
bool hasLargerArea(Extent candidate, Extent largest);

// The extent a text or shape layer is given: the largest selected 3D layer's source while "Crop
// Text Layers To Size Of Other 3D Layers" is on and there is one, else the composition's size.
Extent sourcelessExtent(bool crop_to_sources, Extent largest_source, Extent comp);

// What "Apply" adds to every position it writes: the composition's centre with "Use Comp Center",
// else nothing (the cylinder centre is then taken from the composition's top-left corner).
struct PlanarOffset {
    double x = 0;
    double y = 0;
};
PlanarOffset positionOffset(bool use_comp_center, Extent comp);

// The sector boxes; each admits the half of the cylinder on its side.
struct SectorBoxes {
    bool front = false;
    bool right = false;
    bool back = false;
    bool left = false;
};

// Two opposite halves make up the whole cylinder.
bool sectorAdmitsAll(const SectorBoxes& boxes);
// No box ticked: the sector admits no place at all.
bool sectorAdmitsNone(const SectorBoxes& boxes);
// Whether a place at this angle around the axis (degrees, 0 at the front, 90 at the right; any
// value within one turn either way) lies in a half a ticked box admits. Each half is closed at
// both ends; the front meridian also counts as left.
bool sectorAdmitsAngle(const SectorBoxes& boxes, double degrees);

}  // namespace controls
