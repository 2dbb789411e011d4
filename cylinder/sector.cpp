// The Active Surface sector: which halves of the cylinder the given-steps and radius modes may use.
#include "cylinder/MainDlg.h"

#include "cylinder/cylinder_constants.h"

bool MainDlg::is_pos_valid(const Vector& p) const {
    if (!get_bool(RADIO_SECTOR)) {
        return true;
    }
    const bool front = get_bool(CHECK_SECTOR_FRONT);
    const bool right = get_bool(CHECK_SECTOR_RIGHT);
    const bool back = get_bool(CHECK_SECTOR_BACK);
    const bool left = get_bool(CHECK_SECTOR_LEFT);
    // Two opposite halves make up the whole cylinder.
    if ((front && back) || (left && right)) {
        return true;
    }
    double a = cart_to_cyl(p).y * 180.0 / math::Constant_PI;
    if (a > 360) {
        a -= 360;
    }
    if (a < 0) {
        a += 360;
    }
    // Each half is closed at both ends; the front meridian also counts as left.
    return (front && (a <= 90 || a >= 270)) || (right && a <= 180) || (back && a >= 90 && a <= 270) ||
           (left && (a >= 180 || a < EPS));
}

bool MainDlg::nowhere() const {
    return get_bool(RADIO_SECTOR) && !get_bool(CHECK_SECTOR_FRONT) && !get_bool(CHECK_SECTOR_RIGHT) &&
           !get_bool(CHECK_SECTOR_BACK) && !get_bool(CHECK_SECTOR_LEFT);
}
