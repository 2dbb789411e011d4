#include "platform_fixture.h"
#include "svg_reading.h"

namespace {

using namespace svg_reading;
using SvgTest = PlatformTest;

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

constexpr int kTitleBar = 22;

// A string held for the duration of one call.
struct Chars {
  explicit Chars(const char* text) : ref(CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingUTF8)) {}
  ~Chars() { CFRelease(ref); }
  Chars(const Chars&) = delete;
  Chars& operator=(const Chars&) = delete;
  operator CFStringRef() const { return ref; }
  CFStringRef ref;
}; // a window picture's content starts below its title bar

ControlFontStyleRec miniStyle(SInt16 flags = kControlUseFontMask, RGBColor colour = {0, 0, 0}, SInt16 face = 0) {
  ControlFontStyleRec style{};
  style.flags = flags;
  style.font = kControlFontMiniSystemFont;
  style.style = face;
  style.foreColor = colour;
  return style;
}

// The host's panel text colour and the flags a toolkit sets to use it.
constexpr RGBColor kHostText{0xc8c8, 0xc8c8, 0xc8c8};
constexpr SInt16 kHostColourFlags = kControlUseFontMask | kControlUseForeColorMask | kControlAddToMetaFontMask;

// A panel view whose handler paints the host's dark background, as a plug-in asks the host to.
ControlRef darkPanel() {
  ControlRef panel = platform::createPanelView(Rect{0, 0, 300, 400});
  auto paint = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
    CGContextRef context = nullptr;
    GetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, nullptr, sizeof context, nullptr, &context);
    CGContextSetRGBFillColor(context, 0x23 / 255.0, 0x23 / 255.0, 0x23 / 255.0, 1.0);
    CGContextFillRect(context, CGRect{{0, 0}, {400, 300}});
    return noErr;
  };
  const EventTypeSpec draw{kEventClassControl, kEventControlDraw};
  InstallEventHandler(GetControlEventTarget(panel), paint, 1, &draw, nullptr, nullptr);
  return panel;
}

// Puts a control in a window, or in a view when there is no window.
ControlRef place(WindowRef window, ControlRef view, ControlRef c) {
  if (!window) HIViewAddSubview(view, c);
  return c;
}

ControlRef staticText(WindowRef window, ControlRef view, Rect r, const char* text, const ControlFontStyleRec* style) {
  Chars chars(text);
  ControlRef c = nullptr;
  CreateStaticTextControl(window, &r, chars, style, &c);
  return place(window, view, c);
}

ControlRef editField(WindowRef window, ControlRef view, Rect r, const char* text, const ControlFontStyleRec* style) {
  Chars chars(text);
  ControlRef c = nullptr;
  CreateEditUnicodeTextControl(window, &r, chars, false, style, &c);
  return place(window, view, c);
}

ControlRef checkBox(WindowRef window, ControlRef view, Rect r, const char* title, const ControlFontStyleRec& style) {
  Chars chars(title);
  ControlRef c = nullptr;
  CreateCheckBoxControl(window, &r, chars, 1, true, &c);
  SetControlFontStyle(c, &style);
  return place(window, view, c);
}

ControlRef pushButton(WindowRef window, ControlRef view, Rect r, const char* title, const ControlFontStyleRec& style) {
  Chars chars(title);
  ControlRef c = nullptr;
  CreatePushButtonControl(window, &r, chars, &c);
  SetControlFontStyle(c, &style);
  return place(window, view, c);
}

ControlRef groupBox(WindowRef window, Rect r, const char* title = "") {
  Chars chars(title);
  ControlRef c = nullptr;
  CreateGroupBoxControl(window, &r, chars, true, &c);
  return c;
}

// One enabled and one disabled control of each kind that shows text, in the given style (the
// edit fields keep the platform's colour, as dialog toolkits leave them).
void controlsOfEachKind(WindowRef window, ControlRef view, const ControlFontStyleRec& style) {
  const ControlFontStyleRec field = miniStyle();
  for (int greyed = 0; greyed < 2; ++greyed) {
    short dy = static_cast<short>(greyed * 100);
    const char* suffix = greyed ? " off" : " on";
    ControlRef made[] = {
        staticText(window, view, Rect{short(10 + dy), 10, short(22 + dy), 120}, (std::string("label") + suffix).c_str(), &style),
        checkBox(window, view, Rect{short(30 + dy), 10, short(45 + dy), 120}, (std::string("box") + suffix).c_str(), style),
        editField(window, view, Rect{short(50 + dy), 10, short(63 + dy), 120}, (std::string("field") + suffix).c_str(), &field),
        pushButton(window, view, Rect{short(70 + dy), 10, short(90 + dy), 120}, (std::string("push") + suffix).c_str(), style),
    };
    if (greyed) {
      for (ControlRef c : made) DisableControl(c);
    }
  }
}

