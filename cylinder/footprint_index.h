// The recorded footprints sorted into a grid of height rows and angle sectors, so that a point is
// tested only against the footprints that can hold it. It answers exactly as testing every
// footprint does: a footprint is filed under every cell its ranges reach, and the candidates are
// tested with the same rule.
#pragma once

#include "cylinder/SolidAngle.h"
#include "math/vector3d.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

// Whether a footprint holds a point given by its angle and height: the one rule of the overlap test.
bool band_contains(const SolidAngle& band, double phi, double h, bool height_only);

class FootprintIndex {
public:
    using Vector = math::TGeomVector3D<double>;

    // Forgets every footprint and gives back the memory.
    void clear();

    // Files the footprints appended to the list since the last call; a list that got shorter is
    // filed anew.
    void update(const std::vector<SolidAngle>& bands);

    // Whether a filed footprint holds one of the points, given in cylinder coordinates (r, phi, h).
    bool any_contains(const std::vector<SolidAngle>& bands, const std::array<Vector, 5>& points) const;

    // Whether a footprint's height range holds one of the points' heights, whatever its angles.
    // Files the footprints appended since the last such question first.
    bool any_height_contains(const std::vector<SolidAngle>& bands, const std::array<Vector, 5>& points);

private:
    // A cell's footprints as a chain through `links_`, newest first.
    struct Slot {
        std::int64_t key = 0;
        std::uint32_t head = 0;  // 1 + index into links_; 0 for an empty slot
    };
    struct Link {
        std::uint32_t band;
        std::uint32_t next;  // 1 + index into links_; 0 ends the chain
    };

    void file(std::uint32_t i, const SolidAngle& band);
    void refile(const std::vector<SolidAngle>& bands);
    bool row_of(double h, std::int64_t& row) const;
    void link(std::int64_t key, std::uint32_t band);
    bool chain_holds(const std::vector<SolidAngle>& bands, std::int64_t key, double phi, double h) const;

    double row_height_ = 0;  // 0 until the first footprint of finite extent sets it
    double tallest_ = 0;     // the largest finite height range filed
    std::size_t filed_ = 0;
    std::size_t too_tall_ = 0;  // footprints left loose for reaching over too many rows
    std::size_t wide_ = 0;      // rows filed under "every sector"
    // Open addressing over cell keys: (row, sector), and (row, every sector) for footprints
    // spanning many sectors.
    std::vector<Slot> slots_;
    std::size_t used_ = 0;
    std::vector<Link> links_;
    std::vector<std::uint32_t> loose_;  // footprints outside the grid, tested for every point

    // Height ranges in the order of their lower ends, and the highest upper end up to each: a
    // height lies in a range when the highest upper end among the ranges starting at or below it
    // reaches it.
    std::vector<double> lows_;
    std::vector<double> highs_;
    std::vector<double> reach_;
    std::size_t heights_filed_ = 0;
};
