// Each kind of control drawn as the theme draws it, in the face and text colour of its font
// style. Colours follow what lies behind a control: on a dark background the frames, faces and
// default text turn light, so that a host's dark panel reads as well as a window.
#include "platform/svg_controls.h"

#include "platform/metrics.h"

#include <algorithm>
#include <string>

namespace platform::detail {

namespace {

constexpr Colour kBlack{0, 0, 0};
constexpr Colour kWhite{255, 255, 255};
constexpr Colour kLightText{0xe6, 0xe6, 0xe6};

// Group boxes draw their frame inside their bounds, so that boxes whose bounds meet or overlap a
// little stay apart. The top line keeps closer to the top (or to the title row), where the
// contents usually start soon below.
constexpr int kFrameInset = 2;
constexpr int kFrameTopInset = 1;
constexpr int kFrameRadius = 4;
// A group box title sits above the frame line, indented; the line starts below the title row.
constexpr int kFrameTitleIndent = 9;
constexpr int kFieldTextIndent = 3;

std::string fourChars(OSType code) {
    std::string s;
    for (int shift = 24; shift >= 0; shift -= 8)
        s.push_back(static_cast<char>((code >> shift) & 0xFF));
    return s;
}

struct Palette {
    Colour line;   // group box frames
    Colour field;  // edit field fill
    Colour fieldLine;
    Colour box;  // check box and radio button fill
    Colour boxLine;
    Colour mark;  // check mark and radio dot
    Colour face;  // push buttons and popups
    Colour faceLine;
};

Palette paletteOn(Colour behind, bool enabled) {
    Palette p = isDark(behind)
                    ? Palette{mix(behind, kWhite, 0.35), kWhite, mix(behind, kWhite, 0.55), kWhite,
                              mix(behind, kWhite, 0.55), kBlack, mix(behind, kWhite, 0.12), mix(behind, kWhite, 0.45)}
                    : Palette{mix(behind, kBlack, 0.35), kWhite, Colour{0x70, 0x70, 0x70}, kWhite,
                              Colour{0x55, 0x55, 0x55},  kBlack, Colour{0xf4, 0xf4, 0xf4}, Colour{0x70, 0x70, 0x70}};
    if (enabled)
        return p;
    for (Colour* c : {&p.line, &p.field, &p.fieldLine, &p.box, &p.boxLine, &p.mark, &p.face, &p.faceLine}) {
        *c = mix(*c, behind, 0.5);
    }
    return p;
}

// How a control's text looks, from its font style record.
struct TextLook {
    Face face = Face::small;
    bool bold = false;
    bool italic = false;
    const char* family = kSansFamily;
    bool ownColour = false;
    Colour colour;
};

const char* familyOf(SInt16 font) {
    switch (font) {
        case kFontIDCourier:
        case kFontIDMonaco:
            return "Courier, 'DejaVu Sans Mono', monospace";
        case kFontIDTimes:
            return "Times, 'DejaVu Serif', serif";
        default:
            return kSansFamily;
    }
}

TextLook lookOf(const OpaqueControlRef& c) {
    const ControlFontStyleRec& s = c.fontStyle;
    TextLook look;
    look.face = faceOfControl(c);
    bool faceSet = (s.flags & kControlUseFaceMask) != 0;
    bool fontSet = (s.flags & kControlUseFontMask) != 0;
    look.bold = (faceSet && (s.style & 1)) || (fontSet && s.font == kControlFontSmallBoldSystemFont);
    look.italic = faceSet && (s.style & 2);
    if (fontSet && s.font >= 0)
        look.family = familyOf(s.font);
    look.ownColour = (s.flags & kControlUseForeColorMask) != 0;
    look.colour = fromRgb16(s.foreColor);
    return look;
}

struct Box {
    int x, y, w, h;
};

class Painter {
public:
    Painter(std::ostringstream& out, const Backdrop& backdrop) : out_(out), backdrop_(backdrop) {}

