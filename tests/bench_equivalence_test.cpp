// The footprint index and the settings read once per layout change no result: every answer and
// every placement is compared, bit for bit, with the plain test of every footprint and with a
// layout that reads each control whenever it needs it. The plain loop the benchmarks take as the
// arithmetic of an even placement gives the layout's values bit for bit.
#include "cylinder_fixture.h"

#include "bench/placement_arithmetic.h"
#include "cylinder/settings_table.h"

#include "cylinder/footprint_index.h"
#include "cylinder/layout_scope.h"
#include "math/constants.h"

#include <cmath>
#include <limits>
#include <list>
#include <random>
#include <vector>

namespace {

using Vector = MainDlg::Vector;
using LayerInfo = AssistantDlg::LayerInfo;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool brute_force(const std::vector<SolidAngle>& bands, const std::array<Vector, 5>& points)
{
    for (const SolidAngle& band : bands) {
        for (const Vector& q : points) {
            if (band_contains(band, q.y, q.z, false)) {
                return true;
            }
        }
    }
    return false;
}

// Footprints of every kind: ordinary, across the front meridian, wider than half a turn, angles
// the wrong way round, flat, tall, and some with values that are not finite.
class BandMaker {
public:
    explicit BandMaker(unsigned seed) : rng_(seed) {}

    SolidAngle next()
    {
        const double begin = angle();
        const double h = uniform(-1e5, 1e5);
        switch (pick(10)) {
        case 0:
            return {begin, std::fmod(begin + uniform(0, 0.2), math::Constant_2PI), h, h};
        case 1:
            return {uniform(6.0, 6.28), uniform(0, 0.3), h, h + uniform(0, 200)};
        case 2:
            return {begin, std::fmod(begin + uniform(3.2, 6.2), math::Constant_2PI), h, h + uniform(0, 200)};
        case 3:
            return {begin, begin - uniform(0, 1), h, h + uniform(0, 200)};
        case 4:
            return {begin, begin + uniform(0, 0.5), h, h + uniform(2000, 9000)};
        case 5:
            return {begin, begin + 0.1, pick(2) == 0 ? -kInf : kNaN, h};
        case 6:
            return {kNaN, begin, h, h + 50};
        default:
            return {begin, std::fmod(begin + uniform(0, 0.3), math::Constant_2PI), h, h + uniform(10, 120)};
        }
    }

    // Points on and near the bands' edges, and some that are not finite.
    std::array<Vector, 5> points_near(const std::vector<SolidAngle>& bands)
    {
        std::array<Vector, 5> points;
        for (Vector& q : points) {
            if (bands.empty() || pick(100) == 0) {
                q = Vector(1, pick(2) == 0 ? kNaN : angle(), pick(2) == 0 ? kInf : uniform(-1e5, 1e5));
                continue;
            }
            if (pick(12) != 0) {
                q = Vector(1, angle(), uniform(-1e5, 1e5));
                continue;
            }
            const SolidAngle& b = bands[pick(static_cast<int>(bands.size()))];
            const double phis[] = {b.phi_begin, b.phi_end, std::nextafter(b.phi_begin, -1.0),
                                   std::nextafter(b.phi_end, 10.0), angle()};
            const double hs[] = {b.h_low, b.h_high, std::nextafter(b.h_low, -kInf), std::nextafter(b.h_high, kInf),
                                 uniform(b.h_low - 10, b.h_high + 10)};
            q = Vector(1, phis[pick(5)], hs[pick(5)]);
        }
        return points;
    }

private:
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    double uniform(double a, double b) { return std::uniform_real_distribution<double>(a, b)(rng_); }
    double angle() { return uniform(0, math::Constant_2PI); }

