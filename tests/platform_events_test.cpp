#include "platform_fixture.h"

#include <string>
#include <vector>

namespace {

// A shown window with a check box, and a log for the handlers' names.
class EventTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        w = makeWindow();
        ShowWindow(w);
        box = makeCheckBox(w, "Box");
    }
    WindowRef w = nullptr;
    ControlRef box = nullptr;
    std::vector<std::string> log;
};

// A handler that logs its name and answers a fixed status.
struct Probe {
    std::vector<std::string>* log;
    std::string name;
    OSStatus answer = eventNotHandledErr;
    EventHandlerRef removeOnCall = nullptr;
    WindowRef disposeOnCall = nullptr;
    UInt32 commandSeen = 0;
    ControlRef sourceSeen = nullptr;
};

OSStatus probeHandler(EventHandlerCallRef, EventRef event, void* data) {
    auto* p = static_cast<Probe*>(data);
    p->log->push_back(p->name);
    if (GetEventClass(event) == kEventClassCommand) {
        HICommandExtended command{};
        if (GetEventParameter(event, kEventParamDirectObject, typeHICommand, nullptr, sizeof command, nullptr,
                              &command) == noErr) {
            p->commandSeen = command.commandID;
            p->sourceSeen = command.source.control;
        }
    }
    if (p->removeOnCall)
        RemoveEventHandler(p->removeOnCall);
    if (p->disposeOnCall)
        DisposeWindow(p->disposeOnCall);
    return p->answer;
}

const EventTypeSpec kCommand{kEventClassCommand, kEventCommandProcess};

EventHandlerRef install(EventTargetRef target, Probe& probe, const EventTypeSpec& event_type = kCommand) {
    EventHandlerRef ref = nullptr;
    EXPECT_EQ(noErr, InstallEventHandler(target, NewEventHandlerUPP(probeHandler), 1, &event_type, &probe, &ref));
    return ref;
}

TEST_F(EventTest, MostRecentHandlerRunsFirstAndAHandledEventStops) {
    Probe first{&log, "first"}, second{&log, "second", noErr}, third{&log, "third"};
    install(GetControlEventTarget(box), first);
    install(GetControlEventTarget(box), second);
    install(GetControlEventTarget(box), third);
    platform::Outcome outcome = platform::click(box);
    EXPECT_TRUE(outcome.ok());
    EXPECT_EQ(noErr, outcome.eventStatus);
    EXPECT_EQ((std::vector<std::string>{"third", "second"}), log);
}

TEST_F(EventTest, HandlersOnlySeeTheKindsTheyAskedFor) {
    Probe drawOnly{&log, "draw"};
    install(GetControlEventTarget(box), drawOnly, EventTypeSpec{kEventClassControl, kEventControlDraw});
    EXPECT_EQ(eventNotHandledErr, platform::click(box).eventStatus);
    EXPECT_TRUE(log.empty());
}

TEST_F(EventTest, CommandsTravelUpTheViewsThenToTheWindow) {
    ControlRef root = platform::rootView(w);
    Rect r{0, 0, 100, 100};
    ControlRef group = nullptr;
    ASSERT_EQ(noErr, CreateGroupBoxControl(nullptr, &r, nullptr, true, &group));
    ASSERT_EQ(noErr, HIViewAddSubview(root, group));
    ControlRef button = nullptr;
    ASSERT_EQ(noErr, CreatePushButtonControl(nullptr, &r, nullptr, &button));
    ASSERT_EQ(noErr, HIViewAddSubview(group, button));
    SetControlCommandID(button, 'D' << 24 | 'A' << 16 | 'D' << 8 | 'M');
    Probe onButton{&log, "button"}, onGroup{&log, "group"}, onRoot{&log, "root"}, onWindow{&log, "window", noErr};
    install(GetControlEventTarget(button), onButton);
    install(GetControlEventTarget(group), onGroup);
    install(GetControlEventTarget(root), onRoot);
    install(GetWindowEventTarget(w), onWindow);
    EXPECT_EQ(noErr, platform::click(button).eventStatus);
    EXPECT_EQ((std::vector<std::string>{"button", "group", "root", "window"}), log);
    EXPECT_EQ(0x4441444Du, onWindow.commandSeen);
    EXPECT_EQ(button, onWindow.sourceSeen);
}

