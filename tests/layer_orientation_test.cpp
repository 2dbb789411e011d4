#include "cylinder_fixture.h"

#include <cmath>

namespace {

using Vector = MainDlg::Vector;

struct Angles {
    double x;
    double y;
    double z;
};

class LayerOrientationTest : public CylinderTest {
protected:
    Angles orient(const Vector& n) {
        AEGP_StreamValue value{};
        dlg().orient_layer(n, &value);
        return {value.val.three_d.x, value.val.three_d.y, value.val.three_d.z};
    }

    void inward() { set_bool(RADIO_INWARD, true); }
};

// Zeros and half turns come out exact, with the sign of zero; a quarter turn measured from a
// cosine of about 1e-16 may land one unit in the last place away.
void expect_same(double expected, double actual, const char* what) {
    if (expected == 0 || std::fabs(expected) == 180) {
        EXPECT_EQ(expected, actual) << what;
        EXPECT_EQ(std::signbit(expected), std::signbit(actual)) << what << " has the wrong sign of zero";
    } else {
        EXPECT_DOUBLE_EQ(expected, actual) << what;
    }
}

void expect_angles(Angles expected, Angles actual) {
    expect_same(expected.x, actual.x, "X");
    expect_same(expected.y, actual.y, "Y");
    expect_same(expected.z, actual.z, "Z");
}

// Straight at the back. Y is zero; its sign comes from the signed-angle rule (a zero angle
// judged by a zero vector counts as negative), not from the closed form phi - 180.
void expect_back(Angles actual) {
    expect_same(-180, actual.x, "X");
    EXPECT_EQ(0, actual.y);
    expect_same(-180, actual.z, "Z");
}

// ---- The four sides ------------------------------------------------------------------------------

TEST_F(LayerOrientationTest, OutwardAtFrontRightBackLeftAndInwardAHalfCircleMore) {
    expect_angles({-0.0, -0.0, -0.0}, orient(Vector(0, 0, 1)));
    expect_angles({-0.0, -90, 0}, orient(Vector(1, 0, 0)));
    expect_back(orient(Vector(0, 0, -1)));
    expect_angles({-0.0, 90, 0}, orient(Vector(-1, 0, 0)));
    inward();
    expect_angles({-0.0, 180, -0.0}, orient(Vector(0, 0, 1)));
    expect_angles({-0.0, 90, 0}, orient(Vector(1, 0, 0)));
    expect_angles({-180, 180, -180}, orient(Vector(0, 0, -1)));
    expect_angles({-0.0, 270, 0}, orient(Vector(-1, 0, 0)));
}

TEST_F(LayerOrientationTest, NearlySidewaysNormalTakesTheSideRuleAndAZeroNormalFacesFront) {
    // cos phi = 5e-13 is within 1e-12 of the side: no turn about X or Z, and Z stays +0.
    const Angles r = orient(Vector(1, 0, 5e-13));
    expect_same(-0.0, r.x, "X");
    EXPECT_NEAR(-90, r.y, 1e-9);
    expect_same(0.0, r.z, "Z");
    // Just beyond the threshold the front-half rule applies, with its negative zero.
    const Angles front = orient(Vector(1, 0, 1e-11));
    expect_same(-0.0, front.z, "Z");
    // A zero normal.
    expect_angles({-0.0, -0.0, 0}, orient(Vector(0, 0, 0)));
    inward();
    expect_angles({-0.0, 180, 0}, orient(Vector(0, 0, 0)));
}

// ---- Whether orientation is written -----------------------------------------------------------------

TEST_F(LayerOrientationTest, OrientationIsWrittenUnlessTheSectorExcludesEverything) {
    EXPECT_TRUE(dlg().is_orient_changed());
    set_bool(RADIO_SECTOR, true);
    EXPECT_TRUE(dlg().is_orient_changed());  // the front box is on by default
    set_bool(CHECK_SECTOR_FRONT, false);
    EXPECT_FALSE(dlg().is_orient_changed());
    set_bool(CHECK_SECTOR_LEFT, true);
    EXPECT_TRUE(dlg().is_orient_changed());
    set_bool(CHECK_SECTOR_LEFT, false);
    set_bool(RADIO_WHOLE_CYLINDER, true);
    EXPECT_TRUE(dlg().is_orient_changed());
}

}  // namespace
