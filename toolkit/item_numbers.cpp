// Numbers in edit fields: the stored value with its limits, shown as trimmed "%f" text and read
// back from whatever the user typed.
#include "controls/field_reading.h"
#include "controls/number_text.h"
#include "toolkit/iADMItem.h"
#include "toolkit/platform_text.h"

void iADMItem::updateFloatText() {
    if (control == nullptr) {
        return;
    }
    const std::string text = controls::formatNumber(value);
    toolkit::PlatformString string(text.c_str(), kCFStringEncodingASCII);
    CFStringRef data = string.get();
    SetControlData(control, kControlEntireControl, kControlEditTextCFStringTag, sizeof data, &data);
}

float iADMItem::GetFloatValue() {
    char text[controls::kFieldTextBuffer];
    if (control == nullptr || !GetTextValue(text, static_cast<ADMInt32>(sizeof text))) {
        return value;
    }
    if (const auto number = controls::parseLeadingNumber(text)) {
        value = controls::clampToField(*number, minimum, maximum);
    }
    return value;
}

ADMInt32 iADMItem::GetIntValue() {
    const ADMInt32 stored = controls::truncateToInt(value);
    char text[controls::kFieldTextBuffer];
    if (control == nullptr || !GetTextValue(text, static_cast<ADMInt32>(sizeof text))) {
        return stored;
    }
    const auto number = controls::parseLeadingInteger(text);
    if (!number) {
        return stored;
    }
    const ADMInt32 result = controls::clampWholeToField(*number, minimum, maximum);
    value = static_cast<float>(result);
    return result;
}

void iADMItem::SetFloatValue(float v) {
    value = v;
    updateFloatText();
}

void iADMItem::SetMinFloatValue(float v) {
    minimum = v;
    updateFloatText();
}

void iADMItem::SetMaxFloatValue(float v) {
    maximum = v;
    updateFloatText();
}
