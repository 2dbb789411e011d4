#include "controls/number_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string_view>

namespace controls {

namespace {

// The digits of a number as the standard conversions expect them: leading white space skipped,
// a plus sign dropped (a minus sign stays with the digits).
const char* numberStart(const char* text) {
    while (std::isspace(static_cast<unsigned char>(*text)) != 0) {
        ++text;
    }
    if (*text == '+' && text[1] != '-' && text[1] != '+') {
        ++text;
    }
    return text;
}

// Whether a decimal number outside the range of a double lies above it rather than below it: its
// first significant digit, with the exponent, stands at a power of ten above zero. Such a number has
// a non-zero digit, and its power is hundreds away from zero either way.
bool overflows(std::string_view number) {
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, e);
    const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
    const long long place = first < point ? point - first - 1 : point - first;
    std::string_view exponent = number.substr(std::min(e + 1, number.size()));
    if (!exponent.empty() && exponent.front() == '+') {
        exponent.remove_prefix(1);
    }
    long long power = 0;
    if (!exponent.empty() &&
        std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec != std::errc()) {
        return exponent.front() != '-';  // an exponent beyond 64 bits decides alone
    }
    return power > -place;
}

}  // namespace

std::string formatNumber(double value) {
    char printed[400];  // "%f" of the largest float needs fewer than 50 characters; of a double, 320
    std::snprintf(printed, sizeof printed, "%f", value);
    std::string text(printed);
    if (text.empty() || text.back() != '0' || text.find('.') == std::string::npos) {
        return text;
    }
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

std::optional<double> parseLeadingNumber(const char* text) {
    if (text == nullptr) {
        return std::nullopt;
    }
    const char* start = numberStart(text);
    double number = 0;
    const auto [end, error] = std::from_chars(start, start + std::strlen(start), number, std::chars_format::general);
    if (end == start) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        // Too large or too small for a double: the infinity or the zero it tends to, with its sign,
        // so that a field's limits take over as they do for any other number beyond them.
        const double magnitude = overflows(std::string_view(start, static_cast<std::size_t>(end - start)))
                                     ? std::numeric_limits<double>::infinity()
                                     : 0.0;
        return *start == '-' ? -magnitude : magnitude;
    }
    // NaN is refused: it compares false with both limits of a field, so a clamp would let it
    // through into the layout. The field keeps its value instead.
    if (std::isnan(number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<int64_t> parseLeadingInteger(const char* text) {
    if (text == nullptr) {
        return std::nullopt;
    }
    const char* start = numberStart(text);
    int64_t number = 0;
    const auto [end, error] = std::from_chars(start, start + std::strlen(start), number, 10);
    if (end == start) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        return *start == '-' ? std::numeric_limits<int64_t>::min() : std::numeric_limits<int64_t>::max();
    }
    return number;
}

std::size_t leadingNumberLength(const char* text) {
    if (!parseLeadingNumber(text)) {
        return 0;
    }
    // The number parseLeadingNumber took is the one the standard conversion matches from here.
    const char* start = numberStart(text);
    double number = 0;
    const char* end = std::from_chars(start, start + std::strlen(start), number, std::chars_format::general).ptr;
    return static_cast<std::size_t>(end - text);
}

}  // namespace controls
