// Footprints of placed layers as angle and height bands on the cylinder, and the test of a
// candidate place against them.
#include "cylinder/MainDlg.h"

#include "math/constants.h"

#include <array>
#include <cmath>

namespace {

using Vector = MainDlg::Vector;

// The corners of a layer's rectangle in the plane touching the horizontal circle through p:
// decreasing-phi side top and bottom, then increasing-phi side bottom and top.
std::array<Vector, 4> corners(const MainDlg& dlg, const Vector& p, const A_LPoint& size) {
    Vector t;
    Vector u;
    dlg.get_phi_z_dir(p, t, u);
    const Vector along = t * (0.5 * size.x);
    const Vector up = u * (0.5 * size.y);
    return {p - along + up, p - along - up, p + along - up, p + along + up};
}

}  // namespace

void MainDlg::add_volume(const Vector& p, const A_LPoint& size) {
    const std::array<Vector, 4> k = corners(*this, p, size);
    const Vector k0 = cart_to_cyl(k[0]);
    const Vector k1 = cart_to_cyl(k[1]);
    const Vector k3 = cart_to_cyl(k[3]);
    volumes.push_back(SolidAngle{k0.y, k3.y, k1.z, k0.z});
}

void MainDlg::clear_volumes() {
    volumes.clear();
    footprint_index.clear();
}

bool MainDlg::contains(const SolidAngle& band, const Vector& q, bool height_only) const {
    const Vector c = cart_to_cyl(q);
    return band_contains(band, c.y, c.z, height_only);
}

// Only the candidate's centre and corners are tested against the recorded bands, not the other
// way round: cheap, and enough for layers of similar size.
bool MainDlg::intersects(const Vector& p, const A_LPoint& size, bool height_only) const {
    if (!get_bool(CHECK_DONT_INTERSECT)) {
        return false;
    }
    const std::array<Vector, 4> k = corners(*this, p, size);
    // Each point is converted once, not once per recorded band.
    const std::array<Vector, 5> points = {cart_to_cyl(p), cart_to_cyl(k[0]), cart_to_cyl(k[1]), cart_to_cyl(k[2]),
                                          cart_to_cyl(k[3])};
    if (layout_depth > 0) {
        if (height_only) {
            return footprint_index.any_height_contains(volumes, points);
        }
        footprint_index.update(volumes);
        return footprint_index.any_contains(volumes, points);
    }
    for (const SolidAngle& band : volumes) {
        for (const Vector& q : points) {
            if (band_contains(band, q.y, q.z, height_only)) {
                return true;
            }
        }
    }
    return false;
}