// Every text is as legible as it must be against what is behind it: the field or face it sits
// in, or else the picture's background; greyed text at least 3:1 and well below its enabled twin.
void expectLegible(const std::string& svg, const std::string& background) {
  auto all = texts(svg);
  ASSERT_EQ(8u + (contains(svg, "class=\"title\"") ? 1u : 0u), all.size()) << svg;
  for (const Text& t : all) {
    if (t.group.empty()) continue; // the window title
    bool boxed = contains(t.group, "\"eutx\"") || contains(t.group, "\"push\"");
    std::string behind = boxed ? t.groupFill : background;
    bool greyed = contains(t.group, "data-enabled=\"false\"");
    EXPECT_EQ(greyed, contains(t.chars, " off")) << t.chars;
    EXPECT_GE(contrast(t.fill, behind), greyed ? 3.0 : 4.5) << t.chars << " " << t.fill << " on " << behind;
    if (greyed) {
      std::string twin = t.chars.substr(0, t.chars.size() - 4) + " on";
      Text enabled = textOf(svg, twin);
      EXPECT_GT(contrast(enabled.fill, boxed ? enabled.groupFill : background) / contrast(t.fill, behind), 1.5)
          << t.chars;
    }
  }
}

TEST_F(SvgTest, WindowShowsTitleVisibleControlsAndState) {
  WindowRef w = makeWindow();
  Str title("Orbisett");
  SetWindowTitleWithCFString(w, title);
  ControlRef on = makeCheckBox(w, "Random Order", 1, 5);
  ControlRef hidden = makeCheckBox(w, "Equator Only", 0, 6);
  HideControl(hidden);
  ControlRef off = makeCheckBox(w, "Inward", 0, 7);
  DisableControl(off);
  groupBox(w, Rect{40, 10, 100, 200}, "Bounding Box");
  (void)on;

  std::string svg = platform::windowToSvg(w);
  EXPECT_TRUE(contains(svg, "<svg ")) << svg;
  EXPECT_TRUE(contains(svg, ">Orbisett</text>"));
  EXPECT_TRUE(contains(svg, ">Random Order</text>"));
  EXPECT_TRUE(contains(svg, ">Bounding Box</text>"));
  EXPECT_FALSE(contains(svg, "Equator Only"));
  EXPECT_TRUE(contains(svg, "data-id=\"5\" data-value=\"1\">"));
  EXPECT_TRUE(contains(svg, "data-id=\"7\" data-value=\"0\" data-enabled=\"false\">"));
  EXPECT_TRUE(contains(svg, "data-checked=\"true\""));
}

TEST_F(SvgTest, TextIsEscaped) {
  WindowRef w = makeWindow();
  Str title("A & B <\"x\">");
  SetWindowTitleWithCFString(w, title);
  editField(w, nullptr, Rect{0, 0, 13, 80}, "1 < 2 & 3", nullptr);
  std::string svg = platform::windowToSvg(w);
  EXPECT_TRUE(contains(svg, "A &amp; B &lt;&quot;x&quot;&gt;"));
  EXPECT_TRUE(contains(svg, ">1 &lt; 2 &amp; 3</text>"));
  EXPECT_FALSE(contains(svg, "1 < 2"));
}

TEST_F(SvgTest, PanelViewShowsItsDrawnBackgroundAndMultilineText) {
  ControlRef panel = darkPanel();
  ControlRef label = staticText(nullptr, panel, Rect{10, 10, 60, 70}, "first line\rsecond", nullptr);
  Boolean multiline = true;
  SetControlData(label, 0, kControlStaticTextIsMultilineTag, sizeof multiline, &multiline);
  std::string svg = platform::viewToSvg(panel);
  EXPECT_TRUE(contains(svg, "fill=\"#232323\"")) << svg;
  EXPECT_TRUE(contains(svg, "width=\"400\" height=\"300\""));
  EXPECT_EQ(20, textOf(svg, "first line").y); // the small face: 14 px lines
  EXPECT_EQ(34, textOf(svg, "second").y);
}

TEST_F(SvgTest, TextTakesTheColourOfItsFontStyleAndStaysLegible) {
  const ControlFontStyleRec host = miniStyle(kHostColourFlags, kHostText);
  ControlRef panel = darkPanel();
  controlsOfEachKind(nullptr, panel, host);
  std::string dark = platform::viewToSvg(panel);
  EXPECT_EQ("#c8c8c8", textOf(dark, "label on").fill);
  EXPECT_EQ("#c8c8c8", textOf(dark, "box on").fill);
  EXPECT_EQ("#c8c8c8", textOf(dark, "push on").fill);
  EXPECT_EQ("#000000", textOf(dark, "field on").fill); // on the field's own light fill
  EXPECT_EQ("#ffffff", textOf(dark, "field on").groupFill);
  expectLegible(dark, "#232323");

  // A window keeps the platform's colour unless a control's style names one.
  WindowRef w = makeWindow();
  controlsOfEachKind(w, nullptr, miniStyle());
  std::string light = platform::windowToSvg(w);
  EXPECT_EQ("#000000", textOf(light, "label on").fill);
  EXPECT_EQ("#000000", textOf(light, "push on").fill);
  expectLegible(light, "#ececec");

  const ControlFontStyleRec red = miniStyle(kHostColourFlags, RGBColor{0xffff, 0, 0});
  staticText(w, nullptr, Rect{200, 10, 212, 100}, "warning", &red);
  EXPECT_EQ("#ff0000", textOf(platform::windowToSvg(w), "warning").fill);
}

