// A whole session as a user has it: load, select, open, type, click, Apply, undo. What unloading
// leaves behind is the fault sweep's to check, after every moment it sweeps.
#include "plugin_fixture.h"

namespace {

class Session : public PluginTest {};

host::Vec3 value(const host::Host& h, host::Id layer, host::Prop prop) {
    return h.project().layer(layer)->prop(prop).value;
}

TEST_F(Session, FourCardsDistributedEvenlyThenUndone) {
    load(false);
    host_->project().layer(cards_[2])->prop(host::Prop::rotate_x).value.x = 20;
    const host::Vec3 before = value(*host_, cards_[0], host::Prop::position);

    ASSERT_EQ(A_Err_NONE, host_->chooseMenuItem(kMenuText));
    host_->idle();
    ASSERT_TRUE(platform::typeText(control(EDIT_DIM_X), "1200").ok());
    ASSERT_TRUE(platform::typeText(control(EDIT_DIM_Z), "800").ok());
    ASSERT_TRUE(platform::click(control(CHECK_DISTRIBUTE_EVENLY)).ok());
    ASSERT_TRUE(platform::click(control(BUTTON_APPLY)).ok());
    host_->idle();

    // Two rows of two, half a turn apart, at the bottom and top of the 2000-high cylinder, around the
    // composition's centre (the rows and faces themselves are the layout's tests): the typed box
    // reached the layout, and the rotations were folded into the orientation.
    EXPECT_EQ((host::Vec3{960, 1540, -400}), value(*host_, cards_[0], host::Prop::position));
    EXPECT_EQ((host::Vec3{960, -460, -400}), value(*host_, cards_[2], host::Prop::position));
    EXPECT_EQ(400, value(*host_, cards_[3], host::Prop::position).z);
    EXPECT_EQ(0, value(*host_, cards_[2], host::Prop::rotate_x).x);

    ASSERT_EQ(1u, host_->undoGroups().size());
    EXPECT_EQ("Orbisett", host_->undoGroups()[0].name);
    EXPECT_TRUE(host_->undoBalanced());

    ASSERT_TRUE(host_->undo());
    EXPECT_EQ(before, value(*host_, cards_[0], host::Prop::position));
    EXPECT_EQ(20, value(*host_, cards_[2], host::Prop::rotate_x).x);
}

TEST_F(Session, KeysOnPositionOnlyGiveOneKeyPerLayerAtTheCurrentTime) {
    host_->project().comp(comp_)->time = A_Time{15, 30};
    load(false);
    command();
    ASSERT_TRUE(platform::click(control(CHECK_KEY_POSITION)).ok());
    ASSERT_TRUE(platform::click(control(BUTTON_APPLY)).ok());

    for (host::Id card : cards_) {
        const host::Layer* layer = host_->project().layer(card);
        ASSERT_EQ(1u, layer->prop(host::Prop::position).keys.size());
        EXPECT_EQ(0, host::compareTimes(A_Time{15, 30}, layer->prop(host::Prop::position).keys[0].time));
        EXPECT_TRUE(layer->prop(host::Prop::orientation).keys.empty());
        EXPECT_TRUE(layer->prop(host::Prop::scale).keys.empty());
    }
}

}  // namespace
