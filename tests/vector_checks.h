// A vector compared with its three coordinates, each exactly.
#pragma once

#include "math/vector3d.h"

#include <gtest/gtest.h>

inline void expectVec(const math::TGeomVector3D<double>& actual, double x, double y, double z) {
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
    EXPECT_EQ(actual.z, z);
}
