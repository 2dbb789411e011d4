#include "platform_fixture.h"

namespace {

using SvgTest = PlatformTest;

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
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
  Rect r{40, 10, 100, 200};
  Str frame("Bounding Box");
  ControlRef group = nullptr;
  CreateGroupBoxControl(w, &r, frame, true, &group);
  (void)on;

  std::string svg = platform::windowToSvg(w);
  EXPECT_TRUE(contains(svg, "<svg ")) << svg;
  EXPECT_TRUE(contains(svg, ">Orbisett</text>"));
  EXPECT_TRUE(contains(svg, ">Random Order</text>"));
  EXPECT_TRUE(contains(svg, ">Bounding Box</text>"));
  EXPECT_FALSE(contains(svg, "Equator Only"));
  EXPECT_TRUE(contains(svg, "data-id=\"5\" data-value=\"1\">"));
  EXPECT_TRUE(contains(svg, "data-id=\"7\" data-value=\"0\" opacity=\"0.45\">"));
  EXPECT_TRUE(contains(svg, "data-checked=\"true\""));
}

TEST_F(SvgTest, TextIsEscaped) {
  WindowRef w = makeWindow();
  Str title("A & B <\"x\">");
  SetWindowTitleWithCFString(w, title);
  Rect r{0, 0, 13, 80};
  Str text("1 < 2 & 3");
  ControlRef edit = nullptr;
  CreateEditUnicodeTextControl(w, &r, text, false, nullptr, &edit);
  std::string svg = platform::windowToSvg(w);
  EXPECT_TRUE(contains(svg, "A &amp; B &lt;&quot;x&quot;&gt;"));
  EXPECT_TRUE(contains(svg, ">1 &lt; 2 &amp; 3</text>"));
  EXPECT_FALSE(contains(svg, "1 < 2"));
}

TEST_F(SvgTest, PanelViewShowsItsDrawnBackgroundAndMultilineText) {
  ControlRef panel = platform::createPanelView(Rect{0, 0, 100, 80});
  auto paint = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
    CGContextRef context = nullptr;
    GetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, nullptr, sizeof context, nullptr, &context);
    CGContextSetRGBFillColor(context, 1.0, 0.0, 0.0, 1.0);
    CGContextFillRect(context, CGRect{{0, 0}, {80, 100}});
    return noErr;
  };
  const EventTypeSpec event_type{kEventClassControl, kEventControlDraw};
  InstallEventHandler(GetControlEventTarget(panel), paint, 1, &event_type, nullptr, nullptr);
  Rect r{10, 10, 60, 70};
  Str text("first line\rsecond");
  ControlRef label = nullptr;
  CreateStaticTextControl(nullptr, &r, text, nullptr, &label);
  Boolean multiline = true;
  SetControlData(label, 0, kControlStaticTextIsMultilineTag, sizeof multiline, &multiline);
  HIViewAddSubview(panel, label);
  std::string svg = platform::viewToSvg(panel);
  EXPECT_TRUE(contains(svg, "fill=\"#ff0000\"")) << svg;
  EXPECT_TRUE(contains(svg, ">first line</text>"));
  EXPECT_TRUE(contains(svg, ">second</text>"));
  EXPECT_TRUE(contains(svg, "width=\"80\" height=\"100\""));
}

} // namespace
