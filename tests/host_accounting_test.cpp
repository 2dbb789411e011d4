// Suites served and withheld, acquire and release accounting, call counts, injected faults,
// and leak accounting of streams and collections.
#include "host_fixture.h"

#include <memory>

using host::Prop;
using host::Vec3;

namespace {

using HostSuites = HostFixture;

TEST_F(HostSuites, WithheldSuitesAreRefusedLikeAnOlderHost) {
    h.withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion10);
    h.withholdSuite(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
    const void* table = reinterpret_cast<const void*>(0x1);
    EXPECT_EQ(A_Err_MISSING_SUITE, h.basicSuite()->AcquireSuite(kAEGPLayerSuite, 10, &table));
    EXPECT_EQ(A_Err_MISSING_SUITE, h.basicSuite()->AcquireSuite(kAEGPWorkspacePanelSuite, 1, &table));
    EXPECT_EQ(reinterpret_cast<const void*>(0x1), table);
    EXPECT_EQ((std::vector<std::string>{"AEGP Layer Suite/10", "AEGP Workspace Panel Suite/1"}), h.withheldSuites());
    // Other versions of the same suite are still there.
    ASSERT_EQ(A_Err_NONE, h.basicSuite()->AcquireSuite(kAEGPLayerSuite, 5, &table));
    h.basicSuite()->ReleaseSuite(kAEGPLayerSuite, 5);
    h.offerSuite(kAEGPLayerSuite, 10);
    ASSERT_EQ(A_Err_NONE, h.basicSuite()->AcquireSuite(kAEGPLayerSuite, 10, &table));
    h.basicSuite()->ReleaseSuite(kAEGPLayerSuite, 10);
    EXPECT_EQ(A_Err_MISSING_SUITE, h.basicSuite()->AcquireSuite("AEGP Marker Suite", 1, &table));
    EXPECT_EQ(A_Err_MISSING_SUITE, h.basicSuite()->AcquireSuite(kAEGPLayerSuite, 11, &table));
    EXPECT_EQ(0, h.acquireCount(kAEGPWorkspacePanelSuite, 1));
    // Each refusal is on the host's list of refused calls, in order.
    std::vector<std::string> refused;
    for (const host::RefusedCall& call : h.refusedCalls()) {
        EXPECT_EQ(A_Err_MISSING_SUITE, call.err);
        refused.push_back(call.call);
    }
    EXPECT_EQ((std::vector<std::string>{"AcquireSuite AEGP Layer Suite/10", "AcquireSuite AEGP Workspace Panel Suite/1",
                                        "AcquireSuite AEGP Marker Suite/1", "AcquireSuite AEGP Layer Suite/11"}),
              refused);
}

TEST_F(HostSuites, EveryAcquireMustBeMatchedByARelease) {
    const void* table = nullptr;
    h.basicSuite()->AcquireSuite(kAEGPStreamSuite, 4, &table);
    h.basicSuite()->AcquireSuite(kAEGPStreamSuite, 4, &table);
    h.basicSuite()->ReleaseSuite(kAEGPStreamSuite, 4);
    EXPECT_EQ(2, h.acquireCount(kAEGPStreamSuite, 4));
    EXPECT_EQ(1, h.releaseCount(kAEGPStreamSuite, 4));
    EXPECT_FALSE(h.allSuitesReleased());
    EXPECT_EQ((std::vector<std::string>{"AEGP Stream Suite/4"}), h.unreleasedSuites());
    h.basicSuite()->ReleaseSuite(kAEGPStreamSuite, 4);
    EXPECT_TRUE(h.allSuitesReleased());
    // A release of something not held is an error, and shows.
    EXPECT_EQ(A_Err_PARAMETER, h.basicSuite()->ReleaseSuite(kAEGPStreamSuite, 4));
    EXPECT_EQ(A_Err_PARAMETER, h.basicSuite()->ReleaseSuite(kAEGPItemSuite, 3));
    EXPECT_EQ(2, h.strayReleases());
    EXPECT_EQ(2, h.releaseCount(kAEGPStreamSuite, 4));
}

TEST_F(HostSuites, CallsAreCountedPerFunction) {
    auto* ls = layers();  // one AcquireSuite
    A_long n = 0;
    ls->AEGP_GetCompNumLayers(h.compHandle(comp), &n);
    ls->AEGP_GetCompNumLayers(h.compHandle(comp), &n);
    ls->AEGP_GetCompNumLayers(nullptr, &n);  // failed calls count too
    EXPECT_EQ(3, h.callCount("AEGP_GetCompNumLayers"));
    EXPECT_EQ(1, h.callCount("AcquireSuite"));
    EXPECT_EQ(4, h.totalCalls());
    h.resetCallCounts();
    EXPECT_EQ(0, h.callCount("AEGP_GetCompNumLayers"));
}

TEST_F(HostSuites, TheNthCallFailsOnceAndChangesNothing) {
    auto* ls = layers();
    h.failNthCall(3, A_Err_ALLOC);
    A_long index = -1;
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerIndex(h.layerHandle(a), &index));
    ASSERT_EQ(A_Err_NONE, ls->AEGP_GetLayerIndex(h.layerHandle(b), &index));
    index = -1;
    EXPECT_EQ(A_Err_ALLOC, ls->AEGP_ReorderLayer(h.layerHandle(a), 2));
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), layerNames());
    EXPECT_EQ(A_Err_NONE, ls->AEGP_GetLayerIndex(h.layerHandle(c), &index));
    EXPECT_EQ(2, index);
    EXPECT_EQ((std::vector<std::string>{"AEGP_ReorderLayer"}), h.failedCalls());
    ASSERT_EQ(1u, h.refusedCalls().size());
    EXPECT_EQ("AEGP_ReorderLayer", h.refusedCalls()[0].call);
    EXPECT_EQ(A_Err_ALLOC, h.refusedCalls()[0].err);
}

