// The dialog-manager suites. The plug-in does not acquire them from the host: it carries its own
// tables (g_ADM...Suite, filled by the toolkit) and reaches them through the global pointers
// sADM..., which point at those tables from the start. Every function absorbs a null first
// reference: it does nothing and returns null, 0 or false.
#pragma once

#include "adm_types.h"
#include "host_suites.h"

struct ADMBasicSuite8 {
    ADMBoolean (*GetScreenDimensions)(const IASPoint* point, IASRect* dimensions);
};

struct ADMDialogSuite9 {
    ADMDialogRef (*Create)(SPPluginRef plugin, const char* name, ADMInt32 dialog_id, ADMDialogStyle style,
                           ADMDialogInitProc init_proc, ADMUserData user_data, ADMInt32 options);
    ADMDialogRef (*CreatePanel)(SPPluginRef plugin, const char* name, ADMInt32 dialog_id, ADMDialogInitProc init_proc,
                                ADMUserData user_data, AEGP_PanelSuite1* panel_suite, AEGP_PanelH panel,
                                AEGP_PlatformViewRef container, AEGP_PanelFunctions1* out_panel_functions,
                                AEGP_PanelRefcon* out_panel_refcon);
    void (*Destroy)(ADMDialogRef dialog);
    void (*SetNotifyProc)(ADMDialogRef dialog, ADMDialogNotifyProc proc);
    void (*SetDestroyProc)(ADMDialogRef dialog, ADMDialogDestroyProc proc);
    void (*SetUserData)(ADMDialogRef dialog, ADMUserData user_data);
    ADMUserData (*GetUserData)(ADMDialogRef dialog);
    void (*DefaultNotify)(ADMDialogRef dialog, ADMNotifierRef notifier);
    void (*Show)(ADMDialogRef dialog, ADMBoolean show);
    ADMBoolean (*IsVisible)(ADMDialogRef dialog);
    ADMBoolean (*IsEnabled)(ADMDialogRef dialog);
    void (*SetLocalRect)(ADMDialogRef dialog, const IASRect* rect);
    void (*SetBoundsRect)(ADMDialogRef dialog, const IASRect* rect);
    void (*GetBoundsRect)(ADMDialogRef dialog, IASRect* rect);
    void (*SetText)(ADMDialogRef dialog, const char* text);
    ADMItemRef (*GetItem)(ADMDialogRef dialog, ADMInt32 item_id);
    ADMItemRef (*GetNextItem)(ADMDialogRef dialog, ADMItemRef item);
    // The dialog's first control in creation order, or null: the way into the GetNextItem chain.
    ADMItemRef (*GetFirstItem)(ADMDialogRef dialog);
};

struct ADMItemSuite10 {
    ADMItemRef (*Create)(ADMDialogRef dialog, ADMInt32 item_id, const char* item_type, const IASRect* bounds,
                         ADMItemInitProc init_proc, ADMUserData user_data, ADMInt32 options);
    void (*Destroy)(ADMItemRef item);
    ADMInt32 (*GetID)(ADMItemRef item);
    ADMListRef (*GetList)(ADMItemRef item);
    void (*Show)(ADMItemRef item, ADMBoolean show);
    void (*Enable)(ADMItemRef item, ADMBoolean enable);
    ADMBoolean (*IsEnabled)(ADMItemRef item);
    void (*SetLocalRect)(ADMItemRef item, const IASRect* rect);
    void (*GetBoundsRect)(ADMItemRef item, IASRect* rect);
    void (*GetBestSize)(ADMItemRef item, IASPoint* size);
    void (*SetFont)(ADMItemRef item, ADMFont font);
    void (*SetText)(ADMItemRef item, const char* text);
    // Copies the item's text (Mac Roman) into the buffer; false when there is none to read.
    ADMBoolean (*GetText)(ADMItemRef item, char* text, ADMInt32 max_length);
    void (*SetBooleanValue)(ADMItemRef item, ADMBoolean value);
    ADMBoolean (*GetBooleanValue)(ADMItemRef item);
    ADMInt32 (*GetIntValue)(ADMItemRef item);
    ADMFloat (*GetFloatValue)(ADMItemRef item);
    void (*SetFloatValue)(ADMItemRef item, ADMFloat value);
    void (*SetMinFloatValue)(ADMItemRef item, ADMFloat value);
    void (*SetMaxFloatValue)(ADMItemRef item, ADMFloat value);
    ADMBoolean (*DefaultFloatToText)(ADMItemRef item, ADMFloat value, char* text, ADMInt32 max_length);
    ADMBoolean (*DefaultTextToFloat)(ADMItemRef item, const char* text, ADMFloat* value);
    void (*SetItemStyle)(ADMItemRef item, ADMInt32 style);
    void (*SetUnits)(ADMItemRef item, ADMUnits units);
    void (*ShowUnits)(ADMItemRef item, ADMBoolean show);
};

struct ADMListSuite4 {
    ADMEntryRef (*GetActiveEntry)(ADMListRef list);
    ADMEntryRef (*IndexEntry)(ADMListRef list, ADMInt32 index);
    ADMEntryRef (*InsertEntry)(ADMListRef list, ADMInt32 index);
    ADMInt32 (*NumberOfEntries)(ADMListRef list);
    void (*RemoveEntry)(ADMListRef list, ADMInt32 index);
};

struct ADMEntrySuite6 {
    ADMInt32 (*GetIndex)(ADMEntryRef entry);
    void (*Select)(ADMEntryRef entry, ADMBoolean select);
    void (*SetText)(ADMEntryRef entry, const char* text);
};

struct ADMNotifierSuite2 {
    ADMItemRef (*GetItem)(ADMNotifierRef notifier);
    ADMBoolean (*IsNotifierType)(ADMNotifierRef notifier, const char* type);
};

// The toolkit's tables.
extern ADMBasicSuite8 g_ADMBasicSuite;
extern ADMDialogSuite9 g_ADMDialogSuite;
extern ADMItemSuite10 g_ADMItemSuite;
extern ADMListSuite4 g_ADMListSuite;
extern ADMEntrySuite6 g_ADMEntrySuite;
extern ADMNotifierSuite2 g_ADMNotifierSuite;

// The pointers the dialog code calls through.
extern ADMBasicSuite8* sADMBasic;
extern ADMDialogSuite9* sADMDialog;
extern ADMItemSuite10* sADMItem;
extern ADMListSuite4* sADMList;
extern ADMEntrySuite6* sADMEntry;
extern ADMNotifierSuite2* sADMNotifier;
