#include "app/run/field_reading.h"

#include "controls/control_notes.h"
#include "controls/number_text.h"

#include <cmath>
#include <string>

namespace app {

std::optional<NumberInText> leadingNumber(std::string_view text) {
    const std::string terminated(text);
    const std::optional<double> value = controls::parseLeadingNumber(terminated.c_str());
    if (!value) {
        return std::nullopt;
    }
    return NumberInText{*value, controls::leadingNumberLength(terminated.c_str())};
}

std::optional<double> fieldReading(const ControlSpec& control, std::string_view text) {
    if (text.size() > kEditFieldReads) {
        return std::nullopt;
    }
    const std::string terminated(text);
    const ControlNote* note = control_note(control.id);
    if (note != nullptr && note->whole_number) {
        const std::optional<int64_t> number = controls::parseLeadingInteger(terminated.c_str());
        if (!number) {
            return std::nullopt;
        }
        const double n = static_cast<double>(*number);
        return n > control.maximum ? std::trunc(control.maximum)
                                   : (control.minimum > n ? std::trunc(control.minimum) : std::trunc(n));
    }
    const std::optional<double> number = controls::parseLeadingNumber(terminated.c_str());
    if (!number) {
        return std::nullopt;
    }
    const double n = *number;
    return n > control.maximum ? control.maximum
                               : (control.minimum > n ? control.minimum : static_cast<double>(static_cast<float>(n)));
}

}  // namespace app
