// Menus and hooks: unique commands and menu items, command dispatch order with the handled
// flag, the host's own handling, update-menu, idle and death hooks, reports, and exceptions
// that escape plug-in code.
#include "host_fixture.h"

#include <stdexcept>
#include <string>

namespace {

std::vector<std::string> g_log;
AEGP_Command g_item = 0;

A_Err firstHook(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority, A_Boolean already,
                A_Boolean* handled) {
    g_log.push_back("first already=" + std::to_string(already));
    *handled = 1;
    return A_Err_NONE;
}

A_Err catchAll(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command command, AEGP_HookPriority, A_Boolean already,
               A_Boolean* handled) {
    g_log.push_back("all " + std::to_string(command) + " already=" + std::to_string(already));
    *handled = 0;
    return A_Err_NONE;
}

A_Err afterHook(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority priority, A_Boolean already,
                A_Boolean*) {
    g_log.push_back("after p=" + std::to_string(priority) + " already=" + std::to_string(already));
    return A_Err_NONE;
}

A_Err throwingHook(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority, A_Boolean, A_Boolean*) {
    throw std::runtime_error("boom");
}

A_Err failingHook(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority, A_Boolean, A_Boolean*) {
    return A_Err_PARAMETER;
}

A_Err throwingIdle(AEGP_GlobalRefcon, AEGP_IdleRefcon, A_long*) { throw 516; }

A_Err countingIdle(AEGP_GlobalRefcon global, AEGP_IdleRefcon, A_long*) {
    g_log.push_back(global == reinterpret_cast<AEGP_GlobalRefcon>(0x40) ? "idle with refcon" : "idle");
    return A_Err_NONE;
}

A_Err disablingUpdate(AEGP_GlobalRefcon, AEGP_UpdateMenuRefcon, AEGP_WindowType) {
    const void* table = nullptr;
    host::Host::current()->basicSuite()->AcquireSuite(kAEGPCommandSuite, 1, &table);
    static_cast<const AEGP_CommandSuite1*>(table)->AEGP_DisableCommand(g_item);
    static_cast<const AEGP_CommandSuite1*>(table)->AEGP_CheckMarkMenuCommand(g_item, 1);
    host::Host::current()->basicSuite()->ReleaseSuite(kAEGPCommandSuite, 1);
    g_log.push_back("update");
    return A_Err_NONE;
}

A_Err deathHook(AEGP_GlobalRefcon, AEGP_DeathRefcon) {
    g_log.push_back("death");
    return A_Err_NONE;
}

// A plug-in linked in: registers an idle hook and a death hook and sets its global refcon.
A_Err linkedEntry(SPBasicSuite* basic, A_long, A_long, const A_char*, const A_char*, AEGP_PluginID id,
                  AEGP_GlobalRefcon* refcon) {
    const void* table = nullptr;
    basic->AcquireSuite(kAEGPRegisterSuite, 1, &table);
    auto* reg = static_cast<const AEGP_RegisterSuite1*>(table);
    reg->AEGP_RegisterIdleHook(id, countingIdle, nullptr);
    reg->AEGP_RegisterDeathHook(id, deathHook, nullptr);
    basic->ReleaseSuite(kAEGPRegisterSuite, 1);
    *refcon = reinterpret_cast<AEGP_GlobalRefcon>(0x40);
    return A_Err_NONE;
}

class HostHooks : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        g_log.clear();
        ASSERT_EQ(A_Err_NONE, commands()->AEGP_GetUniqueCommand(&g_item));
        ASSERT_EQ(A_Err_NONE, commands()->AEGP_InsertMenuCommand(g_item, "Orbisett", AEGP_Menu_FLOATERS,
                                                                 AEGP_MENU_INSERT_AT_BOTTOM));
    }
};

