// The Active Surface sector: which halves of the cylinder the given-steps and radius modes may use.
#include "cylinder/MainDlg.h"

#include "controls/placement_rules.h"
#include "cylinder/cylinder_constants.h"

bool MainDlg::is_pos_valid(const Vector& p) const {
    if (!get_bool(RADIO_SECTOR)) {
        return true;
    }
    const controls::SectorBoxes boxes{get_bool(CHECK_SECTOR_FRONT), get_bool(CHECK_SECTOR_RIGHT),
                                      get_bool(CHECK_SECTOR_BACK), get_bool(CHECK_SECTOR_LEFT)};
    if (controls::sectorAdmitsAll(boxes)) {
        return true;
    }
    return controls::sectorAdmitsAngle(boxes, cart_to_cyl(p).y * 180.0 / math::Constant_PI);
}

bool MainDlg::nowhere() const {
    return get_bool(RADIO_SECTOR) &&
           controls::sectorAdmitsNone({get_bool(CHECK_SECTOR_FRONT), get_bool(CHECK_SECTOR_RIGHT),
                                       get_bool(CHECK_SECTOR_BACK), get_bool(CHECK_SECTOR_LEFT)});
}
