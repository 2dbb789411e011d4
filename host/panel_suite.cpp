// "AEGP Workspace Panel Suite" 1: create-panel hooks by match name, titles and visibility.
#include "host/host_state.h"
#include "host/suite_tables.h"

#include <algorithm>

namespace host::detail {

namespace {

std::string_view text(const A_u_char* utf8) { return reinterpret_cast<const char*>(utf8); }

A_Err registerCreatePanelHook(AEGP_PluginID plugin_id, const A_u_char* utf8_match_name, AEGP_CreatePanelHook hook,
                              AEGP_CreatePanelRefcon refcon, A_Boolean paint_background) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_RegisterCreatePanelHook", err);
    if (s == nullptr) {
        return err;
    }
    if (utf8_match_name == nullptr || hook == nullptr || text(utf8_match_name).empty() ||
        findPanel(*s, text(utf8_match_name)) != nullptr) {
        return A_Err_PARAMETER;
    }
    Panel panel;
    panel.match = text(utf8_match_name);
    panel.plugin = plugin_id;
    panel.hook = hook;
    panel.refcon = refcon;
    panel.paint_background = paint_background != 0;
    s->panels.push_back(std::move(panel));
    return A_Err_NONE;
}

A_Err unRegisterCreatePanelHook(const A_u_char* utf8_match_name) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_UnRegisterCreatePanelHook", err);
    if (s == nullptr) {
        return err;
    }
    Panel* panel = utf8_match_name != nullptr ? findPanel(*s, text(utf8_match_name)) : nullptr;
    if (panel == nullptr) {
        return A_Err_PARAMETER;
    }
    const std::string match = panel->match;
    if (panel->created) {
        s->owner->disposePanel(match);
    }
    std::erase_if(s->panels, [&](const Panel& p) { return p.match == match; });
    return A_Err_NONE;
}

A_Err setTitle(AEGP_PanelH panel, const A_u_char* utf8_name) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_SetTitle", err);
    if (s == nullptr) {
        return err;
    }
    Panel* p = findPanelByHandle(*s, panel);
    if (p == nullptr || utf8_name == nullptr) {
        return A_Err_PARAMETER;
    }
    p->title = text(utf8_name);
    return A_Err_NONE;
}

A_Err toggleVisibility(const A_u_char* utf8_match_name) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_ToggleVisibility", err);
    if (s == nullptr) {
        return err;
    }
    Panel* panel = utf8_match_name != nullptr ? findPanel(*s, text(utf8_match_name)) : nullptr;
    if (panel == nullptr) {
        return A_Err_PARAMETER;
    }
    return togglePanel(*s, *panel);
}

A_Err isShown(const A_u_char* utf8_match_name, A_Boolean* tab_is_shown, A_Boolean* panel_is_frontmost) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_IsShown", err);
    if (s == nullptr) {
        return err;
    }
    Panel* panel = utf8_match_name != nullptr ? findPanel(*s, text(utf8_match_name)) : nullptr;
    if (panel == nullptr || tab_is_shown == nullptr || panel_is_frontmost == nullptr) {
        return A_Err_PARAMETER;
    }
    // One panel per frame here: a shown panel is its frame's front tab.
    *tab_is_shown = panel->shown ? 1 : 0;
    *panel_is_frontmost = panel->shown ? 1 : 0;
    return A_Err_NONE;
}

const AEGP_PanelSuite1 kSuite{registerCreatePanelHook, unRegisterCreatePanelHook, setTitle, toggleVisibility, isShown};

}  // namespace

const AEGP_PanelSuite1* panelSuite1() { return &kSuite; }

}  // namespace host::detail
