// A host with a small project: composition "Main" 1920 x 1080 at time 10/30 holding
// layer 1 "A" (3D footage 400 x 300), layer 2 "B" (3D text) and layer 3 "C" (2D footage).
#pragma once

#include "host/host.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

class HostFixture : public ::testing::Test {
protected:
    void SetUp() override {
        host::Project& p = h.project();
        comp = p.addComp("Main", 1920, 1080, A_Time{10, 30});
        footage = p.addFootage("card", 400, 300);
        a = p.addLayer(comp, "A", AEGP_ObjectType_AV, true, footage);
        b = p.addLayer(comp, "B", AEGP_ObjectType_TEXT, true);
        c = p.addLayer(comp, "C", AEGP_ObjectType_AV, false, footage);
    }

    void TearDown() override {
        for (const auto& [name, version] : acquired_) {
            h.basicSuite()->ReleaseSuite(name, version);
        }
    }

    // Acquires a suite through the basic suite; released when the test ends.
    template <typename Suite>
    const Suite* suite(const char* name, int32_t version) {
        const void* table = nullptr;
        EXPECT_EQ(A_Err_NONE, h.basicSuite()->AcquireSuite(name, version, &table)) << name << " " << version;
        acquired_.emplace_back(name, version);
        return static_cast<const Suite*>(table);
    }

    const AEGP_LayerSuite10* layers() { return suite<AEGP_LayerSuite10>(kAEGPLayerSuite, kAEGPLayerSuiteVersion10); }
    const AEGP_StreamSuite4* streams() { return suite<AEGP_StreamSuite4>(kAEGPStreamSuite, kAEGPStreamSuiteVersion4); }
    const AEGP_KeyframeSuite1* keys() {
        return suite<AEGP_KeyframeSuite1>(kAEGPKeyframeSuite, kAEGPKeyframeSuiteVersion1);
    }
    const AEGP_CompSuite4* comps() { return suite<AEGP_CompSuite4>(kAEGPCompSuite, kAEGPCompSuiteVersion4); }
    const AEGP_ItemSuite3* items() { return suite<AEGP_ItemSuite3>(kAEGPItemSuite, kAEGPItemSuiteVersion3); }
    const AEGP_CollectionSuite1* collections() {
        return suite<AEGP_CollectionSuite1>(kAEGPCollectionSuite, kAEGPCollectionSuiteVersion1);
    }
    const AEGP_CommandSuite1* commands() {
        return suite<AEGP_CommandSuite1>(kAEGPCommandSuite, kAEGPCommandSuiteVersion1);
    }
    const AEGP_UtilitySuite3* utility() {
        return suite<AEGP_UtilitySuite3>(kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3);
    }
    const AEGP_RegisterSuite1* registry() {
        return suite<AEGP_RegisterSuite1>(kAEGPRegisterSuite, kAEGPRegisterSuiteVersion1);
    }

    // A stream of the layer's property; the test disposes it.
    AEGP_StreamRefH openStream(host::Id layer, AEGP_LayerStream which) {
        AEGP_StreamRefH s = nullptr;
        EXPECT_EQ(A_Err_NONE, streams()->AEGP_GetNewLayerStream(1, h.layerHandle(layer), which, &s));
        return s;
    }
    A_Err writeStream(AEGP_StreamRefH s, double x, double y, double z) {
        AEGP_StreamValue v{};
        v.streamH = s;
        v.val.three_d = AEGP_ThreeDVal{x, y, z};
        return streams()->AEGP_SetStreamValue(1, s, &v);
    }

    // Names of the composition's layers in layer order.
    std::vector<std::string> layerNames() {
        std::vector<std::string> names;
        for (const host::Layer& l : h.project().comp(comp)->layers) {
            names.push_back(l.name);
        }
        return names;
    }

    host::Host h;
    host::Id comp = 0, footage = 0, a = 0, b = 0, c = 0;

private:
    std::vector<std::pair<const char*, int32_t>> acquired_;
};
