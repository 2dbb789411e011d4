// The suite tables: null references, notifiers, default handling and screen dimensions.
#include "toolkit_fixture.h"

#include <type_traits>

namespace {

using Suites = ToolkitTest;
using SuitesInAWindow = ToolkitWindowTest;

// Calls a suite function with a null reference and every other argument zero or null: it must
// do nothing (a write through a null out-parameter would crash) and answer zero, false or null.
template <typename Suite, typename... Functions>
void expectAllAbsorbed(const Suite* suite, Functions... functions) {
    std::size_t index = 0;
    const auto absorbed = [&]<typename R, typename... Args>(R (*Suite::*function)(Args...)) {
        ++index;
        if constexpr (std::is_void_v<R>) {
            (suite->*function)(Args{}...);
        } else {
            EXPECT_EQ(R{}, (suite->*function)(Args{}...)) << "function " << index << " of the list";
        }
    };
    (absorbed(functions), ...);
}

TEST_F(Suites, EveryFunctionAbsorbsANullReference) {
    using D = ADMDialogSuite9;
    using I = ADMItemSuite10;
    expectAllAbsorbed(sADMBasic, &ADMBasicSuite8::GetScreenDimensions);
    // Not Create and CreatePanel: they take no dialog.
    expectAllAbsorbed(sADMDialog, &D::Destroy, &D::SetNotifyProc, &D::SetDestroyProc, &D::SetUserData, &D::GetUserData,
                      &D::DefaultNotify, &D::Show, &D::IsVisible, &D::IsEnabled, &D::SetLocalRect, &D::SetBoundsRect,
                      &D::GetBoundsRect, &D::SetText, &D::GetItem, &D::GetNextItem, &D::GetFirstItem);
    expectAllAbsorbed(sADMItem, &I::Create, &I::Destroy, &I::GetID, &I::GetList, &I::Show, &I::Enable, &I::IsEnabled,
                      &I::SetLocalRect, &I::GetBoundsRect, &I::GetBestSize, &I::SetFont, &I::SetText, &I::GetText,
                      &I::SetBooleanValue, &I::GetBooleanValue, &I::GetIntValue, &I::GetFloatValue, &I::SetFloatValue,
                      &I::SetMinFloatValue, &I::SetMaxFloatValue, &I::DefaultFloatToText, &I::DefaultTextToFloat,
                      &I::SetItemStyle, &I::SetUnits, &I::ShowUnits);
    expectAllAbsorbed(sADMList, &ADMListSuite4::GetActiveEntry, &ADMListSuite4::IndexEntry, &ADMListSuite4::InsertEntry,
                      &ADMListSuite4::NumberOfEntries, &ADMListSuite4::RemoveEntry);
    expectAllAbsorbed(sADMEntry, &ADMEntrySuite6::GetIndex, &ADMEntrySuite6::Select, &ADMEntrySuite6::SetText);
    expectAllAbsorbed(sADMNotifier, &ADMNotifierSuite2::GetItem, &ADMNotifierSuite2::IsNotifierType);
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
