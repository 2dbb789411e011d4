// A minimal plug-in module for the host's loader tests: it registers an idle hook and a death
// hook, each of which leaves a report, and hands back a global refcon.
#include "host_api.h"

namespace {

SPBasicSuite* g_basic = nullptr;
AEGP_PluginID g_id = 0;
int g_marker = 0;

void report(const char* text) {
    const void* table = nullptr;
    if (g_basic->AcquireSuite(kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3, &table) == A_Err_NONE) {
        static_cast<const AEGP_UtilitySuite3*>(table)->AEGP_ReportInfo(g_id, text);
        g_basic->ReleaseSuite(kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3);
    }
}

A_Err onIdle(AEGP_GlobalRefcon refcon, AEGP_IdleRefcon, A_long*) {
    report(refcon == reinterpret_cast<AEGP_GlobalRefcon>(&g_marker) ? "idle" : "idle without refcon");
    return A_Err_NONE;
}

A_Err onDeath(AEGP_GlobalRefcon, AEGP_DeathRefcon) {
    report("death");
    return A_Err_NONE;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) A_Err PluginEntry(SPBasicSuite* basic, A_long, A_long,
                                                                    const A_char*, const A_char*, AEGP_PluginID id,
                                                                    AEGP_GlobalRefcon* refcon) {
    g_basic = basic;
    g_id = id;
    const void* table = nullptr;
    A_Err err = basic->AcquireSuite(kAEGPRegisterSuite, kAEGPRegisterSuiteVersion1, &table);
    if (err != A_Err_NONE) {
        return err;
    }
    auto* reg = static_cast<const AEGP_RegisterSuite1*>(table);
    err = reg->AEGP_RegisterIdleHook(id, onIdle, nullptr);
    if (err == A_Err_NONE) {
        err = reg->AEGP_RegisterDeathHook(id, onDeath, nullptr);
    }
    basic->ReleaseSuite(kAEGPRegisterSuite, kAEGPRegisterSuiteVersion1);
    *refcon = reinterpret_cast<AEGP_GlobalRefcon>(&g_marker);
    return err;
}
