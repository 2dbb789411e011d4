#include "toolkit/number_text.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace toolkit {

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

bool startsWithDigitOrPoint(const char* text) {
    const char* p = *text == '-' ? text + 1 : text;
    return std::isdigit(static_cast<unsigned char>(*p)) != 0 || *p == '.';
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
    // Only decimal numbers: no "inf", "nan" or hexadecimal forms.
    if (!startsWithDigitOrPoint(start)) {
        return std::nullopt;
    }
    double number = 0;
    const auto [end, error] = std::from_chars(start, start + std::strlen(start), number, std::chars_format::general);
    if (end == start || error != std::errc()) {
        return std::nullopt;  // nothing read, or a magnitude no double holds
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

}  // namespace toolkit
