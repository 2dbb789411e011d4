#include "cylinder_fixture.h"
#include "layout_records.h"

#include <cmath>
#include <vector>

namespace {

using namespace layout_records;

// One panel read back from its record: centre, direction of travel, and width.
struct Panel {
    Vector centre;
    Vector direction;
    double width;

    Vector near_edge() const { return centre - 0.5 * width * direction; }
    Vector far_edge() const { return centre + 0.5 * width * direction; }
};

class EquatorialRingTest : public CylinderTest {
protected:
    void SetUp() override {
        CylinderTest::SetUp();
        surface(RADIO_EQUATOR_ONLY);
        set_bool(CHECK_CREATE_RING, true);
        set_float(EDIT_DIM_X, 1000);
        set_float(EDIT_DIM_Z, 1000);
    }

    std::list<LayerInfo>& records() { return state().layers; }

    void widths(const std::vector<A_long>& ws) {
        records().clear();
        A_long index = 1;
        for (A_long w : ws) {
            records().push_back(record(index++, w, 80));
        }
        mark_snapshot(records());
    }

    // The panels as laid out. The outward normal at angle phi comes back from the written
    // orientation (back half: X = -180 and Y = phi - 180; otherwise Y = -phi); the direction of
    // travel is that normal turned a quarter toward increasing angle. The last panel's true width
    // is its original width times its scale factor (its size is truncated).
    std::vector<Panel> panels(const std::vector<double>& original_widths) {
        std::vector<Panel> out;
        std::size_t i = 0;
        for (const LayerInfo& r : records()) {
            const AEGP_ThreeDVal& o = r.orientation.val.three_d;
            const double phi = (o.x < -90 ? o.y + 180 : -o.y) * math::Constant_PI / 180;
            const double scale = r.scale.val.three_d.x / 100;
            out.push_back(Panel{layout_point(r), Vector(std::cos(phi), 0, -std::sin(phi)), original_widths[i] * scale});
            ++i;
        }
        return out;
    }

    // Consecutive panels meet edge to edge, the last one closing on the first. The directions come
    // back through the written angles in degrees, good to about 1e-8 radians near the sides.
    static void expect_closed(const std::vector<Panel>& ring, double tolerance) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Vector a = ring[i].far_edge();
            const Vector b = ring[(i + 1) % ring.size()].near_edge();
            EXPECT_NEAR(0, (a - b).Length(), tolerance) << "between panels " << i << " and " << i + 1;
            EXPECT_EQ(0, ring[i].centre.y) << "panel " << i;
        }
    }

    // How far the panel's line stays outside the ellipse x^2/a^2 + z^2/c^2 = 1: the minimum of the
    // ellipse's equation along the line, 1 when the line touches it.
    static double touch(const Panel& p, double a, double c) {
        const Vector& o = p.centre;
        const Vector& d = p.direction;
        const double t = -(o.x * d.x / (a * a) + o.z * d.z / (c * c)) / (d.x * d.x / (a * a) + d.z * d.z / (c * c));
        const double x = o.x + t * d.x;
        const double z = o.z + t * d.z;
        return x * x / (a * a) + z * z / (c * c);
    }
};

// ---- Line and ellipsoid --------------------------------------------------------------------------

TEST_F(EquatorialRingTest, LineCrossesTheEllipsoidTwiceInOrderTouchesItOnceOrLeavesThePointsAlone) {
    Vector p1;
    Vector p2;
    ASSERT_EQ(2, dlg().intersect_ellipse(Vector(-2, 0, 0), Vector(1, 0, 0), Vector(1, 1, 1), p1, p2));
    EXPECT_EQ(Vector(-1, 0, 0), p1);
    EXPECT_EQ(Vector(1, 0, 0), p2);
    ASSERT_EQ(2, dlg().intersect_ellipse(Vector(0, 0, 0), Vector(0, 0, 1), Vector(2, 3, 4), p1, p2));
    EXPECT_EQ(Vector(0, 0, -4), p1);
    EXPECT_EQ(Vector(0, 0, 4), p2);
    // A tangent touches once.
    ASSERT_EQ(2, dlg().intersect_ellipse(Vector(-2, 1, 0), Vector(1, 0, 0), Vector(1, 1, 1), p1, p2));
    EXPECT_EQ(Vector(0, 1, 0), p1);
    EXPECT_EQ(p1, p2);
    // Missing or degenerate lines leave the points alone.
    const Vector keep1(7, 8, 9);
    const Vector keep2(-7, -8, -9);
    p1 = keep1;
    p2 = keep2;
    EXPECT_EQ(0, dlg().intersect_ellipse(Vector(0, 5, 0), Vector(1, 0, 0), Vector(1, 1, 1), p1, p2));
    EXPECT_EQ(0, dlg().intersect_ellipse(Vector(0, 0, 0), Vector(0, 0, 0), Vector(1, 1, 1), p1, p2));
    EXPECT_EQ(0, dlg().intersect_ellipse(Vector(0, 0, 0), Vector(1, 0, 0), Vector(0, 1, 1), p1, p2));
    EXPECT_EQ(keep1, p1);
    EXPECT_EQ(keep2, p2);
}

