#include "cylinder/footprint_index.h"

#include "math/constants.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::int64_t kSectors = 256;
constexpr double kSectorsPerRadian = static_cast<double>(kSectors) / math::Constant_2PI;
// Rows further out than this from height 0 do not fit a cell key.
constexpr double kRowLimit = 1099511627776.0;  // 2^40
// A footprint over more rows than this stays loose; over more cells, it is filed by row only.
constexpr std::int64_t kMaxRows = 64;
constexpr std::int64_t kMaxCells = 256;

// Sector kSectors of a row stands for all of them.
std::int64_t key(std::int64_t row, std::int64_t sector) { return row * (kSectors + 1) + sector; }

std::size_t hash(std::int64_t key) {
    auto x = static_cast<std::uint64_t>(key);
    x ^= x >> 33;
    x *= 0xff51afd7ed558ccdULL;
    x ^= x >> 33;
    return static_cast<std::size_t>(x);
}

// Sectors grow with the angle, so a footprint's range of sectors covers those of its angles.
std::int64_t sector_of(double phi) {
    const double s = std::floor(phi * kSectorsPerRadian);
    if (!(s >= 0)) {
        return 0;
    }
    return s >= static_cast<double>(kSectors) ? kSectors - 1 : static_cast<std::int64_t>(s);
}

bool is_finite(const SolidAngle& b) {
    return std::isfinite(b.phi_begin) && std::isfinite(b.phi_end) && std::isfinite(b.h_low) && std::isfinite(b.h_high);
}