    std::mt19937 rng_;
};

TEST(FootprintIndex, AnswersAsTestingEveryFootprint)
{
    BandMaker maker(20240611);
    std::vector<SolidAngle> bands;
    FootprintIndex index;
    int overlaps = 0;
    for (int round = 0; round < 3000; ++round) {
        bands.push_back(maker.next());
        index.update(bands);
        for (int t = 0; t < 10; ++t) {
            const std::array<Vector, 5> points = maker.points_near(bands);
            const bool expected = brute_force(bands, points);
            ASSERT_EQ(expected, index.any_contains(bands, points)) << "after " << bands.size() << " footprints";
            overlaps += expected ? 1 : 0;
        }
    }
    // Both answers must have been put to the test often.
    EXPECT_GT(overlaps, 3000);
    EXPECT_LT(overlaps, 27000);
}

TEST(FootprintIndex, ShortFirstFootprintThenTallOnesIsFiledAnew)
{
    // Rows sized by a 1-pixel footprint leave the 500-pixel ones loose until the grid is laid out
    // again; the answers must not change on the way.
    std::vector<SolidAngle> bands = {{0.1, 0.2, 0, 1}};
    FootprintIndex index;
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> phi(0, math::Constant_2PI);
    std::uniform_real_distribution<double> h(-5000, 5000);
    for (int i = 0; i < 600; ++i) {
        const double p = phi(rng);
        const double low = h(rng);
        bands.push_back({p, p + 0.05, low, low + 500});
        index.update(bands);
        for (int t = 0; t < 5; ++t) {
            std::array<Vector, 5> points;
            for (Vector& q : points) {
                q = Vector(1, phi(rng), h(rng));
            }
            ASSERT_EQ(brute_force(bands, points), index.any_contains(bands, points));
        }
    }
}

TEST(FootprintIndex, ShorterListIsFiledAnew)
{
    std::vector<SolidAngle> bands = {{0.1, 0.2, 0, 10}, {1.0, 1.2, 0, 10}};
    FootprintIndex index;
    index.update(bands);
    const std::array<Vector, 5> at_first = {Vector(1, 0.15, 5), Vector(1, 0.15, 5), Vector(1, 0.15, 5),
                                            Vector(1, 0.15, 5), Vector(1, 0.15, 5)};
    EXPECT_TRUE(index.any_contains(bands, at_first));
    bands = {{3.0, 3.1, 0, 10}};
    index.update(bands);
    EXPECT_FALSE(index.any_contains(bands, at_first));
}

TEST(FootprintIndex, EmptyHoldsNothing)
{
    const std::vector<SolidAngle> bands;
    FootprintIndex index;
    index.update(bands);
    const std::array<Vector, 5> points{};
    EXPECT_FALSE(index.any_contains(bands, points));
}

class LayoutEquivalence : public CylinderTest {
protected:
    // Everything a layout writes, and the footprints it recorded, as raw bytes.
    std::vector<unsigned char> result() const
    {
        std::vector<unsigned char> out;
        const auto append = [&out](const auto& v) {
            const auto* p = reinterpret_cast<const unsigned char*>(&v);
            out.insert(out.end(), p, p + sizeof v);
        };
        for (const LayerInfo& r : dlg_->layers) {
            append(r.size);
            append(r.scale.val.three_d);
            append(r.position.val.three_d);
            append(r.orientation.val.three_d);
        }
        for (const SolidAngle& band : dlg_->volumes) {
            append(band);
        }
        append(dlg_->layers.size());
        return out;
    }

    // Sizes from 30 x 20 to 110 x 90 pixels, repeating after `period` records.
    void mixed_records(int n, int period = 1 << 30)
    {
        set_layer_sizes({});
        for (int i = 0; i < n; ++i) {
            const int k = i % period;
            LayerInfo r = record(i + 1, 30 + (k * 37) % 81, 20 + (k * 53) % 71);
            r.position.val.three_d = AEGP_ThreeDVal{-1, -2, -3};
            dlg_->layers.push_back(r);
        }
    }

    // The layout as the plug-in runs it, against the mode called on its own, which reads every
    // control each time and tests every footprint.
    template <typename Mode>
    void expect_same_as_plain(int records, Mode mode)
    {
        mixed_records(records);
        const std::list<LayerInfo> input = dlg_->layers;
        state().volumes.clear();
        mode(dlg());
        const std::vector<unsigned char> plain = result();
        const std::size_t placed = state().volumes.size();

        dlg_->layers = input;
        ASSERT_EQ(0, dlg().get_layers_pos());
        EXPECT_EQ(plain, result());
        // A comparison of layouts that placed nothing would prove little.
        EXPECT_GT(placed, static_cast<std::size_t>(records) / 2);
    }

