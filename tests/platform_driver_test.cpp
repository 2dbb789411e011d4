#include "platform_fixture.h"

#include <vector>

namespace {

using DriverTest = PlatformTest;

struct Counter {
    int commands = 0;
    int draws = 0;
    int disposals = 0;
};

OSStatus count(EventHandlerCallRef, EventRef event, void* data) {
    auto* c = static_cast<Counter*>(data);
    switch (GetEventKind(event)) {
        case kEventCommandProcess:
            ++c->commands;
            return noErr;
        case kEventControlDispose:
            ++c->disposals;
            return eventNotHandledErr;
        default:
            return eventNotHandledErr;
    }
}

OSStatus paint(EventHandlerCallRef, EventRef event, void* data) {
    ++static_cast<Counter*>(data)->draws;
    CGContextRef context = nullptr;
    OSStatus status =
        GetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, nullptr, sizeof context, nullptr, &context);
    if (status != noErr)
        return status;
    CGContextSetRGBFillColor(context, 0.25, 0.5, 1.0, 1.0);
    CGContextFillRect(context, CGRect{{0, 0}, {300, 200}});
    return noErr;
}

void countCommands(ControlRef c, Counter& counter) {
    const EventTypeSpec specs[] = {{kEventClassCommand, kEventCommandProcess},
                                   {kEventClassControl, kEventControlDispose}};
    ASSERT_EQ(noErr, InstallEventHandler(GetControlEventTarget(c), count, 2, specs, &counter, nullptr));
}

TEST_F(DriverTest, ClickTogglesBeforeTheCommandIsSentUnlessRefused) {
    WindowRef w = makeWindow();
    ShowWindow(w);
    ControlRef box = makeCheckBox(w, "Box");
    struct Seen {
        SInt32 value = -1;
    } seen;
    auto handler = [](EventHandlerCallRef, EventRef event, void* data) -> OSStatus {
        HICommandExtended command{};
        GetEventParameter(event, kEventParamDirectObject, typeHICommand, nullptr, sizeof command, nullptr, &command);
        static_cast<Seen*>(data)->value = GetControl32BitValue(command.source.control);
        return noErr;
    };
    const EventTypeSpec event_type{kEventClassCommand, kEventCommandProcess};
    InstallEventHandler(GetControlEventTarget(box), handler, 1, &event_type, &seen, nullptr);
    EXPECT_TRUE(platform::click(box).ok());
    EXPECT_EQ(1, seen.value);
    EXPECT_TRUE(platform::click(box).ok());
    EXPECT_EQ(0, seen.value);

    Rect r{30, 10, 43, 70};
    ControlRef radio = nullptr;
    CreateRadioButtonControl(w, &r, nullptr, 0, true, &radio);
    platform::click(radio);
    platform::click(radio);
    EXPECT_EQ(1, GetControl32BitValue(radio));  // a radio only turns on

    // A hidden window, a hidden or disabled control are refused unless forced.
    WindowRef hidden = makeWindow();
    ControlRef refused = makeCheckBox(hidden, "Box");
    Counter counter;
    countCommands(refused, counter);
    EXPECT_EQ(platform::kDriverWindowHidden, platform::click(refused).refused);
    ShowWindow(hidden);
    HideControl(refused);
    EXPECT_EQ(platform::kDriverControlHidden, platform::click(refused).refused);
    ShowControl(refused);
    DisableControl(refused);
    EXPECT_EQ(platform::kDriverControlDisabled, platform::click(refused).refused);
    EXPECT_EQ(0, GetControl32BitValue(refused));
    EXPECT_EQ(0, counter.commands);
    platform::Outcome forced = platform::click(refused, platform::Force::yes);
    EXPECT_TRUE(forced.ok());
    EXPECT_EQ(noErr, forced.eventStatus);
    EXPECT_EQ(1, GetControl32BitValue(refused));
    EXPECT_EQ(1, counter.commands);
}

TEST_F(DriverTest, FindsControlsByIdInWindowsAndViewsHiddenWithTheirContainer) {
    ControlRef panel = platform::createPanelView(Rect{0, 0, 200, 300});
    ControlRef box = makeCheckBox(nullptr, "Box");
    HIViewAddSubview(panel, box);
    EXPECT_TRUE(platform::click(box).ok());
    platform::showPanelView(panel, false);
    EXPECT_EQ(platform::kDriverControlHidden, platform::click(box).refused);
    EXPECT_FALSE(platform::isEffectivelyVisible(box));
    WindowRef w = makeWindow();
    ControlRef found = makeCheckBox(w, "Box", 0, 7);
    EXPECT_EQ(found, platform::findControlById(w, 7));
    EXPECT_EQ(found, platform::findControlById(platform::rootView(w), 7));
    EXPECT_EQ(nullptr, platform::findControlById(w, 8));
    EXPECT_EQ("cbox", platform::controlKindName(found));
    EXPECT_EQ((std::vector<WindowRef>{w}), platform::windows());
}