TEST_F(SvgTest, TheFaceOfTheFontStyleIsDrawn) {
  WindowRef w = makeWindow();
  const ControlFontStyleRec bold = miniStyle(kControlUseFontMask | kControlUseFaceMask | kControlAddToMetaFontMask,
                                             RGBColor{0, 0, 0}, 1);
  const ControlFontStyleRec faceNotUsed = miniStyle(kControlUseFontMask, RGBColor{0, 0, 0}, 1);
  staticText(w, nullptr, Rect{10, 10, 22, 200}, "Orbisett v1.3.2", &bold);
  staticText(w, nullptr, Rect{30, 10, 42, 200}, "plain", &faceNotUsed);
  std::string svg = platform::windowToSvg(w);
  EXPECT_EQ("bold", textOf(svg, "Orbisett v1.3.2").weight);
  EXPECT_EQ("", textOf(svg, "plain").weight);
}

TEST_F(SvgTest, LongTextIsClippedToItsField) {
  WindowRef w = makeWindow();
  const ControlFontStyleRec mini = miniStyle();
  editField(w, nullptr, Rect{36, 40, 49, 115}, "123456789.123456", &mini);
  std::string svg = platform::windowToSvg(w);
  Text value = textOf(svg, "123456789.123456");
  EXPECT_EQ(43, value.x);
  Box clip = clipBox(svg, value.clip);
  EXPECT_EQ(41, clip.x); // inside the field's one-pixel frame
  EXPECT_EQ(kTitleBar + 37, clip.y);
  EXPECT_EQ(73, clip.width);
  EXPECT_EQ(11, clip.height);
}

TEST_F(SvgTest, LabelsShareTheBaselineOfTheFieldsAndBoxesBesideThem) {
  // A label 2 px below a field's or a box's top reads on the same line as the field's text or
  // the box's title.
  WindowRef w = makeWindow();
  const ControlFontStyleRec mini = miniStyle();
  staticText(w, nullptr, Rect{38, 22, 50, 30}, "X", &mini);
  editField(w, nullptr, Rect{36, 40, 49, 115}, "2000", &mini);
  checkBox(w, nullptr, Rect{59, 40, 74, 170}, "Radius Set by First", mini);
  staticText(w, nullptr, Rect{61, 240, 73, 270}, "Layers", &mini);
  std::string svg = platform::windowToSvg(w);
  EXPECT_EQ(kTitleBar + 46, textOf(svg, "X").y);
  EXPECT_EQ(kTitleBar + 46, textOf(svg, "2000").y);
  EXPECT_EQ(kTitleBar + 69, textOf(svg, "Radius Set by First").y);
  EXPECT_EQ(kTitleBar + 69, textOf(svg, "Layers").y);
}

TEST_F(SvgTest, GroupBoxesDrawTheirFramesInsideTheirBounds) {
  // Boxes whose bounds overlap by 2 px, as dialogs lay them out, with a titled one below.
  WindowRef w = makeWindow();
  groupBox(w, Rect{5, 5, 215, 380});
  groupBox(w, Rect{213, 5, 290, 142});
  groupBox(w, Rect{213, 140, 290, 380});
  ControlRef titled = groupBox(w, Rect{293, 5, 329, 380}, "Insert Keys");
  const ControlFontStyleRec mini = miniStyle();
  SetControlFontStyle(titled, &mini);
  std::string svg = platform::windowToSvg(w);

  auto frames = firstRects(svg, "grpb");
  ASSERT_EQ(4u, frames.size()) << svg;
  // The drawn pixels of each frame: its line runs half a pixel either side of the rectangle.
  std::vector<Box> drawn;
  for (const std::string& f : frames) {
    Box b = boxOf(f);
    drawn.push_back(Box{b.x - 0.5, b.y - 0.5 - kTitleBar, b.width + 1, b.height + 1});
  }
  EXPECT_EQ(7, drawn[0].x);
  EXPECT_EQ(6, drawn[0].y);
  EXPECT_EQ(371, drawn[0].width);
  EXPECT_EQ(207, drawn[0].height);
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    for (std::size_t j = i + 1; j < drawn.size(); ++j) {
      const Box& a = drawn[i];
      const Box& b = drawn[j];
      bool apart = a.x + a.width <= b.x || b.x + b.width <= a.x || a.y + a.height <= b.y || b.y + b.height <= a.y;
      EXPECT_TRUE(apart) << "frames " << i << " and " << j << " touch or overlap";
    }
  }
  // A title sits above its frame's line, indented; the line starts below the title's row.
  Text title = textOf(svg, "Insert Keys");
  EXPECT_EQ(14, title.x);
  EXPECT_EQ(kTitleBar + 301, title.y);
  EXPECT_EQ(307, drawn[3].y);
  EXPECT_EQ(326, drawn[3].y + drawn[3].height - 1);
}

} // namespace
