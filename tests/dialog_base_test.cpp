// The dialog base: the control factory's sizes and values, enabling the whole dialog, and
// placement on the screen.
#include "dialog/BaseDlg.h"

#include "host/host.h"
#include "platform/driver.h"
#include "shell/global_suites.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class Plain : public BaseDlg {
public:
    ASErr Init() override {
        const ASErr err = BaseADMDialog::Init();
        const IASRect size{0, 0, 200, 300};
        SetLocalRect(size);
        return err;
    }
};

class DialogBase : public ::testing::Test {
protected:
    void SetUp() override {
        platform::reset();
        host_ = std::make_unique<host::Host>();
        sSPBasic = host_->basicSuite();
        dlg_ = std::make_unique<Plain>();
        dlg_->Create(nullptr, "Plain", 0, kADMFloatingDialogStyle, 0);
        ASSERT_NE(dlg_->dialog, nullptr);
    }
    void TearDown() override {
        dlg_.reset();
        sSPBasic = nullptr;
        host_.reset();
        platform::reset();
    }

    static IASRect bounds(ADMItemRef item) {
        IASRect r{0, 0, 0, 0};
        sADMItem->GetBoundsRect(item, &r);
        return r;
    }
    static IASPoint best(ADMItemRef item) {
        IASPoint p{0, 0};
        sADMItem->GetBestSize(item, &p);
        return p;
    }
    // A static text is only a label; the window system knows whether it is greyed.
    static bool label_enabled(SInt32 id) {
        const auto windows = platform::windows();
        return !windows.empty() && IsControlEnabled(platform::findControlById(windows.front(), id));
    }
    IASRect dialog_bounds() {
        IASRect r{0, 0, 0, 0};
        sADMDialog->GetBoundsRect(dlg_->dialog, &r);
        return r;
    }

    std::unique_ptr<host::Host> host_;
    std::unique_ptr<Plain> dlg_;
};

TEST_F(DialogBase, CheckBoxEndsWithItsLabelsBestSizeAtItsPlace) {
    ADMItemRef box = dlg_->add_checkbox(IASRect{40, 10, 16, 130}, "Repeat Layers", 528, 1);
    ASSERT_NE(box, nullptr);
    const IASRect r = bounds(box);
    const IASPoint size = best(box);
    EXPECT_EQ(r.top, 40);
    EXPECT_EQ(r.left, 10);
    EXPECT_EQ(r.right - r.left, size.h);
    EXPECT_EQ(r.bottom - r.top, size.v);
    EXPECT_NE(r.right - r.left, 130);
    EXPECT_TRUE(sADMItem->GetBooleanValue(box));
    EXPECT_EQ(dlg_->get_item(528), box);
}

TEST_F(DialogBase, RadioAndStaticTakeTheirTextsSize) {
    ADMItemRef radio = dlg_->add_radio(IASRect{60, 10, 16, 200}, "Inward", 0, 0);
    ADMItemRef label = dlg_->add_static(IASPoint{80, 20}, "Radius Set by First", 0);
    ASSERT_NE(radio, nullptr);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(bounds(radio).right - bounds(radio).left, best(radio).h);
    EXPECT_FALSE(sADMItem->GetBooleanValue(radio));
    const IASRect r = bounds(label);
    EXPECT_EQ(r.left, 20);
    EXPECT_EQ(r.top, 80);
    EXPECT_GT(r.right - r.left, 0);
    EXPECT_EQ(r.right - r.left, best(label).h);
}

TEST_F(DialogBase, ControlsGetAPlaceAndASize) {
    ADMItemRef button = dlg_->add_ctrl(kADMTextPushButtonType, IASRect{150, 200, 20, 80}, "Apply", 3);
    const IASRect r = bounds(button);
    EXPECT_EQ(r.top, 150);
    EXPECT_EQ(r.left, 200);
    EXPECT_EQ(r.bottom, 170);
    EXPECT_EQ(r.right, 280);
}

TEST_F(DialogBase, EditFieldHoldsItsValueWithoutUnits) {
    ADMItemRef edit = dlg_->add_edit(IASRect{10, 10, 16, 60}, 500, 0.1f, 1e7f, 1000.0f);
    ASSERT_NE(edit, nullptr);
    EXPECT_FLOAT_EQ(sADMItem->GetFloatValue(edit), 1000.0f);
    char text[64] = {};
    ASSERT_TRUE(sADMItem->GetText(edit, text, sizeof text));
    EXPECT_STREQ(text, "1000");
}

