// The options every assistant reads from its dialog by their fixed identifiers; a control the
// dialog does not have counts as off.
#include "common/adobe/AssistantDlg.h"

#include "controls/placement_rules.h"

bool AssistantDlg::is_checked(ADMInt32 id) const { return sADMItem->GetBooleanValue(get_item(id)) != 0; }

bool AssistantDlg::is_reverse_order() { return is_checked(kAssistantReverseOrderId); }

bool AssistantDlg::is_random_order() { return is_checked(kAssistantRandomOrderId); }

bool AssistantDlg::is_repeat_seq() { return is_checked(kAssistantRepeatSequentiallyId); }

bool AssistantDlg::is_key_pos() { return is_checked(kAssistantKeyPositionId); }

bool AssistantDlg::is_key_orient() { return is_checked(kAssistantKeyOrientationId); }

bool AssistantDlg::is_key_scale() { return is_checked(kAssistantKeyScaleId); }

// Checked means "crop to the other 3D layers", so the composition size is the default.
bool AssistantDlg::is_text_layer_use_comp_size() {
    ADMItemRef crop = get_item(kAssistantCropTextLayersId);
    if (crop == nullptr) {
        return true;
    }
    return sADMItem->GetBooleanValue(crop) == 0;
}

// The base assistant always turns layers.
bool AssistantDlg::is_orient_changed() { return true; }

math::TGeomVector3D<double> AssistantDlg::get_offset() {
    const controls::PlanarOffset centre =
        controls::positionOffset(is_checked(kAssistantUseCompCenterId), {comp_width, comp_height});
    return math::TGeomVector3D<double>(centre.x, centre.y, 0.0);
}
