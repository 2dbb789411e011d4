#include "cylinder/cylinder_constants.h"
#include "cylinder_fixture.h"
#include "math/constants.h"

#include <cmath>

namespace {

using Vector = MainDlg::Vector;
constexpr double kPi = math::Constant_PI;

void expect_vector(const Vector& expected, const Vector& actual, double tolerance) {
    EXPECT_NEAR(expected.x, actual.x, tolerance);
    EXPECT_NEAR(expected.y, actual.y, tolerance);
    EXPECT_NEAR(expected.z, actual.z, tolerance);
}

class CylinderGeometryTest : public CylinderTest {};

// ---- Cylinder coordinates ------------------------------------------------------------------

TEST_F(CylinderGeometryTest, CylinderCoordinatesOfTheSidesAndTheAxisAndBackAndTheTangent) {
    // A point on the axis has no cylinder coordinates at all.
    EXPECT_EQ(Vector(0, 0, 0), dlg().cart_to_cyl(Vector(0, 50, 0)));
    EXPECT_EQ(Vector(0, 0, 0), dlg().cart_to_cyl(Vector(5e-13, 50, -5e-13)));
    EXPECT_EQ(Vector(1, 0, 7), dlg().cart_to_cyl(Vector(0, 7, 1)));
    EXPECT_EQ(Vector(1, 1.5707963267948966, 0), dlg().cart_to_cyl(Vector(1, 0, 0)));
    EXPECT_EQ(Vector(1, 3.141592653589793, 0), dlg().cart_to_cyl(Vector(0, 0, -1)));
    const Vector left = dlg().cart_to_cyl(Vector(-1, 0, 0));
    EXPECT_EQ(1, left.x);
    EXPECT_DOUBLE_EQ(4.71238898038469, left.y);
    const Vector q(250, 2.5, -40);
    const Vector p = dlg().cyl_to_cart(q);
    expect_vector(Vector(250 * std::sin(2.5), -40, 250 * std::cos(2.5)), p, 0);
    expect_vector(q, dlg().cart_to_cyl(p), 1e-12);
    // The tangent turns toward increasing angle.
    Vector phi_dir;
    Vector z_dir;
    dlg().get_phi_z_dir(Vector(3, 7, 4), phi_dir, z_dir);
    expect_vector(Vector(0.8, 0, -0.6), phi_dir, 1e-15);
    EXPECT_EQ(Vector(0, 1, 0), z_dir);
    // On the axis the horizontal part is kept as it is.
    dlg().get_phi_z_dir(Vector(1e-13, 5, 0), phi_dir, z_dir);
    EXPECT_EQ(Vector(1e-13, 0, 0), phi_dir);
}

// ---- Surface positions -------------------------------------------------------------------------

TEST_F(CylinderGeometryTest, PositionOnTheDialogsEllipseOrOnTheGivenRadiusAndNowhereWithoutAnEllipse) {
    set_float(EDIT_DIM_X, 1000);
    set_float(EDIT_DIM_Z, 400);
    const Vector right = dlg().get_position(kPi / 2, 10, 0);
    EXPECT_EQ(500, right.x);
    EXPECT_EQ(10, right.y);
    EXPECT_NEAR(0, right.z, 1e-10);
    EXPECT_EQ(Vector(0, 10, 200), dlg().get_position(0, 10, 0));
    // A point in between lies on x^2/a^2 + z^2/b^2 = 1.
    const Vector p = dlg().get_position(0.7, -3, 0);
    EXPECT_NEAR(1, p.x * p.x / 250000 + p.z * p.z / 40000, 1e-15);
    EXPECT_NEAR(std::tan(0.7), p.x / p.z, 1e-12);
    // A given radius ignores the dialog.
    const Vector circle = dlg().get_position(1.2, 30, 250);
    EXPECT_NEAR(250 * std::sin(1.2), circle.x, 1e-12);
    EXPECT_EQ(30, circle.y);
    EXPECT_NEAR(250 * std::cos(1.2), circle.z, 1e-12);
    // Without a window the extents read 0.
    CylinderDialog windowless(kPluginId);
    EXPECT_EQ(Vector(1e20, 1e20, 1e20), windowless.get_position(0.3, 10, 0));
    EXPECT_EQ(Vector(0, 0, 0), windowless.get_norm(Vector(0, 0, 1)));
    // A radius still gives a circle.
    EXPECT_EQ(Vector(0, 10, 5), windowless.get_position(0, 10, 5));
}

// ---- Normals -----------------------------------------------------------------------------------

TEST_F(CylinderGeometryTest, NormalsAreOutwardOnBothHalvesAndFiniteNearTheSides) {
    set_float(EDIT_DIM_X, 1000);
    set_float(EDIT_DIM_Z, 400);
    EXPECT_EQ(Vector(1, 0, 0), dlg().get_norm(Vector(500, 17, 0)));
    EXPECT_EQ(Vector(-1, 0, 0), dlg().get_norm(Vector(-500, 17, 0)));
    EXPECT_EQ(Vector(0, 0, 1), dlg().get_norm(Vector(0, 17, 200)));
    EXPECT_EQ(Vector(0, 0, -1), dlg().get_norm(Vector(0, 17, -200)));
    EXPECT_EQ(Vector(0, 0, 0), dlg().get_norm(error));
    // Just off the side, x^2/a^2 rounds to 1 and there is no slope to take.
    EXPECT_EQ(Vector(1, 0, 0), dlg().get_norm(Vector(500, 0, 2e-12)));
    EXPECT_EQ(Vector(-1, 0, 0), dlg().get_norm(Vector(-500, 0, -2e-12)));
    // Outside the ellipse as well.
    EXPECT_EQ(Vector(1, 0, 0), dlg().get_norm(Vector(600, 0, 10)));
}

// ---- Start angle and the ring's first place ----------------------------------------------------

// Each side alone is held through the even placement's values; a Front set in the other group
// wins over a Right.
TEST_F(CylinderGeometryTest, FrontStartAngleWinsOverARightInTheOtherGroup) {
    begin_at(RADIO_BEGIN_RIGHT);
    set_bool(RADIO_BEGIN_FRONT, true);
    double phi = 1;
    double h = 1;
    dlg().initial_angles(phi, h);
    EXPECT_EQ(0, phi);
    EXPECT_EQ(-1000, h);
}

TEST_F(CylinderGeometryTest, RingStartsOnTheChosenSide) {
    const Vector axes(300, 9, 200);
    EXPECT_EQ(Vector(0, 0, 200), dlg().initial_pos_at_ring(axes));
    begin_at(RADIO_BEGIN_BACK);
    EXPECT_EQ(Vector(0, 0, -200), dlg().initial_pos_at_ring(axes));
    begin_at(RADIO_BEGIN_LEFT);
    EXPECT_EQ(Vector(-300, 0, 0), dlg().initial_pos_at_ring(axes));
    begin_at(RADIO_BEGIN_RIGHT);
    EXPECT_EQ(Vector(300, 0, 0), dlg().initial_pos_at_ring(axes));
}

}  // namespace
