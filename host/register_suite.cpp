// "AEGP Register Suite" 1: hooks for commands, menu updates, idle time and unloading.
#include "host/suite_call.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

A_Err registerCommandHook(AEGP_PluginID plugin_id, AEGP_HookPriority priority, AEGP_Command command,
                          AEGP_CommandHook hook, AEGP_CommandRefcon refcon) {
    const bool valid = given(hook) && (priority == AEGP_HP_BeforeAE || priority == AEGP_HP_AfterAE) && command >= 0;
    return hostCall("AEGP_RegisterCommandHook", valid, [&](State& s) {
        if (command != 0 && !isKnownCommand(s, command)) {
            return A_Err_PARAMETER;
        }
        s.command_hooks.push_back(CommandHookEntry{{plugin_id, hook, refcon}, priority, command});
        return A_Err_NONE;
    });
}

// The hooks that are registered with nothing but the function and its refcon.
template <auto Hooks, typename Hook, typename Refcon>
A_Err registerHook(const char* function, AEGP_PluginID plugin_id, Hook hook, Refcon refcon) {
    return hostCall(function, hook != nullptr, [&](State& s) {
        (s.*Hooks).push_back({plugin_id, hook, refcon});
        return A_Err_NONE;
    });
}

A_Err registerUpdateMenuHook(AEGP_PluginID plugin_id, AEGP_UpdateMenuHook hook, AEGP_UpdateMenuRefcon refcon) {
    return registerHook<&State::update_menu_hooks>("AEGP_RegisterUpdateMenuHook", plugin_id, hook, refcon);
}

A_Err registerDeathHook(AEGP_PluginID plugin_id, AEGP_DeathHook hook, AEGP_DeathRefcon refcon) {
    return registerHook<&State::death_hooks>("AEGP_RegisterDeathHook", plugin_id, hook, refcon);
}

A_Err registerIdleHook(AEGP_PluginID plugin_id, AEGP_IdleHook hook, AEGP_IdleRefcon refcon) {
    return registerHook<&State::idle_hooks>("AEGP_RegisterIdleHook", plugin_id, hook, refcon);
}

const AEGP_RegisterSuite1 kSuite{registerCommandHook, registerUpdateMenuHook, registerDeathHook, registerIdleHook};

const ServedSuite kServed[] = {{kAEGPRegisterSuite, kAEGPRegisterSuiteVersion1, &kSuite}};

}  // namespace

std::span<const ServedSuite> registerSuites() { return kServed; }

}  // namespace host::detail
