// The snapshot of the selection: which layers get records, in which order, what they hold, and
// the selection test the shell enables the dialog with.
#include "engine_fixture.h"

#include "math/random.h"

namespace {

using host::Prop;

class Snapshot : public EngineTest {
protected:
    std::vector<A_long> indices() {
        std::vector<A_long> out;
        for (const auto& record : dlg().layers) {
            out.push_back(record.index);
        }
        return out;
    }
};

TEST_F(Snapshot, Selected3DFootageTextAndShapeLayersInSelectionOrderThenSortedOrReversed) {
    const host::Id av = add_av("Card", 400, 300);
    const host::Id flat = add_av("Flat", 400, 300, false);
    const host::Id text = add_layer(AEGP_ObjectType_TEXT);
    const host::Id shape = add_layer(AEGP_ObjectType_VECTOR);
    const host::Id camera = add_layer(AEGP_ObjectType_CAMERA);
    const host::Id light = add_layer(AEGP_ObjectType_LIGHT);
    add_av("Unselected", 400, 300);
    select({shape, camera, av, flat, light, text});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    EXPECT_EQ(indices(), (std::vector<A_long>{3, 0, 2}));
    EXPECT_EQ(dlg().layers.front().layer, host().layerHandle(shape));
    dlg().order_layers();
    EXPECT_EQ(indices(), (std::vector<A_long>{0, 2, 3}));
    set_check(kAssistantReverseOrderId, true);
    dlg().order_layers();
    EXPECT_EQ(indices(), (std::vector<A_long>{3, 2, 0}));
}

TEST_F(Snapshot, RandomOrderDrawsFromTheGeneratorAfterTheReversal) {
    select(add_cards(8));
    open_dialog();
    set_check(kAssistantReverseOrderId, true);
    set_check(kAssistantRandomOrderId, true);
    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    math::SetRand(12345);
    dlg().order_layers();
    // Each draw of the generator takes one of the layers left from the reversed order 7, 6, ..., 0.
    EXPECT_EQ(indices(), (std::vector<A_long>{5, 7, 1, 2, 3, 0, 6, 4}));
}

TEST_F(Snapshot, RecordsHoldTruncatedSizesEffectiveOrientationAndValuesAtTheCurrentTime) {
    const host::Id third = add_av("Third", 1000, 600);
    prop(third, Prop::scale).value = vec(33.3, 33.3, 100);
    prop(third, Prop::orientation).value = vec(10, 5, -4);
    prop(third, Prop::rotate_x).value = vec(20, 0, 0);
    prop(third, Prop::rotate_y).value = vec(-15, 0, 0);
    prop(third, Prop::rotate_z).value = vec(90, 0, 0);
    prop(third, Prop::position).insertKey(A_Time{0, 30}, vec(0, 0, 0));
    prop(third, Prop::position).insertKey(A_Time{30, 30}, vec(200, 100, 40));
    const host::Id half = add_av("Half", 1000, 600);
    prop(half, Prop::scale).value = vec(50, 20, 100);
    select({third, half});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    ASSERT_EQ(dlg().layers.size(), 2u);
    const auto& r = dlg().layers.front();
    EXPECT_EQ(r.dims.x, 1000);
    EXPECT_EQ(r.dims.y, 600);
    EXPECT_EQ(r.size.x, 332);
    EXPECT_EQ(r.size.y, 199);
    EXPECT_EQ(dlg().layers.back().size.x, 500);
    EXPECT_EQ(dlg().layers.back().size.y, 120);  // Scale Y, not X, sizes the height
    EXPECT_DOUBLE_EQ(r.orientation.val.three_d.x, 30);
    EXPECT_DOUBLE_EQ(r.orientation.val.three_d.y, -10);
    EXPECT_DOUBLE_EQ(r.orientation.val.three_d.z, 86);
    EXPECT_EQ(host::compareTimes(r.time, A_Time{15, 30}), 0);
    EXPECT_DOUBLE_EQ(r.position.val.three_d.x, 100);
    EXPECT_DOUBLE_EQ(r.position.val.three_d.z, 20);
    EXPECT_FALSE(r.clone);
}

TEST_F(Snapshot, EqualAreasKeepTheFirstInHandleOrder) {
    const host::Id wide = add_av("Wide", 200, 100);
    const host::Id tall = add_av("Tall", 100, 200);
    select({tall, wide, add_av("Smaller", 150, 100)});
    open_dialog();
    ASSERT_EQ(dlg().save_selection(), A_Err_NONE);
    const bool wide_first = std::less<AEGP_LayerH>()(host().layerHandle(wide), host().layerHandle(tall));
    EXPECT_EQ(dlg().max_width, wide_first ? 200 : 100);
    EXPECT_EQ(dlg().max_height, wide_first ? 100 : 200);
    EXPECT_EQ(dlg().comp_width, 1920);
}

TEST_F(Snapshot, WithoutAnActiveCompositionNothingHappens) {
    const host::Id card = add_av("Card", 100, 100);
    prop(card, Prop::position).value = vec(1, 2, 3);
    select({card});
    open_dialog();
    for (host::Id active : {host::Id{0}, layer(card).source}) {
        project().active = active;
        EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
        EXPECT_EQ(dlg().collection, nullptr);
        EXPECT_FALSE(dlg().isCurSelectionContains(kArrangeableLayersMask));
    }
    EXPECT_EQ(dlg().applies, 0);
    EXPECT_EQ(prop(card, Prop::position).value, vec(1, 2, 3));
    EXPECT_TRUE(host().undoBalanced());
}

TEST_F(Snapshot, SelectionTestCountsLayersByTypeAndDepth) {
    const host::Id camera = add_layer(AEGP_ObjectType_CAMERA);
    const host::Id flat_text = add_layer(AEGP_ObjectType_TEXT, false);
    const host::Id text = add_layer(AEGP_ObjectType_TEXT);
    const host::Id flat_camera = add_layer(AEGP_ObjectType_CAMERA, false);
    open_dialog();
    select({camera, flat_text});
    EXPECT_FALSE(dlg().isCurSelectionContains(kArrangeableLayersMask));
    select({text});
    EXPECT_TRUE(dlg().isCurSelectionContains(kArrangeableLayersMask));
    select({flat_camera});  // cameras and lights count whatever their depth
    EXPECT_TRUE(dlg().isCurSelectionContains(1u << AEGP_ObjectType_CAMERA));
    EXPECT_FALSE(dlg().isCurSelectionContains(1u << AEGP_ObjectType_LIGHT));
}

}  // namespace