TEST_F(DialogBase, FrameKeepsTheCallersSize) {
    ADMItemRef frame = dlg_->add_frame(IASRect{5, 5, 100, 250}, "Insert Keys", 0, kADMEtchedFrameStyle);
    const IASRect r = bounds(frame);
    EXPECT_EQ(r.bottom - r.top, 100);
    EXPECT_EQ(r.right - r.left, 250);
}

TEST_F(DialogBase, EnablingTwiceChangesNothingTheSecondTime) {
    ADMItemRef a = dlg_->add_checkbox(IASRect{10, 10, 16, 100}, "A", 10, 0);
    ADMItemRef b = dlg_->add_checkbox(IASRect{30, 10, 16, 100}, "B", 11, 0);
    dlg_->add_static(IASPoint{50, 10}, "C", 12);
    EXPECT_FALSE(dlg_->IsEnabled());

    // A new dialog counts as disabled, so disabling it touches no control.
    dlg_->Enable(false);
    EXPECT_TRUE(sADMItem->IsEnabled(a));

    dlg_->Enable(true);
    EXPECT_TRUE(dlg_->IsEnabled());
    sADMItem->Enable(b, false);  // a rule of the dialog
    dlg_->Enable(true);
    EXPECT_TRUE(sADMItem->IsEnabled(a));
    EXPECT_FALSE(sADMItem->IsEnabled(b));

    dlg_->Enable(false);
    EXPECT_FALSE(sADMItem->IsEnabled(a));
    EXPECT_FALSE(sADMItem->IsEnabled(b));
    // A static text item has no control of its own and reads as not enabled, so the walk,
    // which only touches controls in the other state, leaves its label as it is.
    EXPECT_TRUE(label_enabled(12));
    dlg_->Enable(true);
    EXPECT_TRUE(sADMItem->IsEnabled(a));
    EXPECT_TRUE(sADMItem->IsEnabled(b));
    EXPECT_TRUE(label_enabled(12));
}

TEST_F(DialogBase, WithoutAWindowOnlyTheStateChanges) {
    Plain unbound;
    EXPECT_EQ(unbound.get_item(3), nullptr);
    EXPECT_EQ(unbound.add_checkbox(IASRect{0, 0, 16, 100}, "A", 1, 1), nullptr);
    unbound.Enable(true);
    EXPECT_TRUE(unbound.IsEnabled());
}

TEST_F(DialogBase, MoveToScreenCenterCentresInTheMainScreen) {
    platform::setDisplays({Rect{0, 0, 1080, 1920}, Rect{0, 1920, 1200, 3840}});
    dlg_->MoveToScreenCenter();
    const IASRect r = dialog_bounds();
    EXPECT_EQ(r.left, (1920 - 300) / 2);
    EXPECT_EQ(r.top, (1080 - 200) / 2);
    EXPECT_EQ(r.right - r.left, 300);
    EXPECT_EQ(r.bottom - r.top, 200);
}

TEST_F(DialogBase, MoveToScreenCenterPutsADialogLargerThanTheScreenAtTheOrigin) {
    platform::setDisplays({Rect{0, 0, 150, 250}});
    dlg_->MoveToScreenCenter();
    const IASRect r = dialog_bounds();
    EXPECT_EQ(r.left, 0);
    EXPECT_EQ(r.top, 0);
    EXPECT_EQ(r.right, 300);
    EXPECT_EQ(r.bottom, 200);
}

TEST_F(DialogBase, MoveToScreenCenterWithoutAScreenAtTheOriginDoesNothing) {
    platform::setDisplays({Rect{0, 0, 1080, 1920}});
    dlg_->MoveToScreenCenter();
    const IASRect before = dialog_bounds();
    platform::setDisplays({Rect{100, 100, 1180, 2020}});
    dlg_->MoveToScreenCenter();
    const IASRect after = dialog_bounds();
    EXPECT_EQ(after.left, before.left);
    EXPECT_EQ(after.top, before.top);
}

}  // namespace
