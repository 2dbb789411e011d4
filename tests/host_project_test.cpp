// Reading the project through the suites: items, compositions, layer attributes, and layer
// properties at a time with and without keyframes.
#include "host_fixture.h"

using host::Prop;
using host::Vec3;

namespace {

TEST(HostProperty, InterpolatesLinearlyBetweenKeysAndHoldsOutside) {
    host::Property p;
    p.value = Vec3{7, 7, 7};
    p.insertKey(A_Time{0, 30}, Vec3{0, 0, 0});
    p.insertKey(A_Time{1, 1}, Vec3{100, 200, -50});  // 30/30: scales differ, times compare exactly
    EXPECT_EQ(p.valueAt(A_Time{15, 30}), (Vec3{50, 100, -25}));
    EXPECT_EQ(p.valueAt(A_Time{3, 30}), (Vec3{10, 20, -5}));
    EXPECT_EQ(p.valueAt(A_Time{-5, 30}), (Vec3{0, 0, 0}));
    EXPECT_EQ(p.valueAt(A_Time{90, 30}), (Vec3{100, 200, -50}));
    EXPECT_EQ(p.valueAt(A_Time{30, 30}), (Vec3{100, 200, -50}));

    // Keys at the ends of the double range: their difference overflows, the value between does not.
    host::Property far;
    far.insertKey(A_Time{0, 1}, Vec3{-1e308, 1e308, 5});
    far.insertKey(A_Time{4, 1}, Vec3{1e308, -1e308, 5});
    EXPECT_EQ(far.valueAt(A_Time{1, 1}), (Vec3{-0.5e308, 0.5e308, 5}));
    EXPECT_EQ(far.valueAt(A_Time{2, 1}), (Vec3{0, 0, 5}));
}

TEST(HostProperty, WithoutKeysTheStaticValueHoldsAtEveryTime) {
    host::Property p;
    p.value = Vec3{1, 2, 3};
    EXPECT_EQ(p.valueAt(A_Time{-100, 1}), (Vec3{1, 2, 3}));
    EXPECT_EQ(p.valueAt(A_Time{100, 1}), (Vec3{1, 2, 3}));
}

TEST(HostProperty, KeysStaySortedAndOnePerTime) {
    host::Property p;
    EXPECT_EQ(0, p.insertKey(A_Time{20, 30}, Vec3{2, 0, 0}));
    EXPECT_EQ(0, p.insertKey(A_Time{10, 30}, Vec3{1, 0, 0}));
    EXPECT_EQ(2, p.insertKey(A_Time{30, 30}, Vec3{3, 0, 0}));
    EXPECT_EQ(1, p.insertKey(A_Time{2, 3}, Vec3{9, 9, 9}));  // 20/30: the key there is kept
    ASSERT_EQ(3u, p.keys.size());
    EXPECT_EQ(p.keys[1].value, (Vec3{2, 0, 0}));
    EXPECT_EQ(1, p.setKey(A_Time{20, 30}, Vec3{5, 0, 0}));
    EXPECT_EQ(p.keys[1].value, (Vec3{5, 0, 0}));
}

using HostReading = HostFixture;

TEST_F(HostReading, ActiveItemIsTheCompositionWithItsSize) {
    auto* is = items();
    auto* cs = comps();
    AEGP_ItemH item = nullptr;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetActiveItem(&item));
    EXPECT_EQ(h.itemHandle(comp), item);
    AEGP_ItemType type = 0;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetItemType(item, &type));
    EXPECT_EQ(AEGP_ItemType_COMP, type);
    A_long w = 0, hh = 0;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetItemDimensions(item, &w, &hh));
    EXPECT_EQ(1920, w);
    EXPECT_EQ(1080, hh);
    AEGP_CompH ch = nullptr;
    ASSERT_EQ(A_Err_NONE, cs->AEGP_GetCompFromItem(item, &ch));
    EXPECT_EQ(h.compHandle(comp), ch);
    AEGP_ItemH back = nullptr;
    ASSERT_EQ(A_Err_NONE, cs->AEGP_GetItemFromComp(ch, &back));
    EXPECT_EQ(item, back);
}

