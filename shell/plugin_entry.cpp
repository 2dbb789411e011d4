// The plug-in's face to the host: the exported entry point and the hooks it registers.

#include "controls/product.h"
#include "cylinder/MainDlg.h"
#include "shell/global_suites.h"
#include "shell/suite_handler.h"

#include <cstdio>

namespace {

AEGP_PluginID _plugin_id = 0;
AEGP_Command _cmd_id = 0;
char _dialog_id[256] = {};
MainDlg* _main_dlg = nullptr;  // owned: created by init, deleted by deinit

const A_u_char* match_name() { return reinterpret_cast<const A_u_char*>(_dialog_id); }

// Re-reads the host's selection and greys or un-greys the whole dialog accordingly.
void refresh_dialog() {
    const bool arrangeable = _main_dlg->isCurSelectionContains(kArrangeableLayersMask);
    _main_dlg->OnHostHasChanged();
    _main_dlg->Enable(arrangeable);
}

A_Err init() {
    try {
        adm::acquireSuites();
        _main_dlg = nullptr;
        _main_dlg = new MainDlg(_plugin_id);
        // The window may come and go; the dialog object lives until the death hook.
        _main_dlg->deleteOnDestroy = false;
        return A_Err_NONE;
    } catch (int err) {
        return err;
    } catch (...) {
        return A_Err_GENERIC;
    }
}

A_Err deinit() {
    if (_main_dlg != nullptr) {
        sADMDialog->Show(_main_dlg->dialog, false);
        delete _main_dlg;
    }
    _main_dlg = nullptr;
    adm::releaseSuites();
    return A_Err_NONE;
}

A_Err on_command(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority, A_Boolean,
                 A_Boolean* handled) {
    try {
        AEGP_SuiteHandler suites(sSPBasic);
        if (_main_dlg == nullptr) {
            return A_Err_GENERIC;
        }
        if (sAEGPPanelSuite != nullptr) {
            // The host builds the panel's contents through on_create_panel the first time.
            sAEGPPanelSuite->AEGP_ToggleVisibility(match_name());
        } else if (_main_dlg->dialog == nullptr) {
            _main_dlg->Create(nullptr, _dialog_id, 0, kADMTabbedFloatingDialogStyle, 0);
            sADMDialog->Show(_main_dlg->dialog, false);
            _main_dlg->Enable(false);
        }
        refresh_dialog();
        if (sAEGPPanelSuite == nullptr) {
            sADMDialog->Show(_main_dlg->dialog, true);
        }
        *handled = true;
        return A_Err_NONE;
    } catch (int err) {
        return err;
    } catch (...) {
        *handled = false;
        return A_Err_GENERIC;
    }
}

A_Err on_all_command(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority, A_Boolean,
                     A_Boolean* handled) {
    *handled = false;
    return A_Err_NONE;
}

A_Err on_update_menu(AEGP_GlobalRefcon, AEGP_UpdateMenuRefcon, AEGP_WindowType) {
    try {
        AEGP_SuiteHandler suites(sSPBasic);
        const bool visible = _main_dlg != nullptr && sADMDialog->IsVisible(_main_dlg->dialog);
        if (A_Err err = suites.CommandSuite1()->AEGP_CheckMarkMenuCommand(_cmd_id, visible)) {
            throw static_cast<int>(err);
        }
        const bool arrangeable = _main_dlg != nullptr && _main_dlg->isCurSelectionContains(kArrangeableLayersMask);
        A_Err err = arrangeable ? suites.CommandSuite1()->AEGP_EnableCommand(_cmd_id)
                                : suites.CommandSuite1()->AEGP_DisableCommand(_cmd_id);
        if (err) {
            throw static_cast<int>(err);
        }
        return A_Err_NONE;
    } catch (int err) {
        return err;
    } catch (...) {
        return A_Err_GENERIC;
    }
}

A_Err on_idle(AEGP_GlobalRefcon, AEGP_IdleRefcon, A_long*) {
    try {
        AEGP_SuiteHandler suites(sSPBasic);
        if (_main_dlg != nullptr && _main_dlg->dialog != nullptr) {
            refresh_dialog();
        }
        return A_Err_NONE;
    } catch (int err) {
        return err;
    } catch (...) {
        return A_Err_GENERIC;
    }
}

// Catches nothing: the host sees what goes wrong while it builds its panel.
A_Err on_create_panel(AEGP_GlobalRefcon, AEGP_CreatePanelRefcon, AEGP_PlatformViewRef container, AEGP_PanelH panel,
                      AEGP_PanelFunctions1* out_functions, AEGP_PanelRefcon* out_refcon) {
    AEGP_SuiteHandler suites(sSPBasic);
    _main_dlg->CreatePanel(nullptr, _dialog_id, 0, sAEGPPanelSuite, panel, container, out_functions, out_refcon);
    refresh_dialog();
    return A_Err_NONE;
}

A_Err on_destroy(AEGP_GlobalRefcon, AEGP_DeathRefcon) { return deinit(); }

// Registers the command and menu hooks, then the panel hook where the host has panels.
A_Err register_hooks(const AEGP_SuiteHandler& suites) {
    AEGP_RegisterSuite1* reg = suites.RegisterSuite1();
    A_Err err = reg->AEGP_RegisterCommandHook(_plugin_id, AEGP_HP_BeforeAE, _cmd_id, on_command, nullptr);
    if (!err) {
        err = reg->AEGP_RegisterCommandHook(_plugin_id, AEGP_HP_BeforeAE, 0, on_all_command, nullptr);
    }
    if (!err) {
        err = reg->AEGP_RegisterUpdateMenuHook(_plugin_id, on_update_menu, nullptr);
    }
    if (!err) {
        err = reg->AEGP_RegisterIdleHook(_plugin_id, on_idle, nullptr);
    }
    if (!err && sAEGPPanelSuite != nullptr) {
        err = sAEGPPanelSuite->AEGP_RegisterCreatePanelHook(_plugin_id, match_name(), on_create_panel, nullptr, true);
    }
    return err;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) A_Err PluginEntry(SPBasicSuite* pica_basic, A_long, A_long,
                                                                    const A_char*, const A_char*,
                                                                    AEGP_PluginID plugin_id, AEGP_GlobalRefcon*) {
    _plugin_id = plugin_id;
    sSPBasic = pica_basic;
    AEGP_SuiteHandler suites(sSPBasic);
    std::snprintf(_dialog_id, sizeof _dialog_id, "DE_%s v%i.%i", kProductName, kProductMajorVersion,
                  kProductMinorVersion);

    if (suites.RegisterSuite1()->AEGP_RegisterDeathHook(_plugin_id, on_destroy, nullptr) != A_Err_NONE) {
        return suites.UtilitySuite3()->AEGP_ReportInfo(_plugin_id, "Could not register death hook.");
    }
    if (A_Err err = init()) {
        return err;
    }

    AEGP_CommandSuite1* commands = suites.CommandSuite1();
    if (commands->AEGP_GetUniqueCommand(&_cmd_id) != A_Err_NONE || _cmd_id == 0) {
        // Without a command of our own, hooking command 0 would catch every command of the host,
        // so nothing more is set up; the death hook still tears down what init made.
        return suites.UtilitySuite3()->AEGP_ReportInfo(_plugin_id, "Could not add menu item.");
    }
    A_Err err = commands->AEGP_InsertMenuCommand(_cmd_id, kProductName, AEGP_Menu_FLOATERS, AEGP_MENU_INSERT_AT_BOTTOM);
    if (!err) {
        err = register_hooks(suites);
    }
    if (err) {
        suites.UtilitySuite3()->AEGP_ReportInfo(_plugin_id, "Could not register command hook.");
    }
    return err;
}
