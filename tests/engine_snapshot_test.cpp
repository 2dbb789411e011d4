// The snapshot of the selection: which layers get records, in which order, and what the records
// hold; the selection test the shell enables the dialog with.
#include "engine_fixture.h"

#include "math/random.h"

#include <algorithm>
#include <cstdint>
#include <functional>

namespace {

using host::Prop;

class Snapshot : public EngineTest {
protected:
    std::vector<A_long> record_indices() {
        std::vector<A_long> out;
        for (const auto& record : dlg().records()) {
            out.push_back(record.index);
        }
        return out;
    }
    const AssistantDlg::LayerInfo& only_record() {
        EXPECT_EQ(dlg().records().size(), 1u);
        return dlg().records().front();
    }
};

TEST_F(Snapshot, OnlySelected3DFootageTextAndShapeLayersGetRecordsInSelectionOrder) {
    const host::Id av = add_av("Card", 400, 300);
    const host::Id flat = add_av("Flat", 400, 300, /*three_d=*/false);
    const host::Id text = add_layer("Title", AEGP_ObjectType_TEXT);
    const host::Id shape = add_layer("Shape", AEGP_ObjectType_VECTOR);
    const host::Id camera = add_layer("Camera", AEGP_ObjectType_CAMERA);
    const host::Id light = add_layer("Light", AEGP_ObjectType_LIGHT);
    add_av("Unselected", 400, 300);
    select({shape, camera, av, flat, light, text});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    EXPECT_EQ(record_indices(), (std::vector<A_long>{index_of(shape), index_of(av), index_of(text)}));
    for (const auto& record : dlg().records()) {
        EXPECT_FALSE(record.clone);
        EXPECT_EQ(record.layer, handle(project().comp(comp_)->layers[record.index].id));
    }
}

TEST_F(Snapshot, RecordsAreSortedByLayerIndexThenReversedOnRequest) {
    const host::Id a = add_av("A", 100, 100);
    const host::Id b = add_av("B", 100, 100);
    const host::Id c = add_av("C", 100, 100);
    select({c, a, b});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    EXPECT_EQ(record_indices(), (std::vector<A_long>{2, 0, 1}));
    dlg().order_records();
    EXPECT_EQ(record_indices(), (std::vector<A_long>{0, 1, 2}));

    set_check(kAssistantReverseOrderId, true);
    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    dlg().order_records();
    EXPECT_EQ(record_indices(), (std::vector<A_long>{2, 1, 0}));
}

TEST_F(Snapshot, RandomOrderIsAPermutationDrivenByTheGenerator) {
    std::vector<host::Id> ids;
    for (int i = 0; i < 8; ++i) {
        ids.push_back(add_av("L" + std::to_string(i), 100, 100));
    }
    select(ids);
    open_dialog();
    set_check(kAssistantReverseOrderId, true);  // overridden by the shuffle
    set_check(kAssistantRandomOrderId, true);

    math::SetRand(12345);
    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    dlg().order_records();
    const std::vector<A_long> first = record_indices();

    // The same seed gives the same order; the order is a permutation of the selection.
    math::SetRand(12345);
    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    dlg().order_records();
    EXPECT_EQ(record_indices(), first);
    std::vector<A_long> sorted = first;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(sorted, (std::vector<A_long>{0, 1, 2, 3, 4, 5, 6, 7}));

    // Replays the documented draw: k = LRand() mod (records left), from index order reversed.
    math::SetRand(12345);
    std::vector<A_long> left{7, 6, 5, 4, 3, 2, 1, 0};
    std::vector<A_long> expected;
    while (!left.empty()) {
        const auto k = static_cast<std::uint32_t>(math::LRand()) % static_cast<std::uint32_t>(left.size());
        expected.push_back(left[k]);
        left.erase(left.begin() + k);
    }
    EXPECT_EQ(first, expected);
}

TEST_F(Snapshot, DisplayedSizeIsSourceSizeTimesScaleTruncated) {
    const host::Id third = add_av("Third", 1000, 600);
    prop(third, Prop::scale).value = vec(33.3, 33.3, 100);
    const host::Id half = add_av("Half", 1000, 600);
    prop(half, Prop::scale).value = vec(50, 50, 100);
    select({third, half});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    ASSERT_EQ(dlg().records().size(), 2u);
    const auto& r_third = dlg().records().front();
    const auto& r_half = dlg().records().back();
    EXPECT_EQ(r_third.dims.x, 1000);
    EXPECT_EQ(r_third.dims.y, 600);
    EXPECT_EQ(r_third.size.x, 332);
    EXPECT_EQ(r_third.size.y, 199);
    EXPECT_DOUBLE_EQ(r_third.scale.val.three_d.x, 33.3);
    EXPECT_EQ(r_half.size.x, 500);
    EXPECT_EQ(r_half.size.y, 300);
}

TEST_F(Snapshot, OrientationIsOrientationPlusRotations) {
    const host::Id card = add_av("Card", 100, 100);
    prop(card, Prop::orientation).value = vec(10, 5, -4);
    prop(card, Prop::rotate_x).value = vec(20, 0, 0);
    prop(card, Prop::rotate_y).value = vec(-15, 0, 0);
    prop(card, Prop::rotate_z).value = vec(90, 0, 0);
    select({card});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);
    const AEGP_ThreeDVal o = only_record().orientation.val.three_d;
    EXPECT_DOUBLE_EQ(o.x, 30);
    EXPECT_DOUBLE_EQ(o.y, -10);
    EXPECT_DOUBLE_EQ(o.z, 86);
}