TEST_F(HostReading, FootageOrNothingActive) {
    auto* is = items();
    auto* cs = comps();
    h.project().active = footage;
    AEGP_ItemH item = nullptr;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetActiveItem(&item));
    AEGP_ItemType type = 0;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetItemType(item, &type));
    EXPECT_EQ(AEGP_ItemType_FOOTAGE, type);
    AEGP_CompH ch = h.compHandle(comp);
    ASSERT_EQ(A_Err_NONE, cs->AEGP_GetCompFromItem(item, &ch));
    EXPECT_EQ(nullptr, ch);

    h.project().active = 0;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetActiveItem(&item));
    EXPECT_EQ(nullptr, item);
}

TEST_F(HostReading, LayerOrderAndAttributesUseZeroBasedIndices) {
    auto* ls = layers();
    auto* is = items();
    const AEGP_CompH ch = h.compHandle(comp);
    A_long n = 0;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetCompNumLayers(ch, &n));
    EXPECT_EQ(3, n);
    AEGP_LayerH lh = nullptr;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetCompLayerByIndex(ch, 1, &lh));
    EXPECT_EQ(h.layerHandle(b), lh);
    A_long index = -1;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerIndex(h.layerHandle(c), &index));
    EXPECT_EQ(2, index);

    AEGP_ObjectType type = -1;
    A_Boolean three_d = 0;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerObjectType(h.layerHandle(b), &type));
    EXPECT_EQ(AEGP_ObjectType_TEXT, type);
    ASSERT_EQ(A_Err_NONE, ls->AEGP_IsLayer3D(h.layerHandle(b), &three_d));
    EXPECT_EQ(1, three_d);
    ASSERT_EQ(A_Err_NONE, ls->AEGP_IsLayer3D(h.layerHandle(c), &three_d));
    EXPECT_EQ(0, three_d);

    AEGP_ItemH source = nullptr;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerSourceItem(h.layerHandle(a), &source));
    A_long w = 0, hh = 0;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetItemDimensions(source, &w, &hh));
    EXPECT_EQ(400, w);
    EXPECT_EQ(300, hh);
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerSourceItem(h.layerHandle(b), &source));
    EXPECT_EQ(nullptr, source);
}

TEST_F(HostReading, CurrentTimeIsTheCompositionsInBothModes) {
    auto* ls = layers();
    for (AEGP_LTimeMode mode : {AEGP_LTimeMode_CompTime, AEGP_LTimeMode_LayerTime}) {
        A_Time t{0, 0};
        ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerCurrentTime(h.layerHandle(a), mode, &t));
        EXPECT_EQ(10, t.value);
        EXPECT_EQ(30u, t.scale);
    }
    h.project().comp(comp)->time = A_Time{3, 1};
    A_Time t{0, 0};
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerCurrentTime(h.layerHandle(a), AEGP_LTimeMode_CompTime, &t));
    EXPECT_EQ(3, t.value);
    EXPECT_EQ(1u, t.scale);
}

