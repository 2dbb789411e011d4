// Reading the project through the suites: items, compositions, layer attributes, and layer
// properties at a time with and without keyframes.
#include "host_fixture.h"

#include <random>

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

using HostReading = HostFixture;

TEST_F(HostReading, ActiveItemIsTheCompositionWithItsSizeOrFootageOrNothing) {
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

    h.project().active = footage;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetActiveItem(&item));
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetItemType(item, &type));
    EXPECT_EQ(AEGP_ItemType_FOOTAGE, type);
    ch = h.compHandle(comp);
    ASSERT_EQ(A_Err_NONE, cs->AEGP_GetCompFromItem(item, &ch));
    EXPECT_EQ(nullptr, ch);

    h.project().active = 0;
    ASSERT_EQ(A_Err_NONE, is->AEGP_GetActiveItem(&item));
    EXPECT_EQ(nullptr, item);
}

TEST_F(HostReading, LayerOrderAttributesAndCurrentTime) {
    auto* ls = layers();
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

    // The source's size is read through the item suite (HostLookup).
    AEGP_ItemH source = nullptr;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerSourceItem(h.layerHandle(a), &source));
    EXPECT_EQ(h.itemHandle(footage), source);
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerSourceItem(h.layerHandle(b), &source));
    EXPECT_EQ(nullptr, source);

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
    EXPECT_EQ(A_Err_PARAMETER,
              ss->AEGP_GetLayerStreamValue(h.layerHandle(b), AEGP_LayerStream_POSITION, 7, &at, 0, &v, nullptr));
}

// Thousands of inserts and removals at random places, spread over many blocks, against a vector.
TEST(HostLayerList, KeepsOrderPlacesAndIdsAsAVectorWould) {
    host::LayerList list;
    std::vector<host::Id> model;
    std::mt19937 random(7);
    auto check = [&](const host::LayerList& l) {
        ASSERT_EQ(model.size(), l.size());
        std::size_t i = 0;
        for (const host::Layer& layer : l) {
            ASSERT_EQ(model[i], layer.id) << "at " << i;
            std::size_t index = 0;
            ASSERT_EQ(&layer, l.find(layer.id, &index));
            ASSERT_EQ(i, index);
            ++i;
        }
    };
    for (int step = 0; step < 6000; ++step) {
        const std::size_t place = model.empty() ? 0 : random() % (model.size() + 1);
        if (step % 3 == 2 && place < model.size()) {
            const host::Id gone = model[place];
            EXPECT_EQ(place, list.erase(list.begin() + static_cast<std::ptrdiff_t>(place)).place());
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(place));
            EXPECT_EQ(nullptr, list.find(gone));
        } else {
            host::Layer layer = host::newLayer("L", AEGP_ObjectType_AV, true);
            model.insert(model.begin() + static_cast<std::ptrdiff_t>(place), layer.id);
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(place), std::move(layer));
        }
        if (step % 1000 == 999) {
            check(list);
        }
    }
    const host::LayerList copy = list;
    check(copy);
    EXPECT_NE(&list[0], &copy[0]);
    host::LayerList moved = std::move(list);
    check(moved);
    EXPECT_TRUE(list.empty());
}

// Finding a layer, its place, its source and its streams, and copying it, take a bounded number
// of steps on a project of 100,000 layers: a search through the layers or the footage items
// would take tens of thousands.
using HostLookup = HostFixture;

TEST_F(HostLookup, HostCallsOnAHugeProjectDoNotWalkIt) {
    host::Project& p = h.project();
    const host::Id big = p.addComp("Big", 1920, 1080);
    std::vector<host::Id> ids;
    for (int i = 0; i < 100000; ++i) {
        ids.push_back(p.addLayer(big, "L", AEGP_ObjectType_AV, true, p.addFootage("F", 10 + i % 7, 10)));
    }
    auto* ls = layers();
    auto* is = items();
    p.layer(ids[0]);  // the first lookup indexes the layers once

    const std::size_t before = p.lookupVisits();
    int calls = 0;
    for (std::size_t i = 0; i < ids.size(); i += 997) {
        const AEGP_LayerH layer = h.layerHandle(ids[i]);
        A_long index = -1;
        ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerIndex(layer, &index));
        AEGP_ItemH source = nullptr;
        ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerSourceItem(layer, &source));
        A_long w = 0, hh = 0;
        ASSERT_EQ(A_Err_NONE, is->AEGP_GetItemDimensions(source, &w, &hh));
        EXPECT_EQ(10 + static_cast<A_long>(i % 7), w);
        const AEGP_StreamRefH stream = openStream(ids[i], AEGP_LayerStream_POSITION);
        ASSERT_EQ(A_Err_NONE, writeStream(stream, 0, 0, 0));
        ASSERT_EQ(A_Err_NONE, streams()->AEGP_DisposeStream(stream));
        AEGP_LayerH copy = nullptr;
        ASSERT_EQ(A_Err_NONE, ls->AEGP_DuplicateLayer(layer, &copy));
        // Earlier copies sit above: the layer moved down by one for each.
        EXPECT_EQ(static_cast<A_long>(i + i / 997), index);
        calls += 7;
    }
    // A copy refreshes where the later blocks of 256 layers start: a few hundred steps.
    EXPECT_LT(static_cast<double>(p.lookupVisits() - before) / calls, 1000.0);
    EXPECT_EQ(100000u + 101u, p.comp(big)->layers.size());
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