    void subviews(const OpaqueControlRef& parent, int originX, int originY, bool enabled) {
        for (const OpaqueControlRef* child : parent.children)
            view(*child, originX, originY, enabled);
    }

private:
    void view(const OpaqueControlRef& c, int originX, int originY, bool enabled) {
        if (!c.visible)
            return;
        bool on = enabled && c.enabled;
        Box b{originX + c.bounds.left, originY + c.bounds.top, c.bounds.right - c.bounds.left,
              c.bounds.bottom - c.bounds.top};
        if (c.kind != kControlKindRoot && c.kind != kControlKindUserPane) {
            out_ << "<g data-kind=\"" << escapeXml(fourChars(c.kind)) << "\" data-id=\"" << c.controlID.id
                 << "\" data-value=\"" << c.value << "\"" << (on ? "" : " data-enabled=\"false\"") << ">";
            Colour behind = backdrop_.at(b.x + b.w / 2.0, b.y + b.h / 2.0);
            control(c, b, behind, on);
            out_ << "</g>\n";
        }
        // Subviews are placed relative to their superview.
        subviews(c, b.x, b.y, on);
    }

    void control(const OpaqueControlRef& c, const Box& b, Colour behind, bool on) {
        Palette p = paletteOn(behind, on);
        TextLook look = lookOf(c);
        const FaceMetrics& m = metricsOf(look.face);
        // Static text puts its capitals at its top; text in a field or beside a box sits one pixel
        // lower, centred in a field one pixel taller than the face's line. A label placed 2 px below
        // a box's top (as dialog toolkits do) so shares the box's baseline.
        int staticBaseline = m.ascent - 1;
        int boxedLineTop = b.y + 1;
        switch (c.kind) {
            case kControlKindGroupBox: {
                int lineTop = b.y;
                if (!c.title.empty()) {
                    lineTop += m.lineHeight + 1;
                    text(c.title, b.x + kFrameTitleIndent, b.y + staticBaseline, look, behind, on,
                         freeText(Box{b.x, b.y, b.w, m.lineHeight + 1}));
                }
                strokedRect(Box{b.x + kFrameInset, lineTop + kFrameTopInset, b.w - 2 * kFrameInset,
                                b.y + b.h - lineTop - kFrameTopInset - kFrameInset},
                            "none", p.line, kFrameRadius);
                break;
            }
            case kControlKindCheckBox:
            case kControlKindRadioButton: {
                int side = m.toggleBox - 2;
                int top = boxedLineTop + 1;
                if (c.kind == kControlKindCheckBox) {
                    strokedRect(Box{b.x, top, side, side}, hexOf(p.box), p.boxLine, 2);
                    if (c.value)
                        checkMark(b.x, top, side, p.mark);
                } else {
                    double r = side / 2.0;
                    out_ << "<circle cx=\"" << b.x + r << "\" cy=\"" << top + r << "\" r=\"" << r - 0.5 << "\" fill=\""
                         << hexOf(p.box) << "\" stroke=\"" << hexOf(p.boxLine) << "\"/>";
                    if (c.value) {
                        out_ << "<circle cx=\"" << b.x + r << "\" cy=\"" << top + r << "\" r=\"" << side / 5.0
                             << "\" fill=\"" << hexOf(p.mark) << "\" data-checked=\"true\"/>";
                    }
                }
                text(c.title, b.x + m.toggleBox + m.toggleGap, boxedLineTop + m.ascent, look, behind, on, freeText(b));
                break;
            }
            case kControlKindPushButton:
            case kControlKindBevelButton:
                strokedRect(b, hexOf(p.face), p.faceLine, 5);
                text(c.title, b.x + b.w / 2, b.y + (b.h - m.lineHeight) / 2 + m.ascent, look, p.face, on, inner(b),
                     "middle");
                break;
            case kControlKindEditUnicodeText:
            case kControlKindEditText:
                strokedRect(b, hexOf(p.field), p.fieldLine, 0);
                text(c.password ? std::u16string(c.text.size(), u'\u2022') : c.text, b.x + kFieldTextIndent,
                     boxedLineTop + m.ascent, look, p.field, on, inner(b));
                break;
            case kControlKindStaticText: {
                auto lines = layoutLines(c.text, look.face, c.multiline ? b.w : 0);
                for (std::size_t i = 0; i < lines.size(); ++i) {
                    text(lines[i], b.x, b.y + staticBaseline + static_cast<int>(i) * m.lineHeight, look, behind, on,
                         freeText(b));
                }
                break;
            }
            case kControlKindPopupButton: {
                strokedRect(b, hexOf(p.face), p.faceLine, 4);
                std::u16string shown;
                if (liveMenu(c.menu) && c.value >= 1 && c.value <= static_cast<SInt32>(c.menu->items.size())) {
                    shown = c.menu->items[c.value - 1].text;
                }
                int baseline = b.y + (b.h - m.lineHeight) / 2 + m.ascent;
                Box label = inner(b);
                label.w = std::max(0, label.w - 14);  // the arrow's place
                text(shown, b.x + 6, baseline, look, p.face, on, label);
                text(u"\u25BE", b.x + b.w - 10, baseline, look, p.face, on, inner(b), "middle");
                break;
            }
            default:
                strokedRect(b, hexOf(mix(p.face, behind, 0.3)), p.faceLine, 0);
                break;
        }
    }

