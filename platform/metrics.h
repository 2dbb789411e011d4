// Text and control metrics of the theme fonts: a fixed width per character, so that every
// machine measures alike.
#pragma once

#include "platform/internal.h"

#include <string>
#include <vector>

namespace platform::detail {

enum class Face { small, mini };

struct FaceMetrics {
    int pointSize;
    int lineHeight;
    int ascent;
    int toggleBox;  // check box or radio button square
    int toggleGap;  // between the square and the title
    int toggleHeight;
    int pushHeight;
    int pushPadding;  // on each side of a push button's title
};

const FaceMetrics& metricsOf(Face face);
Face faceOfThemeFont(ThemeFontID font);
// The face a control draws its text in, from its font style and its size.
Face faceOfControl(const OpaqueControlRef& control);
int charWidth(char16_t c, Face face);
int lineWidth(const std::u16string& line, Face face);
// Splits at line breaks (CR, LF or CR LF); wraps at spaces when a width is given.
std::vector<std::u16string> layoutLines(const std::u16string& text, Face face, int wrapWidth = 0);

}  // namespace platform::detail