TEST_F(EventTest, AHandlerMayRemoveALaterHandlerWhileDispatching) {
    Probe older{&log, "older"}, newer{&log, "newer"};
    EventHandlerRef olderRef = install(GetControlEventTarget(box), older);
    EventHandlerRef newerRef = install(GetControlEventTarget(box), newer);
    newer.removeOnCall = olderRef;
    platform::click(box);
    EXPECT_EQ((std::vector<std::string>{"newer"}), log);
    EXPECT_EQ(paramErr, RemoveEventHandler(olderRef));  // already gone
    EXPECT_EQ(noErr, RemoveEventHandler(newerRef));
    EXPECT_EQ(0u, platform::liveCounts().handlers);
}

TEST_F(EventTest, AHandlerMayDisposeTheWindowOfTheControlBeingClicked) {
    Probe windowProbe{&log, "window"};
    Probe disposer{&log, "disposer"};
    disposer.disposeOnCall = w;
    install(GetWindowEventTarget(w), windowProbe);
    install(GetControlEventTarget(box), disposer);
    EXPECT_TRUE(platform::click(box).ok());
    EXPECT_EQ((std::vector<std::string>{"disposer"}), log);  // the window's handlers went with it
    EXPECT_FALSE(platform::isLiveWindow(w));
    EXPECT_EQ(0u, platform::liveCounts().controls);
}

OSStatus callNext(EventHandlerCallRef call, EventRef event, void* data) {
    auto* log = static_cast<std::vector<std::string>*>(data);
    log->push_back("before");
    OSStatus next = CallNextEventHandler(call, event);
    log->push_back(next == noErr ? "next handled" : "next not handled");
    return noErr;
}

TEST_F(EventTest, CallNextEventHandlerRunsTheOlderHandlersOnce) {
    Probe older{&log, "older", noErr};
    install(GetControlEventTarget(box), older);
    InstallEventHandler(GetControlEventTarget(box), callNext, 1, &kCommand, &log, nullptr);
    EXPECT_EQ(noErr, platform::click(box).eventStatus);
    EXPECT_EQ((std::vector<std::string>{"before", "older", "next handled"}), log);
}

TEST_F(EventTest, ParametersAreTypedAndSizedAndUnknownTargetsRefused) {
    EventRef event = nullptr;
    ASSERT_EQ(noErr, CreateEvent(nullptr, kEventClassControl, kEventControlDraw, 0, kEventAttributeNone, &event));
    CGContextRef context = platform::createRecordingContext();
    ASSERT_EQ(noErr, SetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, sizeof context, &context));
    CGContextRef read = nullptr;
    EventParamType actual = 0;
    ByteCount size = 0;
    EXPECT_EQ(noErr,
              GetEventParameter(event, kEventParamCGContextRef, typeCGContextRef, &actual, sizeof read, &size, &read));
    EXPECT_EQ(context, read);
    EXPECT_EQ(typeCGContextRef, actual);
    EXPECT_EQ(sizeof read, size);
    EXPECT_EQ(errAECoercionFail,
              GetEventParameter(event, kEventParamCGContextRef, typeHICommand, nullptr, sizeof read, nullptr, &read));
    EXPECT_EQ(eventParameterNotFoundErr,
              GetEventParameter(event, kEventParamDirectObject, typeWildCard, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(kEventClassControl, GetEventClass(event));
    EXPECT_EQ(kEventControlDraw, GetEventKind(event));
    ReleaseEvent(event);
    platform::releaseRecordingContext(context);
    Probe p{nullptr, "x"};
    EXPECT_EQ(paramErr, InstallEventHandler(nullptr, probeHandler, 1, &kCommand, &p, nullptr));
    EXPECT_EQ(nullptr, GetWindowEventTarget(nullptr));
    EXPECT_EQ(nullptr, GetControlEventTarget(nullptr));
}

}  // namespace
