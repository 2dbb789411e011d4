// Colours of the pictures: 8-bit channels, mixing, and the contrast of text on its background.
#pragma once

#include "platform/platform.h"

#include <string>

namespace platform::detail {

struct Colour {
    int red = 0, green = 0, blue = 0;  // 0 to 255

    bool operator==(const Colour&) const = default;
};

Colour fromRgb16(const RGBColor& colour);
Colour fromUnit(CGFloat red, CGFloat green, CGFloat blue);
// `from` moved towards `to` by `share` (0 keeps `from`, 1 gives `to`).
Colour mix(Colour from, Colour to, double share);
std::string hexOf(Colour colour);  // "#rrggbb"

// Relative luminance and contrast ratio (1 to 21) as the web's accessibility guidelines define them.
double luminance(Colour colour);
double contrastRatio(Colour a, Colour b);
bool isDark(Colour colour);

// The colour of greyed text: the enabled colour moved towards what is behind it, but not so far
// that it stops being readable (3:1, when the enabled colour reaches that).
Colour greyedText(Colour text, Colour behind);

}  // namespace platform::detail
