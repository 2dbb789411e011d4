// Dialog windows: styles, the close box, bounds, the item array and the three ways of destruction.
#include "toolkit_fixture.h"

namespace {

using DialogWindows = ToolkitTest;
using ShownDialog = ToolkitWindowTest;

struct StyleCase {
    ADMDialogStyle style;
    WindowClass windowClass;
    WindowAttributes ownBits;
};

TEST_F(DialogWindows, EachStyleMakesItsWindowClassWithStandardBits) {
    const StyleCase cases[] = {
        {kADMModalDialogStyle, 4, 0},
        {kADMAlertDialogStyle, 1, 0},
        {kADMFloatingDialogStyle, 5, 9},
        {kADMTabbedFloatingDialogStyle, 5, 9},
        {kADMResizingFloatingDialogStyle, 5, 25},
        {kADMTabbedResizingFloatingDialogStyle, 5, 25},
        {kADMPopupDialogStyle, 5, 521},
        {kADMNoCloseFloatingDialogStyle, 5, 8},
        {kADMSystemAlertDialogStyle, 1, 0},
        {kADMPopupModalDialogStyle, 4, 0},
        {kADMWindowDialogStyle, 6, 31},
        {kADMSideTitleFloatingDialogStyle, 5, 41},
        {kADMNoCloseSideTitleFloatingDialogStyle, 5, 40},
        {kADMPopupFloatingDialogStyle, 5, 521},
        {kADMTabbedHierarchyFloatingDialogStyle, 5, 9},
        {kADMTabbedResizingHierarchyFloatingDialogStyle, 5, 25},
    };
    for (const StyleCase& c : cases) {
        ADMDialogRef dialog = makeWindowDialog(c.style);
        ASSERT_NE(nullptr, dialog) << c.style;
        WindowRef window = platform::windows().back();
        WindowClass windowClass = 0;
        WindowAttributes attributes = 0;
        GetWindowClass(window, &windowClass);
        GetWindowAttributes(window, &attributes);
        EXPECT_EQ(c.windowClass, windowClass) << "style " << c.style;
        EXPECT_EQ(c.ownBits | 0x2080000u, attributes) << "style " << c.style;
        IASRect bounds{};
        sADMDialog->GetBoundsRect(dialog, &bounds);
        EXPECT_EQ((IASRect{0, 0, 400, 600}), bounds);
        sADMDialog->Destroy(dialog);
    }
    EXPECT_TRUE(platform::windows().empty());
}

TEST_F(DialogWindows, StylesWithoutAWindowClassOrAFailingInitProcMakeNoDialog) {
    EXPECT_EQ(nullptr, makeWindowDialog(static_cast<ADMDialogStyle>(16)));
    EXPECT_EQ(nullptr, makeWindowDialog(static_cast<ADMDialogStyle>(-1)));
    EXPECT_TRUE(platform::windows().empty());
    EXPECT_EQ(0, recorder.destroyed);  // the init proc never ran
    recorder.initResult = 5;
    EXPECT_EQ(nullptr, makeWindowDialog());
    EXPECT_EQ(1, recorder.destroyed);
    EXPECT_TRUE(platform::windows().empty());
}

TEST_F(ShownDialog, TheCloseBoxNotifiesOnceAndOnlyHides) {
    ASSERT_TRUE(sADMDialog->IsVisible(dialog));
    EXPECT_TRUE(sADMDialog->IsEnabled(dialog));

    const platform::Outcome outcome = platform::pressCloseBox(platform::windows().back());
    ASSERT_TRUE(outcome.ok());
    EXPECT_EQ(noErr, outcome.eventStatus);
    ASSERT_EQ(1u, recorder.notes.size());
    EXPECT_EQ(nullptr, recorder.notes[0].item);
    EXPECT_EQ("ADM Close Hit Notifier", recorder.notes[0].type);
    EXPECT_FALSE(sADMDialog->IsVisible(dialog));
    EXPECT_EQ(0, recorder.destroyed);
    ASSERT_EQ(1u, platform::windows().size());

    sADMDialog->Show(dialog, true);
    EXPECT_TRUE(sADMDialog->IsVisible(dialog));
}

TEST_F(DialogWindows, SuiteDestroyOrClosingTheWindowRunsTheDestroyProcOnceAndLeavesNothing) {
    recorder.destroyAgainInDestroyProc = true;  // as a dialog object deleting itself would
    ADMDialogRef dialog = makeWindowDialog();
    add(dialog, 1, kADMTextEditType);
    add(dialog, 2, kADMPopupListType);
    sADMDialog->SetText(dialog, "Title");
    sADMDialog->Destroy(dialog);
    EXPECT_EQ(1, recorder.destroyed);
    const platform::LiveCounts live = platform::liveCounts();
    EXPECT_EQ(0u, live.windows);
    EXPECT_EQ(0u, live.controls);
    EXPECT_EQ(0u, live.menus);
    EXPECT_EQ(0u, live.strings);
    EXPECT_EQ(0u, live.handlers);
    // Closing the window does the same.
    recorder = Recorder{};
    dialog = makeWindowDialog();
    add(dialog, 1, kADMTextEditType);
    ASSERT_TRUE(platform::closeWindow(platform::windows().back()).ok());
    EXPECT_EQ(1, recorder.destroyed);
    EXPECT_TRUE(platform::windows().empty());
    EXPECT_EQ(0u, platform::liveCounts().handlers);
}

TEST_F(ShownDialog, SetLocalRectKeepsTheTopLeftCornerAndTheTitleIsTheWindowTitle) {
    const IASRect placed{100, 50, 300, 450};
    sADMDialog->SetBoundsRect(dialog, &placed);
    const IASRect size{0, 0, 300, 200};
    sADMDialog->SetLocalRect(dialog, &size);
    IASRect bounds{};
    sADMDialog->GetBoundsRect(dialog, &bounds);
    EXPECT_EQ((IASRect{100, 50, 400, 250}), bounds);
    Rect content{};
    GetWindowBounds(platform::windows().back(), kWindowContentRgn, &content);
    EXPECT_EQ((Rect{100, 50, 400, 250}), content);
    sADMDialog->SetText(dialog, "Orbisett");
    EXPECT_EQ(platform::windows().back(), platform::findWindowByTitle("Orbisett"));
}

TEST_F(ShownDialog, ItemsAreFoundByIdInCreationOrderAndAHundredAndFirstIsRefused) {
    EXPECT_EQ(nullptr, sADMDialog->GetFirstItem(dialog));
    ADMItemRef a = add(dialog, 10, kADMTextStaticType);
    ADMItemRef b = add(dialog, 20, kADMTextCheckBoxType);
    ADMItemRef c = add(dialog, 10, kADMTextPushButtonType);
    EXPECT_EQ(a, sADMDialog->GetFirstItem(dialog));
    EXPECT_EQ(b, sADMDialog->GetNextItem(dialog, a));
    EXPECT_EQ(c, sADMDialog->GetNextItem(dialog, b));
    EXPECT_EQ(a, sADMDialog->GetItem(dialog, 10));  // the first of equal ids
    EXPECT_EQ(nullptr, sADMDialog->GetItem(dialog, 30));
    for (ADMInt32 id = 101; id <= 197; ++id) {
        ASSERT_NE(nullptr, add(dialog, id, kADMTextStaticType)) << id;
    }
    EXPECT_EQ(nullptr, add(dialog, 300, kADMTextStaticType));
    EXPECT_EQ(nullptr, sADMDialog->GetItem(dialog, 300));
    int count = 0;
    for (ADMItemRef item = sADMDialog->GetFirstItem(dialog); item != nullptr;
         item = sADMDialog->GetNextItem(dialog, item)) {
        ++count;
    }
    EXPECT_EQ(100, count);
}

TEST_F(ShownDialog, ItemsWithAFailingInitOrAnUnknownTypeKeepTheirPlaceWithoutAControl) {
    const IASRect r{0, 0, 20, 100};
    auto failing = [](ADMItemRef) -> ASErr { return 1; };
    EXPECT_EQ(nullptr, sADMItem->Create(dialog, 3, kADMTextCheckBoxType, &r, failing, nullptr, 0));
    ADMItemRef kept = sADMDialog->GetItem(dialog, 3);
    ASSERT_NE(nullptr, kept);
    EXPECT_EQ(kept, sADMDialog->GetFirstItem(dialog));
    ADMItemRef item = add(dialog, 9, "ADM Dial Type");
    ASSERT_NE(nullptr, item);
    EXPECT_EQ(nullptr, find(9));
    sADMItem->SetText(item, "ignored");
    EXPECT_FALSE(sADMItem->IsEnabled(item));
}

}  // namespace
