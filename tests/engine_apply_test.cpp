// "Apply" from the dialog's button: one undo step, the values and keyframes written, the
// composition-centre offset, and undo.
#include "engine_fixture.h"

namespace {

using host::Prop;

class Apply : public EngineTest {
protected:
    // Three 3D cards, selected out of layer order.
    void make_cards() {
        for (int i = 0; i < 3; ++i) {
            cards_.push_back(add_av("Card " + std::to_string(i + 1), 400, 300));
        }
        select({cards_[2], cards_[0], cards_[1]});
    }
    std::size_t keys(host::Id id, Prop which) { return prop(id, which).keys.size(); }
    host::Vec3 value(host::Id id, Prop which) { return prop(id, which).valueAt(comp().time); }

    std::vector<host::Id> cards_;
};

TEST_F(Apply, EachPressIsExactlyOneClosedUndoGroupNamedAfterTheAssistant) {
    make_cards();
    open_dialog();
    press_apply();
    press_apply();
    ASSERT_EQ(host().undoGroups().size(), 2u);
    for (const host::UndoGroup& group : host().undoGroups()) {
        EXPECT_EQ(group.name, kTestAssistantName);
        EXPECT_EQ(group.depth, 0);
        EXPECT_TRUE(group.closed);
    }
    EXPECT_TRUE(host().undoBalanced());
    EXPECT_EQ(dlg().applies, 2);
}

TEST_F(Apply, PositionsFollowTheOrderedListAndTheRecordsKeepTheirValues) {
    make_cards();
    open_dialog();
    press_apply();
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(value(cards_[k], Prop::position), vec(100.0 * k, 0, 500)) << "card " << k;
    }
    set_check(kAssistantReverseOrderId, true);
    press_apply();
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(value(cards_[2 - k], Prop::position), vec(100.0 * k, 0, 500)) << "card " << k;
    }
}

TEST_F(Apply, KeysGoExactlyOnTheCheckedPropertiesAtTheCurrentTime) {
    make_cards();
    open_dialog();
    set_check(kAssistantKeyOrientationId, false);
    set_check(kAssistantKeyScaleId, false);
    prop(cards_[0], Prop::scale).value = vec(50, 60, 70);
    press_apply();
    for (host::Id card : cards_) {
        ASSERT_EQ(keys(card, Prop::position), 1u);
        EXPECT_EQ(host::compareTimes(prop(card, Prop::position).keys[0].time, A_Time{15, 30}), 0);
        EXPECT_EQ(keys(card, Prop::orientation), 0u);
        EXPECT_EQ(keys(card, Prop::scale), 0u);
        EXPECT_EQ(keys(card, Prop::rotate_x), 0u);
    }
    EXPECT_EQ(prop(cards_[0], Prop::scale).value, vec(50, 60, 70));
    EXPECT_EQ(prop(cards_[0], Prop::position).keys[0].value, vec(0, 0, 500));
}

TEST_F(Apply, AllKeyBoxesGiveOneKeyPerPropertyAndNoneOnRotations) {
    make_cards();
    open_dialog();
    press_apply();
    for (host::Id card : cards_) {
        EXPECT_EQ(keys(card, Prop::position), 1u);
        EXPECT_EQ(keys(card, Prop::orientation), 1u);
        EXPECT_EQ(keys(card, Prop::scale), 1u);
        EXPECT_EQ(keys(card, Prop::rotate_x), 0u);
        EXPECT_EQ(keys(card, Prop::rotate_y), 0u);
        EXPECT_EQ(keys(card, Prop::rotate_z), 0u);
    }
    EXPECT_EQ(host().callCount("AEGP_InsertKeyframe"), 9);
}

TEST_F(Apply, TurningLayersFoldsRotationsIntoOrientation) {
    make_cards();
    prop(cards_[0], Prop::orientation).value = vec(10, 0, 0);
    prop(cards_[0], Prop::rotate_x).value = vec(20, 0, 0);
    prop(cards_[0], Prop::rotate_z).value = vec(-5, 0, 0);
    open_dialog();
    set_check(kAssistantKeyOrientationId, false);
    press_apply();
    EXPECT_EQ(prop(cards_[0], Prop::rotate_x).value.x, 0);
    EXPECT_EQ(prop(cards_[0], Prop::rotate_z).value.x, 0);
    EXPECT_EQ(prop(cards_[0], Prop::orientation).value, vec(30, 0, -5));
}

