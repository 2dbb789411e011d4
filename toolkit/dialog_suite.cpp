// ADMDialogSuite9: dialogs as windows or panel views.
#include "toolkit/suite_access.h"

using toolkit::dialogOf;
using toolkit::itemOf;

namespace {

// A new dialog, handed out only once `make` has made it; one that fails, or throws (an allocation
// that fails on the way), is taken down again.
template <typename Make>
ADMDialogRef madeDialog(Make make) {
    auto* dialog = new iADMDialog;
    bool made = false;
    try {
        made = make(*dialog);
    } catch (...) {
        iADMDialog::Destroy(dialog);
        throw;
    }
    if (!made) {
        iADMDialog::Destroy(dialog);
        return nullptr;
    }
    return dialog;
}

ADMDialogRef Create(SPPluginRef /*plugin*/, const char* name, ADMInt32 dialog_id, ADMDialogStyle style,
                    ADMDialogInitProc init_proc, ADMUserData user_data, ADMInt32 options) {
    return madeDialog(
        [&](iADMDialog& dialog) { return dialog.Create(name, dialog_id, style, init_proc, user_data, options); });
}

ADMDialogRef CreatePanel(SPPluginRef /*plugin*/, const char* name, ADMInt32 dialog_id, ADMDialogInitProc init_proc,
                         ADMUserData user_data, AEGP_PanelSuite1* panel_suite, AEGP_PanelH panel,
                         AEGP_PlatformViewRef container, AEGP_PanelFunctions1* out_panel_functions,
                         AEGP_PanelRefcon* out_panel_refcon) {
    return madeDialog([&](iADMDialog& dialog) {
        return dialog.CreatePanel(name, dialog_id, init_proc, user_data, panel_suite, panel, container,
                                  out_panel_functions, out_panel_refcon);
    });
}

void Destroy(ADMDialogRef dialog) { iADMDialog::Destroy(dialogOf(dialog)); }

void SetNotifyProc(ADMDialogRef dialog, ADMDialogNotifyProc proc) {
    if (dialog != nullptr) {
        dialogOf(dialog)->notifyProc = proc;
    }
}

void SetDestroyProc(ADMDialogRef dialog, ADMDialogDestroyProc proc) {
    if (dialog != nullptr) {
        dialogOf(dialog)->destroyProc = proc;
    }
}

void SetUserData(ADMDialogRef dialog, ADMUserData user_data) {
    if (dialog != nullptr) {
        dialogOf(dialog)->userData = user_data;
    }
}

ADMUserData GetUserData(ADMDialogRef dialog) { return dialog != nullptr ? dialogOf(dialog)->userData : nullptr; }

void DefaultNotify(ADMDialogRef dialog, ADMNotifierRef notifier) {
    if (dialog != nullptr && notifier != nullptr) {
        notifier->result = kADMEventNotHandled;
    }
}

void Show(ADMDialogRef dialog, ADMBoolean show) {
    if (dialog != nullptr) {
        dialogOf(dialog)->Show(show != 0);
    }
}

ADMBoolean IsVisible(ADMDialogRef dialog) { return dialog != nullptr && dialogOf(dialog)->IsVisible(); }

ADMBoolean IsEnabled(ADMDialogRef dialog) { return dialog != nullptr && dialogOf(dialog)->IsEnabled(); }

void SetLocalRect(ADMDialogRef dialog, const IASRect* rect) {
    if (dialog != nullptr && rect != nullptr) {
        dialogOf(dialog)->SetLocalRect(*rect);
    }
}

void SetBoundsRect(ADMDialogRef dialog, const IASRect* rect) {
    if (dialog != nullptr && rect != nullptr) {
        dialogOf(dialog)->SetBoundsRect(*rect);
    }
}

void GetBoundsRect(ADMDialogRef dialog, IASRect* rect) {
    if (dialog != nullptr && rect != nullptr) {
        dialogOf(dialog)->GetBoundsRect(*rect);
    }
}

void SetText(ADMDialogRef dialog, const char* text) {
    if (dialog != nullptr) {
        dialogOf(dialog)->SetText(text);
    }
}

ADMItemRef GetItem(ADMDialogRef dialog, ADMInt32 item_id) {
    return dialog != nullptr ? dialogOf(dialog)->GetItem(item_id) : nullptr;
}

ADMItemRef GetNextItem(ADMDialogRef dialog, ADMItemRef item) {
    return dialog != nullptr ? dialogOf(dialog)->GetNextItem(itemOf(item)) : nullptr;
}

ADMItemRef GetFirstItem(ADMDialogRef dialog) { return dialog != nullptr ? dialogOf(dialog)->GetFirstItem() : nullptr; }

}  // namespace

ADMDialogSuite9 g_ADMDialogSuite = {
    .Create = Create,
    .CreatePanel = CreatePanel,
    .Destroy = Destroy,
    .SetNotifyProc = SetNotifyProc,
    .SetDestroyProc = SetDestroyProc,
    .SetUserData = SetUserData,
    .GetUserData = GetUserData,
    .DefaultNotify = DefaultNotify,
    .Show = Show,
    .IsVisible = IsVisible,
    .IsEnabled = IsEnabled,
    .SetLocalRect = SetLocalRect,
    .SetBoundsRect = SetBoundsRect,
    .GetBoundsRect = GetBoundsRect,
    .SetText = SetText,
    .GetItem = GetItem,
    .GetNextItem = GetNextItem,
    .GetFirstItem = GetFirstItem,
};