TEST_F(HostHooks, UniqueCommandsMenuItemsAndRefusedRegistrations) {
    AEGP_Command second = 0;
    ASSERT_EQ(A_Err_NONE, commands()->AEGP_GetUniqueCommand(&second));
    EXPECT_NE(g_item, second);
    EXPECT_NE(0, second);
    ASSERT_EQ(A_Err_NONE,
              commands()->AEGP_InsertMenuCommand(second, "Before", AEGP_Menu_FLOATERS, AEGP_MENU_INSERT_AT_TOP));
    const host::MenuItem* item = h.findMenuItem("Orbisett");
    ASSERT_NE(nullptr, item);
    EXPECT_EQ(AEGP_Menu_FLOATERS, item->menu);
    EXPECT_EQ(1, item->position);
    EXPECT_EQ(0, h.menuItem(second)->position);
    EXPECT_TRUE(item->enabled);
    EXPECT_FALSE(item->checked);
    ASSERT_EQ(A_Err_NONE, commands()->AEGP_CheckMarkMenuCommand(g_item, 1));
    EXPECT_TRUE(h.menuItem(g_item)->checked);
    ASSERT_EQ(A_Err_NONE, commands()->AEGP_RemoveMenuCommand(second));
    EXPECT_EQ(nullptr, h.menuItem(second));
    EXPECT_EQ(0, h.menuItem(g_item)->position);
    // Commands nobody handed out, a second insertion, or a menu that does not exist.
    EXPECT_EQ(A_Err_PARAMETER, commands()->AEGP_InsertMenuCommand(99999, "X", AEGP_Menu_FLOATERS, -1));
    EXPECT_EQ(A_Err_PARAMETER, commands()->AEGP_InsertMenuCommand(g_item, "X", AEGP_Menu_FLOATERS, -1));
    EXPECT_EQ(A_Err_PARAMETER, commands()->AEGP_InsertMenuCommand(second, "X", 42, -1));
    EXPECT_EQ(A_Err_PARAMETER, commands()->AEGP_EnableCommand(second));
    EXPECT_EQ(A_Err_PARAMETER, commands()->AEGP_GetUniqueCommand(nullptr));
    auto* reg = registry();
    EXPECT_EQ(A_Err_PARAMETER, reg->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, g_item, nullptr, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, reg->AEGP_RegisterCommandHook(1, 7, g_item, firstHook, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, reg->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, 123456, firstHook, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, reg->AEGP_RegisterIdleHook(1, nullptr, nullptr));
    EXPECT_EQ(0u, h.hookCount());
}

TEST_F(HostHooks, BeforeHooksThenTheHostThenAfterHooksWithTheHandledFlagChained) {
    auto* reg = registry();
    ASSERT_EQ(A_Err_NONE, reg->AEGP_RegisterCommandHook(1, AEGP_HP_AfterAE, g_item, afterHook, nullptr));
    ASSERT_EQ(A_Err_NONE, reg->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, g_item, firstHook, nullptr));
    ASSERT_EQ(A_Err_NONE, reg->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, 0, catchAll, nullptr));
    ASSERT_EQ(A_Err_NONE, h.doCommand(g_item));
    EXPECT_EQ((std::vector<std::string>{"first already=0", "all " + std::to_string(g_item) + " already=1",
                                        "after p=2 already=1"}),
              g_log);
    ASSERT_EQ(1u, h.commandLog().size());
    EXPECT_TRUE(h.commandLog()[0].handled);  // a later "not handled" does not undo it
    EXPECT_FALSE(h.commandLog()[0].handled_by_host);
}

TEST_F(HostHooks, CommandsNoHookHandlesFallToTheHostAndAHookThatHandlesOneTakesItOver) {
    ASSERT_EQ(A_Err_NONE, registry()->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, 0, catchAll, nullptr));
    h.project().select(comp, {a});
    ASSERT_EQ(A_Err_NONE, h.doCommand(AEGP_Command_DUPLICATE));
    EXPECT_EQ(4u, h.project().comp(comp)->layers.size());
    EXPECT_TRUE(h.commandLog().back().handled_by_host);
    // A command that nobody, not even the host, handles.
    EXPECT_EQ(A_Err_PARAMETER, h.doCommand(g_item));
    EXPECT_FALSE(h.commandLog().back().handled);
    ASSERT_EQ(A_Err_NONE,
              registry()->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, AEGP_Command_DUPLICATE, firstHook, nullptr));
    ASSERT_EQ(A_Err_NONE, h.doCommand(AEGP_Command_DUPLICATE));
    EXPECT_EQ(4u, h.project().comp(comp)->layers.size());
    EXPECT_FALSE(h.commandLog().back().handled_by_host);
}