TEST_F(HostReading, PropertyValuesAtATimeWithAndWithoutKeys) {
    auto* ss = streams();
    host::Layer& la = *h.project().layer(a);
    la.prop(Prop::orientation).value = Vec3{10, 20, 30};
    la.prop(Prop::rotate_x).value = Vec3{45, 0, 0};
    la.prop(Prop::position).insertKey(A_Time{0, 30}, Vec3{0, 0, 0});
    la.prop(Prop::position).insertKey(A_Time{20, 30}, Vec3{200, 100, 40});

    AEGP_StreamVal v{};
    AEGP_StreamType type = 0;
    const A_Time at{10, 30};
    ASSERT_EQ(A_Err_NONE, ss->AEGP_GetLayerStreamValue(h.layerHandle(a), AEGP_LayerStream_POSITION,
                                                       AEGP_LTimeMode_CompTime, &at, 0, &v, &type));
    EXPECT_EQ(100, v.three_d.x);
    EXPECT_EQ(50, v.three_d.y);
    EXPECT_EQ(20, v.three_d.z);
    EXPECT_EQ(AEGP_StreamType_ThreeD_SPATIAL, type);

    ASSERT_EQ(A_Err_NONE, ss->AEGP_GetLayerStreamValue(h.layerHandle(a), AEGP_LayerStream_ORIENTATION,
                                                       AEGP_LTimeMode_CompTime, &at, 0, &v, nullptr));
    EXPECT_EQ(10, v.three_d.x);
    EXPECT_EQ(30, v.three_d.z);
    ASSERT_EQ(A_Err_NONE, ss->AEGP_GetLayerStreamValue(h.layerHandle(a), AEGP_LayerStream_ROTATE_X,
                                                       AEGP_LTimeMode_CompTime, &at, 0, &v, &type));
    EXPECT_EQ(45, v.one_d);
    EXPECT_EQ(AEGP_StreamType_OneD, type);
    ASSERT_EQ(A_Err_NONE, ss->AEGP_GetLayerStreamValue(h.layerHandle(a), AEGP_LayerStream_SCALE,
                                                       AEGP_LTimeMode_CompTime, &at, 0, &v, nullptr));
    EXPECT_EQ(100, v.three_d.y);
}

TEST_F(HostReading, BadHandlesAndArgumentsAreErrorsThatTouchNothing) {
    auto* ls = layers();
    auto* ss = streams();
    const AEGP_CompH ch = h.compHandle(comp);
    AEGP_LayerH lh = h.layerHandle(a);
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetCompLayerByIndex(ch, 3, &lh));
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetCompLayerByIndex(ch, -1, &lh));
    EXPECT_EQ(h.layerHandle(a), lh);
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetCompLayerByIndex(ch, 0, nullptr));
    A_long index = 77;
    // A composition handle is not a layer handle, and a made-up handle is nothing.
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetLayerIndex(reinterpret_cast<AEGP_LayerH>(ch), &index));
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetLayerIndex(reinterpret_cast<AEGP_LayerH>(0x1234560), &index));
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetLayerIndex(nullptr, &index));
    EXPECT_EQ(77, index);

    // A removed layer's handle dies with it.
    auto& list = h.project().comp(comp)->layers;
    list.erase(list.begin());
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetLayerIndex(lh, &index));
    EXPECT_EQ(0u, h.layerId(lh));

    AEGP_StreamVal v{};
    const A_Time at{0, 1};
    EXPECT_EQ(A_Err_PARAMETER, ss->AEGP_GetLayerStreamValue(h.layerHandle(b), AEGP_LayerStream_OPACITY,
                                                           AEGP_LTimeMode_CompTime, &at, 0, &v, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, ss->AEGP_GetLayerStreamValue(h.layerHandle(b), AEGP_LayerStream_POSITION,
                                                           AEGP_LTimeMode_CompTime, nullptr, 0, &v, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, ss->AEGP_GetLayerStreamValue(h.layerHandle(b), AEGP_LayerStream_POSITION, 7, &at,
                                                           0, &v, nullptr));
}

TEST_F(HostReading, ReorderMovesOneLayerToAnIndex) {
    auto* ls = layers();
    ASSERT_EQ(A_Err_NONE, ls->AEGP_ReorderLayer(h.layerHandle(a), 2));
    EXPECT_EQ((std::vector<std::string>{"B", "C", "A"}), layerNames());
    ASSERT_EQ(A_Err_NONE, ls->AEGP_ReorderLayer(h.layerHandle(c), 0));
    EXPECT_EQ((std::vector<std::string>{"C", "B", "A"}), layerNames());
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_ReorderLayer(h.layerHandle(c), 3));
    EXPECT_EQ((std::vector<std::string>{"C", "B", "A"}), layerNames());
}

}  // namespace
