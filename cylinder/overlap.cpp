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
std::array<Vector, 4> corners(const MainDlg& dlg, const Vector& p, const A_LPoint& size)
{
    Vector t;
    Vector u;
    dlg.get_phi_z_dir(p, t, u);
    const Vector along = t * (0.5 * size.x);
    const Vector up = u * (0.5 * size.y);
    return {p - along + up, p - along - up, p + along - up, p + along + up};
}

} // namespace

void MainDlg::add_volume(const Vector& p, const A_LPoint& size)
{
    const std::array<Vector, 4> k = corners(*this, p, size);
    const Vector k0 = cart_to_cyl(k[0]);
    const Vector k1 = cart_to_cyl(k[1]);
    const Vector k3 = cart_to_cyl(k[3]);
    volumes.push_back(SolidAngle{k0.y, k3.y, k1.z, k0.z});
}

bool MainDlg::contains(const SolidAngle& band, const Vector& q, bool height_only) const
{
    const Vector c = cart_to_cyl(q);
    const double phi = c.y;
    const double h = c.z;
    const bool in_h = band.h_low <= h && h <= band.h_high;
    if (height_only) {
        return in_h;
    }
    // Angles at least half a turn apart mean the band runs across the front meridian.
    const bool in_phi = std::fabs(band.phi_end - band.phi_begin) < math::Constant_PI
                            ? band.phi_begin <= phi && phi <= band.phi_end
                            : phi >= band.phi_begin || phi <= band.phi_end;
    return in_h && in_phi;
}

// Only the candidate's centre and corners are tested against the recorded bands, not the other
// way round: cheap, and enough for layers of similar size.
bool MainDlg::intersects(const Vector& p, const A_LPoint& size, bool height_only) const
{
    if (!get_bool(CHECK_DONT_INTERSECT)) {
        return false;
    }
    const std::array<Vector, 4> k = corners(*this, p, size);
    const std::array<Vector, 5> points = {p, k[0], k[1], k[2], k[3]};
    for (const SolidAngle& band : volumes) {
        for (const Vector& q : points) {
            if (contains(band, q, height_only)) {
                return true;
            }
        }
    }
    return false;
}