TEST_F(HostSuites, EveryCallOfAFunctionFailsUntilClearedAndUndisposedHandlesShow) {
    AEGP_StreamRefH s = openStream(a, AEGP_LayerStream_POSITION);
    h.failFunction("AEGP_SetStreamValue", 77);
    EXPECT_EQ(77, writeStream(s, 1, 2, 3));
    EXPECT_EQ(77, writeStream(s, 1, 2, 3));
    EXPECT_EQ(h.project().layer(a)->prop(Prop::position).value, (Vec3{0, 0, 0}));
    h.clearFaults();
    EXPECT_EQ(A_Err_NONE, writeStream(s, 1, 2, 3));
    EXPECT_EQ(h.project().layer(a)->prop(Prop::position).value, (Vec3{1, 2, 3}));
    streams()->AEGP_DisposeStream(s);
    // Undisposed streams and collections show.
    openStream(a, AEGP_LayerStream_SCALE);
    AEGP_CollectionH coll = nullptr;
    collections()->AEGP_NewCollection(1, &coll);
    AEGP_CollectionH selection = nullptr;
    comps()->AEGP_GetNewCollectionFromCompSelection(1, h.compHandle(comp), &selection);
    EXPECT_EQ(1u, h.openStreams());
    EXPECT_EQ(2u, h.openCollections());
    collections()->AEGP_DisposeCollection(coll);
    EXPECT_EQ(1u, h.openCollections());
}

TEST(HostCurrent, TheNewestHostIsCurrentUntilAnotherIsMadeCurrentAndWithoutOneCallsFail) {
    auto h = std::make_unique<host::Host>();
    const void* table = nullptr;
    ASSERT_EQ(A_Err_NONE, h->basicSuite()->AcquireSuite(kAEGPItemSuite, 3, &table));
    SPBasicSuite basic = *h->basicSuite();
    h.reset();
    EXPECT_EQ(nullptr, host::Host::current());
    AEGP_ItemH item = nullptr;
    EXPECT_EQ(A_Err_GENERIC, static_cast<const AEGP_ItemSuite3*>(table)->AEGP_GetActiveItem(&item));
    EXPECT_EQ(A_Err_GENERIC, basic.AcquireSuite(kAEGPItemSuite, 3, &table));
    host::Host first;
    host::Host second;
    EXPECT_EQ(&second, host::Host::current());
    first.makeCurrent();
    first.basicSuite()->AcquireSuite(kAEGPItemSuite, 3, &table);
    EXPECT_EQ(1, first.acquireCount(kAEGPItemSuite, 3));
    EXPECT_EQ(0, second.acquireCount(kAEGPItemSuite, 3));
    first.basicSuite()->ReleaseSuite(kAEGPItemSuite, 3);
}

}  // namespace
