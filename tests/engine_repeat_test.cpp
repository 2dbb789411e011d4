// "Repeat Layers": planned copies in the record list and the copies the host makes, through the
// layer duplication call or, on older hosts, through the duplicate command.
#include "engine_fixture.h"

#include <algorithm>

namespace {

using host::Prop;

class Repeat : public EngineTest {
protected:
    void make_cards(int count) {
        for (int i = 0; i < count; ++i) {
            cards_.push_back(add_av("Card " + std::to_string(i + 1), 400, 300));
        }
        select(cards_);
    }
    void repeat(const std::string& count) {
        set_check(kAssistantRepeatLayersId, true);
        type(kAssistantRepeatCountId, count);
    }
    std::vector<host::Id> copies_in_layer_order() {
        std::vector<host::Id> out;
        for (const host::Layer& l : comp().layers) {
            if (l.copy_of != 0) {
                out.push_back(l.id);
            }
        }
        return out;
    }
    host::Vec3 position(host::Id id) { return prop(id, Prop::position).valueAt(comp().time); }

    std::vector<host::Id> cards_;
};

TEST_F(Repeat, OffLeavesTheListAndTheCompositionAlone) {
    make_cards(3);
    open_dialog();
    type(kAssistantRepeatCountId, "4");  // ignored while "Repeat Layers" is off
    press_apply();
    EXPECT_EQ(dlg().layout_input.size(), 3u);
    EXPECT_EQ(comp().layers.size(), 3u);
}

TEST_F(Repeat, CountOneWithFourLayersPlansFourCopiesAndMakesThem) {
    make_cards(4);
    open_dialog();
    repeat("1");
    press_apply();

    EXPECT_EQ(dlg().layout_input, (std::vector<A_long>{0, 1, 2, 3, 0, 1, 2, 3}));
    EXPECT_EQ(dlg().layout_clones, (std::vector<bool>{false, false, false, false, true, true, true, true}));
    ASSERT_EQ(comp().layers.size(), 8u);
    const std::vector<host::Id> copies = copies_in_layer_order();
    ASSERT_EQ(copies.size(), 4u);
    // The copy of card k was written with the place of record 4 + k.
    for (int k = 0; k < 4; ++k) {
        auto copy = std::find_if(copies.begin(), copies.end(),
                                 [&](host::Id id) { return layer(id).copy_of == cards_[k]; });
        ASSERT_NE(copy, copies.end()) << "no copy of card " << k;
        EXPECT_EQ(position(*copy), vec(100.0 * (4 + k), 0, 500));
        EXPECT_EQ(position(cards_[k]), vec(100.0 * k, 0, 500));
    }
    // The records of the copies now name the copies.
    auto record = dlg().records().begin();
    std::advance(record, 4);
    const host::Id copy = host().layerId(record->layer);
    ASSERT_NE(copy, 0u);
    EXPECT_EQ(layer(copy).copy_of, cards_[0]);
}

TEST_F(Repeat, EveryRunRepeatsTheFirstRunsRandomOrder) {
    make_cards(5);
    open_dialog();
    set_check(kAssistantRandomOrderId, true);
    repeat("3");
    press_apply();
    const std::vector<A_long>& order = dlg().layout_input;
    ASSERT_EQ(order.size(), 20u);
    const std::vector<A_long> first(order.begin(), order.begin() + 5);
    for (int run = 1; run < 4; ++run) {
        EXPECT_EQ(std::vector<A_long>(order.begin() + 5 * run, order.begin() + 5 * (run + 1)), first) << run;
    }
    EXPECT_EQ(comp().layers.size(), 20u);
}

TEST_F(Repeat, CountIsReadFromTheTypedText) {
    make_cards(2);
    open_dialog();
    repeat("3.9");
    press_apply();
    EXPECT_EQ(dlg().layout_input.size(), 8u);  // 2 + 3 runs of 2
}

class RepeatWithoutLayerSuite10 : public Repeat {
protected:
    void SetUp() override {
        Repeat::SetUp();
        host().withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion10);
    }
};

TEST_F(RepeatWithoutLayerSuite10, CopiesComeFromTheDuplicateCommand) {
    make_cards(3);
    open_dialog();
    repeat("1");
    press_apply();
    EXPECT_EQ(host().callCount("AEGP_DoCommand"), 3);
    EXPECT_EQ(host().callCount("AEGP_DuplicateLayer"), 0);
    ASSERT_EQ(comp().layers.size(), 6u);
    // The host puts each copy above its original; nothing moves it.
    for (std::size_t i = 0; i < 6; i += 2) {
        EXPECT_EQ(comp().layers[i].copy_of, comp().layers[i + 1].id);
    }
    // The user's selection is not restored: the last command's copy stays selected.
    ASSERT_EQ(comp().selection.size(), 1u);
    EXPECT_EQ(layer(comp().selection[0]).copy_of, cards_[2]);
    EXPECT_TRUE(host().allSuitesReleased());
    EXPECT_EQ(host().openCollections(), 1u);  // the dialog's own
}

TEST_F(RepeatWithoutLayerSuite10, RepeatSequentiallyMovesEachCopyToTheEnd) {
    make_cards(3);
    open_dialog();
    repeat("2");
    set_check(kAssistantRepeatSequentiallyId, true);
    press_apply();
    ASSERT_EQ(comp().layers.size(), 9u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(comp().layers[i].id, cards_[i]);
    }
    // In the order they were made: run 1 then run 2, each in record order.
    for (std::size_t i = 3; i < 9; ++i) {
        EXPECT_EQ(comp().layers[i].copy_of, cards_[(i - 3) % 3]) << "layer " << i;
        EXPECT_EQ(position(comp().layers[i].id), vec(100.0 * i, 0, 500));
    }
}

TEST_F(Repeat, ACopyTheHostRefusesIsSkippedAndTheRestWritten) {
    make_cards(3);
    open_dialog();
    repeat("1");
    // The second planned copy names a layer the host does not know, so it cannot be copied.
    dlg().after_layout = [](std::list<AssistantDlg::LayerInfo>& records) {
        auto record = records.begin();
        std::advance(record, 4);
        record->layer = reinterpret_cast<AEGP_LayerH>(std::uintptr_t{0x10});
    };
    press_apply();
    ASSERT_EQ(comp().layers.size(), 5u);
    const std::vector<host::Id> copies = copies_in_layer_order();
    ASSERT_EQ(copies.size(), 2u);
    for (host::Id copy : copies) {
        EXPECT_NE(layer(copy).copy_of, cards_[1]);
        const double expected = layer(copy).copy_of == cards_[0] ? 300 : 500;
        EXPECT_EQ(position(copy), vec(expected, 0, 500));
    }
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(position(cards_[k]), vec(100.0 * k, 0, 500));
    }
    EXPECT_TRUE(host().undoBalanced());
}

TEST_F(RepeatWithoutLayerSuite10, AFailingCommandMakesNoCopyAndDisposesItsCollection) {
    make_cards(2);
    open_dialog();
    repeat("1");
    host().failFunction("AEGP_DoCommand", A_Err_GENERIC);
    press_apply();
    EXPECT_EQ(comp().layers.size(), 2u);
    EXPECT_EQ(position(cards_[1]), vec(100, 0, 500));
    EXPECT_EQ(host().openCollections(), 1u);
    EXPECT_EQ(host().callCount("AEGP_NewCollection"), 2);
}

}  // namespace
