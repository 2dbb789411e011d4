// "AEGP Workspace Panel Suite" 1: create-panel hooks by match name, titles and visibility.
#include "host/suite_call.h"
#include "host/suite_tables.h"

#include <algorithm>

namespace host::detail {

namespace {

std::string_view text(const A_u_char* utf8) { return reinterpret_cast<const char*>(utf8); }

// The panel registered under a match name; `body` gets it.
template <typename Body>
A_Err onPanel(const char* function, const A_u_char* utf8_match_name, bool valid, Body&& body) {
    const auto find = [&](State& s) {
        return utf8_match_name != nullptr ? findPanel(s, text(utf8_match_name)) : nullptr;
    };
    return hostCallOn(function, find, valid, body);
}

A_Err registerCreatePanelHook(AEGP_PluginID plugin_id, const A_u_char* utf8_match_name, AEGP_CreatePanelHook hook,
                              AEGP_CreatePanelRefcon refcon, A_Boolean paint_background) {
    const bool valid = given(utf8_match_name, hook) && !text(utf8_match_name).empty();
    return hostCall("AEGP_RegisterCreatePanelHook", valid, [&](State& s) {
        if (findPanel(s, text(utf8_match_name)) != nullptr) {
            return A_Err_PARAMETER;
        }
        Panel panel;
        panel.match = text(utf8_match_name);
        panel.plugin = plugin_id;
        panel.hook = hook;
        panel.refcon = refcon;
        panel.paint_background = paint_background != 0;
        s.panels.push_back(std::move(panel));
        return A_Err_NONE;
    });
}

A_Err unRegisterCreatePanelHook(const A_u_char* utf8_match_name) {
    return onPanel("AEGP_UnRegisterCreatePanelHook", utf8_match_name, true, [&](State& s, Panel& panel) {
        const std::string match = panel.match;
        if (panel.created) {
            s.owner->disposePanel(match);
        }
        std::erase_if(s.panels, [&](const Panel& p) { return p.match == match; });
        return A_Err_NONE;
    });
}

A_Err setTitle(AEGP_PanelH panel, const A_u_char* utf8_name) {
    const auto find = [&](State& s) { return findPanelByHandle(s, panel); };
    return hostCallOn("AEGP_SetTitle", find, given(utf8_name), [&](State&, Panel& p) {
        p.title = text(utf8_name);
        return A_Err_NONE;
    });
}

A_Err toggleVisibility(const A_u_char* utf8_match_name) {
    return onPanel("AEGP_ToggleVisibility", utf8_match_name, true,
                   [&](State& s, Panel& panel) { return togglePanel(s, panel); });
}

A_Err isShown(const A_u_char* utf8_match_name, A_Boolean* tab_is_shown, A_Boolean* panel_is_frontmost) {
    return onPanel("AEGP_IsShown", utf8_match_name, given(tab_is_shown, panel_is_frontmost), [&](State&, Panel& panel) {
        // One panel per frame here: a shown panel is its frame's front tab.
        *tab_is_shown = panel.shown ? 1 : 0;
        *panel_is_frontmost = panel.shown ? 1 : 0;
        return A_Err_NONE;
    });
}

const AEGP_PanelSuite1 kSuite{registerCreatePanelHook, unRegisterCreatePanelHook, setTitle, toggleVisibility, isShown};

const ServedSuite kServed[] = {{kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1, &kSuite}};

}  // namespace

std::span<const ServedSuite> panelSuites() { return kServed; }

}  // namespace host::detail
