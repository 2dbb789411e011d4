// Character widths, text dimensions, best control rectangles and font families.
#include "platform/metrics.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace platform::detail {

namespace {

// Advance widths of the small system font for the printable ASCII characters 0x20 to 0x7E.
constexpr std::array<unsigned char, 95> kSmallWidths = {
    3, 3, 5, 7, 7, 10, 8,  3, 4, 4,  5, 7, 3, 4, 3, 4,  // space ! " # $ % & ' ( ) * + , - . /
    7, 7, 7, 7, 7, 7,  7,  7, 7, 7,                     // 0-9
    3, 3, 7, 7, 7, 6,  11,                              // : ; < = > ? @
    7, 7, 8, 8, 7, 6,  8,  8, 3, 5,  7, 6, 9,           // A-M
    8, 8, 7, 8, 7, 7,  7,  8, 7, 10, 7, 7, 7,           // N-Z
    4, 4, 4, 6, 6, 4,                                   // [ \ ] ^ _ `
    6, 6, 6, 6, 6, 3,  6,  6, 2, 2,  5, 2, 9,           // a-m
    6, 6, 6, 6, 4, 5,  3,  6, 5, 8,  5, 5, 5,           // n-z
    4, 3, 4, 7,                                         // { | } ~
};

constexpr int kOtherCharWidth = 6;  // any character outside printable ASCII

constexpr FaceMetrics kSmall{11, 14, 11, 14, 4, 18, 20, 12};
constexpr FaceMetrics kMini{9, 12, 9, 12, 3, 15, 16, 8};

bool isBreak(char16_t c) { return c == u'\r' || c == u'\n'; }

void wrapInto(const std::u16string& line, Face face, int width, std::vector<std::u16string>& out) {
    std::u16string current;
    std::size_t i = 0;
    while (i < line.size()) {
        std::size_t end = line.find(u' ', i);
        if (end == std::u16string::npos)
            end = line.size();
        std::u16string word = line.substr(i, end - i);
        std::u16string candidate = current.empty() ? word : current + u' ' + word;
        if (current.empty() || lineWidth(candidate, face) <= width) {
            current = std::move(candidate);
        } else {
            out.push_back(current);
            current = std::move(word);
        }
        i = end + 1;
    }
    out.push_back(current);
}

}  // namespace

const FaceMetrics& metricsOf(Face face) { return face == Face::mini ? kMini : kSmall; }

Face faceOfThemeFont(ThemeFontID font) {
    if (font == kThemeCurrentPortFont)
        font = state().portFont;
    return font == kThemeMiniSystemFont ? Face::mini : Face::small;
}

Face faceOfControl(const OpaqueControlRef& control) {
    if (control.fontStyle.flags & kControlUseFontMask) {
        if (control.fontStyle.font == kControlFontMiniSystemFont)
            return Face::mini;
        if (control.fontStyle.font < 0)
            return Face::small;  // the other meta fonts
    }
    // A family of its own (such as a fixed-width one) at the mini font's size.
    if ((control.fontStyle.flags & kControlUseSizeMask) && control.fontStyle.size == kControlFontMiniSystemFont) {
        return Face::mini;
    }
    return control.size == kControlSizeMini ? Face::mini : Face::small;
}

int charWidth(char16_t c, Face face) {
    int small = c >= 0x20 && c <= 0x7E ? kSmallWidths[c - 0x20] : c < 0x20 ? 0 : kOtherCharWidth;
    if (face == Face::small || small == 0)
        return small;
    return std::max(1, (small * 9 + 5) / 11);  // the mini face is the small one at 9 of 11 points
}

int lineWidth(const std::u16string& line, Face face) {
    int width = 0;
    for (char16_t c : line)
        width += charWidth(c, face);
    return width;
}

std::vector<std::u16string> layoutLines(const std::u16string& text, Face face, int wrapWidth) {
    std::vector<std::u16string> lines;
    std::size_t start = 0;
    while (true) {
        std::size_t end = start;
        while (end < text.size() && !isBreak(text[end]))
            ++end;
        std::u16string line = text.substr(start, end - start);
        if (wrapWidth > 0) {
            wrapInto(line, face, wrapWidth, lines);
        } else {
            lines.push_back(line);
        }
        if (end >= text.size())
            break;
        start = end + (text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n' ? 2 : 1);
    }
    return lines;
}

}  // namespace platform::detail

using namespace platform::detail;

namespace {

Rect sized(const Rect& at, int width, int height) {
    return Rect{at.top, at.left, static_cast<short>(at.top + height), static_cast<short>(at.left + width)};
}

}  // namespace

extern "C" {

OSStatus GetThemeTextDimensions(CFStringRef inString, ThemeFontID inFontID, ThemeDrawState, Boolean inWrapToWidth,
                                Point* ioBounds, SInt16* outBaseline) {
    if (!ioBounds)
        return paramErr;
    Face face = faceOfThemeFont(inFontID);
    const FaceMetrics& m = metricsOf(face);
    int wrap = inWrapToWidth ? ioBounds->h : 0;
    int width = 0;
    auto lines = layoutLines(charsOf(inString), face, wrap);
    for (const auto& line : lines)
        width = std::max(width, lineWidth(line, face));
    ioBounds->h = static_cast<short>(width);
    ioBounds->v = static_cast<short>(m.lineHeight * static_cast<int>(lines.size()));
    if (outBaseline)
        *outBaseline = static_cast<SInt16>(m.ascent - m.lineHeight);
    return noErr;
}

OSErr GetBestControlRect(ControlRef inControl, Rect* outRect, SInt16* outBaseLineOffset) {
    OpaqueControlRef* c = liveControl(inControl);
    if (!c)
        return errUnknownControl;
    if (!outRect)
        return paramErr;
    const FaceMetrics& m = metricsOf(faceOfControl(*c));
    int titleWidth = lineWidth(c->title, faceOfControl(*c));
    SInt16 baseline = 0;
    switch (c->kind) {
        case kControlKindCheckBox:
        case kControlKindRadioButton:
            *outRect = sized(c->bounds, m.toggleBox + m.toggleGap + titleWidth, m.toggleHeight);
            baseline = static_cast<SInt16>((m.toggleHeight - m.lineHeight) / 2 + m.ascent);
            break;
        case kControlKindPushButton:
        case kControlKindBevelButton:
            *outRect = sized(c->bounds, titleWidth + 2 * m.pushPadding, m.pushHeight);
            baseline = static_cast<SInt16>((m.pushHeight - m.lineHeight) / 2 + m.ascent);
            break;
        case kControlKindStaticText:
            // Static text leaves measuring to the caller, who knows how it wants the text wrapped.
            *outRect = Rect{0, 0, 0, 0};
            break;
        default:
            *outRect = c->bounds;
            break;
    }
    if (outBaseLineOffset)
        *outBaseLineOffset = baseline;
    return noErr;
}

FMFontFamily FMGetFontFamilyFromName(ConstStr255Param iName) {
    if (!iName)
        return kInvalidFontFamily;
    std::string name(reinterpret_cast<const char*>(iName + 1), iName[0]);
    struct Family {
        const char* name;
        FMFontFamily id;
    };
    static constexpr Family kFamilies[] = {
        {"Geneva", kFontIDGeneva},       {"Monaco", kFontIDMonaco},   {"Times", kFontIDTimes},
        {"Helvetica", kFontIDHelvetica}, {"Courier", kFontIDCourier},
    };
    for (const Family& f : kFamilies) {
        if (name == f.name)
            return f.id;
    }
    return kInvalidFontFamily;
}

}  // extern "C"
