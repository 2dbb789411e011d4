#include "platform_fixture.h"
#include "svg_reading.h"

namespace {

using namespace svg_reading;

constexpr int kTitleBar = 22;  // a window picture's content starts below its title bar
constexpr RGBColor kBlack{0, 0, 0};
constexpr RGBColor kHostText{0xc8c8, 0xc8c8, 0xc8c8};  // the host's panel text colour
constexpr SInt16 kHostColourFlags = kControlUseFontMask | kControlUseForeColorMask | kControlAddToMetaFontMask;

ControlFontStyleRec miniStyle(SInt16 flags = kControlUseFontMask, RGBColor colour = kBlack, SInt16 face = 0) {
    ControlFontStyleRec style{};
    style.flags = flags;
    style.font = kControlFontMiniSystemFont;
    style.style = face;
    style.foreColor = colour;
    return style;
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class SvgTest : public PlatformTest {
protected:
    // A control of a kind with a text and a font style, in a window or else in a view.
    ControlRef make(OSType kind, Rect r, const char* text, const ControlFontStyleRec& style, WindowRef window,
                    ControlRef view = nullptr) {
        Str chars(text);
        ControlRef c = nullptr;
        switch (kind) {
            case kControlKindStaticText:
                CreateStaticTextControl(window, &r, chars, &style, &c);
                break;
            case kControlKindEditUnicodeText:
                CreateEditUnicodeTextControl(window, &r, chars, false, &style, &c);
                break;
            case kControlKindCheckBox:
                CreateCheckBoxControl(window, &r, chars, 1, true, &c);
                break;
            case kControlKindPushButton:
                CreatePushButtonControl(window, &r, chars, &c);
                break;
            default:
                CreateGroupBoxControl(window, &r, chars, true, &c);
                break;
        }
        SetControlFontStyle(c, &style);
        if (!window)
            HIViewAddSubview(view, c);
        return c;
    }

    // A panel view whose handler paints the host's dark background, as a plug-in asks it to.
    static ControlRef darkPanel() {
        ControlRef panel = platform::createPanelView(Rect{0, 0, 300, 400});
        auto paint = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
            CGContextRef context = nullptr;
            GetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, nullptr, sizeof context, nullptr,
                              &context);
            CGContextSetRGBFillColor(context, 0x23 / 255.0, 0x23 / 255.0, 0x23 / 255.0, 1.0);
            CGContextFillRect(context, CGRect{{0, 0}, {400, 300}});
            return noErr;
        };
        const EventTypeSpec draw{kEventClassControl, kEventControlDraw};
        InstallEventHandler(GetControlEventTarget(panel), paint, 1, &draw, nullptr, nullptr);
        return panel;
    }

    // An enabled and a disabled control of each kind that shows text; edit fields keep the
    // platform's colour, as dialog toolkits leave them.
    void eachKind(const ControlFontStyleRec& style, WindowRef window, ControlRef view = nullptr) {
        const OSType kinds[] = {kControlKindStaticText, kControlKindCheckBox, kControlKindEditUnicodeText,
                                kControlKindPushButton};
        for (short row = 0; row < 8; ++row) {
            OSType kind = kinds[row % 4];
            std::string text =
                std::string(kind == kControlKindEditUnicodeText ? "field" : "text") + (row < 4 ? " on" : " off");
            Rect r{short(10 + 25 * row), 10, short(30 + 25 * row), 120};
            ControlRef c =
                make(kind, r, text.c_str(), kind == kControlKindEditUnicodeText ? miniStyle() : style, window, view);
            if (row >= 4)
                DisableControl(c);
        }
    }
};

