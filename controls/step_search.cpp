#include "controls/step_search.h"

#include <algorithm>

namespace controls {
namespace {

constexpr double kPi = 3.141592653589793;
// Past the bound: how far the walks are followed.
constexpr std::int64_t kPast = kStepSearchBudget + 1;

// Steps around one row, the last of them completing the turn; 0 for steps that never move, where
// the search ends at the first place refused.
std::int64_t steps_per_row(const SearchSettings& s) {
    const double minimum = static_cast<double>(s.min_longitude) * kPi / 180;
    const double increment = static_cast<double>(s.longitude_increment) * kPi / 180;
    if (minimum == 0 && increment == 0) {
        return 0;
    }
    double travelled = 0;
    for (std::int64_t k = 0; k < kPast; ++k) {
        travelled += minimum + increment * static_cast<double>(k);
        if (travelled > kRowWrap) {
            return k + 1;
        }
    }
    return kPast;
}

// Row changes from the bottom until the rows pass the top, followed up to `limit`; -1 for rows
// that stop climbing, each height step leaving the height as it was and the next one the same.
std::int64_t rows_to_top(const SearchSettings& s, std::int64_t limit) {
    double h = static_cast<double>(s.dim_y) * -0.5;
    const double top = static_cast<double>(s.dim_y) * 0.5;
    const auto height_step = [&s](std::int64_t m) {
        return static_cast<double>(s.min_latitude) + static_cast<double>(s.latitude_increment) * static_cast<double>(m);
    };
    for (std::int64_t m = 0; m < limit; ++m) {
        const double before = h;
        const double dz = height_step(m);
        h += dz;
        if (h > top) {
            return m + 1;
        }
        if (h == before && height_step(m + 1) == dz) {
            return -1;
        }
    }
    return limit;
}

std::int64_t times(std::int64_t a, std::int64_t b) { return a > kPast / b ? kPast : std::min(kPast, a * b); }

std::int64_t rows_work(const SearchSettings& s, std::int64_t per_row) {
    const std::int64_t rows = rows_to_top(s, kPast / per_row + 1);
    if (rows < 0) {
        return s.dont_intersect ? 2 * per_row : kPast;
    }
    return times(rows, per_row);
}

}  // namespace

std::int64_t searchWorkToEnd(const SearchSettings& s) {
    if (s.admits_nothing) {
        return 0;
    }
    switch (s.mode) {
        case PlacementMode::evenly:
        case PlacementMode::ring:
            return 0;
        case PlacementMode::equator:
            return s.distribute_evenly ? 0 : steps_per_row(s);
        case PlacementMode::given_steps: {
            const std::int64_t per_row = steps_per_row(s);
            return per_row == 0 ? 0 : rows_work(s, per_row);
        }
        case PlacementMode::radius_by_first:
            return s.radius_layers < 1 ? 0 : rows_work(s, static_cast<std::int64_t>(s.radius_layers) + 1);
    }
    return 0;
}

bool searchWasCut(const SearchSettings& s, bool left_out) { return left_out && searchWorkToEnd(s) > kStepSearchBudget; }

}  // namespace controls