TEST_F(Snapshot, ValuesAreReadAtTheLayersCurrentTime) {
    const host::Id card = add_av("Card", 100, 100);
    host::Property& position = prop(card, Prop::position);
    position.insertKey(A_Time{0, 30}, vec(0, 0, 0));
    position.insertKey(A_Time{30, 30}, vec(200, 100, 40));
    select({card});
    open_dialog();

    ASSERT_EQ(dlg().build_records(), A_Err_NONE);  // the composition stands at 15/30 s
    const auto& record = only_record();
    EXPECT_EQ(record.time.value * 30, 15 * static_cast<A_long>(record.time.scale));
    EXPECT_DOUBLE_EQ(record.position.val.three_d.x, 100);
    EXPECT_DOUBLE_EQ(record.position.val.three_d.y, 50);
    EXPECT_DOUBLE_EQ(record.position.val.three_d.z, 20);
}

class TextLayerSize : public Snapshot {
protected:
    void SetUp() override {
        Snapshot::SetUp();
        comp().width = 1280;
        comp().height = 720;
    }
    A_LPoint text_dims() {
        EXPECT_EQ(dlg().build_records(), A_Err_NONE);
        for (const auto& record : dlg().records()) {
            if (record.index == index_of(text_)) {
                return record.dims;
            }
        }
        ADD_FAILURE() << "no record for the text layer";
        return A_LPoint{0, 0};
    }
    host::Id text_ = 0;
};

TEST_F(TextLayerSize, TakesTheLargest3DSourceWhenCropIsOn) {
    const host::Id small = add_av("Small", 640, 480);
    const host::Id large = add_av("Large", 1920, 1080);
    text_ = add_layer("Title", AEGP_ObjectType_TEXT);
    select({text_, small, large});
    open_dialog();
    set_check(kAssistantCropTextLayersId, true);
    const A_LPoint dims = text_dims();
    EXPECT_EQ(dims.x, 1920);
    EXPECT_EQ(dims.y, 1080);
}

TEST_F(TextLayerSize, TakesTheCompositionSizeWhenCropIsOff) {
    const host::Id large = add_av("Large", 1920, 1080);
    text_ = add_layer("Title", AEGP_ObjectType_TEXT);
    select({text_, large});
    open_dialog();
    const A_LPoint dims = text_dims();
    EXPECT_EQ(dims.x, 1280);
    EXPECT_EQ(dims.y, 720);
}

