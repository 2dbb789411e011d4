// A dialog of the dialog manager: a platform window the toolkit owns, or a view inside a host
// workspace panel it attaches to. Keeps the procs, the user data and the controls.
#pragma once

#include "adm_suites.h"
#include "platform/platform.h"
#include "toolkit/iADMItem.h"

#include <cstddef>
#include <vector>

// The dialog manager's dialog reference points at the dialog.
struct _Opaque_ADMDialog {};

class iADMDialog : public _Opaque_ADMDialog {
public:
    // Control references point into the item array, which therefore never grows past this.
    static constexpr std::size_t kMaxItems = 100;
    static constexpr int16_t kFirstMenuId = 16000;
    static constexpr std::size_t kNameLength = 256;

    iADMDialog();
    ~iADMDialog();
    iADMDialog(const iADMDialog&) = delete;
    iADMDialog& operator=(const iADMDialog&) = delete;

    // Destroys and releases a dialog unless it is already being destroyed.
    static void Destroy(iADMDialog* dialog);

    bool Create(const char* dialog_name, ADMInt32 dialog_id, ADMDialogStyle style, ADMDialogInitProc init_proc,
                ADMUserData user_data, ADMInt32 options);
    bool CreatePanel(const char* dialog_name, ADMInt32 dialog_id, ADMDialogInitProc init_proc, ADMUserData user_data,
                     AEGP_PanelSuite1* suite, AEGP_PanelH panel_handle, AEGP_PlatformViewRef container,
                     AEGP_PanelFunctions1* out_functions, AEGP_PanelRefcon* out_refcon);

    void Show(bool show);
    bool IsVisible() const;
    bool IsEnabled() const;
    void SetText(const char* text);
    void SetBoundsRect(const IASRect& r);
    void GetBoundsRect(IASRect& r) const;
    void SetLocalRect(const IASRect& r);

    iADMItem* GetItem(ADMInt32 item_id);
    iADMItem* GetNextItem(const iADMItem* item);
    iADMItem* GetFirstItem();
    // Appends a new item, or answers null when the dialog already holds kMaxItems.
    iADMItem* AddItem();
    // Puts every frame behind all other controls and labels.
    void restackFramesBehind();

    bool isPanel() const { return window == nullptr; }
    void notify(ADMNotifierRef notifier);

    static OSStatus S_EventHandler(EventHandlerCallRef call, EventRef event, void* user_data);
    static OSStatus S_PanelEventHandler(EventHandlerCallRef call, EventRef event, void* user_data);
    static A_Err S_GetSnapSizes(AEGP_PanelRefcon refcon, A_LPoint* snap_sizes, A_long* num_sizes);
    static void SetColorFromSelector(CGContextRef context, PFAppSuite2* app_suite, PF_App_ColorType color);

    WindowRef window = nullptr;
    AEGP_PanelH panel = nullptr;
    ControlRef rootView = nullptr;
    AEGP_PanelSuite1* panelSuite = nullptr;
    ADMDialogNotifyProc notifyProc = nullptr;
    ADMDialogDestroyProc destroyProc = nullptr;
    ADMUserData userData = nullptr;
    IASRect panelBounds{};
    char name[kNameLength]{};
    int16_t nextMenuId = kFirstMenuId;
    bool destroying = false;
    std::vector<iADMItem> items;

private:
    void prepare(const char* dialog_name, ADMUserData user_data);
    bool runInit(ADMDialogInitProc init_proc);
    bool installPanelHandler();

    EventHandlerRef panelHandler = nullptr;
};
