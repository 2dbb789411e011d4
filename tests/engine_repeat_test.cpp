// "Repeat Layers": planned copies in the record list and the copies the host makes, through the
// layer duplication call or, on older hosts, through the duplicate command.
#include "engine_fixture.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

class Repeat : public EngineTest {};

TEST_F(Repeat, CountOneWithFourLayersMakesFourCopiesPlacedLikeTheirRecords) {
    const std::vector<host::Id> cards = add_cards(4);
    select(cards);
    open_dialog();
    repeat("1");
    press_apply();
    EXPECT_EQ(dlg().layout_input, (std::vector<A_long>{0, 1, 2, 3, 0, 1, 2, 3}));
    EXPECT_EQ(dlg().layout_clones, (std::vector<bool>{false, false, false, false, true, true, true, true}));
    ASSERT_EQ(copies().size(), 4u);
    for (host::Id copy : copies()) {
        const auto k = std::find(cards.begin(), cards.end(), layer(copy).copy_of) - cards.begin();
        ASSERT_LT(k, 4);
        EXPECT_EQ(position(copy), vec(100.0 * (4 + k), 0, 500));
        EXPECT_EQ(position(cards[k]), vec(100.0 * k, 0, 500));
    }
    EXPECT_EQ(layer(host().layerId(dlg().layers.back().layer)).copy_of, cards[3]);
}

TEST_F(Repeat, EveryRunRepeatsTheFirstRunsRandomOrder) {
    select(add_cards(5));
    open_dialog();
    set_check(kAssistantRandomOrderId, true);
    repeat("3.9");  // read as 3
    press_apply();
    const std::vector<A_long>& order = dlg().layout_input;
    ASSERT_EQ(order.size(), 20u);
    for (int run = 1; run < 4; ++run) {
        EXPECT_TRUE(std::equal(order.begin(), order.begin() + 5, order.begin() + 5 * run)) << run;
    }
    EXPECT_EQ(comp().layers.size(), 20u);
}

TEST_F(Repeat, ACopyTheHostRefusesIsSkippedAndTheRestWritten) {
    const std::vector<host::Id> cards = add_cards(3);
    select(cards);
    open_dialog();
    repeat("1");
    dlg().after_layout = [](std::list<AssistantDlg::LayerInfo>& records) {
        std::next(records.begin(), 4)->layer = reinterpret_cast<AEGP_LayerH>(std::uintptr_t{0x10});
    };
    press_apply();
    ASSERT_EQ(copies().size(), 2u);
    for (host::Id copy : copies()) {
        ASSERT_NE(layer(copy).copy_of, cards[1]);
        EXPECT_EQ(position(copy).x, layer(copy).copy_of == cards[0] ? 300 : 500);
    }
    EXPECT_EQ(position(cards[2]), vec(200, 0, 500));
    EXPECT_TRUE(host().undoBalanced());
}

class RepeatWithoutLayerSuite10 : public Repeat {
protected:
    void SetUp() override {
        Repeat::SetUp();
        host().withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion10);
        cards_ = add_cards(3);
        select(cards_);
        open_dialog();
    }
    std::vector<host::Id> cards_;
};

TEST_F(RepeatWithoutLayerSuite10, CopiesComeFromTheDuplicateCommandAboveTheirOriginals) {
    repeat("1");
    press_apply();
    EXPECT_EQ(host().callCount("AEGP_DoCommand"), 3);
    ASSERT_EQ(comp().layers.size(), 6u);
    for (std::size_t i = 0; i < 6; i += 2) {
        EXPECT_EQ(comp().layers[i].copy_of, comp().layers[i + 1].id);
    }
    // The user's selection is not restored: the last command's copy stays selected.
    ASSERT_EQ(comp().selection.size(), 1u);
    EXPECT_EQ(layer(comp().selection[0]).copy_of, cards_[2]);
}

TEST_F(RepeatWithoutLayerSuite10, RepeatSequentiallyMovesEachCopyToTheEndAsItIsMade) {
    repeat("2");
    set_check(kAssistantRepeatSequentiallyId, true);
    press_apply();
    ASSERT_EQ(comp().layers.size(), 9u);
    for (std::size_t i = 0; i < 9; ++i) {
        const host::Layer& l = comp().layers[i];
        EXPECT_EQ(i < 3 ? l.id : l.copy_of, cards_[i % 3]) << i;
        EXPECT_EQ(position(l.id), vec(100.0 * i, 0, 500)) << i;
    }
}

}  // namespace