// Every text reads against what is behind it (its field or button face, or the background):
// enabled at 4.5:1 at least, greyed at 3:1 and clearly below its enabled twin.
void expectLegible(const std::string& svg, const std::string& background) {
    std::vector<Text> all = texts(svg);
    ASSERT_GE(all.size(), 8u) << svg;
    for (std::size_t i = all.size() - 8; i < all.size(); ++i) {
        const Text& t = all[i];
        bool boxed = contains(t.group, "\"eutx\"") || contains(t.group, "\"push\"");
        double ratio = contrast(t.fill(), boxed ? attribute(t.shape, "fill") : background);
        if (i < all.size() - 4) {
            EXPECT_GE(ratio, 4.5) << t.group << t.element;
        } else {
            EXPECT_TRUE(contains(t.group, "data-enabled=\"false\"")) << t.group;
            EXPECT_GE(ratio, 3.0) << t.group << t.element;
            const Text& twin = all[i - 4];
            bool twinBoxed = contains(twin.group, "\"eutx\"") || contains(twin.group, "\"push\"");
            EXPECT_GT(contrast(twin.fill(), twinBoxed ? attribute(twin.shape, "fill") : background) / ratio, 1.5);
        }
    }
}

TEST_F(SvgTest, WindowShowsTitleVisibleControlsAndStateWithTextEscaped) {
    WindowRef w = makeWindow();
    Str title("Orbisett");
    SetWindowTitleWithCFString(w, title);
    makeCheckBox(w, "Random Order", 1, 5);
    HideControl(makeCheckBox(w, "Equator Only", 0, 6));
    DisableControl(makeCheckBox(w, "Inward", 0, 7));
    make(kControlKindGroupBox, Rect{40, 10, 100, 200}, "Bounding Box", miniStyle(), w);

    std::string svg = platform::windowToSvg(w);
    EXPECT_TRUE(contains(svg, ">Orbisett</text>")) << svg;
    EXPECT_TRUE(contains(svg, ">Random Order</text>"));
    EXPECT_TRUE(contains(svg, ">Bounding Box</text>"));
    EXPECT_FALSE(contains(svg, "Equator Only"));
    EXPECT_TRUE(contains(svg, "data-id=\"5\" data-value=\"1\">"));
    EXPECT_TRUE(contains(svg, "data-id=\"7\" data-value=\"0\" data-enabled=\"false\">"));
    EXPECT_TRUE(contains(svg, "data-checked=\"true\""));
    // Text is escaped.
    Str odd("A & B <\"x\">");
    SetWindowTitleWithCFString(w, odd);
    make(kControlKindEditUnicodeText, Rect{0, 0, 13, 80}, "1 < 2 & 3", miniStyle(), w);
    svg = platform::windowToSvg(w);
    EXPECT_TRUE(contains(svg, "A &amp; B &lt;&quot;x&quot;&gt;"));
    EXPECT_TRUE(contains(svg, ">1 &lt; 2 &amp; 3</text>"));
    EXPECT_FALSE(contains(svg, "1 < 2"));
}

TEST_F(SvgTest, PanelViewShowsItsDrawnBackgroundAndMultilineText) {
    ControlRef panel = darkPanel();
    ControlRef label =
        make(kControlKindStaticText, Rect{10, 10, 60, 70}, "first line\rsecond", ControlFontStyleRec{}, nullptr, panel);
    Boolean multiline = true;
    SetControlData(label, 0, kControlStaticTextIsMultilineTag, sizeof multiline, &multiline);
    std::string svg = platform::viewToSvg(panel);
    EXPECT_TRUE(contains(svg, "width=\"400\" height=\"300\" fill=\"#232323\"")) << svg;
    EXPECT_EQ(20, textOf(svg, "first line").y());  // the small face: 14 px lines
    EXPECT_EQ(34, textOf(svg, "second").y());
}