TEST_F(Apply, AnAssistantThatDoesNotTurnLeavesRotationsAndOrientationAlone) {
    make_cards();
    prop(cards_[0], Prop::orientation).value = vec(10, 0, 0);
    prop(cards_[0], Prop::rotate_x).value = vec(20, 0, 0);
    open_dialog();
    dlg().turns_layers = false;
    press_apply();
    EXPECT_EQ(prop(cards_[0], Prop::rotate_x).value.x, 20);
    EXPECT_EQ(prop(cards_[0], Prop::orientation).value, vec(10, 0, 0));
    EXPECT_EQ(keys(cards_[0], Prop::orientation), 0u);
    EXPECT_EQ(value(cards_[0], Prop::position), vec(0, 0, 500));
    EXPECT_EQ(keys(cards_[0], Prop::scale), 1u);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 6);  // position and scale of three cards
}

TEST_F(Apply, UseCompCenterOffsetsWrittenPositionsOnly) {
    make_cards();
    open_dialog();
    set_check(kAssistantUseCompCenterId, true);
    press_apply();
    EXPECT_EQ(value(cards_[0], Prop::position), vec(960, 540, 500));
    EXPECT_EQ(value(cards_[1], Prop::position), vec(1060, 540, 500));
    EXPECT_DOUBLE_EQ(dlg().records().front().position.val.three_d.x, 0);

    set_check(kAssistantUseCompCenterId, false);
    press_apply();
    EXPECT_EQ(value(cards_[0], Prop::position), vec(0, 0, 500));
}

TEST_F(Apply, OkButtonAlsoAppliesOtherControlsDoNot) {
    make_cards();
    open_dialog();
    press(kTestAssistantOkId);
    EXPECT_EQ(dlg().applies, 1);
    const platform::Outcome outcome = platform::click(control(kAssistantReverseOrderId));
    EXPECT_EQ(dlg().applies, 1);
    EXPECT_EQ(outcome.eventStatus, kADMEventNotHandled);  // passed on to default handling
    EXPECT_EQ(host().undoGroups().size(), 1u);
}

TEST_F(Apply, OneUndoRestoresEverythingAndRemovesEveryCopy) {
    make_cards();
    prop(cards_[1], Prop::orientation).value = vec(10, 20, 30);
    prop(cards_[1], Prop::rotate_y).value = vec(7, 0, 0);
    prop(cards_[1], Prop::position).value = vec(5, 6, 7);
    open_dialog();
    set_check(kAssistantRepeatLayersId, true);
    type(kAssistantRepeatCountId, "2");
    press_apply();
    ASSERT_EQ(comp().layers.size(), 9u);

    ASSERT_TRUE(host().undo());
    ASSERT_EQ(comp().layers.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(comp().layers[i].id, cards_[i]);
        for (std::size_t p = 0; p < host::kPropCount; ++p) {
            EXPECT_TRUE(comp().layers[i].props[p].keys.empty());
        }
    }
    EXPECT_EQ(prop(cards_[1], Prop::orientation).value, vec(10, 20, 30));
    EXPECT_EQ(prop(cards_[1], Prop::rotate_y).value.x, 7);
    EXPECT_EQ(prop(cards_[1], Prop::position).value, vec(5, 6, 7));
}

TEST_F(Apply, SelectionOfOnly2DLayersWritesNothing) {
    const host::Id flat = add_av("Flat", 100, 100, false);
    prop(flat, Prop::position).value = vec(1, 2, 3);
    select({flat});
    open_dialog();
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_TRUE(dlg().records().empty());
    EXPECT_EQ(dlg().applies, 1);
    EXPECT_EQ(host().callCount("AEGP_SetStreamValue"), 0);
    EXPECT_EQ(prop(flat, Prop::position).value, vec(1, 2, 3));
    EXPECT_EQ(host().undoGroups().size(), 1u);
}

TEST_F(Apply, EmptySelectionOpensAndClosesAnEmptyGroup) {
    make_cards();
    select({});
    open_dialog();
    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_EQ(dlg().applies, 0);
    ASSERT_EQ(host().undoGroups().size(), 1u);
    EXPECT_TRUE(host().undoGroups()[0].closed);
}

}  // namespace
