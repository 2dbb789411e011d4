#include "math/matrix3d.h"
#include "math/constants.h"

#include "vector_checks.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

using Vec = math::TGeomVector3D<double>;
using Mat = math::TMatrix3D<double>;
using Rows = std::array<std::array<double, 4>, 4>;

namespace {

// Rotation by a quarter turn about z, then a shift of 5 along x.
const Mat kRigid(0, -1, 0, 5, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);

Rows rowsOf(const Mat& m) {
    Rows rows{};
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            rows[r][c] = m(r, c);
        }
    }
    return rows;
}

Rows product(const Mat& a, const Mat& b) {
    Rows rows{};
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            for (int k = 0; k < 4; ++k) {
                rows[r][c] += a(r, k) * b(k, c);
            }
        }
    }
    return rows;
}

void expectNearIdentity(const Rows& rows) {
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            EXPECT_NEAR(rows[r][c], r == c ? 1.0 : 0.0, 1e-14) << "row " << r << " col " << c;
        }
    }
}

}  // namespace

TEST(MatrixClassification, IdentityRigidOrGeneralWithFloatTolerances) {
    EXPECT_EQ(Mat().flags(), 3);
    EXPECT_EQ(Mat::HI().flags(), 3);
    EXPECT_EQ(&Mat::HI(), &Mat::HI());
    EXPECT_EQ(rowsOf(Mat()), rowsOf(Mat(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)));
    expectVec(Mat() * Vec(1.5, -2, 7), 1.5, -2, 7);

    EXPECT_EQ(kRigid.flags(), 1);
    // Translation alone, and a rotation without translation, are rigid but not identity.
    EXPECT_EQ(Mat(1, 0, 0, 0, 0, 1, 0, 2, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 1);
    EXPECT_EQ(Mat(0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 0, 1).flags(), 1);

    EXPECT_EQ(Mat(2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 0);
    EXPECT_EQ(Mat(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 1).flags(), 0);
    EXPECT_EQ(Mat(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 2).flags(), 0);
    EXPECT_EQ(Mat(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, std::nan("")).flags(), 0);
    // Sheared: unit rows that are not orthogonal.
    EXPECT_EQ(Mat(1, 0, 0, 0, 0.6, 0.8, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 0);

    // Row lengths are allowed one float epsilon.
    EXPECT_EQ(Mat(std::sqrt(1 + 0x1p-24), 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 1);
    EXPECT_EQ(Mat(1, 0, 0, 0, 0, std::sqrt(1 + 0x1p-22), 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 0);
    // Orthogonality is allowed the smallest normal float: row 0 has squared length 1 + 1e-60, and
    // its dot with row 1, 1e-30, is far below float epsilon.
    EXPECT_EQ(Mat(1, 1e-30, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 0);
    EXPECT_EQ(Mat(1, 1e-39, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).flags(), 1);
}

TEST(MatrixTransform, RigidSkipsTheBottomRowProjectiveDividesByWAndZeroWThrows) {
    expectVec(kRigid * Vec(1, 2, 3), 3, 1, 3);
    const Mat projective(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 1);
    expectVec(projective * Vec(1, 2, 3), 0.25, 0.5, 0.75);
    const Mat focus(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0);
    EXPECT_THROW(focus * Vec(0, 4, 5), math::VectorInFocusException);
    expectVec(focus * Vec(2, 4, 5), 1, 2, 2.5);
}

TEST(MatrixInverse, IdentityUnchangedRigidTransposedGeneralScaleAndShiftExact) {
    Mat m;
    m.Inverse();
    EXPECT_EQ(m.flags(), 3);
    EXPECT_EQ(rowsOf(m), rowsOf(Mat::HI()));

    const Mat inverse = kRigid.Inversed();
    EXPECT_EQ(inverse.flags(), 1);
    EXPECT_EQ(rowsOf(inverse), (Rows{{{0, 1, 0, 0}, {-1, 0, 0, 5}, {0, 0, 1, 0}, {0, 0, 0, 1}}}));
    EXPECT_EQ(kRigid.flags(), 1);
    EXPECT_EQ(kRigid(0, 3), 5.0);

    Mat general(2, 0, 0, 1, 0, 4, 0, 2, 0, 0, 8, 3, 0, 0, 0, 1);
    ASSERT_EQ(general.flags(), 0);
    general.Inverse();
    EXPECT_EQ(general.flags(), 0);
    EXPECT_EQ(rowsOf(general), (Rows{{{0.5, 0, 0, -0.5}, {0, 0.25, 0, -0.5}, {0, 0, 0.125, -0.375}, {0, 0, 0, 1}}}));
}

TEST(MatrixInverse, GeneralMatricesMultiplyBackFollowingThePivotOrderToTheBit) {
    // Zeros on the diagonal force pivots off it, so the column unscrambling is exercised.
    const Mat swaps(0, 2, 0, 1, 3, 0, 0, 0, 0, 0, 0, 5, 0.5, 0, 4, 0);
    const Mat inverse = swaps.Inversed();
    EXPECT_EQ(inverse.flags(), 0);
    expectNearIdentity(product(swaps, inverse));
    expectNearIdentity(product(inverse, swaps));
    // Ties between equal magnitudes and the order of the column swaps both change the last bits;
    // the expected values come from a separate run of the same elimination.
    const Mat m(-3, 2, -2, 7, 0, 5, -1, 0, 1, 0, -2, 5, -1, 3, 7, 0);
    EXPECT_EQ(rowsOf(m.Inversed()),
              (Rows{{{-0.2357320099255583, 0.07196029776674938, 0.33002481389578164, 0.03722084367245658},
                     {-0.006203473945409428, 0.18610421836228286, 0.008684863523573201, 0.027295285359801486},
                     {-0.03101736972704714, -0.0694789081885856, 0.043424317617866005, 0.13647642679900743},
                     {0.03473945409429281, -0.042183622828784115, 0.15136476426799006, 0.04714640198511166}}}));
    const Mat rotation = Mat::BuildRotate(Vec(1, 2, 3), 0.7);
    // Rounding leaves the row dot products slightly off zero, so the rotation goes the general way.
    ASSERT_EQ(rotation.flags(), 0);
    const Mat turned_back = rotation.Inversed();
    EXPECT_EQ(turned_back.flags(), 0);
    expectNearIdentity(product(rotation, turned_back));
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) {
            EXPECT_NEAR(turned_back(r, c), rotation(c, r), 1e-15);
        }
    }
}

TEST(MatrixInverse, SingularThrowsAndInversedLeavesTheSource) {
    const Mat zero(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    EXPECT_THROW(zero.Inversed(), math::SingularMatrix3DException);
    EXPECT_EQ(rowsOf(zero), Rows{});
    EXPECT_EQ(zero.flags(), 0);
    Mat in_place = zero;
    EXPECT_THROW(in_place.Inverse(), math::SingularMatrix3DException);

    // The second row is twice the first.
    const Mat m(1, 2, 3, 4, 2, 4, 6, 8, 0, 0, 1, 0, 0, 0, 0, 1);
    const Rows before = rowsOf(m);
    EXPECT_THROW(m.Inversed(), math::SingularMatrix3DException);
    EXPECT_EQ(rowsOf(m), before);
}

TEST(MatrixRotate, RightHandedTurnsAndAZeroAxisScalesByTheCosine) {
    const Mat m = Mat::BuildRotate(Vec(0, 0, 2), math::Constant_Half_PI);
    EXPECT_EQ(m.flags(), 1);
    const Vec turned = m * Vec(1, 0, 0);
    EXPECT_EQ(turned.x, std::cos(math::Constant_Half_PI));
    EXPECT_EQ(turned.y, 1.0);
    EXPECT_EQ(turned.z, 0.0);
    // +z turns towards +x for a positive angle about +y.
    const Vec about_y = Mat::BuildRotate(Vec(0, 1, 0), math::Constant_Half_PI) * Vec(0, 0, 1);
    EXPECT_NEAR(about_y.x, 1.0, 1e-15);
    EXPECT_NEAR(about_y.y, 0.0, 1e-15);
    EXPECT_NEAR(about_y.z, 0.0, 1e-15);

    const double cs = std::cos(0.5);
    const Mat zero_axis = Mat::BuildRotate(Vec(1e-13, 0, 0), 0.5);
    EXPECT_EQ(rowsOf(zero_axis), (Rows{{{cs, 0, 0, 0}, {0, cs, 0, 0}, {0, 0, cs, 0}, {0, 0, 0, 1}}}));
    EXPECT_EQ(zero_axis.flags(), 0);
    EXPECT_EQ(Mat::BuildRotate(Vec(), 0).flags(), 3);
}
