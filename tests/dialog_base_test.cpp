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
        SetLocalRect(IASRect{0, 0, 200, 300});
        return err;
    }
};

class DialogBase : public ::testing::Test {
protected:
    void SetUp() override {
        platform::reset();
        sSPBasic = host_.basicSuite();
        dlg_ = std::make_unique<Plain>();
        ASSERT_NE(dlg_->Create(nullptr, "Plain", 0, kADMFloatingDialogStyle, 0), nullptr);
    }
    void TearDown() override {
        dlg_.reset();
        sSPBasic = nullptr;
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
    IASRect placed_after_centring(const Rect& screen) {
        platform::setDisplays({screen});
        dlg_->MoveToScreenCenter();
        IASRect r{0, 0, 0, 0};
        sADMDialog->GetBoundsRect(dlg_->dialog, &r);
        return r;
    }

    host::Host host_;
    std::unique_ptr<Plain> dlg_;
};

TEST_F(DialogBase, LabelledControlsTakeTheirTextsBestSizeAndEditFieldsShowTheirValue) {
    ADMItemRef box = dlg_->add_checkbox(IASRect{40, 10, 16, 130}, "Repeat Layers", 528, 1);
    ADMItemRef radio = dlg_->add_radio(IASRect{60, 10, 16, 200}, "Inward", 0, 0);
    ADMItemRef label = dlg_->add_static(IASPoint{80, 20}, "Radius Set by First", 0);
    for (ADMItemRef item : {box, radio, label}) {
        const IASRect r = bounds(item);
        EXPECT_EQ(r.right - r.left, best(item).h);
        EXPECT_EQ(r.bottom - r.top, best(item).v);
    }
    EXPECT_EQ(bounds(box).top, 40);
    EXPECT_EQ(bounds(box).left, 10);
    EXPECT_NE(bounds(box).right - bounds(box).left, 130);
    EXPECT_EQ(bounds(label).left, 20);
    EXPECT_TRUE(sADMItem->GetBooleanValue(box));
    EXPECT_FALSE(sADMItem->GetBooleanValue(radio));

    const IASRect button = bounds(dlg_->add_ctrl(kADMTextPushButtonType, IASRect{150, 200, 20, 80}, "Apply", 3));
    EXPECT_EQ(button.bottom, 170);
    EXPECT_EQ(button.right, 280);
    ADMItemRef edit = dlg_->add_edit(IASRect{10, 10, 16, 60}, 500, 0.1f, 1e7f, 1000.0f);
    EXPECT_FLOAT_EQ(sADMItem->GetFloatValue(edit), 1000.0f);
    char text[64] = {};
    ASSERT_TRUE(sADMItem->GetText(edit, text, sizeof text));
    EXPECT_STREQ(text, "1000");
}

TEST_F(DialogBase, EnablingTwiceChangesNothingTheSecondTime) {
    ADMItemRef a = dlg_->add_checkbox(IASRect{10, 10, 16, 100}, "A", 10, 0);
    ADMItemRef b = dlg_->add_checkbox(IASRect{30, 10, 16, 100}, "B", 11, 0);
    dlg_->Enable(false);  // a new dialog already counts as disabled: nothing is touched
    EXPECT_TRUE(sADMItem->IsEnabled(a));

    dlg_->Enable(true);
    sADMItem->Enable(b, false);  // a rule of the dialog
    dlg_->Enable(true);
    EXPECT_TRUE(dlg_->IsEnabled());
    EXPECT_FALSE(sADMItem->IsEnabled(b));

    dlg_->Enable(false);
    EXPECT_FALSE(sADMItem->IsEnabled(a));
    dlg_->Enable(true);
    EXPECT_TRUE(sADMItem->IsEnabled(a) && sADMItem->IsEnabled(b));

    Plain unbound;  // without a window only the state changes
    EXPECT_EQ(unbound.get_item(10), nullptr);
    unbound.Enable(true);
    EXPECT_TRUE(unbound.IsEnabled());
}

TEST_F(DialogBase, MoveToScreenCenterCentresOrPutsLargeDialogsAtTheOrigin) {
    // Centring on a large screen is held by the cylinder dialog's own window.
    IASRect r = placed_after_centring(Rect{0, 0, 150, 250});
    EXPECT_EQ(r.left, 0);
    EXPECT_EQ(r.top, 0);
    EXPECT_EQ(r.bottom, 200);
    r = placed_after_centring(Rect{100, 100, 1180, 2020});  // no screen holds 0, 0: unchanged
    EXPECT_EQ(r.left, 0);
    EXPECT_EQ(r.top, 0);
}

}  // namespace
