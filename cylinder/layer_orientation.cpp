#include "cylinder/MainDlg.h"
#include "cylinder/cylinder_constants.h"
#include "math/constants.h"
#include "math/matrix3d.h"

#include <cmath>

namespace {

typedef MainDlg::Vector Vector;
typedef math::TMatrix3D<double> Matrix;

// The unsigned angle between u and v, negative unless s and t point the same way.
double signed_angle(const Vector& u, const Vector& v, const Vector& s, const Vector& t) {
    const double a = u ^ v;
    return math::dot(s, t) > 0 ? a : -a;
}

double degrees(double radians) { return radians * 180 / math::Constant_PI; }

}  // namespace

void MainDlg::orient_layer(const Vector& n, AEGP_StreamValue* value) const {
    const Vector A(0, 0, 1);
    const Vector B(1, 0, 0);
    const double phi = cart_to_cyl(n).y;
    const Vector T(std::cos(phi), 0, -std::sin(phi));
    const Vector U = n * T;
    const Vector V = n * B;
    double x = 0;
    double y = 0;
    double z = 0;
    if (V.Length() < EPS) {
        // Facing along X: only the turn about the vertical is left.
        y = signed_angle(T, B, T * B, U);
    } else {
        Vector W = V * n;
        W.Normalize();
        z = signed_angle(T, W, T * W, n);
        const Vector U1 = Matrix::BuildRotate(n, z) * U;
        y = signed_angle(B, W, W * B, U1);
        const Vector n1 = Matrix::BuildRotate(U1, y) * n;
        x = A ^ n1;
    }
    value->val.three_d.x = degrees(-x);
    value->val.three_d.y = degrees(y);
    // Added only when inward, so that an outward -0 keeps its sign.
    if (get_bool(RADIO_INWARD)) {
        value->val.three_d.y += 180;
    }
    value->val.three_d.z = degrees(z);
}

bool MainDlg::is_orient_changed() { return !nowhere(); }
