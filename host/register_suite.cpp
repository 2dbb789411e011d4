// "AEGP Register Suite" 1: hooks for commands, menu updates, idle time and unloading.
#include "host/host_state.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

A_Err registerCommandHook(AEGP_PluginID plugin_id, AEGP_HookPriority priority, AEGP_Command command,
                          AEGP_CommandHook hook, AEGP_CommandRefcon refcon) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_RegisterCommandHook", err);
    if (s == nullptr) {
        return err;
    }
    if (hook == nullptr || (priority != AEGP_HP_BeforeAE && priority != AEGP_HP_AfterAE) || command < 0 ||
        (command != 0 && !isKnownCommand(*s, command))) {
        return A_Err_PARAMETER;
    }
    s->command_hooks.push_back(CommandHookEntry{plugin_id, priority, command, hook, refcon});
    return A_Err_NONE;
}

A_Err registerUpdateMenuHook(AEGP_PluginID plugin_id, AEGP_UpdateMenuHook hook, AEGP_UpdateMenuRefcon refcon) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_RegisterUpdateMenuHook", err);
    if (s == nullptr) {
        return err;
    }
    if (hook == nullptr) {
        return A_Err_PARAMETER;
    }
    s->update_menu_hooks.push_back(UpdateMenuHookEntry{plugin_id, hook, refcon});
    return A_Err_NONE;
}

A_Err registerDeathHook(AEGP_PluginID plugin_id, AEGP_DeathHook hook, AEGP_DeathRefcon refcon) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_RegisterDeathHook", err);
    if (s == nullptr) {
        return err;
    }
    if (hook == nullptr) {
        return A_Err_PARAMETER;
    }
    s->death_hooks.push_back(DeathHookEntry{plugin_id, hook, refcon});
    return A_Err_NONE;
}

A_Err registerIdleHook(AEGP_PluginID plugin_id, AEGP_IdleHook hook, AEGP_IdleRefcon refcon) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_RegisterIdleHook", err);
    if (s == nullptr) {
        return err;
    }
    if (hook == nullptr) {
        return A_Err_PARAMETER;
    }
    s->idle_hooks.push_back(IdleHookEntry{plugin_id, hook, refcon});
    return A_Err_NONE;
}

const AEGP_RegisterSuite1 kSuite{registerCommandHook, registerUpdateMenuHook, registerDeathHook, registerIdleHook};

}  // namespace

const AEGP_RegisterSuite1* registerSuite1() { return &kSuite; }

}  // namespace host::detail