TEST_F(DriverTest, TypingReplacesTheTextOfEditFieldsAndChoosingAPopupItemSendsTheCommand) {
    WindowRef w = makeWindow();
    ShowWindow(w);
    Rect r{0, 0, 13, 80};
    Str initial("100");
    ControlRef edit = nullptr;
    CreateEditUnicodeTextControl(w, &r, initial, false, nullptr, &edit);
    EXPECT_TRUE(platform::typeText(edit, "1200").ok());
    EXPECT_EQ("1200", platform::controlText(edit));
    EXPECT_EQ(platform::kDriverWrongKind, platform::typeText(makeCheckBox(w, "Box"), "x").refused);
    DisableControl(edit);
    EXPECT_EQ(platform::kDriverControlDisabled, platform::typeText(edit, "7").refused);
    EXPECT_EQ("1200", platform::controlText(edit));
    EXPECT_TRUE(platform::typeText(edit, "7", platform::Force::yes).ok());
    EXPECT_EQ("7", platform::controlText(edit));
    r = Rect{0, 0, 20, 120};
    ControlRef popup = nullptr;
    CreatePopupButtonControl(w, &r, nullptr, -12345, false, -1, 0, 0, &popup);
    MenuRef menu = nullptr;
    CreateNewMenu(16000, 0, &menu);
    SetControlData(popup, 0, kControlPopupButtonOwnedMenuRefTag, sizeof menu, &menu);
    Str a("Width"), b("Height");
    InsertMenuItemTextWithCFString(menu, a, 0, 0, 0);
    InsertMenuItemTextWithCFString(menu, b, 1, 0, 0);
    Counter counter;
    countCommands(popup, counter);
    EXPECT_EQ(platform::kDriverOutOfRange, platform::choosePopupItem(popup, 2).refused) << "maximum is still 1";
    SetControl32BitMaximum(popup, 2);
    EXPECT_TRUE(platform::choosePopupItem(popup, 2).ok());
    EXPECT_EQ(2, GetControl32BitValue(popup));
    EXPECT_EQ(1, counter.commands);
    EXPECT_EQ((std::vector<std::string>{"Width", "Height"}), platform::popupItems(popup));
}

TEST_F(DriverTest, PanelViewsDrawAndDisposeWithTheirSubviews) {
    ControlRef panel = platform::createPanelView(Rect{0, 0, 200, 300});
    EXPECT_EQ(nullptr, platform::windowOf(panel));
    Counter counter;
    const EventTypeSpec specs[] = {{kEventClassControl, kEventControlDraw}, {kEventClassControl, kEventControlDispose}};
    InstallEventHandler(GetControlEventTarget(panel), paint, 1, &specs[0], &counter, nullptr);
    InstallEventHandler(GetControlEventTarget(panel), count, 1, &specs[1], &counter, nullptr);
    ControlRef box = makeCheckBox(nullptr, "Box");
    HIViewAddSubview(panel, box);
    countCommands(box, counter);

    platform::DrawRecord drawn = platform::drawView(panel);
    EXPECT_EQ(noErr, drawn.status);
    EXPECT_EQ(1, counter.draws);
    ASSERT_EQ(1u, drawn.fills.size());
    EXPECT_DOUBLE_EQ(0.5, drawn.fills[0].green);
    EXPECT_DOUBLE_EQ(300, drawn.fills[0].rect.size.width);

    platform::disposePanelView(panel);
    EXPECT_EQ(2, counter.disposals);
    EXPECT_FALSE(platform::isLiveControl(box));
    EXPECT_EQ(0u, platform::liveCounts().controls);
    EXPECT_EQ(0u, platform::liveCounts().handlers);
    EXPECT_EQ(eventNotHandledErr, platform::drawView(panel).status);
}

TEST_F(DriverTest, DefaultDisplayAndReplacedList) {
    GDHandle device = GetDeviceList();
    ASSERT_NE(nullptr, device);
    EXPECT_EQ((Rect{0, 0, 1080, 1920}), (*device)->gdRect);
    EXPECT_EQ(nullptr, GetNextDevice(device));

    platform::setDisplays({Rect{0, 0, 1080, 1920}, Rect{0, 1920, 1200, 3840}});
    device = GetDeviceList();
    GDHandle second = GetNextDevice(device);
    ASSERT_NE(nullptr, second);
    EXPECT_EQ(1920, (*second)->gdRect.left);
    EXPECT_EQ(nullptr, GetNextDevice(second));

    Point inSecond{100, 2000};
    EXPECT_FALSE(PtInRect(inSecond, &(*device)->gdRect));
    EXPECT_TRUE(PtInRect(inSecond, &(*second)->gdRect));
    const Rect r{10, 20, 30, 40};
    EXPECT_TRUE(PtInRect(Point{10, 20}, &r));
    EXPECT_FALSE(PtInRect(Point{30, 20}, &r));  // bottom and right edges are outside
    EXPECT_FALSE(PtInRect(Point{10, 40}, &r));

    platform::reset();
    EXPECT_EQ(1u, platform::displays().size());
}

struct PanelCloser {
    ControlRef panel = nullptr;
};

OSStatus closePanel(EventHandlerCallRef, EventRef, void* data) {
    platform::disposePanelView(static_cast<PanelCloser*>(data)->panel);
    return eventNotHandledErr;  // let the command travel on, to views that are gone now
}

TEST_F(DriverTest, ACommandHandlerMayDisposeThePanelItLivesIn) {
    PanelCloser closer{platform::createPanelView(Rect{0, 0, 200, 300})};
    Counter counter;
    const EventTypeSpec command{kEventClassCommand, kEventCommandProcess};
    InstallEventHandler(GetControlEventTarget(closer.panel), count, 1, &command, &counter, nullptr);
    Rect r{0, 0, 20, 80};
    ControlRef button = nullptr;
    CreatePushButtonControl(nullptr, &r, nullptr, &button);
    HIViewAddSubview(closer.panel, button);
    InstallEventHandler(GetControlEventTarget(button), closePanel, 1, &command, &closer, nullptr);
    platform::Outcome outcome = platform::click(button);
    EXPECT_TRUE(outcome.ok());
    EXPECT_EQ(eventNotHandledErr, outcome.eventStatus);
    EXPECT_EQ(0, counter.commands);  // the disposed panel's handler is not reached
    EXPECT_EQ(0u, platform::liveCounts().controls);
    EXPECT_EQ(platform::kDriverNoSuchObject, platform::click(button).refused);
}

}  // namespace
