#include "controls/placement_rules.h"
#include "cylinder/MainDlg.h"
#include "cylinder/cylinder_constants.h"
#include "math/acos.h"
#include "math/constants.h"
#include "math/matrix3d.h"

#include <cmath>

namespace {

using Side = controls::BeginSide;

const MainDlg::Vector kSideRight(1, 0, 0);
const MainDlg::Vector kSideLeft(-1, 0, 0);

Side begin_side(const MainDlg& dlg) {
    return controls::beginSide(dlg.get_bool(RADIO_BEGIN_FRONT), dlg.get_bool(RADIO_BEGIN_BACK),
                               dlg.get_bool(RADIO_BEGIN_LEFT));
}

double half_extent(const MainDlg& dlg, ADMInt32 id) { return controls::boxHalfAxis(dlg.get_float(id)); }

}  // namespace

MainDlg::Vector MainDlg::cyl_to_cart(const Vector& q) const {
    return Vector(q.x * std::sin(q.y), q.z, q.x * std::cos(q.y));
}

MainDlg::Vector MainDlg::cart_to_cyl(const Vector& p) const {
    const double r = std::sqrt(p.x * p.x + p.z * p.z);
    if (EPS > r) {
        return Vector(0, 0, 0);
    }
    double phi = math::acos(p.z / r);
    if (p.x < 0) {
        phi = math::Constant_2PI - phi;
    }
    return Vector(r, phi, p.y);
}

void MainDlg::get_phi_z_dir(const Vector& p, Vector& phi_dir, Vector& z_dir) const {
    z_dir = Vector(0, 1, 0);
    phi_dir = Vector(p.x, 0, p.z);
    if (phi_dir.Length() > EPS) {
        // A quarter turn about the vertical, built once: the same matrix every call would build.
        static const math::TMatrix3D<double> quarter_turn =
            math::TMatrix3D<double>::BuildRotate(Vector(0, 1, 0), math::Constant_Half_PI);
        phi_dir = quarter_turn * phi_dir;
        phi_dir.Normalize();
    }
}

MainDlg::Vector MainDlg::get_position(double phi, double h, double radius) const {
    double a = radius;
    double b = radius;
    if (radius < EPS) {
        a = half_extent(*this, EDIT_DIM_X);
        b = half_extent(*this, EDIT_DIM_Z);
    }
    if (a < EPS || b < EPS) {
        return error;
    }
    const double sn = std::sin(phi);
    const double cs = std::cos(phi);
    const double k = std::sqrt(1 / (sn * sn / (a * a) + cs * cs / (b * b)));
    return Vector(sn * k, h, cs * k);
}

void MainDlg::initial_angles(double& phi, double& h) const {
    switch (begin_side(*this)) {
        case Side::front:
            phi = 0;
            break;
        case Side::back:
            phi = math::Constant_PI;
            break;
        case Side::left:
            phi = -math::Constant_Half_PI;
            break;
        case Side::right:
            phi = math::Constant_Half_PI;
            break;
    }
    h = static_cast<double>(get_float(EDIT_DIM_Y)) * -0.5;
}

double MainDlg::get_phi_increment(int step) const {
    if (get_bool(CHECK_DISTRIBUTE_EVENLY)) {
        return math::Constant_2PI / static_cast<double>(layers.size());
    }
    const double minimum = static_cast<double>(get_float(EDIT_MIN_LONGITUDE)) * math::Constant_PI / 180;
    const double increment = static_cast<double>(get_float(EDIT_LONGITUDE_INCREMENT)) * math::Constant_PI / 180;
    return minimum + increment * step;
}

double MainDlg::get_z_increment(int row) const {
    return static_cast<double>(get_float(EDIT_MIN_LATITUDE)) +
           static_cast<double>(get_float(EDIT_LATITUDE_INCREMENT)) * row;
}

MainDlg::Vector MainDlg::initial_pos_at_ring(const Vector& half_axes) const {
    switch (begin_side(*this)) {
        case Side::front:
            return Vector(0, 0, half_axes.z);
        case Side::back:
            return Vector(0, 0, -half_axes.z);
        case Side::left:
            return Vector(-half_axes.x, 0, 0);
        case Side::right:
            break;
    }
    return Vector(half_axes.x, 0, 0);
}

void MainDlg::locate_layer(const Vector& p, AEGP_StreamValue* value) const {
    // The centre is entered in the layout frame; the host's Y and Z point the other way.
    const double cx = get_float(EDIT_SPHERE_CENTER_X);
    const double cy = get_float(EDIT_SPHERE_CENTER_Y);
    const double cz = get_float(EDIT_SPHERE_CENTER_Z);
    value->val.three_d.x = cx + p.x;
    value->val.three_d.y = -cy - p.y;
    value->val.three_d.z = -cz - p.z;
}

MainDlg::Vector MainDlg::get_norm(const Vector& p) const {
    if (p == error) {
        return Vector(0, 0, 0);
    }
    const double a = half_extent(*this, EDIT_DIM_X);
    const double b = half_extent(*this, EDIT_DIM_Z);
    if (a < EPS || b < EPS) {
        return Vector(0, 0, 0);
    }
    const Vector side = p.x > 0 ? kSideRight : kSideLeft;
    if (std::fabs(p.z) < EPS) {
        return side;
    }
    const double q = 1 - p.x * p.x / (a * a);
    // Rounding near the sides can leave no room under the root; the side normal is the limit there.
    if (!(q > 0)) {
        return side;
    }
    const double m = (1 / std::sqrt(q)) * (p.x * (-b)) / (a * a);
    const double s = p.z > 0 ? 1 : -1;
    Vector n = Vector(0, -1, 0) * Vector(s, 0, m);
    n.Normalize();
    return n;
}
