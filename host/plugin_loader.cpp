// Loading a plug-in module, calling its entry point, and unloading it again.
#include "host/host_state.h"

#include <dlfcn.h>

#include <algorithm>

namespace host {

namespace {

// The interface version this host reports to plug-ins.
constexpr A_long kApiMajorVersion = 13;
constexpr A_long kApiMinorVersion = 2;

template <typename Hooks>
void forgetHooksOf(Hooks& hooks, AEGP_PluginID plugin) {
    std::erase_if(hooks, [&](const auto& h) { return h.plugin == plugin; });
}

}  // namespace

A_Err Host::loadPlugin(const std::string& path) {
    detail::State& s = *state_;
    s.loader_error.clear();
    if (s.plugin.loaded) {
        s.loader_error = "a plug-in is already loaded";
        return A_Err_GENERIC;
    }
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        const char* why = dlerror();
        s.loader_error = why != nullptr ? why : "cannot open " + path;
        return A_Err_GENERIC;
    }
    dlerror();
    void* symbol = dlsym(module, ORBISETT_ENTRY_POINT_NAME);
    if (symbol == nullptr) {
        s.loader_error = path + " has no entry point " ORBISETT_ENTRY_POINT_NAME;
        dlclose(module);
        return A_Err_GENERIC;
    }
    const A_Err err = startPlugin(reinterpret_cast<AEGP_PluginInitFuncPrototype>(symbol), path);
    s.plugin.module = module;
    return err;
}

A_Err Host::startPlugin(AEGP_PluginInitFuncPrototype entry, const std::string& file_path) {
    detail::State& s = *state_;
    if (s.plugin.loaded) {
        s.loader_error = "a plug-in is already loaded";
        return A_Err_GENERIC;
    }
    makeCurrent();
    s.plugin = detail::LoadedPlugin{};
    s.plugin.loaded = true;
    s.plugin.id = s.next_plugin_id++;
    AEGP_GlobalRefcon refcon = nullptr;
    const std::string resource_path = file_path;
    s.plugin.entry_result = detail::callHook(s, "entry", [&] {
        return entry(&s.basic, kApiMajorVersion, kApiMinorVersion, file_path.c_str(), resource_path.c_str(),
                     s.plugin.id, &refcon);
    });
    s.refcons[s.plugin.id] = refcon;
    return s.plugin.entry_result;
}

void Host::unloadPlugin() {
    detail::State& s = *state_;
    if (!s.plugin.loaded) {
        return;
    }
    const AEGP_PluginID id = s.plugin.id;
    // Windows go before the plug-in is told to die, as when the application quits.
    for (detail::Panel& p : s.panels) {
        if (p.plugin == id && p.created) {
            disposePanel(p.match);
        }
    }
    const std::vector<detail::DeathHookEntry> deaths = s.death_hooks;
    for (const auto& h : deaths) {
        if (h.plugin == id) {
            detail::callHook(s, "death", [&] { return h.hook(detail::refconOf(s, id), h.refcon); });
        }
    }
    // Its code is about to go: nothing may call into it any more.
    forgetHooksOf(s.command_hooks, id);
    forgetHooksOf(s.update_menu_hooks, id);
    forgetHooksOf(s.death_hooks, id);
    forgetHooksOf(s.idle_hooks, id);
    forgetHooksOf(s.panels, id);
    if (s.plugin.module != nullptr) {
        dlclose(s.plugin.module);
    }
    s.plugin = detail::LoadedPlugin{};
}

bool Host::pluginLoaded() const { return state_->plugin.loaded; }

AEGP_PluginID Host::pluginId() const { return state_->plugin.id; }

A_Err Host::entryResult() const { return state_->plugin.entry_result; }

const std::string& Host::loaderError() const { return state_->loader_error; }

}  // namespace host
