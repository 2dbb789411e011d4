// What an edit field of the dialog reads from a text: the field's own rule for numbers (the
// plug-in's, shared through the control library), held within the control's range, and an
// integer for the fields the plug-in reads as one.
#pragma once

#include "controls/settings_table.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace app {

// An edit field reads at most this many characters: longer text is not read at all, and the
// field keeps the number it held.
inline constexpr std::size_t kEditFieldReads = 127;

// The number at the start of the text and where it ends, as the field reads it; nothing when
// the text starts with no number.
struct NumberInText {
    double value = 0;
    std::size_t length = 0;  // characters read, leading blanks and sign included
};
std::optional<NumberInText> leadingNumber(std::string_view text);

// What the field reads from the text: the leading number held within the control's range (as
// single precision), truncated for whole-number fields. Nothing when the field would keep the
// number it held (no number at the start, or text longer than the field reads).
std::optional<double> fieldReading(const ControlSpec& control, std::string_view text);

}  // namespace app