// ---- The ring ------------------------------------------------------------------------------------

TEST_F(EquatorialRingTest, FourLayersCloseIntoARing) {
    // The ring neither tests nor records footprints.
    set_bool(CHECK_DONT_INTERSECT, true);
    widths({100, 100, 100, 100});
    dlg().get_layers_pos();
    EXPECT_TRUE(state().volumes.empty());
    const std::vector<Panel> ring = panels({100, 100, 100, 100});
    expect_closed(ring, 1e-6);
    // The first panel is the front one; the ring is a circle round it.
    const double r = ring[0].centre.z;
    EXPECT_NEAR(0, ring[0].centre.x, 1e-12);
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        EXPECT_NEAR(1, touch(ring[i], r, r), 1e-6) << "panel " << i;
    }
    // Four panels of 100 round a circle make a square of side 100: the size passes bring the first
    // guess (perimeter 400, radius 63.7) close to radius 50, and the fourth panel closes the rest.
    EXPECT_NEAR(50, r, 1);
    const double closing = (ring[0].near_edge() - ring[2].far_edge()).Length();
    EXPECT_NEAR(100, closing, 2);
    EXPECT_NE(100, closing);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(100, nth(records(), i).size.x);
        EXPECT_EQ(100, nth(records(), i).scale.val.three_d.x);
    }
}

TEST_F(EquatorialRingTest, TheBoxGivesOnlyTheShapeADeeperOneADeeperRing) {
    widths({100, 150, 120, 90, 60});
    dlg().get_layers_pos();
    const auto large = bytes_of(records());
    set_float(EDIT_DIM_X, 10);
    set_float(EDIT_DIM_Z, 10);
    widths({100, 150, 120, 90, 60});
    dlg().get_layers_pos();
    EXPECT_EQ(large, bytes_of(records()));
    set_float(EDIT_DIM_X, 300);
    set_float(EDIT_DIM_Z, 600);
    const std::vector<double> w(16, 100);
    widths({100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100});
    dlg().get_layers_pos();
    const std::vector<Panel> ring = panels(w);
    expect_closed(ring, 1e-6);
    // Every panel but the closing one touches the ellipse twice as deep as wide through the first
    // panel's centre (the tangent passes come close, not all the way, on an ellipse).
    const double c = ring[0].centre.z;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        EXPECT_NEAR(1, touch(ring[i], c / 2, c), 5e-3) << "panel " << i;
    }
}

TEST_F(EquatorialRingTest, BeginAtBackStartsAtTheBack) {
    begin_at(RADIO_BEGIN_BACK);
    widths({100, 100, 100, 100, 100, 100});
    dlg().get_layers_pos();
    const LayerInfo& first = nth(records(), 0);
    const Vector c = layout_point(first);
    EXPECT_NEAR(0, c.x, 1e-12);
    EXPECT_LT(c.z, -50);
    // Travel continues toward increasing angle: from the back toward the left.
    EXPECT_LT(layout_point(nth(records(), 1)).x, 0);
    expect_closed(panels(std::vector<double>(6, 100)), 1e-6);
}

