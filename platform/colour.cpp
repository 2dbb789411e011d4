// Colour arithmetic for the pictures.
#include "platform/colour.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace platform::detail {

namespace {

int channel(double unit) { return static_cast<int>(std::lround(std::clamp(unit, 0.0, 1.0) * 255)); }

double linear(int channel) {
    double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

constexpr double kGreyedShare = 0.5;
constexpr double kGreyedContrast = 3.2;  // a little above 3:1, so rounding never drops below it

}  // namespace

Colour fromRgb16(const RGBColor& colour) {
    return fromUnit(colour.red / 65535.0, colour.green / 65535.0, colour.blue / 65535.0);
}

Colour fromUnit(CGFloat red, CGFloat green, CGFloat blue) {
    return Colour{channel(red), channel(green), channel(blue)};
}

Colour mix(Colour from, Colour to, double share) {
    auto one = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return Colour{one(from.red, to.red), one(from.green, to.green), one(from.blue, to.blue)};
}

std::string hexOf(Colour colour) {
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", colour.red & 0xFF, colour.green & 0xFF, colour.blue & 0xFF);
    return buffer;
}

double luminance(Colour colour) {
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double contrastRatio(Colour a, Colour b) {
    double la = luminance(a);
    double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

bool isDark(Colour colour) {
    return luminance(colour) < 0.18;  // darker than middle grey
}

Colour greyedText(Colour text, Colour behind) {
    double share = kGreyedShare;
    Colour greyed = mix(text, behind, share);
    while (share > 0 && contrastRatio(greyed, behind) < kGreyedContrast) {
        share -= 0.05;
        greyed = mix(text, behind, std::max(share, 0.0));
    }
    return greyed;
}

}  // namespace platform::detail
