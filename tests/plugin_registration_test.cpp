// Start-up against a host that refuses parts of the registration. That unloading then leaves
// nothing behind is the fault sweep's to check, for every call of the start-up.
#include "plugin_fixture.h"

namespace {

class Registration : public PluginTest {
protected:
    A_Err start() { return host_->loadPlugin(ORBISETT_MODULE_PATH); }

    std::vector<std::string> report_texts() const {
        std::vector<std::string> texts;
        for (const host::Report& report : host_->reports()) {
            texts.push_back(report.text);
        }
        return texts;
    }
};

TEST_F(Registration, EverythingRegisteredOnAHostWithPanels) {
    ASSERT_EQ(A_Err_NONE, start());
    EXPECT_TRUE(host_->reports().empty());
    // Death, command, catch-all command, update menu, idle, create panel.
    EXPECT_EQ(6u, host_->hookCount());
    EXPECT_NE(nullptr, menu_item());
}

TEST_F(Registration, RefusedDeathHookIsReportedAndNothingElseIsSetUp) {
    host_->failFunction("AEGP_RegisterDeathHook", A_Err_GENERIC);
    EXPECT_EQ(A_Err_NONE, start()) << "the result of the report";
    EXPECT_EQ(std::vector<std::string>{"Could not register death hook."}, report_texts());
    EXPECT_EQ(0u, host_->hookCount());
    EXPECT_EQ(nullptr, menu_item());
}

TEST_F(Registration, FailedReportOfTheDeathHookIsTheEntryResult) {
    host_->failFunction("AEGP_RegisterDeathHook", A_Err_GENERIC);
    host_->failFunction("AEGP_ReportInfo", A_Err_ALLOC);
    EXPECT_EQ(A_Err_ALLOC, start());
    EXPECT_EQ(A_Err_ALLOC, host_->entryResult());
}

TEST_F(Registration, OnlyAModuleWithAnEntryPointLoadsAndOnlyOne) {
    EXPECT_EQ(A_Err_GENERIC, host_->loadPlugin("/nonexistent/plugin.so"));
    EXPECT_FALSE(host_->loaderError().empty());
    EXPECT_EQ(A_Err_GENERIC, host_->loadPlugin("libm.so.6"));  // a library without the entry point
    EXPECT_NE(std::string::npos, host_->loaderError().find("PluginEntry"));
    EXPECT_FALSE(host_->pluginLoaded());
    ASSERT_EQ(A_Err_NONE, start());
    EXPECT_EQ(A_Err_GENERIC, start());
}

TEST_F(Registration, NoUniqueCommandIsReportedAndNoCommandIsHooked) {
    host_->failFunction("AEGP_GetUniqueCommand", A_Err_GENERIC);
    EXPECT_EQ(A_Err_NONE, start());
    EXPECT_EQ(std::vector<std::string>{"Could not add menu item."}, report_texts());
    EXPECT_EQ(1u, host_->hookCount()) << "only the death hook, which tears down what start-up made";
    EXPECT_EQ(nullptr, menu_item());

    // Host commands pass untouched.
    select({cards_[0]});
    const std::size_t layers = host_->project().comp(comp_)->layers.size();
    ASSERT_EQ(A_Err_NONE, host_->doCommand(AEGP_Command_DUPLICATE));
    EXPECT_EQ(layers + 1, host_->project().comp(comp_)->layers.size());
}

TEST_F(Registration, EachRefusedHookIsReportedWithItsError) {
    for (const char* function : {"AEGP_InsertMenuCommand", "AEGP_RegisterCommandHook", "AEGP_RegisterUpdateMenuHook",
                                 "AEGP_RegisterIdleHook", "AEGP_RegisterCreatePanelHook"}) {
        SCOPED_TRACE(function);
        TearDown();
        SetUp();
        host_->failFunction(function, 37);
        EXPECT_EQ(37, start());
        EXPECT_EQ(std::vector<std::string>{"Could not register command hook."}, report_texts());
    }
}

}  // namespace
