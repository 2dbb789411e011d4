#include "math/vector3d.h"
#include "math/acos.h"
#include "math/constants.h"

#include "vector_checks.h"

#include <gtest/gtest.h>

#include <cmath>

using Vec = math::TGeomVector3D<double>;

TEST(VectorLength, ExactForAPythagoreanTripleAndZeroAtOrBelowTheThresholdOrForNaN) {
    EXPECT_EQ(Vec(3, 4, 0).Length(), 5.0);
    EXPECT_EQ(Vec(1e-13, 0, 0).Length(), 0.0);
    EXPECT_EQ(Vec(1e-12, 0, 0).Length(), 0.0);
    EXPECT_EQ(Vec(2e-12, 0, 0).Length(), 2e-12);
    EXPECT_EQ(Vec(std::nan(""), 1, 1).Length(), 0.0);
}

// One division, then multiplications: -3 * (1/5) differs from -3 / 5 in the last bit.
TEST(VectorNormalize, ScalesToUnitLengthAndTinyOrZeroBecomesZero) {
    Vec v(0, -3, 4);
    v.Normalize();
    expectVec(v, 0.0, -3.0 * (1.0 / 5.0), 4.0 * (1.0 / 5.0));
    Vec zero;
    zero.Normalize();
    expectVec(zero, 0, 0, 0);
    Vec tiny(5e-13, -5e-13, 5e-13);
    tiny.Normalize();
    expectVec(tiny, 0, 0, 0);
}

TEST(VectorCross, FollowsOperandOrder) {
    expectVec(Vec(1, 0, 0) * Vec(0, 1, 0), 0, 0, 1);
    expectVec(Vec(0, 1, 0) * Vec(1, 0, 0), 0, 0, -1);
    expectVec(Vec(1, 2, 3) * Vec(4, 5, 6), -3, 6, -3);
}

TEST(VectorAngle, RightStraightAndZeroIgnoringLengthsAndZeroForAZeroVector) {
    EXPECT_DOUBLE_EQ(Vec(1, 0, 0) ^ Vec(0, 1, 0), math::Constant_Half_PI);
    EXPECT_EQ(Vec(1, 0, 0) ^ Vec(-2, 0, 0), math::Constant_PI);
    EXPECT_EQ(Vec(1, 0, 0) ^ Vec(5, 0, 0), 0.0);
    EXPECT_DOUBLE_EQ(Vec(3, 0, 0) ^ Vec(-7, 7, 0), 3 * math::Constant_PI / 4);
    EXPECT_EQ(Vec(1, 2, 3) ^ Vec(0, 0, 0), 0.0);
    EXPECT_EQ(Vec(0, 0, 0) ^ Vec(-1, 0, 0), 0.0);
    // Product of squared lengths below the smallest normal float.
    EXPECT_EQ(Vec(1e-20, 0, 0) ^ Vec(0, 1e-20, 0), 0.0);
}

TEST(ClampedAcos, OutsideDomainClampsToEnds) {
    EXPECT_EQ(math::acos(1.0000001), 0.0);
    EXPECT_EQ(math::acos(1.0), 0.0);
    EXPECT_EQ(math::acos(-3.0), math::Constant_PI);
    EXPECT_EQ(math::acos(-1.0), math::Constant_PI);
    EXPECT_EQ(math::acos(0.5), std::acos(0.5));
    EXPECT_TRUE(std::isnan(math::acos(std::nan(""))));
}
