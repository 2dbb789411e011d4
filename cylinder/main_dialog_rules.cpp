#include "controls/settings_table.h"
#include "cylinder/MainDlg.h"

#include <array>
#include <initializer_list>

namespace {

void set_enabled(const MainDlg& dlg, std::initializer_list<ADMInt32> ids, bool enable) {
    for (ADMInt32 id : ids) {
        sADMItem->Enable(dlg.get_item(id), enable);
    }
}

typedef void (MainDlg::*Rule)();

// Which rules a user change of a control re-applies, in order.
struct NotifyRule {
    ADMInt32 first_id;
    ADMInt32 last_id;
    std::array<Rule, 4> rules;
};

const std::array<NotifyRule, 4> kNotifyRules = {{
    {CHECK_DISTRIBUTE_EVENLY, CHECK_DISTRIBUTE_EVENLY, {&MainDlg::enable_distance_group}},
    {RADIO_WHOLE_CYLINDER, RADIO_EQUATOR_ONLY, {&MainDlg::enable_hemisphere_group}},
    {CHECK_RADIUS_BY_FIRST,
     CHECK_RADIUS_BY_FIRST,
     {&MainDlg::enable_radius_group, &MainDlg::enable_hemisphere_group, &MainDlg::enable_distance_group,
      &MainDlg::enable_force_conform}},
    {CHECK_SCALE_LAYER, CHECK_SCALE_LAYER, {&MainDlg::enable_force_conform}},
}};

}  // namespace

void MainDlg::enable_distance_group() {
    const bool evenly = get_bool(CHECK_DISTRIBUTE_EVENLY);
    const bool radius = get_bool(CHECK_RADIUS_BY_FIRST);
    const bool equator = get_bool(RADIO_EQUATOR_ONLY);
    const bool ring = get_bool(CHECK_CREATE_RING);
    set_enabled(*this, {CHECK_RADIUS_BY_FIRST}, !evenly);
    set_enabled(
        *this,
        {STATIC_LATITUDE_MIN, STATIC_LATITUDE_MAX, EDIT_MIN_LATITUDE, EDIT_MAX_LATITUDE, EDIT_LATITUDE_INCREMENT},
        !evenly && !equator);
    set_enabled(
        *this,
        {STATIC_LONGITUDE_MIN, STATIC_LONGITUDE_MAX, EDIT_MIN_LONGITUDE, EDIT_MAX_LONGITUDE, EDIT_LONGITUDE_INCREMENT},
        !evenly && !radius && (!equator || !ring));
}

void MainDlg::enable_hemisphere_group() {
    const bool sector = get_bool(RADIO_SECTOR);
    const bool equator = get_bool(RADIO_EQUATOR_ONLY);
    const bool radius = get_bool(CHECK_RADIUS_BY_FIRST);
    set_enabled(*this, {CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT}, sector);
    set_enabled(*this, {CHECK_CREATE_RING}, equator && !radius);
}

void MainDlg::enable_force_conform() {
    set_enabled(*this, {EDIT_FORCE_CONFORM}, get_bool(CHECK_SCALE_LAYER) && !get_bool(CHECK_RADIUS_BY_FIRST));
}

void MainDlg::enable_radius_group() {
    const bool radius = get_bool(CHECK_RADIUS_BY_FIRST);
    set_enabled(*this, {EDIT_RADIUS_LAYERS}, radius);
    // The height still comes from the dialog in the radius mode, so EDIT_DIM_Y stays.
    set_enabled(*this, {EDIT_DIM_X, EDIT_DIM_Z, CHECK_DISTRIBUTE_EVENLY, CHECK_SCALE_LAYER, RADIO_EQUATOR_ONLY},
                !radius);
}

bool MainDlg::enable_repeat_layers() {
    return !get_bool(CHECK_RADIUS_BY_FIRST) && !get_bool(CHECK_DISTRIBUTE_EVENLY) && !get_bool(RADIO_EQUATOR_ONLY);
}

void MainDlg::Enable(unsigned char enable) {
    AssistantDlg::Enable(enable);
    if (enable) {
        enable_force_conform();
        enable_distance_group();
        enable_hemisphere_group();
        enable_radius_group();
    }
    for (ADMInt32 id : kHiddenControls) {
        sADMItem->Show(get_item(id), false);
    }
}

void MainDlg::Notify(IADMNotifier notifier) {
    const ADMInt32 id = sADMItem->GetID(sADMNotifier->GetItem(notifier));
    if (sADMNotifier->IsNotifierType(notifier, kADMUserChangedNotifier)) {
        for (const NotifyRule& entry : kNotifyRules) {
            if (id < entry.first_id || id > entry.last_id) {
                continue;
            }
            for (Rule rule : entry.rules) {
                if (rule != nullptr) {
                    (this->*rule)();
                }
            }
        }
    }
    AssistantDlg::Notify(notifier);
}