    // Text that no frame holds may run a tenth past its bounds: the picture's fonts can be a little
    // wider than the theme font's measured widths, and a lost last letter would misinform.
    static Box freeText(const Box& b) { return Box{b.x, b.y, b.w + b.w / 10 + 1, b.h}; }

    static Box inner(const Box& b) { return Box{b.x + 1, b.y + 1, std::max(0, b.w - 2), std::max(0, b.h - 2)}; }

    // A one-pixel line along the inside of the box, on whole pixels.
    void strokedRect(const Box& b, const std::string& fill, Colour stroke, int radius) {
        out_ << "<rect x=\"" << b.x + 0.5 << "\" y=\"" << b.y + 0.5 << "\" width=\"" << std::max(b.w - 1, 0)
             << "\" height=\"" << std::max(b.h - 1, 0) << "\" rx=\"" << radius << "\" fill=\"" << fill << "\" stroke=\""
             << hexOf(stroke) << "\"/>";
    }

    void checkMark(int x, int y, int side, Colour colour) {
        out_ << "<polyline points=\"" << x + 2 << "," << y + side / 2 << " " << x + side / 2 - 1 << "," << y + side - 3
             << " " << x + side - 2 << "," << y + 2 << "\" fill=\"none\" stroke=\"" << hexOf(colour)
             << "\" stroke-width=\"2\" data-checked=\"true\"/>";
    }

    // One line of text in the control's face, clipped to `clip`. Without a colour of its own the
    // text takes the theme's for what is behind it; greyed text is moved towards that background.
    void text(const std::u16string& chars, int x, int baseline, const TextLook& look, Colour behind, bool on,
              const Box& clip, const char* anchor = "start") {
        if (chars.empty())
            return;
        Colour colour = look.ownColour ? look.colour : isDark(behind) ? kLightText : kBlack;
        if (!on)
            colour = greyedText(colour, behind);
        int id = ++clips_;
        out_ << "<clipPath id=\"clip" << id << "\"><rect x=\"" << clip.x << "\" y=\"" << clip.y << "\" width=\""
             << std::max(clip.w, 0) << "\" height=\"" << std::max(clip.h, 0) << "\"/></clipPath>";
        out_ << "<text x=\"" << x << "\" y=\"" << baseline << "\" font-family=\"" << look.family << "\" font-size=\""
             << metricsOf(look.face).pointSize << "\"";
        if (look.bold)
            out_ << " font-weight=\"bold\"";
        if (look.italic)
            out_ << " font-style=\"italic\"";
        out_ << " fill=\"" << hexOf(colour) << "\" text-anchor=\"" << anchor << "\" clip-path=\"url(#clip" << id
             << ")\">" << escapeXml(toUtf8(chars)) << "</text>";
    }

    std::ostringstream& out_;
    const Backdrop& backdrop_;
    int clips_ = 0;
};

}  // namespace

void Backdrop::paint(const CGRect& rect, Colour colour, CGFloat alpha) { fills_.push_back(Fill{rect, colour, alpha}); }

Colour Backdrop::at(double x, double y) const {
    Colour colour = theme_;
    for (const Fill& f : fills_) {
        const CGRect& r = f.rect;
        if (x >= r.origin.x && x < r.origin.x + r.size.width && y >= r.origin.y && y < r.origin.y + r.size.height) {
            colour = mix(colour, f.colour, std::clamp(f.alpha, 0.0, 1.0));
        }
    }
    return colour;
}

void paintSubviews(std::ostringstream& out, const OpaqueControlRef& parent, int originX, int originY, bool enabled,
                   const Backdrop& backdrop) {
    Painter(out, backdrop).subviews(parent, originX, originY, enabled);
}

}  // namespace platform::detail
