// 4x4 homogeneous transform, row-major, acting on column vectors. A classification word lets the
// identity and rigid motions skip the homogeneous division and the full elimination.
#pragma once

#include "math/exceptions.h"
#include "math/vector3d.h"

#include <cmath>
#include <limits>
#include <utility>

namespace math {

template <typename T>
class TMatrix3D {
public:
    // Values of flags(): bit 0 rigid, bit 1 identity (never without bit 0).
    static constexpr unsigned short kGeneral = 0;
    static constexpr unsigned short kRigid = 1;
    static constexpr unsigned short kIdentity = 3;

    TMatrix3D() : flags_(kIdentity) {
        const TMatrix3D& identity = HI();
        for (int i = 0; i < 16; ++i) {
            e_[i] = identity.e_[i];
        }
    }

    TMatrix3D(T e0, T e1, T e2, T e3, T e4, T e5, T e6, T e7, T e8, T e9, T e10, T e11, T e12, T e13, T e14, T e15)
        : e_{e0, e1, e2, e3, e4, e5, e6, e7, e8, e9, e10, e11, e12, e13, e14, e15}, flags_(kGeneral) {
        setFlags();
    }

    static const TMatrix3D& HI() {
        static const TMatrix3D identity(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
        return identity;
    }

    // Right-handed rotation about an axis through the origin. A zero axis gives cos(angle) on the
    // first three diagonal places rather than an error.
    static TMatrix3D BuildRotate(const TGeomVector3D<T>& axis, T angle) {
        const T sn = std::sin(angle);
        const T cs = std::cos(angle);
        const T t = T(1) - cs;
        TGeomVector3D<T> u;
        if (axis.Length() != T(0)) {
            u = axis;
            u.Normalize();
        }
        const T x = u.x;
        const T y = u.y;
        const T z = u.z;
        return TMatrix3D(t * x * x + cs, t * x * y - sn * z, t * x * z + sn * y, 0, t * x * y + sn * z, t * y * y + cs,
                         t * y * z - sn * x, 0, t * x * z - sn * y, t * y * z + sn * x, t * z * z + cs, 0, 0, 0, 0, 1);
    }

    TGeomVector3D<T> operator*(const TGeomVector3D<T>& p) const {
        if (flags_ & 2) {
            return p;
        }
        if (flags_ & 1) {
            return affinePart(p);
        }
        const T w = e_[12] * p.x + e_[13] * p.y + e_[14] * p.z + e_[15];
        if (w == T(0)) {
            throw VectorInFocusException(0);
        }
        TGeomVector3D<T> result = affinePart(p);
        result /= w;
        return result;
    }

    void Inverse() {
        if (flags_ & 2) {
            return;
        }
        if (flags_ & 1) {
            invertRigid();
            return;
        }
        invertGeneral();
    }

    TMatrix3D Inversed() const {
        TMatrix3D copy(*this);
        copy.Inverse();
        return copy;
    }

    void setFlags() {
        if (!hasAffineBottomRow()) {
            flags_ = kGeneral;
            return;
        }
        flags_ = hasZeroTranslation() ? kIdentity : kRigid;
        for (int k = 2; k >= 0; --k) {
            if (!classifyRow(k)) {
                flags_ = kGeneral;
                return;
            }
        }
    }

    T operator()(int row, int col) const { return e_[4 * row + col]; }
    T element(int i) const { return e_[i]; }
    unsigned short flags() const { return flags_; }

private:
    TGeomVector3D<T> affinePart(const TGeomVector3D<T>& p) const {
        return {e_[0] * p.x + e_[1] * p.y + e_[2] * p.z + e_[3], e_[4] * p.x + e_[5] * p.y + e_[6] * p.z + e_[7],
                e_[8] * p.x + e_[9] * p.y + e_[10] * p.z + e_[11]};
    }

    bool hasAffineBottomRow() const { return e_[12] == T(0) && e_[13] == T(0) && e_[14] == T(0) && e_[15] == T(1); }

    bool hasZeroTranslation() const { return e_[3] == T(0) && e_[7] == T(0) && e_[11] == T(0); }

    // Dot product of two rows of the 3x3 block.
    T rowDot(int k, int j) const {
        return e_[4 * k] * e_[4 * j] + e_[4 * k + 1] * e_[4 * j + 1] + e_[4 * k + 2] * e_[4 * j + 2];
    }

    // Checks row k of the 3x3 block against the rows above it; false means "not rigid". Lengths
    // get a float epsilon of slack, orthogonality only the smallest normal float, so a rotation
    // with any rounding residue goes the general way.
    bool classifyRow(int k) {
        constexpr T length_slack = T(std::numeric_limits<float>::epsilon());
        constexpr T orthogonal_slack = T(std::numeric_limits<float>::min());
        const T q = rowDot(k, k);
        if (!(q >= T(1) - length_slack && q <= T(1) + length_slack)) {
            return false;
        }
        for (int j = k - 1; j >= 0; --j) {
            const T d = rowDot(k, j);
            if (!(d >= -orthogonal_slack && d <= orthogonal_slack)) {
                return false;
            }
            clearIdentityIf(e_[4 * k + j] != T(0));
        }
        clearIdentityIf(e_[5 * k] != T(1));
        for (int n = 2; n > k; --n) {
            clearIdentityIf(e_[4 * k + n] != T(0));
        }
        return true;
    }

    void clearIdentityIf(bool condition) {
        if (condition) {
            flags_ &= static_cast<unsigned short>(~2u);
        }
    }

    // Inverse of a rotation plus translation: transpose the rotation, t' = -R^T t.
    void invertRigid() {
        T moved[3];
        for (int i = 0; i < 3; ++i) {
            moved[i] = -(e_[3] * e_[i] + e_[7] * e_[4 + i] + e_[11] * e_[8 + i]);
        }
        for (int i = 0; i < 3; ++i) {
            for (int j = i + 1; j < 3; ++j) {
                std::swap(e_[4 * i + j], e_[4 * j + i]);
            }
        }
        e_[3] = moved[0];
        e_[7] = moved[1];
        e_[11] = moved[2];
    }

    // Gauss-Jordan elimination with full pivoting, in place. Throws on a singular matrix, leaving
    // the elements partly reduced.
    void invertGeneral() {
        int use_count[4] = {0, 0, 0, 0};
        int pivot_row[4] = {0, 0, 0, 0};
        int pivot_col[4] = {0, 0, 0, 0};
        for (int i = 0; i < 4; ++i) {
            int r = 0;
            int n = 0;
            choosePivot(use_count, r, n);
            ++use_count[n];
            if (r != n) {
                swapRows(r, n);
            }
            pivot_row[i] = r;
            pivot_col[i] = n;
            if (e_[5 * n] == T(0)) {
                throw SingularMatrix3DException(0);
            }
            eliminateColumn(n);
        }
        for (int i = 3; i >= 0; --i) {
            if (pivot_row[i] != pivot_col[i]) {
                swapColumns(pivot_row[i], pivot_col[i]);
            }
        }
        flags_ = kGeneral;
    }

    // Largest remaining magnitude; among equals the last in row-major order wins. A column used
    // twice means the matrix is singular.
    void choosePivot(const int (&use_count)[4], int& r, int& n) const {
        T big = T(0);
        for (int j = 0; j < 4; ++j) {
            if (use_count[j] == 1) {
                continue;
            }
            for (int k = 0; k < 4; ++k) {
                if (use_count[k] == 0) {
                    const T magnitude = std::fabs(e_[4 * j + k]);
                    if (magnitude >= big) {
                        big = magnitude;
                        r = j;
                        n = k;
                    }
                } else if (use_count[k] >= 2) {
                    throw SingularMatrix3DException(0);
                }
            }
        }
    }

    // Scales pivot row n to a unit pivot and clears column n from every other row.
    void eliminateColumn(int n) {
        const T p = T(1) / e_[5 * n];
        e_[5 * n] = T(1);
        for (int m = 0; m < 4; ++m) {
            e_[4 * n + m] *= p;
        }
        for (int l = 0; l < 4; ++l) {
            if (l == n) {
                continue;
            }
            const T f = e_[4 * l + n];
            e_[4 * l + n] = T(0);
            for (int m = 0; m < 4; ++m) {
                e_[4 * l + m] -= e_[4 * n + m] * f;
            }
        }
    }

    void swapRows(int a, int b) {
        for (int m = 0; m < 4; ++m) {
            std::swap(e_[4 * a + m], e_[4 * b + m]);
        }
    }

    void swapColumns(int a, int b) {
        for (int m = 0; m < 4; ++m) {
            std::swap(e_[4 * m + a], e_[4 * m + b]);
        }
    }

    T e_[16];
    unsigned short flags_;
};

}  // namespace math
