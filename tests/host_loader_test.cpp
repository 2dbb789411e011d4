// Loading a plug-in module with its entry point, and unloading it.
#include "host/host.h"

#include <gtest/gtest.h>

namespace {

std::vector<std::string> reportTexts(const host::Host& h) {
    std::vector<std::string> out;
    for (const host::Report& r : h.reports()) {
        out.push_back(r.text);
    }
    return out;
}

TEST(HostLoader, LoadsOneModuleCallsItsEntryAndUnloadsWithDeathHooks) {
    host::Host h;
    ASSERT_EQ(A_Err_NONE, h.loadPlugin(ORBISETT_HOST_TEST_PLUGIN)) << h.loaderError();
    EXPECT_TRUE(h.pluginLoaded());
    EXPECT_NE(0, h.pluginId());
    EXPECT_EQ(2u, h.hookCount());
    h.idle();
    h.unloadPlugin();
    EXPECT_FALSE(h.pluginLoaded());
    EXPECT_EQ((std::vector<std::string>{"idle", "death"}), reportTexts(h));
    EXPECT_EQ(h.pluginId(), 0);
    EXPECT_EQ(0u, h.hookCount());
    EXPECT_TRUE(h.allSuitesReleased());
    EXPECT_EQ(1, h.callCount("AEGP_RegisterDeathHook"));
    // One plug-in at a time; going away unloads it, death hook and all.
    host::Host other;
    ASSERT_EQ(A_Err_NONE, other.loadPlugin(ORBISETT_HOST_TEST_PLUGIN));
    EXPECT_EQ(A_Err_GENERIC, other.loadPlugin(ORBISETT_HOST_TEST_PLUGIN));
}

TEST(HostLoader, FailingEntriesMissingModulesAndEntryPointsAreReported) {
    host::Host h;
    h.failFunction("AEGP_RegisterDeathHook", A_Err_ALLOC);
    EXPECT_EQ(A_Err_ALLOC, h.loadPlugin(ORBISETT_HOST_TEST_PLUGIN));
    EXPECT_EQ(A_Err_ALLOC, h.entryResult());
    h.unloadPlugin();
    h.clearFaults();
    EXPECT_EQ(A_Err_GENERIC, h.loadPlugin("/nonexistent/plugin.so"));
    EXPECT_FALSE(h.loaderError().empty());
    EXPECT_FALSE(h.pluginLoaded());
    EXPECT_EQ(A_Err_GENERIC, h.loadPlugin("libm.so.6"));  // a library without the entry point
    EXPECT_NE(std::string::npos, h.loaderError().find("PluginEntry"));
}

}  // namespace