bool any_band_holds(const std::vector<SolidAngle>& bands, double phi, double h) {
    for (const SolidAngle& band : bands) {
        if (band_contains(band, phi, h, false)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool band_contains(const SolidAngle& band, double phi, double h, bool height_only) {
    const bool in_h = band.h_low <= h && h <= band.h_high;
    if (height_only) {
        return in_h;
    }
    // Angles at least half a turn apart mean the band runs across the front meridian.
    const bool in_phi = std::fabs(band.phi_end - band.phi_begin) < math::Constant_PI
                            ? band.phi_begin <= phi && phi <= band.phi_end
                            : phi >= band.phi_begin || phi <= band.phi_end;
    return in_h && in_phi;
}

void FootprintIndex::clear() {
    row_height_ = 0;
    tallest_ = 0;
    filed_ = 0;
    too_tall_ = 0;
    wide_ = 0;
    slots_ = {};
    used_ = 0;
    links_ = {};
    loose_ = {};
    lows_ = {};
    highs_ = {};
    reach_ = {};
    heights_filed_ = 0;
}

void FootprintIndex::update(const std::vector<SolidAngle>& bands) {
    if (bands.size() < filed_) {
        clear();
    }
    for (; filed_ < bands.size(); ++filed_) {
        file(static_cast<std::uint32_t>(filed_), bands[filed_]);
    }
    // Rows chosen from a small first footprint can be far too low for the later ones: then the
    // grid is laid out again with rows as high as the tallest footprint.
    if (too_tall_ > 64 && too_tall_ * 8 > filed_) {
        refile(bands);
    }
}

void FootprintIndex::refile(const std::vector<SolidAngle>& bands) {
    const double height = tallest_;
    clear();
    row_height_ = height;
    for (; filed_ < bands.size(); ++filed_) {
        file(static_cast<std::uint32_t>(filed_), bands[filed_]);
    }
}

bool FootprintIndex::row_of(double h, std::int64_t& row) const {
    const double r = std::floor(h / row_height_);
    if (!(std::fabs(r) <= kRowLimit)) {
        return false;
    }
    row = static_cast<std::int64_t>(r);
    return true;
}

void FootprintIndex::file(std::uint32_t i, const SolidAngle& band) {
    if (!is_finite(band)) {
        loose_.push_back(i);
        return;
    }
    const double height = band.h_high - band.h_low;
    if (height > tallest_) {
        tallest_ = height;
    }
    if (row_height_ == 0) {
        row_height_ = height > 1 ? height : 1;
    }
    std::int64_t low = 0;
    std::int64_t high = 0;
    if (!row_of(band.h_low, low) || !row_of(band.h_high, high)) {
        loose_.push_back(i);
        return;
    }
    if (high - low >= kMaxRows) {
        loose_.push_back(i);
        ++too_tall_;
        return;
    }
    // The sectors the band's angles reach, as one or two runs; none for a band that holds no angle.
    std::int64_t runs[2][2] = {{0, -1}, {0, -1}};
    const std::int64_t begin = sector_of(band.phi_begin);
    const std::int64_t end = sector_of(band.phi_end);
    if (std::fabs(band.phi_end - band.phi_begin) < math::Constant_PI) {
        if (band.phi_begin <= band.phi_end) {
            runs[0][0] = begin;
            runs[0][1] = end;
        }
    } else if (band.phi_begin <= band.phi_end) {
        runs[0][1] = kSectors - 1;  // taken as straddling the front, it holds every angle
    } else {
        runs[0][0] = begin;
        runs[0][1] = kSectors - 1;
        runs[1][1] = end;
    }
    const std::int64_t sectors = (runs[0][1] - runs[0][0] + 1) + (runs[1][1] - runs[1][0] + 1);
    const std::int64_t rows = high - low + 1;
    for (std::int64_t row = low; row <= high; ++row) {
        if (rows * sectors > kMaxCells) {
            link(key(row, kSectors), i);
            ++wide_;
            continue;
        }
        for (const auto& run : runs) {
            for (std::int64_t s = run[0]; s <= run[1]; ++s) {
                link(key(row, s), i);
            }
        }
    }
}

void FootprintIndex::link(std::int64_t k, std::uint32_t band) {
    // Kept at most half full, so that a search soon meets an empty slot.
    if (2 * (used_ + 1) > slots_.size()) {
        std::vector<Slot> old = std::move(slots_);
        slots_.assign(old.empty() ? 1024 : 2 * old.size(), Slot{});
        for (const Slot& slot : old) {
            if (slot.head != 0) {
                std::size_t at = hash(slot.key) & (slots_.size() - 1);
                while (slots_[at].head != 0) {
                    at = (at + 1) & (slots_.size() - 1);
                }
                slots_[at] = slot;
            }
        }
    }
    std::size_t at = hash(k) & (slots_.size() - 1);
    while (slots_[at].head != 0 && slots_[at].key != k) {
        at = (at + 1) & (slots_.size() - 1);
    }
    Slot& slot = slots_[at];
    if (slot.head == 0) {
        slot.key = k;
        ++used_;
    }
    links_.push_back(Link{band, slot.head});
    slot.head = static_cast<std::uint32_t>(links_.size());
}

bool FootprintIndex::chain_holds(const std::vector<SolidAngle>& bands, std::int64_t k, double phi, double h) const {
    if (slots_.empty()) {
        return false;
    }
    std::size_t at = hash(k) & (slots_.size() - 1);
    while (slots_[at].head != 0 && slots_[at].key != k) {
        at = (at + 1) & (slots_.size() - 1);
    }
    for (std::uint32_t l = slots_[at].head; l != 0; l = links_[l - 1].next) {
        if (band_contains(bands[links_[l - 1].band], phi, h, false)) {
            return true;
        }
    }
    return false;
}

bool FootprintIndex::any_contains(const std::vector<SolidAngle>& bands, const std::array<Vector, 5>& points) const {
    for (const Vector& q : points) {
        const double phi = q.y;
        const double h = q.z;
        for (std::uint32_t i : loose_) {
            if (band_contains(bands[i], phi, h, false)) {
                return true;
            }
        }
        if (row_height_ == 0) {
            continue;  // nothing filed in the grid yet
        }
        std::int64_t row = 0;
        if (!std::isfinite(phi) || !row_of(h, row)) {
            // Off the grid: rare enough to test every footprint.
            if (any_band_holds(bands, phi, h)) {
                return true;
            }
            continue;
        }
        if (chain_holds(bands, key(row, sector_of(phi)), phi, h) ||
            (wide_ != 0 && chain_holds(bands, key(row, kSectors), phi, h))) {
            return true;
        }
    }
    return false;
}

bool FootprintIndex::any_height_contains(const std::vector<SolidAngle>& bands, const std::array<Vector, 5>& points) {
    if (bands.size() < heights_filed_) {
        clear();
    }
    for (; heights_filed_ < bands.size(); ++heights_filed_) {
        const SolidAngle& band = bands[heights_filed_];
        // A range with an end that is not a number holds no height.
        if (std::isnan(band.h_low) || std::isnan(band.h_high)) {
            continue;
        }
        // Layers are placed row above row, so a new range mostly goes at the end.
        const auto at = std::upper_bound(lows_.begin(), lows_.end(), band.h_low) - lows_.begin();
        lows_.insert(lows_.begin() + at, band.h_low);
        highs_.insert(highs_.begin() + at, band.h_high);
        reach_.resize(highs_.size());
        for (std::size_t i = static_cast<std::size_t>(at); i < highs_.size(); ++i) {
            reach_[i] = i == 0 ? highs_[i] : std::max(reach_[i - 1], highs_[i]);
        }
    }
    for (const Vector& q : points) {
        const auto above = std::upper_bound(lows_.begin(), lows_.end(), q.z);
        if (above != lows_.begin() && reach_[static_cast<std::size_t>(above - lows_.begin()) - 1] >= q.z) {
            return true;
        }
    }
    return false;
}