TEST_F(TextLayerSize, TakesTheCompositionSizeWhenNoSelected3DLayerHasASource) {
    const host::Id flat = add_av("Flat", 1920, 1080, /*three_d=*/false);
    text_ = add_layer("Title", AEGP_ObjectType_TEXT);
    select({text_, flat});
    open_dialog();
    set_check(kAssistantCropTextLayersId, true);
    const A_LPoint dims = text_dims();
    EXPECT_EQ(dims.x, 1280);
    EXPECT_EQ(dims.y, 720);
}

TEST_F(Snapshot, EqualAreasKeepTheFirstInHandleOrder) {
    const host::Id wide = add_av("Wide", 200, 100);
    const host::Id tall = add_av("Tall", 100, 200);
    const host::Id smaller = add_av("Smaller", 150, 100);
    select({tall, wide, smaller});
    open_dialog();
    ASSERT_EQ(dlg().save_selection(), A_Err_NONE);
    const bool wide_first = std::less<AEGP_LayerH>()(handle(wide), handle(tall));
    EXPECT_EQ(dlg().largest_width(), wide_first ? 200 : 100);
    EXPECT_EQ(dlg().largest_height(), wide_first ? 100 : 200);
    EXPECT_EQ(dlg().width_of_comp(), 1920);
    EXPECT_EQ(dlg().height_of_comp(), 1080);
}

TEST_F(Snapshot, NoActiveCompositionMeansNothingHappens) {
    const host::Id card = add_av("Card", 100, 100);
    prop(card, Prop::position).value = vec(1, 2, 3);
    select({card});
    project().active = 0;
    open_dialog();

    EXPECT_EQ(dlg().apply_assistant(), A_Err_NONE);
    EXPECT_EQ(dlg().held_collection(), nullptr);
    EXPECT_EQ(dlg().applies, 0);
    EXPECT_EQ(prop(card, Prop::position).value, vec(1, 2, 3));
    EXPECT_TRUE(host().undoBalanced());
    EXPECT_FALSE(dlg().isCurSelectionContains(kArrangeableLayersMask));
}

TEST_F(Snapshot, ActiveFootageItemIsNoComposition) {
    const host::Id card = add_av("Card", 100, 100);
    select({card});
    project().active = layer(card).source;
    open_dialog();
    EXPECT_EQ(dlg().save_selection(), A_Err_NONE);
    EXPECT_EQ(dlg().held_collection(), nullptr);
    EXPECT_FALSE(dlg().isCurSelectionContains(kArrangeableLayersMask));
}

TEST_F(Snapshot, SelectionTestCountsOnly3DArrangeableLayersForTheShellsMask) {
    const host::Id camera = add_layer("Camera", AEGP_ObjectType_CAMERA);
    const host::Id flat_text = add_layer("Flat title", AEGP_ObjectType_TEXT, /*three_d=*/false);
    const host::Id text = add_layer("Title", AEGP_ObjectType_TEXT);
    const host::Id flat_camera = add_layer("Flat camera", AEGP_ObjectType_CAMERA, false);
    open_dialog();

    select({camera, flat_text});
    EXPECT_FALSE(dlg().isCurSelectionContains(kArrangeableLayersMask));
    select({text});
    EXPECT_TRUE(dlg().isCurSelectionContains(kArrangeableLayersMask));
    // Cameras and lights count whatever their 3D flag when their bit is asked for.
    select({flat_camera});
    EXPECT_TRUE(dlg().isCurSelectionContains(1u << AEGP_ObjectType_CAMERA));
    EXPECT_FALSE(dlg().isCurSelectionContains(1u << AEGP_ObjectType_LIGHT));
    select({});
    EXPECT_FALSE(dlg().isCurSelectionContains(kArrangeableLayersMask));
}

}  // namespace