// Widths far apart make the first passes overshoot: the target length goes below zero, the
// half-axes with it, and the construction carries on from the opposite side of the ring. The
// expected values come from a separate script that follows the construction step by step in plain
// double arithmetic, run once when this test was written: centres (x, z) in the layout frame, the
// orientation written (X, Y), and the last layer's width and Scale X after closing (80 % before).
TEST_F(EquatorialRingTest, UnevenWidthsCarryOnThroughANegativeSizeAndOnlyTheLastLayerIsStretched) {
    const struct {
        std::vector<A_long> widths;
        double panels[3][4];
        A_long last_width;
        double last_scale_x;
    } cases[] = {
        // Only the fourth pass runs below zero (half-axes -24.25); the fifth gives the layout: the
        // first panel at the front, the two narrow ones folded back behind it.
        {{400, 100, 100},
         {{0, 9.3786270736678414, 0, 0},
          {150.2194141302233, 4.6996025533442083, -180, -5.3696239210518115},
          {-49.780585869776694, 4.6996025533442083, -180, 1.7840683909865618}},
         300,
         240.46762790311018},
        // The last three passes run below zero (the fifth with half-axes -88.33): the ring starts
        // at the back.
        {{100, 400, 100},
         {{0, -88.332779833519766, -180, 0},
          {-152.9378762813665, 83.14256424451986, -180, 59.02330493187344},
          {-102.9378762813665, 83.14256424451986, 0, -48.270412136806598}},
         459,
         367.63038003955796},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.widths));
        widths(c.widths);
        std::prev(records().end())->scale.val.three_d = AEGP_ThreeDVal{80, 70, 60};
        dlg().get_layers_pos();
        for (std::size_t i = 0; i < 3; ++i) {
            const LayerInfo& r = nth(records(), i);
            const Vector centre = layout_point(r);
            EXPECT_NEAR(c.panels[i][0], centre.x, 1e-9) << "panel " << i;
            EXPECT_EQ(0, centre.y) << "panel " << i;
            EXPECT_NEAR(c.panels[i][1], centre.z, 1e-9) << "panel " << i;
            // Angles come back through arc cosines: good to about 1e-8 radians.
            EXPECT_NEAR(c.panels[i][2], r.orientation.val.three_d.x, 1e-6) << "panel " << i;
            EXPECT_NEAR(c.panels[i][3], r.orientation.val.three_d.y, 1e-6) << "panel " << i;
        }
        const LayerInfo& last = nth(records(), 2);
        EXPECT_EQ(c.last_width, last.size.x);
        EXPECT_EQ(80, last.size.y);
        EXPECT_NEAR(c.last_scale_x, last.scale.val.three_d.x, 1e-9);
        EXPECT_EQ(70, last.scale.val.three_d.y);
        EXPECT_EQ(60, last.scale.val.three_d.z);
    }
    // A last layer without width stays unscaled; uneven widths stay finite.
    widths({100, 100, 100, 0});
    dlg().get_layers_pos();
    const LayerInfo& flat = nth(records(), 3);
    EXPECT_EQ(0, flat.size.x);
    EXPECT_EQ(100, flat.scale.val.three_d.x);
    EXPECT_FALSE(is_snapshot(flat));
    EXPECT_TRUE(all_finite(records()));
    // Layers without width before the last one leave it nothing to close: it is scaled to 0.
    widths({0, 0, 100});
    dlg().get_layers_pos();
    EXPECT_EQ(0, nth(records(), 2).scale.val.three_d.x);
    EXPECT_FALSE(is_snapshot(nth(records(), 2)));
    EXPECT_TRUE(all_finite(records()));
    set_float(EDIT_DIM_X, 2000);
    set_float(EDIT_DIM_Z, 300);
    widths({5, 400, 1, 250, 3, 3});
    dlg().get_layers_pos();
    EXPECT_TRUE(all_finite(records()));
}

// ---- Nothing to build ----------------------------------------------------------------------------

TEST_F(EquatorialRingTest, TwoLayersWidthsSummingToZeroOrNoBoxLeaveEverything) {
    for (std::initializer_list<A_long> ws : {std::initializer_list<A_long>{0, 0, 0}, {100, 100}}) {
        widths(ws);
        dlg().get_layers_pos();
        for (const LayerInfo& r : records()) {
            EXPECT_TRUE(is_snapshot(r));
        }
    }
    CylinderDialog windowless(kPluginId);
    for (A_long i = 1; i <= 3; ++i) {
        windowless.layers.push_back(record(i, 100, 100));
    }
    mark_snapshot(windowless.layers);
    windowless.create_equatorial_ring();
    for (const LayerInfo& r : windowless.layers) {
        EXPECT_TRUE(is_snapshot(r));
    }
}

}  // namespace
