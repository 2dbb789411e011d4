#include "bench/layout_settings.h"

#include "controls/control_ids.h"

namespace bench {

namespace {

void equator_only(CylinderStand& stand) {
    stand.set_bool(RADIO_WHOLE_CYLINDER, false);
    stand.set_bool(RADIO_EQUATOR_ONLY, true);
}

}  // namespace

void choose_mode(CylinderStand& stand, Mode mode) {
    switch (mode) {
        case Mode::evenly:
            stand.set_bool(CHECK_DISTRIBUTE_EVENLY, true);
            break;
        case Mode::given_steps:
            // 360 places a row, 401 rows on the 2000-high cylinder.
            stand.set_float(EDIT_MIN_LONGITUDE, 1);
            stand.set_float(EDIT_MIN_LATITUDE, 5);
            break;
        case Mode::equator:
            // The step is a whole turn over the number of records: every record has its place.
            equator_only(stand);
            stand.set_bool(CHECK_DISTRIBUTE_EVENLY, true);
            break;
        case Mode::radius:
            // 100 places a row, 201 rows.
            stand.set_bool(CHECK_RADIUS_BY_FIRST, true);
            stand.set_float(EDIT_RADIUS_LAYERS, 100);
            stand.set_float(EDIT_MIN_LATITUDE, 10);
            break;
        case Mode::ring:
            equator_only(stand);
            stand.set_bool(CHECK_CREATE_RING, true);
            break;
    }
}

void choose_dont_intersect(CylinderStand& stand, float width, float height) {
    stand.set_bool(CHECK_DONT_INTERSECT, true);
    stand.set_float(EDIT_DIM_X, width);
    stand.set_float(EDIT_DIM_Z, width);
    stand.set_float(EDIT_DIM_Y, height);
    stand.set_float(EDIT_MIN_LONGITUDE, 1);
    stand.set_float(EDIT_MIN_LATITUDE, 20);
}

}  // namespace bench
