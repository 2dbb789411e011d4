#include "controls/placement_rules.h"

namespace controls {

PlacementMode placementMode(const ModeSwitches& s) {
    if (!s.distribute_evenly && s.radius_by_first) {
        return PlacementMode::radius_by_first;
    }
    if (!s.equator_only) {
        return s.distribute_evenly ? PlacementMode::evenly : PlacementMode::given_steps;
    }
    return s.create_ring ? PlacementMode::ring : PlacementMode::equator;
}

bool sectorActsIn(PlacementMode mode) {
    return mode == PlacementMode::given_steps || mode == PlacementMode::radius_by_first;
}

BeginSide beginSide(bool front, bool back, bool left) {
    if (front) {
        return BeginSide::front;
    }
    if (back) {
        return BeginSide::back;
    }
    return left ? BeginSide::left : BeginSide::right;
}

double boxHalfAxis(float extent) { return static_cast<double>(extent * 0.5f); }

bool hasLargerArea(Extent candidate, Extent largest) {
    const auto area = [](Extent e) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(e.width) * static_cast<std::uint32_t>(e.height));
    };
    return area(candidate) > area(largest);
}

Extent sourcelessExtent(bool crop_to_sources, Extent largest_source, Extent comp) {
    if (crop_to_sources && (largest_source.width != 0 || largest_source.height != 0)) {
        return largest_source;
    }
    return comp;
}

PlanarOffset positionOffset(bool use_comp_center, Extent comp) {
    if (!use_comp_center) {
        return {};
    }
    return {static_cast<double>(comp.width) * 0.5, static_cast<double>(comp.height) * 0.5};
}

bool sectorAdmitsAll(const SectorBoxes& b) { return (b.front && b.back) || (b.left && b.right); }

bool sectorAdmitsNone(const SectorBoxes& b) { return !b.front && !b.right && !b.back && !b.left; }

bool sectorAdmitsAngle(const SectorBoxes& b, double a) {
    if (a > 360) {
        a -= 360;
    }
    if (a < 0) {
        a += 360;
    }
    return (b.front && (a <= 90 || a >= 270)) || (b.right && a <= 180) || (b.back && a >= 90 && a <= 270) ||
           (b.left && (a >= 180 || a < kLayoutEpsilon));
}

}  // namespace controls
