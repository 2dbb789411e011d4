// The dialog's life: creation as a window or as a panel view, and destruction.
#include "toolkit/iADMDialog.h"
#include "toolkit/window_styles.h"

#include <cstring>
#include <iterator>

namespace {

// Every window starts at this size; the dialog's own Init sizes it.
constexpr Rect kInitialWindowBounds{0, 0, 400, 600};

constexpr EventTypeSpec kWindowEvents[] = {
    {kEventClassWindow, kEventWindowCloseRequested},
    {kEventClassWindow, kEventWindowClosed},
};

constexpr EventTypeSpec kPanelEvents[] = {
    {kEventClassControl, kEventControlDispose},
    {kEventClassControl, kEventControlDraw},
};

}  // namespace

iADMDialog::iADMDialog() = default;

iADMDialog::~iADMDialog() {
    destroying = true;
    if (destroyProc != nullptr) {
        destroyProc(this);
    }
    // The container view outlives a panel dialog: its handler must not reach this object again.
    if (panelHandler != nullptr) {
        RemoveEventHandler(panelHandler);
    }
    if (window != nullptr) {
        DisposeWindow(window);  // takes the controls in it and their handlers along
    }
    // Controls that stay behind (in a panel view) must not call into the released items.
    for (iADMItem& item : items) {
        item.detachHandler();
    }
}

void iADMDialog::Destroy(iADMDialog* dialog) {
    if (dialog == nullptr || dialog->destroying) {
        return;
    }
    delete dialog;
}

void iADMDialog::prepare(const char* dialog_name, ADMUserData user_data) {
    if (dialog_name != nullptr) {
        std::strncpy(name, dialog_name, kNameLength - 1);
        name[kNameLength - 1] = '\0';
    }
    userData = user_data;
    items.reserve(kMaxItems);
}

bool iADMDialog::runInit(ADMDialogInitProc init_proc) { return init_proc == nullptr || init_proc(this) == 0; }

bool iADMDialog::Create(const char* dialog_name, ADMInt32 /*dialog_id*/, ADMDialogStyle style,
                        ADMDialogInitProc init_proc, ADMUserData user_data, ADMInt32 /*options*/) {
    prepare(dialog_name, user_data);
    const auto kind = toolkit::windowKindForStyle(style);
    if (!kind) {
        return false;  // no window class stands for this style
    }
    if (CreateNewWindow(kind->windowClass, kind->attributes, &kInitialWindowBounds, &window) != noErr ||
        window == nullptr) {
        window = nullptr;
        return false;
    }
    SetThemeWindowBackground(window, kThemeBrushDialogBackgroundActive, false);
    SetPortWindowPort(window);
    UseThemeFont(kThemeMiniSystemFont, smSystemScript);
    CreateRootControl(window, &rootView);
    GetRootControl(window, &rootView);

    if (InstallEventHandler(GetWindowEventTarget(window), NewEventHandlerUPP(S_EventHandler), std::size(kWindowEvents),
                            kWindowEvents, this, nullptr) != noErr) {
        return false;
    }
    return runInit(init_proc);
}

bool iADMDialog::CreatePanel(const char* dialog_name, ADMInt32 /*dialog_id*/, ADMDialogInitProc init_proc,
                             ADMUserData user_data, AEGP_PanelSuite1* suite, AEGP_PanelH panel_handle,
                             AEGP_PlatformViewRef container, AEGP_PanelFunctions1* out_functions,
                             AEGP_PanelRefcon* out_refcon) {
    prepare(dialog_name, user_data);
    panel = panel_handle;
    rootView = container;
    panelSuite = suite;
    if (out_functions != nullptr) {
        out_functions->GetSnapSizes = S_GetSnapSizes;
        out_functions->PopulateFlyout = nullptr;
        out_functions->DoFlyoutCommand = nullptr;
    }
    if (out_refcon != nullptr) {
        *out_refcon = reinterpret_cast<AEGP_PanelRefcon>(this);
    }
    if (!installPanelHandler()) {
        return false;
    }
    return runInit(init_proc);
}

bool iADMDialog::installPanelHandler() {
    EventTargetRef target = rootView != nullptr ? GetControlEventTarget(rootView) : nullptr;
    if (target == nullptr) {
        return false;
    }
    return InstallEventHandler(target, NewEventHandlerUPP(S_PanelEventHandler), std::size(kPanelEvents), kPanelEvents,
                               this, &panelHandler) == noErr;
}
