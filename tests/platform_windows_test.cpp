#include "platform_fixture.h"

#include <string>
#include <vector>

namespace {

using WindowTest = PlatformTest;

struct Recorder {
    std::vector<std::string> log;
    OSStatus answer = eventNotHandledErr;
    WindowRef disposeOnClosed = nullptr;
};

OSStatus record(EventHandlerCallRef, EventRef event, void* data) {
    auto* r = static_cast<Recorder*>(data);
    std::string what = std::to_string(GetEventKind(event));
    if (GetEventClass(event) == kEventClassControl) {
        ControlRef c = nullptr;
        GetEventParameter(event, kEventParamDirectObject, typeControlRef, nullptr, sizeof c, nullptr, &c);
        what += ":" + platform::controlTitle(c);
    }
    r->log.push_back(what);
    if (GetEventKind(event) == kEventWindowClosed && r->disposeOnClosed) {
        DisposeWindow(r->disposeOnClosed);  // as a dialog does when it tears itself down
    }
    return r->answer;
}

void watchWindow(WindowRef w, Recorder& r) {
    const EventTypeSpec specs[] = {{kEventClassWindow, kEventWindowCloseRequested},
                                   {kEventClassWindow, kEventWindowClosed}};
    ASSERT_EQ(noErr, InstallEventHandler(GetWindowEventTarget(w), record, 2, specs, &r, nullptr));
}

void watchDispose(ControlRef c, Recorder& r) {
    const EventTypeSpec event_type{kEventClassControl, kEventControlDispose};
    ASSERT_EQ(noErr, InstallEventHandler(GetControlEventTarget(c), record, 1, &event_type, &r, nullptr));
}

TEST_F(WindowTest, DisposeSendsClosedThenDisposesEveryControlOnce) {
    WindowRef w = makeWindow();
    Recorder r;
    watchWindow(w, r);
    ControlRef a = makeCheckBox(w, "A");
    ControlRef b = makeCheckBox(w, "B");
    Rect rect{0, 0, 10, 10};
    ControlRef inner = nullptr;
    Str title("inner");
    CreatePushButtonControl(nullptr, &rect, title, &inner);
    HIViewAddSubview(b, inner);
    watchDispose(a, r);
    watchDispose(b, r);
    watchDispose(inner, r);
    DisposeWindow(w);
    EXPECT_EQ((std::vector<std::string>{"73", "1001:A", "1001:inner", "1001:B"}), r.log);
    EXPECT_FALSE(platform::isLiveWindow(w));
    EXPECT_EQ(0u, platform::liveCounts().controls);
    EXPECT_EQ(0u, platform::liveCounts().handlers);
    // Disposing from the closed handler finishes once.
    WindowRef again = makeWindow();
    Recorder seen;
    seen.disposeOnClosed = again;
    watchWindow(again, seen);
    watchDispose(makeCheckBox(again, "A"), seen);
    DisposeWindow(again);
    EXPECT_EQ((std::vector<std::string>{"73", "1001:A"}), seen.log);
    EXPECT_EQ(0u, platform::liveCounts().windows);
    DisposeWindow(again);  // stale: ignored
}

TEST_F(WindowTest, CloseBoxClosesAStandardWindowUnlessHandled) {
    WindowRef w = makeWindow();
    ShowWindow(w);
    Recorder r;
    watchWindow(w, r);
    platform::Outcome outcome = platform::pressCloseBox(w);
    EXPECT_TRUE(outcome.ok());
    EXPECT_EQ(eventNotHandledErr, outcome.eventStatus);
    EXPECT_EQ((std::vector<std::string>{"72", "73"}), r.log);
    EXPECT_FALSE(platform::isLiveWindow(w));
    WindowRef handled = makeWindow();
    ShowWindow(handled);
    Recorder answered;
    answered.answer = noErr;
    watchWindow(handled, answered);
    EXPECT_EQ(noErr, platform::pressCloseBox(handled).eventStatus);
    EXPECT_EQ((std::vector<std::string>{"72"}), answered.log);
    EXPECT_TRUE(platform::isLiveWindow(handled));
    // Without the standard handler, or without a close box.
    WindowRef plain = makeWindow(kWindowCloseBoxAttribute);
    ShowWindow(plain);
    EXPECT_TRUE(platform::pressCloseBox(plain).ok());
    EXPECT_TRUE(platform::isLiveWindow(plain));
    WindowRef noBox = makeWindow(kWindowCollapseBoxAttribute | kWindowStandardHandlerAttribute);
    ShowWindow(noBox);
    EXPECT_EQ(platform::kDriverNoCloseBox, platform::pressCloseBox(noBox).refused);
}

TEST_F(WindowTest, TheSystemClosingAWindowSendsClosed) {
    WindowRef w = makeWindow();
    Recorder r;
    watchWindow(w, r);
    EXPECT_EQ(platform::kDriverWindowHidden, platform::pressCloseBox(w).refused);
    EXPECT_TRUE(platform::closeWindow(w).ok());
    EXPECT_EQ((std::vector<std::string>{"73"}), r.log);
    EXPECT_EQ(platform::kDriverNoSuchObject, platform::closeWindow(w).refused);
}

TEST_F(WindowTest, ShowActivatesHideDeactivatesAndBoundsFollowSetWindowBounds) {
    WindowRef first = makeWindow();
    WindowRef second = makeWindow();
    EXPECT_FALSE(IsWindowVisible(first));
    ShowWindow(first);
    EXPECT_TRUE(IsWindowActive(first));
    ShowWindow(second);
    EXPECT_FALSE(IsWindowActive(first));
    EXPECT_TRUE(IsWindowActive(second));
    EXPECT_TRUE(IsWindowVisible(first));
    HideWindow(second);
    EXPECT_FALSE(IsWindowActive(second));
    EXPECT_EQ(nullptr, platform::activeWindow());
    WindowRef w = makeWindow();
    Rect r{};
    ASSERT_EQ(noErr, GetWindowBounds(w, kWindowContentRgn, &r));
    EXPECT_EQ(100, r.top);
    EXPECT_EQ(50, r.left);
    Rect wanted{100, 50, 400, 250};
    ASSERT_EQ(noErr, SetWindowBounds(w, kWindowContentRgn, &wanted));
    ASSERT_EQ(noErr, GetWindowBounds(w, kWindowContentRgn, &r));
    EXPECT_EQ(400, r.bottom);
    EXPECT_EQ(250, r.right);
    HIRect root{};
    ASSERT_EQ(noErr, HIViewGetBounds(platform::rootView(w), &root));
    EXPECT_EQ(200, root.size.width);
    EXPECT_EQ(300, root.size.height);
}

TEST_F(WindowTest, TitleRoundTripsAndFindsTheWindowWhoseRootIsMadeOnce) {
    WindowRef w = makeWindow();
    Str title("Orbisett \xe2\x80\x93 test");
    ASSERT_EQ(noErr, SetWindowTitleWithCFString(w, title));
    CFStringRef copy = nullptr;
    ASSERT_EQ(noErr, CopyWindowTitleAsCFString(w, &copy));
    EXPECT_EQ(CFStringGetLength(title), CFStringGetLength(copy));
    CFRelease(copy);
    EXPECT_EQ(w, platform::findWindowByTitle("Orbisett \xe2\x80\x93 test"));
    EXPECT_EQ(nullptr, platform::findWindowByTitle("Orbisett"));
    ControlRef again = nullptr;
    EXPECT_EQ(errRootAlreadyExists, CreateRootControl(w, &again));
    ControlRef root = nullptr;
    EXPECT_EQ(noErr, GetRootControl(w, &root));
    EXPECT_EQ(root, again);
    EXPECT_EQ(w, GetControlOwner(root));
}

}  // namespace
