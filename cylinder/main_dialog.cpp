#include "controls/settings_table.h"
#include "cylinder/MainDlg.h"

#include <cstdio>

namespace {

// The factory takes a place and a size: height in bottom, width in right.
IASRect place_and_size(const ControlSpec& c) { return IASRect{c.top, c.left, c.height, c.width}; }

void create_control(MainDlg& dlg, const ControlSpec& c) {
    switch (c.kind) {
        case SettingKind::static_text:
            dlg.add_static(IASPoint{c.top, c.left}, c.label, c.id);
            break;
        case SettingKind::edit:
            dlg.add_edit(place_and_size(c), c.id, c.minimum, c.maximum, c.value);
            break;
        case SettingKind::check_box:
            dlg.add_checkbox(place_and_size(c), c.label, c.id, c.value != 0.0f ? 1 : 0);
            break;
        case SettingKind::radio:
            dlg.add_radio(place_and_size(c), c.label, c.id, c.value != 0.0f ? 1 : 0);
            break;
        case SettingKind::push_button:
            dlg.add_ctrl(kADMTextPushButtonType, place_and_size(c), c.label, c.id);
            break;
        case SettingKind::frame:
            dlg.add_frame(place_and_size(c), c.label, c.id, kADMEtchedFrameStyle);
            break;
    }
}

}  // namespace

MainDlg::MainDlg(int plugin_id) : AssistantDlg(plugin_id) {}

MainDlg::~MainDlg() = default;

std::string MainDlg::get_name() const { return kProductName; }

float MainDlg::get_float(ADMInt32 id) const {
    return settings_memo.get<float>(id, [&] { return sADMItem->GetFloatValue(get_item(id)); });
}

int MainDlg::get_int(ADMInt32 id) const {
    return settings_memo.get<int>(id, [&] { return static_cast<int>(sADMItem->GetIntValue(get_item(id))); });
}

bool MainDlg::get_bool(ADMInt32 id) const {
    return settings_memo.get<bool>(id, [&] { return sADMItem->GetBooleanValue(get_item(id)) != 0; });
}

ASErr MainDlg::Init() {
    ASErr result = 0;
    try {
        result = AssistantDlg::Init();
        SetLocalRect(IASRect{0, 0, kDialogHeight, kDialogWidth});
        sADMDialog->SetText(dialog, kProductName);
        for (const ControlSpec& c : kCylinderControls) {
            create_control(*this, c);
        }
        for (const ControlSpec& c : kCylinderFrames) {
            create_control(*this, c);
        }
        char version[64];
        std::snprintf(version, sizeof version, kVersionFormat, kProductName, kProductVersion);
        ADMItemRef line = add_static(IASPoint{kVersionTop, kVersionLeft}, version, STATIC_VERSION);
        sADMItem->SetFont(line, kVersionFont);
        // Centre again: the first centring ran before the size was known.
        MoveToScreenCenter();
        // Shown by the shell after the first refresh.
        sADMDialog->Show(dialog, false);
    } catch (...) {
        // A half-built window is still usable; the caller only learns the base's result.
    }
    return result;
}