TEST_F(SvgTest, TextTakesTheColourAndFaceOfItsFontStyleAndStaysLegible) {
    ControlRef panel = darkPanel();
    eachKind(miniStyle(kHostColourFlags, kHostText), nullptr, panel);
    std::string dark = platform::viewToSvg(panel);
    for (const Text& t : texts(dark)) {
        EXPECT_EQ(t.chars == "field on" ? "#000000" : t.chars == "text on" ? "#c8c8c8" : t.fill(), t.fill());
    }
    EXPECT_EQ("#ffffff", attribute(textOf(dark, "field on").shape, "fill"));  // black on the field's own fill
    expectLegible(dark, "#232323");

    // A window keeps the platform's colour unless a control's style names one.
    WindowRef w = makeWindow();
    eachKind(miniStyle(), w);
    std::string light = platform::windowToSvg(w);
    EXPECT_EQ("#000000", textOf(light, "text on").fill());
    expectLegible(light, "#ececec");
    make(kControlKindStaticText, Rect{220, 10, 232, 100}, "red", miniStyle(kHostColourFlags, {0xffff, 0, 0}), w);
    // The face counts only with its flag.
    make(kControlKindStaticText, Rect{240, 10, 252, 100}, "bold", miniStyle(kControlUseFaceMask, kBlack, 1), w);
    make(kControlKindStaticText, Rect{260, 10, 272, 100}, "plain", miniStyle(kControlUseFontMask, kBlack, 1), w);
    light = platform::windowToSvg(w);
    EXPECT_EQ("#ff0000", textOf(light, "red").fill());
    EXPECT_EQ("bold", attribute(textOf(light, "bold").element, "font-weight"));
    EXPECT_EQ("", attribute(textOf(light, "plain").element, "font-weight"));
}

TEST_F(SvgTest, FieldTextIsClippedLabelsShareItsBaselineAndGroupBoxesDrawInsideTheirBounds) {
    // Labels 2 px below a field's or a box's top read on the line of the field's text or box's title.
    WindowRef w = makeWindow();
    make(kControlKindStaticText, Rect{38, 22, 50, 30}, "X", miniStyle(), w);
    make(kControlKindEditUnicodeText, Rect{36, 40, 49, 115}, "123456789.123456", miniStyle(), w);
    make(kControlKindCheckBox, Rect{59, 40, 74, 170}, "Radius Set by First", miniStyle(), w);
    make(kControlKindStaticText, Rect{61, 240, 73, 270}, "Layers", miniStyle(), w);
    std::string svg = platform::windowToSvg(w);
    Text value = textOf(svg, "123456789.123456");
    EXPECT_EQ(kTitleBar + 46, value.y());
    EXPECT_EQ(kTitleBar + 46, textOf(svg, "X").y());
    EXPECT_EQ(kTitleBar + 69, textOf(svg, "Radius Set by First").y());
    EXPECT_EQ(kTitleBar + 69, textOf(svg, "Layers").y());
    Box clip = clipOf(svg, value);  // inside the field's one-pixel frame
    EXPECT_EQ(41, clip.x);
    EXPECT_EQ(kTitleBar + 37, clip.y);
    EXPECT_EQ(73, clip.width);
    EXPECT_EQ(11, clip.height);
    // Group boxes: bounds that overlap by 2 px, as dialogs lay them out, and a titled box below.
    for (Rect r : {Rect{5, 5, 215, 380}, Rect{213, 5, 290, 142}, Rect{213, 140, 290, 380}}) {
        make(kControlKindGroupBox, r, "", miniStyle(), w);
    }
    make(kControlKindGroupBox, Rect{293, 5, 329, 380}, "Insert Keys", miniStyle(), w);
    svg = platform::windowToSvg(w);
    // The pixels each frame's line covers: half a pixel either side of its rectangle.
    std::vector<Box> drawn;
    for (Box b : frames(svg))
        drawn.push_back(Box{b.x - 0.5, b.y - 0.5 - kTitleBar, b.width + 1, b.height + 1});
    ASSERT_EQ(4u, drawn.size()) << svg;
    EXPECT_EQ(7, drawn[0].x);
    EXPECT_EQ(6, drawn[0].y);
    EXPECT_EQ(371, drawn[0].width);
    EXPECT_EQ(213, drawn[0].y + drawn[0].height);  // a pixel free above the boxes below
    EXPECT_EQ(214, drawn[1].y);
    EXPECT_EQ(140, drawn[1].x + drawn[1].width);  // two pixels free between them
    EXPECT_EQ(142, drawn[2].x);
    Text title = textOf(svg, "Insert Keys");
    EXPECT_EQ(14, number(title.element, "x"));
    EXPECT_EQ(kTitleBar + 301, title.y());
    EXPECT_EQ(307, drawn[3].y);
    EXPECT_EQ(327, drawn[3].y + drawn[3].height);
}

}  // namespace
