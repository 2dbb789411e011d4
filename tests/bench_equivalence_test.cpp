// The footprint index answers exactly as testing every footprint does, on random footprints of
// every kind; and the plain loop the benchmarks take as the arithmetic of an even placement gives
// the layout's values bit for bit.
#include "cylinder_fixture.h"

#include "bench/placement_arithmetic.h"
#include "cylinder/footprint_index.h"
#include "math/constants.h"

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

using Vector = MainDlg::Vector;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class Random {
public:
    explicit Random(unsigned seed) : rng_(seed) {}
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    double uniform(double a, double b) { return std::uniform_real_distribution<double>(a, b)(rng_); }
    double angle() { return uniform(0, math::Constant_2PI); }

private:
    std::mt19937 rng_;
};

// Footprints of every kind: ordinary, flat, across the front meridian, wider than half a turn,
// angles the wrong way round, tall, and some with values that are not finite.
SolidAngle any_footprint(Random& r) {
    const double begin = r.angle();
    const double h = r.uniform(-1e5, 1e5);
    switch (r.pick(10)) {
        case 0:
            return {begin, std::fmod(begin + r.uniform(0, 0.2), math::Constant_2PI), h, h};
        case 1:
            return {r.uniform(6.0, 6.28), r.uniform(0, 0.3), h, h + r.uniform(0, 200)};
        case 2:
            return {begin, std::fmod(begin + r.uniform(3.2, 6.2), math::Constant_2PI), h, h + r.uniform(0, 200)};
        case 3:
            return {begin, begin - r.uniform(0, 1), h, h + r.uniform(0, 200)};
        case 4:
            return {begin, begin + r.uniform(0, 0.5), h, h + r.uniform(2000, 9000)};
        case 5:
            return {begin, begin + 0.1, r.pick(2) == 0 ? -kInf : kNaN, h};
        case 6:
            return {kNaN, begin, h, h + 50};
        default:
            return {begin, std::fmod(begin + r.uniform(0, 0.3), math::Constant_2PI), h, h + r.uniform(10, 120)};
    }
}

// Mostly anywhere, some on and just beside a footprint's edges, now and then not finite.
Vector any_point(Random& r, const std::vector<SolidAngle>& bands) {
    const int kind = r.pick(100);
    if (bands.empty() || kind == 0) {
        const double h = r.pick(2) == 0 ? kInf : r.uniform(-1e5, 1e5);
        return Vector(1, r.pick(2) == 0 ? kNaN : r.angle(), r.pick(4) == 0 ? kNaN : h);
    }
    if (kind > 8) {
        return Vector(1, r.angle(), r.uniform(-1e5, 1e5));
    }
    const SolidAngle& b = bands[static_cast<std::size_t>(r.pick(static_cast<int>(bands.size())))];
    const double phis[] = {b.phi_begin, b.phi_end, std::nextafter(b.phi_begin, -1.0), std::nextafter(b.phi_end, 10.0),
                           r.angle()};
    const double hs[] = {b.h_low, b.h_high, std::nextafter(b.h_low, -kInf), std::nextafter(b.h_high, kInf),
                         r.uniform(b.h_low - 10, b.h_high + 10)};
    return Vector(1, phis[r.pick(5)], hs[r.pick(5)]);
}

// Adds `rounds` footprints one at a time and after each compares the index with the plain test, by
// angle and height and by height alone.
void expect_same_answers(FootprintIndex& index, std::vector<SolidAngle>& bands, int rounds, Random& r,
                         const std::function<SolidAngle()>& next, int& overlaps) {
    for (int round = 0; round < rounds; ++round) {
        bands.push_back(next());
        index.update(bands);
        for (int t = 0; t < 10; ++t) {
            std::array<Vector, 5> points;
            bool expected = false;
            bool expected_height = false;
            for (Vector& q : points) {
                q = any_point(r, bands);
                for (const SolidAngle& band : bands) {
                    expected = expected || band_contains(band, q.y, q.z, false);
                    expected_height = expected_height || band_contains(band, q.y, q.z, true);
                }
            }
            ASSERT_EQ(expected, index.any_contains(bands, points)) << "after " << bands.size() << " footprints";
            ASSERT_EQ(expected_height, index.any_height_contains(bands, points)) << "after " << bands.size();
            overlaps += expected ? 1 : 0;
        }
    }
}

