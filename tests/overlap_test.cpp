#include "cylinder_fixture.h"
#include "math/constants.h"

#include <cmath>

namespace {

using Vector = MainDlg::Vector;
constexpr double kDeg = math::Constant_PI / 180;

// A point at radius 500, angle in degrees, height h.
Vector at(double degrees, double h) {
    return Vector(500 * std::sin(degrees * kDeg), h, 500 * std::cos(degrees * kDeg));
}

SolidAngle band(double begin_degrees, double end_degrees, double low, double high) {
    return SolidAngle{begin_degrees * kDeg, end_degrees * kDeg, low, high};
}

class OverlapTest : public CylinderTest {
protected:
    bool contains(const SolidAngle& b, const Vector& q, bool height_only = false) {
        return dlg().contains(b, q, height_only);
    }
    bool intersects(const Vector& p, A_LPoint size, bool height_only = false) {
        return dlg().intersects(p, size, height_only);
    }
};

// ---- Bands ---------------------------------------------------------------------------------------

TEST_F(OverlapTest, BandsHoldTheirAnglesAndHeightsEdgesIncluded) {
    const SolidAngle b = band(350, 10, -50, 50);
    EXPECT_TRUE(contains(b, at(5, 0)));
    EXPECT_TRUE(contains(b, at(355, 0)));
    EXPECT_TRUE(contains(b, at(0, 0)));
    EXPECT_FALSE(contains(b, at(180, 0)));
    EXPECT_FALSE(contains(b, at(20, 0)));
    EXPECT_FALSE(contains(b, at(5, 60)));
    // A band not across it holds only its own angles.
    EXPECT_FALSE(contains(band(10, 100, -50, 50), at(5, 0)));
    EXPECT_TRUE(contains(band(10, 100, -50, 50), at(50, 0)));
    EXPECT_FALSE(contains(band(10, 100, -50, 50), at(150, 0)));
    // A band wider than half a turn counts as straddling and holds every angle.
    const SolidAngle wide = band(10, 200, 0, 10);
    for (double a : {0.0, 5.0, 90.0, 205.0, 300.0, 359.0}) {
        EXPECT_TRUE(contains(wide, at(a, 5))) << a << " degrees";
    }
    EXPECT_FALSE(contains(wide, at(90, 11)));
    // Edges are inside.
    const Vector q = at(37, 12.5);
    const double phi = dlg().cart_to_cyl(q).y;
    EXPECT_TRUE(contains(SolidAngle{phi, phi + 0.1, 12.5, 20}, q));
    EXPECT_TRUE(contains(SolidAngle{phi - 0.1, phi, 0, 12.5}, q));
    EXPECT_FALSE(contains(SolidAngle{phi - 0.1, phi, 0, 12.25}, q));
    EXPECT_FALSE(contains(SolidAngle{std::nextafter(phi, 10.0), phi + 0.1, 0, 20}, q));
    // Height only ignores the angle.
    const SolidAngle narrow = band(5, 6, -5, 5);
    EXPECT_TRUE(contains(narrow, at(180, 0), true));
    EXPECT_FALSE(contains(narrow, at(180, 0), false));
    EXPECT_FALSE(contains(narrow, at(5.5, 6), true));
}

// ---- Candidates against placed layers ------------------------------------------------------------

TEST_F(OverlapTest, CandidatesOverlapPlacedLayersOnlyWithDontIntersect) {
    dlg().add_volume(at(0, 0), A_LPoint{100, 100});
    EXPECT_FALSE(intersects(at(0, 0), A_LPoint{100, 100}));
    EXPECT_FALSE(intersects(at(0, 0), A_LPoint{100, 100}, true));
    set_bool(CHECK_DONT_INTERSECT, true);
    EXPECT_TRUE(intersects(at(0, 0), A_LPoint{100, 100}));
    EXPECT_FALSE(intersects(at(90, 0), A_LPoint{100, 100}));
    // Lower corners on the top edge overlap.
    EXPECT_TRUE(intersects(at(0, 100), A_LPoint{100, 100}));
    EXPECT_FALSE(intersects(at(0, 101), A_LPoint{100, 100}));
    // Height only finds a layer at another angle, directly above the other side: the lower corners
    // at 40 are within -50..50.
    EXPECT_FALSE(intersects(at(180, 90), A_LPoint{100, 100}, false));
    EXPECT_TRUE(intersects(at(180, 90), A_LPoint{100, 100}, true));
    EXPECT_FALSE(intersects(at(180, 160), A_LPoint{100, 100}, true));
}

TEST_F(OverlapTest, OnlyTheCandidatesPointsAreTested) {
    set_bool(CHECK_DONT_INTERSECT, true);
    dlg().add_volume(at(0, 0), A_LPoint{10, 10});
    // Its rectangle covers the small layer, but none of its five points falls in the small band.
    EXPECT_FALSE(intersects(at(20, 0), A_LPoint{2000, 2000}));
    // The other way round the small layer's centre lies in the large layer's band.
    state().volumes.clear();
    dlg().add_volume(at(20, 0), A_LPoint{2000, 2000});
    EXPECT_TRUE(intersects(at(0, 0), A_LPoint{10, 10}));
}

}  // namespace
