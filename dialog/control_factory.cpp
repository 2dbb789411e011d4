// The control factory of BaseDlg: one call makes a control of a kind, at a place and size, with
// its label, identifier and first value.
#include "dialog/BaseDlg.h"

const float gAdmStaticControlCorrectionCoef = 1.0f;
const float gAdmCheckboxControlCorrectionCoef = 1.0f;
const float gAdmRadioControlCorrectionCoef = 1.0f;

namespace {

// Labelled controls take the size of their text; the caller's size is only a first guess.
void fit_to_best_size(ADMItemRef item, float width_coef) {
    IASPoint best{0, 0};
    sADMItem->GetBestSize(item, &best);
    const IASRect local{0, 0, best.v, static_cast<int16_t>(static_cast<int>(best.h * width_coef))};
    sADMItem->SetLocalRect(item, &local);
}

}  // namespace

ADMItemRef BaseDlg::add_ctrl(const char* item_type, const IASRect& rect, const char* text, ADMInt32 id) {
    // The caller hands a place and a size; the toolkit wants the corners.
    const IASRect bounds{rect.top, rect.left, static_cast<int16_t>(rect.top + rect.bottom),
                         static_cast<int16_t>(rect.left + rect.right)};
    ADMItemRef item = sADMItem->Create(dialog, id, item_type, &bounds, nullptr, nullptr, 0);
    if (item != nullptr && text != nullptr) {
        sADMItem->SetText(item, text);
    }
    return item;
}

ADMItemRef BaseDlg::add_edit(const IASRect& rect, ADMInt32 id, float minimum, float maximum, float value) {
    ADMItemRef item = add_ctrl(kADMTextEditType, rect, nullptr, id);
    sADMItem->ShowUnits(item, false);
    sADMItem->SetUnits(item, kADMNoUnits);
    sADMItem->SetMinFloatValue(item, minimum);
    sADMItem->SetMaxFloatValue(item, maximum);
    // After the limits: the toolkit keeps the value as given and clamps only on reading.
    sADMItem->SetFloatValue(item, value);
    return item;
}

ADMItemRef BaseDlg::add_static(const IASPoint& point, const char* text, ADMInt32 id) {
    const IASRect rect{point.v, point.h, 0, 0};
    ADMItemRef item = add_ctrl(kADMTextStaticType, rect, text, id);
    fit_to_best_size(item, gAdmStaticControlCorrectionCoef);
    return item;
}

ADMItemRef BaseDlg::add_checkbox(const IASRect& rect, const char* text, ADMInt32 id, int value) {
    ADMItemRef item = add_ctrl(kADMTextCheckBoxType, rect, text, id);
    sADMItem->SetBooleanValue(item, value != 0);
    fit_to_best_size(item, gAdmCheckboxControlCorrectionCoef);
    return item;
}

ADMItemRef BaseDlg::add_radio(const IASRect& rect, const char* text, ADMInt32 id, int value) {
    ADMItemRef item = add_ctrl(kADMTextRadioButtonType, rect, text, id);
    sADMItem->SetBooleanValue(item, value != 0);
    fit_to_best_size(item, gAdmRadioControlCorrectionCoef);
    return item;
}

ADMItemRef BaseDlg::add_frame(const IASRect& rect, const char* text, ADMInt32 id, ADMFrameStyle style) {
    ADMItemRef item = add_ctrl(kADMFrameType, rect, text, id);
    sADMItem->SetItemStyle(item, style);
    return item;
}
