// A vector compared with its three coordinates, each exactly.
#pragma once

#include "math/vector3d.h"

#include <gtest/gtest.h>

inline void expectVec(const math::TGeomVector3D<double>& v, double x, double y, double z) {
    EXPECT_TRUE(v.x == x && v.y == y && v.z == z) << "is (" << v.x << ", " << v.y << ", " << v.z << ")";
}
