// The plug-in's suite access against the host: each suite acquired once per handler and
// released once, missing suites thrown as 516 with nothing left held, and the shell's global
// suites released exactly as acquired.
#include "shell/suite_handler.h"
#include "host/host.h"
#include "shell/global_suites.h"

#include <gtest/gtest.h>

namespace {

int thrownBy(const std::function<void()>& f) {
    try {
        f();
    } catch (int code) {
        return code;
    }
    return 0;
}

TEST(SuiteHandler, ASuiteAskedTwiceIsAcquiredOnceAndReleasedOnce) {
    host::Host h;
    {
        AEGP_SuiteHandler suites(h.basicSuite());
        AEGP_StreamSuite4* first = suites.StreamSuite4();
        EXPECT_EQ(first, suites.StreamSuite4());
        suites.LayerSuite5();
        suites.PanelSuite1();
        suites.AppSuite2();
        EXPECT_EQ(1, h.acquireCount(kAEGPStreamSuite, 4));
        EXPECT_EQ(0, h.releaseCount(kAEGPStreamSuite, 4));
    }
    EXPECT_EQ(1, h.releaseCount(kAEGPStreamSuite, 4));
    EXPECT_EQ(1, h.releaseCount(kAEGPLayerSuite, 5));
    EXPECT_EQ(1, h.releaseCount(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1));
    EXPECT_EQ(1, h.releaseCount(kPFAppSuite, kPFAppSuiteVersion2));
    EXPECT_TRUE(h.allSuitesReleased());
    EXPECT_EQ(0, h.strayReleases());
}

TEST(SuiteHandler, AWithheldSuiteThrows516AndEverythingAcquiredIsStillReleased) {
    host::Host h;
    h.withholdSuite(kAEGPLayerSuite, kAEGPLayerSuiteVersion10);
    {
        AEGP_SuiteHandler suites(h.basicSuite());
        suites.CompSuite4();
        suites.UtilitySuite3();
        EXPECT_EQ(A_Err_BAD_CALLBACK_PARAM, thrownBy([&] { suites.LayerSuite10(); }));
        // The other layer suite versions are still there.
        EXPECT_NE(nullptr, suites.LayerSuite8());
    }
    EXPECT_TRUE(h.allSuitesReleased());
    EXPECT_EQ(0, h.acquireCount(kAEGPLayerSuite, 10));
    EXPECT_EQ(1, h.releaseCount(kAEGPCompSuite, 4));
    EXPECT_EQ(0, h.strayReleases());
}

TEST(SuiteHandler, AFailedAcquireOrANullBasicSuiteThrows516) {
    host::Host h;
    AEGP_SuiteHandler suites(h.basicSuite());
    h.failFunction("AcquireSuite", A_Err_GENERIC);
    EXPECT_EQ(A_Err_BAD_CALLBACK_PARAM, thrownBy([&] { suites.ItemSuite3(); }));
    EXPECT_EQ(A_Err_BAD_CALLBACK_PARAM, thrownBy([] { AEGP_SuiteHandler suites(nullptr); }));
}

TEST(GlobalSuites, TheAppSuiteAndThePanelSuiteWhereThereIsOneAreHeldUntilReleased) {
    host::Host h;
    h.withholdSuite(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1);
    sSPBasic = h.basicSuite();
    adm::acquireSuites();
    EXPECT_EQ(nullptr, sAEGPPanelSuite);
    ASSERT_NE(nullptr, sPFAppSuite);
    EXPECT_EQ(1, h.acquireCount(kPFAppSuite, kPFAppSuiteVersion2));
    adm::releaseSuites();
    EXPECT_EQ(nullptr, sPFAppSuite);
    EXPECT_EQ(1, h.releaseCount(kPFAppSuite, kPFAppSuiteVersion2));
    EXPECT_EQ(0, h.releaseCount(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1));
    EXPECT_EQ(1, h.callCount("ReleaseSuite"));
    EXPECT_TRUE(h.allSuitesReleased());
    host::Host panels;
    sSPBasic = panels.basicSuite();
    adm::acquireSuites();
    EXPECT_NE(nullptr, sAEGPPanelSuite);
    EXPECT_NE(nullptr, sPFAppSuite);
    EXPECT_FALSE(panels.allSuitesReleased());
    adm::releaseSuites();
    EXPECT_EQ(nullptr, sAEGPPanelSuite);
    EXPECT_TRUE(panels.allSuitesReleased());
    EXPECT_EQ(0, panels.strayReleases());
    sSPBasic = nullptr;
}

}  // namespace
