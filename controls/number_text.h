// How edit fields show and read numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace controls {

// "%f" with trailing zeros removed, and the decimal point too when nothing follows it.
std::string formatNumber(double value);

// A decimal number at the start of the text, after white space and a plus sign; trailing characters
// are ignored. Also "inf" and "infinity" in any case, with a sign. A number beyond the range of a
// double reads as the infinity or the zero (with its sign) it tends to. None when no character
// forms a number, and for "nan" in any form; hexadecimal forms read as their leading zero.
std::optional<double> parseLeadingNumber(const char* text);

// A base-10 integer at the start of the text. A number too long for 64 bits saturates.
std::optional<int64_t> parseLeadingInteger(const char* text);

// How many characters of the text parseLeadingNumber reads, white space and sign included; 0
// when it reads no number. What follows is what a field ignores.
std::size_t leadingNumberLength(const char* text);

}  // namespace controls