TEST_F(HostHooks, EscapedExceptionsAreRecordedAndTheHostGoesOn) {
    auto* reg = registry();
    reg->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, g_item, throwingHook, nullptr);
    reg->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, g_item, firstHook, nullptr);
    reg->AEGP_RegisterIdleHook(1, throwingIdle, nullptr);
    EXPECT_EQ(A_Err_GENERIC, h.doCommand(g_item));
    EXPECT_EQ((std::vector<std::string>{"first already=0"}), g_log);
    h.idle(2);
    ASSERT_EQ(3u, h.escapedExceptions().size());
    EXPECT_EQ("command", h.escapedExceptions()[0].hook);
    EXPECT_EQ("boom", h.escapedExceptions()[0].what);
    EXPECT_EQ("idle", h.escapedExceptions()[1].hook);
    EXPECT_EQ("int 516", h.escapedExceptions()[1].what);
}

TEST_F(HostHooks, MenusAreUpdatedBeforeAnItemIsChosen) {
    ASSERT_EQ(A_Err_NONE, registry()->AEGP_RegisterUpdateMenuHook(1, disablingUpdate, nullptr));
    ASSERT_EQ(A_Err_NONE, registry()->AEGP_RegisterCommandHook(1, AEGP_HP_BeforeAE, g_item, firstHook, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, h.chooseMenuItem("Orbisett"));
    EXPECT_EQ((std::vector<std::string>{"update"}), g_log);
    EXPECT_FALSE(h.menuItem(g_item)->enabled);
    EXPECT_TRUE(h.menuItem(g_item)->checked);
    EXPECT_TRUE(h.commandLog().empty());
    EXPECT_EQ(A_Err_PARAMETER, h.chooseMenuItem("No Such Item"));
}

TEST_F(HostHooks, ReportsAreKeptInOrderWithTheAlertsForFailedCommands) {
    ASSERT_EQ(A_Err_NONE, utility()->AEGP_ReportInfo(3, "Could not add menu item."));
    ASSERT_EQ(A_Err_NONE, utility()->AEGP_ReportInfo(3, "second"));
    EXPECT_EQ(A_Err_PARAMETER, utility()->AEGP_ReportInfo(3, nullptr));
    ASSERT_EQ(A_Err_NONE, registry()->AEGP_RegisterCommandHook(4, AEGP_HP_AfterAE, 0, failingHook, nullptr));
    EXPECT_EQ(A_Err_PARAMETER, h.doCommand(g_item));
    ASSERT_EQ(3u, h.reports().size());
    EXPECT_EQ("Could not add menu item.", h.reports()[0].text);
    EXPECT_EQ(3, h.reports()[0].plugin);
    EXPECT_EQ("The command \"Orbisett\" failed: error 3.", h.reports()[2].text);
    EXPECT_EQ(4, h.reports()[2].plugin);
}

// One plug-in at a time (loading a module from a file ends in the same start).
TEST_F(HostHooks, PluginsGetTheirRefconAndDieOnUnload) {
    ASSERT_EQ(A_Err_NONE, h.startPlugin(linkedEntry));
    EXPECT_TRUE(h.pluginLoaded());
    EXPECT_NE(0, h.pluginId());
    EXPECT_EQ(A_Err_GENERIC, h.startPlugin(linkedEntry));
    EXPECT_EQ(2u, h.hookCount());
    h.idle();
    EXPECT_EQ((std::vector<std::string>{"idle with refcon"}), g_log);
    h.unloadPlugin();
    EXPECT_EQ((std::vector<std::string>{"idle with refcon", "death"}), g_log);
    EXPECT_EQ(0u, h.hookCount());
    EXPECT_EQ(0, h.pluginId());
    h.idle();
    EXPECT_EQ(2u, g_log.size());
    EXPECT_EQ(1, h.acquireCount(kAEGPRegisterSuite, 1));
    EXPECT_EQ(1, h.releaseCount(kAEGPRegisterSuite, 1));
}

}  // namespace
