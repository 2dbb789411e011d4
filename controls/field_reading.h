// What an edit field reads from its text: the leading number (controls/number_text.h) held within
// the field's limits in single precision, or an integer for the fields read as one. The dialog's
// fields read by these, and so does every tool that says what a field holds.
#pragma once

#include "controls/settings_table.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace controls {

// A field hands over at most this many bytes of its text, the terminating zero included: longer
// text is not read at all, and the field keeps the number it held.
inline constexpr std::size_t kFieldTextBuffer = 128;
inline constexpr std::size_t kFieldReadsCharacters = kFieldTextBuffer - 1;

// A number held within a field's limits: above the maximum gives the maximum, below the minimum the
// minimum (NaN compares false with both and is never handed here).
float clampToField(double number, float minimum, float maximum);

// A number truncated toward zero to a 32-bit integer, saturating; 0 for NaN.
std::int32_t truncateToInt(double number);

// An integer held within a field's limits, each limit truncated.
std::int32_t clampWholeToField(std::int64_t number, float minimum, float maximum);

// The number at the start of a text and how many characters it takes; nothing when the text
// starts with no number.
struct NumberInText {
    double value = 0;
    std::size_t length = 0;  // characters read, leading blanks and sign included
};
std::optional<NumberInText> leadingNumber(std::string_view text);

// What a field of the control table reads from the text: the leading number held within the
// control's range, truncated for whole-number fields. Nothing when the field keeps the number it
// held (no number at the start, or text longer than a field reads).
std::optional<double> fieldReading(const ControlSpec& control, std::string_view text);

// Whether the control table's field is one the plug-in reads as an integer.
bool readsWholeNumber(const ControlSpec& control);

}  // namespace controls
