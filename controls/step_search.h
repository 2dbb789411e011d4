// How much work the layout may spend searching for places, and how to tell afterwards that a
// search was cut short. The plug-in stops its searches at the bound; the tool, which sees only the
// settings and which layers were reached, tells a cut search from one that ran out of room.
#pragma once

#include "controls/placement_rules.h"

#include <cstdint>
#include <limits>

namespace controls {

// Work one search may do: a step to the next place around a row, and, in the radius mode, a row
// change, which counts as much as the row it leaves (its layers plus one). The placement of one
// layout has this much, and the count of the repeats that fit has as much again. Layouts a user
// sets up stay below it: the count at its cap of 100000 layers, every other place refused by a
// sector, takes 280000. All of it takes about 0.1 s of processor time (0.3 to 0.6 s on a machine
// shared with a dozen busy processes).
inline constexpr std::int64_t kStepSearchBudget = 600'000;
static_assert(kStepSearchBudget < std::numeric_limits<int>::max(), "step and row numbers are int");

// A row is full once the angle travelled in it passes a whole turn, give or take rounding.
inline constexpr double kRowWrap = 6.283185307179586 - kLayoutEpsilon;

// The work done by one search, against the bound.
class StepSearch {
public:
    // Takes that much more work; false, and the search counts as cut, when it would pass the bound.
    bool take(std::int64_t work = 1) {
        if (work > kStepSearchBudget - done_) {
            cut_ = true;
            return false;
        }
        done_ += work;
        return true;
    }
    std::int64_t done() const { return done_; }
    bool cut() const { return cut_; }

private:
    std::int64_t done_ = 0;
    bool cut_ = false;
};

// The settings a search depends on, as the dialog's fields read them.
struct SearchSettings {
    PlacementMode mode = PlacementMode::given_steps;  // as placementMode() chooses it
    bool distribute_evenly = false;                   // CHECK_DISTRIBUTE_EVENLY
    float min_longitude = 0;                          // EDIT_MIN_LONGITUDE, degrees
    float longitude_increment = 0;                    // EDIT_LONGITUDE_INCREMENT
    float min_latitude = 0;                           // EDIT_MIN_LATITUDE, pixels
    float latitude_increment = 0;                     // EDIT_LATITUDE_INCREMENT
    float dim_y = 0;                                  // EDIT_DIM_Y
    int radius_layers = 0;                            // EDIT_RADIUS_LAYERS, as a whole number
    bool dont_intersect = false;                      // CHECK_DONT_INTERSECT
    bool admits_nothing = false;                      // RADIO_SECTOR on and sectorAdmitsNone()
};

// The work a placement's search does from its start to its own end, where its rows pass the top
// (along the equator: where its one row is full), whatever the layers; counted up to
// kStepSearchBudget + 1. Distribute Evenly, also along the equator, and the ring try a fixed number
// of places: 0. Rows that cannot climb end the search after two rows with "Don't Intersect" (it
// has then come round to places it refused); without it such a search has no end.
std::int64_t searchWorkToEnd(const SearchSettings& s);

// Whether a search was cut: it left something out, and it would have gone on past the bound.
// `left_out` is, for a layout, that a selected layer (or a copy) was not reached; for the count of
// the repeats that fit (given steps with "Repeat Layers"), that fewer copies were made than asked
// and the list held fewer than 100000 layers. A cut count leaves a list the placement then reaches
// in full. Where rows cannot climb and "Don't Intersect" is on, layers that keep finding room in the
// repeated rows could take a search past the bound unseen by this rule.
bool searchWasCut(const SearchSettings& s, bool left_out);

}  // namespace controls
