// Numbers in edit fields: the stored value with its limits, shown as trimmed "%f" text and read
// back from whatever the user typed.
#include "controls/number_text.h"
#include "toolkit/iADMItem.h"
#include "toolkit/platform_text.h"

#include <cmath>
#include <limits>

namespace {

constexpr ADMInt32 kTextLimit = 128;

ADMInt32 truncateToInt(double number) {
    if (std::isnan(number)) {
        return 0;
    }
    const double t = std::trunc(number);
    if (t >= static_cast<double>(std::numeric_limits<ADMInt32>::max())) {
        return std::numeric_limits<ADMInt32>::max();
    }
    if (t <= static_cast<double>(std::numeric_limits<ADMInt32>::min())) {
        return std::numeric_limits<ADMInt32>::min();
    }
    return static_cast<ADMInt32>(t);
}

}  // namespace

float iADMItem::clampToLimits(double number) const {
    if (number > maximum) {
        return maximum;
    }
    if (minimum > number) {
        return minimum;
    }
    return static_cast<float>(number);
}

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
    char text[kTextLimit];
    if (control == nullptr || !GetTextValue(text, kTextLimit)) {
        return value;
    }
    if (const auto number = controls::parseLeadingNumber(text)) {
        value = clampToLimits(*number);
    }
    return value;
}

ADMInt32 iADMItem::GetIntValue() {
    const ADMInt32 stored = truncateToInt(value);
    char text[kTextLimit];
    if (control == nullptr || !GetTextValue(text, kTextLimit)) {
        return stored;
    }
    const auto number = controls::parseLeadingInteger(text);
    if (!number) {
        return stored;
    }
    const double n = static_cast<double>(*number);
    const ADMInt32 result = n > maximum   ? truncateToInt(maximum)
                            : minimum > n ? truncateToInt(minimum)
                                          : truncateToInt(n);
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
