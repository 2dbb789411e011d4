// "Apply" from the dialog's button: one undo step, the values and keyframes written, the
// composition-centre offset, and undo.
#include "engine_fixture.h"

namespace {

using host::Prop;

class Apply : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        cards_ = add_cards(3);
        select({cards_[2], cards_[0], cards_[1]});
        open_dialog();
    }
    std::size_t keys(host::Id id, Prop which) { return prop(id, which).keys.size(); }

    std::vector<host::Id> cards_;
};

TEST_F(Apply, EachPressIsOneClosedUndoGroupNamedAfterTheAssistant) {
    press_apply();
    press(kTestAssistantOkId);
    const platform::Outcome other = platform::click(control(kAssistantReverseOrderId));
    EXPECT_EQ(other.eventStatus, kADMEventNotHandled);  // only passed on to default handling
    ASSERT_EQ(host().undoGroups().size(), 2u);
    for (const host::UndoGroup& group : host().undoGroups()) {
        EXPECT_EQ(group.name, kTestAssistantName);
        EXPECT_TRUE(group.closed);
    }
    EXPECT_TRUE(host().undoBalanced());
    EXPECT_EQ(dlg().applies, 2);
    EXPECT_EQ(comp().layers.size(), 3u);               // "Repeat Layers" is off
    EXPECT_EQ(position(cards_[2]), vec(200, 0, 500));  // layer order, not selection order
}

TEST_F(Apply, SelectionsWithoutArrangeableLayersWriteNothing) {
    const host::Id flat = add_av("Flat", 100, 100, false);
    select({flat});
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_TRUE(dlg().layers.empty());
    EXPECT_EQ(dlg().applies, 1);
    select({});
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_EQ(dlg().applies, 1);  // no items: the layout is not even asked
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 0);
    EXPECT_EQ(host().undoGroups().size(), 2u);
    EXPECT_TRUE(host().undoBalanced());
}

TEST_F(Apply, KeysGoExactlyOnTheCheckedPropertiesAtTheCurrentTime) {
    set_check(kAssistantKeyOrientationId, false);
    set_check(kAssistantKeyScaleId, false);
    prop(cards_[0], Prop::scale).value = vec(50, 60, 70);
    press_apply();
    for (host::Id card : cards_) {
        ASSERT_EQ(keys(card, Prop::position), 1u);
        EXPECT_EQ(host::compareTimes(prop(card, Prop::position).keys[0].time, A_Time{15, 30}), 0);
        EXPECT_EQ(keys(card, Prop::orientation) + keys(card, Prop::scale) + keys(card, Prop::rotate_x), 0u);
    }
    EXPECT_EQ(prop(cards_[0], Prop::scale).value, vec(50, 60, 70));

    set_check(kAssistantKeyOrientationId, true);
    set_check(kAssistantKeyScaleId, true);
    host().resetCallCounts();
    press_apply();
    EXPECT_EQ(host().callCount("AEGP_InsertKeyframe"), 9);  // never on the rotations
    EXPECT_EQ(keys(cards_[1], Prop::orientation), 1u);
    EXPECT_EQ(keys(cards_[1], Prop::rotate_y), 0u);
}

TEST_F(Apply, TurningLayersFoldsRotationsIntoOrientation) {
    prop(cards_[0], Prop::orientation).value = vec(10, 0, 0);
    prop(cards_[0], Prop::rotate_x).value = vec(20, 0, 0);
    prop(cards_[0], Prop::rotate_z).value = vec(-5, 0, 0);
    set_check(kAssistantKeyOrientationId, false);
    press_apply();
    EXPECT_EQ(prop(cards_[0], Prop::rotate_x).value.x, 0);
    EXPECT_EQ(prop(cards_[0], Prop::rotate_z).value.x, 0);
    EXPECT_EQ(prop(cards_[0], Prop::orientation).value, vec(30, 0, -5));
}

TEST_F(Apply, AnAssistantThatDoesNotTurnLeavesRotationsAndOrientationAlone) {
    prop(cards_[0], Prop::orientation).value = vec(10, 0, 0);
    prop(cards_[0], Prop::rotate_x).value = vec(20, 0, 0);
    dlg().turns_layers = false;
    press_apply();
    EXPECT_EQ(prop(cards_[0], Prop::rotate_x).value.x, 20);
    EXPECT_EQ(prop(cards_[0], Prop::orientation).value, vec(10, 0, 0));
    EXPECT_EQ(keys(cards_[0], Prop::orientation), 0u);
    EXPECT_EQ(position(cards_[0]), vec(0, 0, 500));
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 6);  // position and scale of three cards
}

TEST_F(Apply, UseCompCenterOffsetsTheWrittenPositionsOnly) {
    set_check(kAssistantUseCompCenterId, true);
    press_apply();
    EXPECT_EQ(position(cards_[0]), vec(960, 540, 500));
    EXPECT_EQ(position(cards_[1]), vec(1060, 540, 500));
    EXPECT_DOUBLE_EQ(dlg().layers.front().position.val.three_d.x, 0);
}

TEST_F(Apply, OneUndoRestoresEverythingAndRemovesEveryCopy) {
    prop(cards_[1], Prop::orientation).value = vec(10, 20, 30);
    prop(cards_[1], Prop::rotate_y).value = vec(7, 0, 0);
    prop(cards_[1], Prop::position).value = vec(5, 6, 7);
    repeat("2");
    press_apply();
    ASSERT_EQ(comp().layers.size(), 9u);
    ASSERT_TRUE(host().undo());
    ASSERT_EQ(comp().layers.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(comp().layers[i].id, cards_[i]);
        for (const host::Property& p : comp().layers[i].props) {
            EXPECT_TRUE(p.keys.empty());
        }
    }
    EXPECT_EQ(prop(cards_[1], Prop::orientation).value, vec(10, 20, 30));
    EXPECT_EQ(prop(cards_[1], Prop::rotate_y).value.x, 7);
    EXPECT_EQ(prop(cards_[1], Prop::position).value, vec(5, 6, 7));
}

}  // namespace