    void dont_intersect_on_a_wide_cylinder()
    {
        set_bool(CHECK_DONT_INTERSECT, true);
        set_float(EDIT_DIM_X, 3000);
        set_float(EDIT_DIM_Z, 2000);
        set_float(EDIT_DIM_Y, 4000);
        set_float(EDIT_MIN_LONGITUDE, 1);
        set_float(EDIT_LONGITUDE_INCREMENT, 0.01f);
        set_float(EDIT_MIN_LATITUDE, 20);
    }
};

TEST_F(LayoutEquivalence, GivenStepsWithDontIntersect)
{
    dont_intersect_on_a_wide_cylinder();
    expect_same_as_plain(1500, [](MainDlg& d) { d.set_layers_with_given_steps(); });
}

TEST_F(LayoutEquivalence, GivenStepsWithDontIntersectInASectorBeginningAtTheBack)
{
    dont_intersect_on_a_wide_cylinder();
    begin_at(RADIO_BEGIN_BACK);
    set_bool(RADIO_WHOLE_CYLINDER, false);
    set_bool(RADIO_SECTOR, true);
    set_bool(CHECK_SECTOR_FRONT, true);
    set_bool(CHECK_SECTOR_RIGHT, true);
    set_bool(RADIO_INWARD, true);
    expect_same_as_plain(800, [](MainDlg& d) { d.set_layers_with_given_steps(); });
}

TEST_F(LayoutEquivalence, EvenlyWithDontIntersect)
{
    set_bool(CHECK_DONT_INTERSECT, true);
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    expect_same_as_plain(400, [](MainDlg& d) { d.set_layers_evenly(); });
}

TEST_F(LayoutEquivalence, EquatorWithDontIntersect)
{
    set_bool(CHECK_DONT_INTERSECT, true);
    set_bool(RADIO_WHOLE_CYLINDER, false);
    set_bool(RADIO_EQUATOR_ONLY, true);
    set_float(EDIT_DIM_X, 20000);
    set_float(EDIT_DIM_Z, 20000);
    set_float(EDIT_MIN_LONGITUDE, 0.2f);
    expect_same_as_plain(300, [](MainDlg& d) { d.set_layers_along_equator(); });
}

TEST_F(LayoutEquivalence, RadiusSetByFirstWithDontIntersect)
{
    set_bool(CHECK_DONT_INTERSECT, true);
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_float(EDIT_RADIUS_LAYERS, 40);
    set_float(EDIT_MIN_LATITUDE, 10);
    set_float(EDIT_DIM_Y, 8000);
    expect_same_as_plain(600, [](MainDlg& d) { d.set_with_pre_computed_radius(); });
}

TEST_F(LayoutEquivalence, Ring)
{
    set_bool(RADIO_WHOLE_CYLINDER, false);
    set_bool(RADIO_EQUATOR_ONLY, true);
    set_bool(CHECK_CREATE_RING, true);
    set_float(EDIT_DIM_Z, 1600);
    mixed_records(200);
    const std::list<LayerInfo> input = dlg_->layers;
    dlg().create_equatorial_ring();
    const std::vector<unsigned char> plain = result();
    dlg_->layers = input;
    ASSERT_EQ(0, dlg().get_layers_pos());
    EXPECT_EQ(plain, result());
}

// Front to back, both sides, an elliptic section, a centre away from the origin and inward faces:
// the plain loop must give every value and footprint of the layout, bit for bit.
TEST_F(LayoutEquivalence, PlainArithmeticOfAnEvenPlacementGivesTheLayoutsValues)
{
    const struct {
        ADMInt32 side;
        double phi0;
        float dim_x, dim_z;
        float centre;
        bool inward;
    } cases[] = {{RADIO_BEGIN_FRONT, 0, 1000, 1000, 0, false},
                 {RADIO_BEGIN_LEFT, -math::Constant_Half_PI, 1700, 600, 250, true},
                 {RADIO_BEGIN_BACK, math::Constant_PI, 300, 2200, -40, false},
                 {RADIO_BEGIN_RIGHT, math::Constant_Half_PI, 1000, 1000, 0, true}};
    for (const auto& c : cases) {
        set_bool(CHECK_DISTRIBUTE_EVENLY, true);
        begin_at(c.side);
        set_bool(RADIO_INWARD, c.inward);
        set_bool(RADIO_OUTWARD, !c.inward);
        set_float(EDIT_DIM_X, c.dim_x);
        set_float(EDIT_DIM_Z, c.dim_z);
        for (ADMInt32 id : {EDIT_SPHERE_CENTER_X, EDIT_SPHERE_CENTER_Y, EDIT_SPHERE_CENTER_Z}) {
            set_float(id, c.centre);
        }
        mixed_records(997);
        std::vector<A_LPoint> sizes;
        for (const LayerInfo& r : dlg_->layers) {
            sizes.push_back(r.size);
        }
        ASSERT_EQ(0, dlg().get_layers_pos());

        bench::EvenlySettings settings;
        settings.dim_x = c.dim_x;
        settings.dim_z = c.dim_z;
        settings.dim_y = EDIT_DIM_Y_DFLT;
        settings.centre_x = settings.centre_y = settings.centre_z = c.centre;
        settings.phi0 = c.phi0;
        settings.inward = c.inward;
        std::vector<bench::Placed> plain;
        bench::place_evenly(settings, sizes, plain);

        const auto append = [](std::vector<unsigned char>& out, const auto& v) {
            const auto* p = reinterpret_cast<const unsigned char*>(&v);
            out.insert(out.end(), p, p + sizeof v);
        };
        std::vector<unsigned char> expected;
        for (const bench::Placed& placed : plain) {
            append(expected, placed.position);
            append(expected, placed.orientation);
            append(expected, placed.footprint);
        }
        std::vector<unsigned char> layout;
        std::size_t i = 0;
        for (const LayerInfo& r : dlg_->layers) {
            append(layout, r.position.val.three_d);
            append(layout, r.orientation.val.three_d);
            append(layout, state().volumes.at(i++));
        }
        EXPECT_EQ(layout, expected) << "begin side " << c.side;
    }
}

TEST_F(LayoutEquivalence, CountOfRepeatedLayersMatchesTheGivenStepsLayout)
{
    // The count runs inside the layout with the index of its own, and must agree place by place
    // with the layout that then keeps exactly that many records.
    dont_intersect_on_a_wide_cylinder();
    set_float(EDIT_DIM_Y, 600);
    mixed_records(7);
    const int fit = dlg().get_layers_number();
    EXPECT_TRUE(state().volumes.empty());
    mixed_records(fit + 50, 7);
    dlg().set_layers_with_given_steps();
    EXPECT_EQ(static_cast<std::size_t>(fit), state().volumes.size());
    EXPECT_GT(fit, 100);
}

TEST_F(LayoutEquivalence, OverlapTestInsideALayoutAnswersAsTheFootprintRule)
{
    set_bool(CHECK_DONT_INTERSECT, true);
    std::mt19937 rng(99);
    std::uniform_real_distribution<double> phi(0, math::Constant_2PI);
    std::uniform_real_distribution<double> h(-1000, 1000);
    std::uniform_int_distribution<A_long> side(0, 300);
    const LayoutScope scope(dlg());
    int overlaps = 0;
    for (int i = 0; i < 400; ++i) {
        const A_LPoint size{side(rng), side(rng)};
        const Vector p = dlg().get_position(phi(rng), h(rng), 0);
        bool expected = false;
        Vector t;
        Vector u;
        dlg().get_phi_z_dir(p, t, u);
        const Vector along = t * (0.5 * size.x);
        const Vector up = u * (0.5 * size.y);
        for (const SolidAngle& band : state().volumes) {
            for (const Vector& q : {p, p - along + up, p - along - up, p + along - up, p + along + up}) {
                expected = expected || dlg().contains(band, q, false);
            }
        }
        ASSERT_EQ(expected, dlg().intersects(p, size, false));
        overlaps += expected ? 1 : 0;
        dlg().add_volume(p, size);
    }
    EXPECT_GT(overlaps, 40);
    EXPECT_LT(overlaps, 360);
}

}  // namespace