TEST(FootprintIndex, AnswersAsTestingEveryFootprint) {
    Random r(20240611);
    FootprintIndex index;
    std::vector<SolidAngle> bands;
    int overlaps = 0;
    expect_same_answers(
        index, bands, 3000, r, [&r] { return any_footprint(r); }, overlaps);
    // Both answers must have been put to the test often.
    EXPECT_GT(overlaps, 3000);
    EXPECT_LT(overlaps, 27000);

    // A shorter list is filed anew: emptied, it holds nothing.
    bands.clear();
    index.update(bands);
    EXPECT_FALSE(index.any_contains(bands, std::array<Vector, 5>{}));
    EXPECT_FALSE(index.any_height_contains(bands, std::array<Vector, 5>{}));
    // Rows sized by a 1-pixel footprint leave the 500-pixel ones after it loose until the grid is
    // laid out again; the answers must not change on the way.
    bands = {{0.1, 0.2, 0, 1}};
    overlaps = 0;
    expect_same_answers(
        index, bands, 600, r,
        [&r] {
            const double p = r.angle();
            const double low = r.uniform(-5000, 5000);
            return SolidAngle{p, p + 0.05, low, low + 500};
        },
        overlaps);
    EXPECT_GT(overlaps, 100);
}

// Front to back, both sides, an elliptic section, a centre away from the origin and inward faces:
// the plain loop must give every value and footprint of the layout, bit for bit.
TEST_F(CylinderTest, PlainArithmeticOfAnEvenPlacementGivesTheLayoutsValues) {
    const struct {
        ADMInt32 side;
        double phi0;
        float dim_x, dim_z, centre;
        bool inward;
    } cases[] = {{RADIO_BEGIN_FRONT, 0, 1000, 1000, 0, false},
                 {RADIO_BEGIN_LEFT, -math::Constant_Half_PI, 1700, 600, 250, true},
                 {RADIO_BEGIN_BACK, math::Constant_PI, 300, 2200, -40, false},
                 {RADIO_BEGIN_RIGHT, math::Constant_Half_PI, 1000, 1000, 0, true}};
    const auto append = [](std::vector<unsigned char>& out, const auto& v) {
        const auto* p = reinterpret_cast<const unsigned char*>(&v);
        out.insert(out.end(), p, p + sizeof v);
    };
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    for (const auto& c : cases) {
        begin_at(c.side);
        set_bool(c.inward ? RADIO_INWARD : RADIO_OUTWARD, true);
        set_float(EDIT_DIM_X, c.dim_x);
        set_float(EDIT_DIM_Z, c.dim_z);
        for (ADMInt32 id : {EDIT_SPHERE_CENTER_X, EDIT_SPHERE_CENTER_Y, EDIT_SPHERE_CENTER_Z}) {
            set_float(id, c.centre);
        }
        // 997 sizes from 30 x 20 to 110 x 90 pixels.
        std::vector<A_LPoint> sizes;
        set_layer_sizes({});
        for (A_long i = 0; i < 997; ++i) {
            sizes.push_back({30 + (i * 37) % 81, 20 + (i * 53) % 71});
            dlg_->layers.push_back(record(i + 1, sizes.back().x, sizes.back().y));
        }
        ASSERT_EQ(0, dlg().get_layers_pos());

        bench::EvenlySettings settings;
        settings.dim_x = c.dim_x;
        settings.dim_z = c.dim_z;
        settings.centre_x = settings.centre_y = settings.centre_z = c.centre;
        settings.phi0 = c.phi0;
        settings.inward = c.inward;
        std::vector<bench::Placed> plain;
        bench::place_evenly(settings, sizes, plain);
        std::vector<unsigned char> expected;
        for (const bench::Placed& placed : plain) {
            append(expected, placed.position);
            append(expected, placed.orientation);
            append(expected, placed.footprint);
        }
        std::vector<unsigned char> layout;
        std::size_t i = 0;
        for (const AssistantDlg::LayerInfo& r : dlg_->layers) {
            append(layout, r.position.val.three_d);
            append(layout, r.orientation.val.three_d);
            append(layout, state().volumes.at(i++));
        }
        EXPECT_EQ(layout, expected) << "begin side " << c.side;
    }
}

}  // namespace
