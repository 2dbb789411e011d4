// The selection as collections: kept in the order it was made, replaced as a whole, and
// collections as objects the caller owns until it disposes them.
#include "host_fixture.h"

namespace {

using HostSelection = HostFixture;

std::vector<AEGP_LayerH> itemsOf(const AEGP_CollectionSuite1* cs, AEGP_CollectionH coll) {
    A_u_long n = 0;
    EXPECT_EQ(A_Err_NONE, cs->AEGP_GetCollectionNumItems(coll, &n));
    std::vector<AEGP_LayerH> out;
    for (A_u_long i = 0; i < n; ++i) {
        AEGP_CollectionItemV1 item{};
        EXPECT_EQ(A_Err_NONE, cs->AEGP_GetCollectionItemByIndex(coll, i, &item));
        EXPECT_EQ(AEGP_CollectionItemType_LAYER, item.type);
        out.push_back(item.u.layer.layerH);
    }
    return out;
}

TEST_F(HostSelection, CollectionFromSelectionKeepsSelectionOrderAndMayBeEmpty) {
    auto* cs = comps();
    auto* coll_suite = collections();
    h.project().select(comp, {c, a, b});
    AEGP_CollectionH coll = nullptr;
    ASSERT_EQ(A_Err_NONE, cs->AEGP_GetNewCollectionFromCompSelection(1, h.compHandle(comp), &coll));
    EXPECT_EQ(1u, h.openCollections());
    EXPECT_EQ((std::vector<AEGP_LayerH>{h.layerHandle(c), h.layerHandle(a), h.layerHandle(b)}),
              itemsOf(coll_suite, coll));
    ASSERT_EQ(A_Err_NONE, coll_suite->AEGP_DisposeCollection(coll));
    EXPECT_EQ(0u, h.openCollections());
    // Disposed is gone: a second dispose and any use are errors.
    EXPECT_EQ(A_Err_PARAMETER, coll_suite->AEGP_DisposeCollection(coll));
    A_u_long n = 99;
    EXPECT_EQ(A_Err_PARAMETER, coll_suite->AEGP_GetCollectionNumItems(coll, &n));
    EXPECT_EQ(99u, n);
    // An empty selection gives an empty collection.
    h.project().select(comp, {});
    ASSERT_EQ(A_Err_NONE, cs->AEGP_GetNewCollectionFromCompSelection(1, h.compHandle(comp), &coll));
    EXPECT_TRUE(itemsOf(coll_suite, coll).empty());
    AEGP_CollectionItemV1 item{};
    EXPECT_EQ(A_Err_PARAMETER, coll_suite->AEGP_GetCollectionItemByIndex(coll, 0, &item));
    coll_suite->AEGP_DisposeCollection(coll);
}

TEST_F(HostSelection, SetSelectionReplacesItInCollectionOrderWithLayersOfTheCompositionOnly) {
    auto* cs = comps();
    auto* coll_suite = collections();
    h.project().select(comp, {a, b, c});
    AEGP_CollectionH coll = nullptr;
    ASSERT_EQ(A_Err_NONE, coll_suite->AEGP_NewCollection(1, &coll));
    AEGP_CollectionItemV1 item{};
    item.type = AEGP_CollectionItemType_LAYER;
    item.u.layer.layerH = h.layerHandle(c);
    ASSERT_EQ(A_Err_NONE, coll_suite->AEGP_CollectionPushBack(coll, &item));
    item.u.layer.layerH = h.layerHandle(b);
    ASSERT_EQ(A_Err_NONE, coll_suite->AEGP_CollectionPushBack(coll, &item));
    ASSERT_EQ(A_Err_NONE, cs->AEGP_SetSelection(h.compHandle(comp), coll));
    EXPECT_EQ((std::vector<host::Id>{c, b}), h.project().comp(comp)->selection);
    coll_suite->AEGP_DisposeCollection(coll);
    // Only layers of the composition can be selected.
    const host::Id other = h.project().addComp("Other", 100, 100);
    const host::Id stranger = h.project().addLayer(other, "S", AEGP_ObjectType_AV, true);
    h.project().select(comp, {a});
    ASSERT_EQ(A_Err_NONE, coll_suite->AEGP_NewCollection(1, &coll));
    item.u.layer.layerH = h.layerHandle(stranger);
    ASSERT_EQ(A_Err_NONE, coll_suite->AEGP_CollectionPushBack(coll, &item));
    EXPECT_EQ(A_Err_PARAMETER, cs->AEGP_SetSelection(h.compHandle(comp), coll));
    EXPECT_EQ((std::vector<host::Id>{a}), h.project().comp(comp)->selection);

    item.type = AEGP_CollectionItemType_MASK;
    EXPECT_EQ(A_Err_PARAMETER, coll_suite->AEGP_CollectionPushBack(coll, &item));
    item.type = AEGP_CollectionItemType_LAYER;
    item.u.layer.layerH = nullptr;
    EXPECT_EQ(A_Err_PARAMETER, coll_suite->AEGP_CollectionPushBack(coll, &item));
    A_u_long n = 0;
    coll_suite->AEGP_GetCollectionNumItems(coll, &n);
    EXPECT_EQ(1u, n);
    coll_suite->AEGP_DisposeCollection(coll);
}

}  // namespace
