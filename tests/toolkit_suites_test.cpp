// The suite tables: null references, notifiers, default handling and screen dimensions.
#include "toolkit_fixture.h"

namespace {

using Suites = ToolkitTest;
using SuitesInAWindow = ToolkitWindowTest;

TEST_F(Suites, EveryFunctionAbsorbsANullReference) {
    IASRect rect{1, 2, 3, 4};
    IASPoint point{5, 6};
    char text[8] = "keep";
    ADMFloat number = 7;
    _Opaque_ADMNotifier notifier{nullptr, kADMCloseHitNotifier, 0};

    EXPECT_FALSE(sADMBasic->GetScreenDimensions(nullptr, &rect));

    sADMDialog->Destroy(nullptr);
    sADMDialog->SetNotifyProc(nullptr, notifyProc);
    sADMDialog->SetDestroyProc(nullptr, destroyProc);
    sADMDialog->SetUserData(nullptr, &recorder);
    EXPECT_EQ(nullptr, sADMDialog->GetUserData(nullptr));
    sADMDialog->DefaultNotify(nullptr, &notifier);
    EXPECT_EQ(0, notifier.result);
    sADMDialog->Show(nullptr, true);
    EXPECT_FALSE(sADMDialog->IsVisible(nullptr));
    EXPECT_FALSE(sADMDialog->IsEnabled(nullptr));
    sADMDialog->SetLocalRect(nullptr, &rect);
    sADMDialog->SetBoundsRect(nullptr, &rect);
    sADMDialog->GetBoundsRect(nullptr, &rect);
    sADMDialog->SetText(nullptr, "x");
    EXPECT_EQ(nullptr, sADMDialog->GetItem(nullptr, 1));
    EXPECT_EQ(nullptr, sADMDialog->GetNextItem(nullptr, nullptr));
    EXPECT_EQ(nullptr, sADMDialog->GetFirstItem(nullptr));

    EXPECT_EQ(nullptr, sADMItem->Create(nullptr, 1, kADMTextEditType, &rect, nullptr, nullptr, 0));
    sADMItem->Destroy(nullptr);
    EXPECT_EQ(0, sADMItem->GetID(nullptr));
    EXPECT_EQ(nullptr, sADMItem->GetList(nullptr));
    sADMItem->Show(nullptr, true);
    sADMItem->Enable(nullptr, true);
    EXPECT_FALSE(sADMItem->IsEnabled(nullptr));
    sADMItem->SetLocalRect(nullptr, &rect);
    sADMItem->GetBoundsRect(nullptr, &rect);
    sADMItem->GetBestSize(nullptr, &point);
    sADMItem->SetFont(nullptr, kADMBoldDialogFont);
    sADMItem->SetText(nullptr, "x");
    EXPECT_FALSE(sADMItem->GetText(nullptr, text, sizeof text));
    sADMItem->SetBooleanValue(nullptr, true);
    EXPECT_FALSE(sADMItem->GetBooleanValue(nullptr));
    EXPECT_EQ(0, sADMItem->GetIntValue(nullptr));
    EXPECT_EQ(0.0f, sADMItem->GetFloatValue(nullptr));
    sADMItem->SetFloatValue(nullptr, 1);
    sADMItem->SetMinFloatValue(nullptr, 1);
    sADMItem->SetMaxFloatValue(nullptr, 1);
    EXPECT_FALSE(sADMItem->DefaultFloatToText(nullptr, 1, text, sizeof text));
    EXPECT_FALSE(sADMItem->DefaultTextToFloat(nullptr, "3", &number));
    sADMItem->SetItemStyle(nullptr, 1);
    sADMItem->SetUnits(nullptr, kADMPointUnits);
    sADMItem->ShowUnits(nullptr, true);

    EXPECT_EQ(nullptr, sADMList->GetActiveEntry(nullptr));
    EXPECT_EQ(nullptr, sADMList->IndexEntry(nullptr, 0));
    EXPECT_EQ(nullptr, sADMList->InsertEntry(nullptr, 0));
    EXPECT_EQ(0, sADMList->NumberOfEntries(nullptr));
    sADMList->RemoveEntry(nullptr, 0);
    EXPECT_EQ(0, sADMEntry->GetIndex(nullptr));
    sADMEntry->Select(nullptr, true);
    sADMEntry->SetText(nullptr, "x");

    EXPECT_EQ(nullptr, sADMNotifier->GetItem(nullptr));
    EXPECT_FALSE(sADMNotifier->IsNotifierType(nullptr, kADMCloseHitNotifier));

    // Nothing was written through the out parameters.
    EXPECT_EQ((IASRect{1, 2, 3, 4}), rect);
    EXPECT_EQ(5, point.v);
    EXPECT_STREQ("keep", text);
    EXPECT_EQ(7.0f, number);
    EXPECT_EQ(0, recorder.destroyed);
    EXPECT_TRUE(platform::windows().empty());
}

TEST_F(SuitesInAWindow, NotifierTypesCompareExactlyAndTheNotifyResultIsTheEventStatus) {
    _Opaque_ADMNotifier notifier{nullptr, kADMCloseHitNotifier, 0};
    EXPECT_TRUE(sADMNotifier->IsNotifierType(&notifier, "ADM Close Hit Notifier"));
    EXPECT_FALSE(sADMNotifier->IsNotifierType(&notifier, "ADM User Changed Notifier"));
    EXPECT_FALSE(sADMNotifier->IsNotifierType(&notifier, "ADM Close Hit"));
    EXPECT_FALSE(sADMNotifier->IsNotifierType(&notifier, nullptr));
    add(dialog, 1, kADMTextPushButtonType);

    _Opaque_ADMNotifier changed{nullptr, kADMUserChangedNotifier, 0};
    sADMDialog->DefaultNotify(dialog, &changed);
    EXPECT_EQ(-9874, changed.result);

    recorder.notifyResult = -9874;
    EXPECT_EQ(eventNotHandledErr, platform::click(find(1)).eventStatus);
    recorder.notifyResult = 0;
    EXPECT_EQ(noErr, platform::click(find(1)).eventStatus);
    sADMDialog->SetNotifyProc(dialog, nullptr);
    EXPECT_EQ(eventNotHandledErr, platform::click(find(1)).eventStatus);
    EXPECT_EQ(2u, recorder.notes.size());
}

TEST_F(Suites, ScreenDimensionsComeFromTheDisplayHoldingThePoint) {
    platform::setDisplays({Rect{0, 0, 1080, 1920}, Rect{0, 1920, 1200, 3840}});
    IASRect rect{1, 2, 3, 4};
    const IASPoint onSecond{100, 2000};
    EXPECT_TRUE(sADMBasic->GetScreenDimensions(&onSecond, &rect));
    EXPECT_EQ((IASRect{0, 1920, 1200, 3840}), rect);

    rect = IASRect{1, 2, 3, 4};
    const IASPoint outside{1500, 100};
    EXPECT_FALSE(sADMBasic->GetScreenDimensions(&outside, &rect));
    EXPECT_EQ((IASRect{1, 2, 3, 4}), rect);
}

}  // namespace
