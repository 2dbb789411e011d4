#include "controls/field_reading.h"

#include "controls/control_notes.h"
#include "controls/number_text.h"

#include <cmath>
#include <limits>
#include <string>

namespace controls {

float clampToField(double number, float minimum, float maximum) {
    if (number > maximum) {
        return maximum;
    }
    if (minimum > number) {
        return minimum;
    }
    return static_cast<float>(number);
}

std::int32_t truncateToInt(double number) {
    if (std::isnan(number)) {
        return 0;
    }
    const double t = std::trunc(number);
    if (t >= static_cast<double>(std::numeric_limits<std::int32_t>::max())) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (t <= static_cast<double>(std::numeric_limits<std::int32_t>::min())) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(t);
}

std::int32_t clampWholeToField(std::int64_t number, float minimum, float maximum) {
    const double n = static_cast<double>(number);
    return n > maximum ? truncateToInt(maximum) : minimum > n ? truncateToInt(minimum) : truncateToInt(n);
}

std::optional<NumberInText> leadingNumber(std::string_view text) {
    const std::string terminated(text);
    const std::optional<double> value = parseLeadingNumber(terminated.c_str());
    if (!value) {
        return std::nullopt;
    }
    return NumberInText{*value, leadingNumberLength(terminated.c_str())};
}

bool readsWholeNumber(const ControlSpec& control) {
    const ControlNote* note = control_note(control.id);
    return note != nullptr && note->whole_number;
}

std::optional<double> fieldReading(const ControlSpec& control, std::string_view text) {
    if (text.size() > kFieldReadsCharacters) {
        return std::nullopt;
    }
    const std::string terminated(text);
    if (readsWholeNumber(control)) {
        const std::optional<std::int64_t> number = parseLeadingInteger(terminated.c_str());
        if (!number) {
            return std::nullopt;
        }
        return clampWholeToField(*number, control.minimum, control.maximum);
    }
    const std::optional<double> number = parseLeadingNumber(terminated.c_str());
    if (!number) {
        return std::nullopt;
    }
    return clampToField(*number, control.minimum, control.maximum);
}

}  // namespace controls
