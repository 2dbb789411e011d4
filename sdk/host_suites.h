// Suites of the host: tables of functions acquired from the basic suite by name and version,
// the hook signatures, and the plug-in's entry point.
#pragma once

#include "host_types.h"

#include <cstddef>

typedef A_Err SPErr;

// The basic suite the host hands to the entry point. Only the first two functions are used
// by the plug-in; the rest complete the table as a host offers it.
struct SPBasicSuite {
    SPErr (*AcquireSuite)(const char* name, int32_t version, const void** suite);
    SPErr (*ReleaseSuite)(const char* name, int32_t version);
    A_Boolean (*IsEqual)(const char* token1, const char* token2);
    SPErr (*AllocateBlock)(std::size_t size, void** block);
    SPErr (*FreeBlock)(void* block);
    SPErr (*ReallocateBlock)(void* block, std::size_t new_size, void** new_block);
    SPErr (*Undefined)(void);
};

// Hooks.
typedef A_Err (*AEGP_CommandHook)(AEGP_GlobalRefcon plugin_refcon, AEGP_CommandRefcon refcon, AEGP_Command command,
                                  AEGP_HookPriority hook_priority, A_Boolean already_handled, A_Boolean* handled);
typedef A_Err (*AEGP_UpdateMenuHook)(AEGP_GlobalRefcon plugin_refcon, AEGP_UpdateMenuRefcon refcon,
                                     AEGP_WindowType active_window);
typedef A_Err (*AEGP_DeathHook)(AEGP_GlobalRefcon plugin_refcon, AEGP_DeathRefcon refcon);
typedef A_Err (*AEGP_IdleHook)(AEGP_GlobalRefcon plugin_refcon, AEGP_IdleRefcon refcon, A_long* max_sleep);

struct AEGP_FlyoutMenuItem;

// What a plug-in hands back when the host creates one of its workspace panels.
struct AEGP_PanelFunctions1 {
    A_Err (*GetSnapSizes)(AEGP_PanelRefcon refcon, A_LPoint* snap_sizes, A_long* num_sizes);
    A_Err (*PopulateFlyout)(AEGP_PanelRefcon refcon, AEGP_FlyoutMenuItem* items, A_long* in_out_num_items);
    A_Err (*DoFlyoutCommand)(AEGP_PanelRefcon refcon, AEGP_FlyoutMenuCmdID command);
};

typedef A_Err (*AEGP_CreatePanelHook)(AEGP_GlobalRefcon plugin_refcon, AEGP_CreatePanelRefcon refcon,
                                      AEGP_PlatformViewRef container, AEGP_PanelH panel,
                                      AEGP_PanelFunctions1* out_function_table, AEGP_PanelRefcon* out_refcon);

// The exported entry point.
typedef A_Err (*AEGP_PluginInitFuncPrototype)(SPBasicSuite* pica_basic, A_long major_version, A_long minor_version,
                                              const A_char* file_path, const A_char* res_path, AEGP_PluginID plugin_id,
                                              AEGP_GlobalRefcon* global_refcon);
#define ORBISETT_ENTRY_POINT_NAME "PluginEntry"

// Suite names and versions.
#define kAEGPRegisterSuite "AEGP Register Suite"
#define kAEGPRegisterSuiteVersion1 1
#define kAEGPCommandSuite "AEGP Command Suite"
#define kAEGPCommandSuiteVersion1 1
#define kAEGPUtilitySuite "AEGP Utility Suite"
#define kAEGPUtilitySuiteVersion3 3
#define kAEGPCollectionSuite "AEGP Collection Suite"
#define kAEGPCollectionSuiteVersion1 1
#define kAEGPCompSuite "AEGP Comp Suite"
#define kAEGPCompSuiteVersion4 4
#define kAEGPItemSuite "AEGP Item Suite"
#define kAEGPItemSuiteVersion3 3
#define kAEGPLayerSuite "AEGP Layer Suite"
#define kAEGPLayerSuiteVersion5 5
#define kAEGPLayerSuiteVersion8 8
#define kAEGPLayerSuiteVersion10 10
#define kAEGPStreamSuite "AEGP Stream Suite"
#define kAEGPStreamSuiteVersion4 4
#define kAEGPKeyframeSuite "AEGP Keyframe Suite"
#define kAEGPKeyframeSuiteVersion1 1
#define kAEGPWorkspacePanelSuite "AEGP Workspace Panel Suite"
#define kAEGPWorkspacePanelSuiteVersion1 1
#define kPFAppSuite "PF AE App Suite"
#define kPFAppSuiteVersion2 2

struct AEGP_RegisterSuite1 {
    A_Err (*AEGP_RegisterCommandHook)(AEGP_PluginID plugin_id, AEGP_HookPriority priority, AEGP_Command command,
                                      AEGP_CommandHook hook, AEGP_CommandRefcon refcon);
    A_Err (*AEGP_RegisterUpdateMenuHook)(AEGP_PluginID plugin_id, AEGP_UpdateMenuHook hook,
                                         AEGP_UpdateMenuRefcon refcon);
    A_Err (*AEGP_RegisterDeathHook)(AEGP_PluginID plugin_id, AEGP_DeathHook hook, AEGP_DeathRefcon refcon);
    A_Err (*AEGP_RegisterIdleHook)(AEGP_PluginID plugin_id, AEGP_IdleHook hook, AEGP_IdleRefcon refcon);
};

struct AEGP_CommandSuite1 {
    A_Err (*AEGP_GetUniqueCommand)(AEGP_Command* unique_command);
    A_Err (*AEGP_InsertMenuCommand)(AEGP_Command command, const A_char* name, AEGP_MenuID menu_id, A_long after_item);
    A_Err (*AEGP_RemoveMenuCommand)(AEGP_Command command);
    A_Err (*AEGP_SetMenuCommandName)(AEGP_Command command, const A_char* name);
    A_Err (*AEGP_EnableCommand)(AEGP_Command command);
    A_Err (*AEGP_DisableCommand)(AEGP_Command command);
    A_Err (*AEGP_CheckMarkMenuCommand)(AEGP_Command command, A_Boolean check);
    A_Err (*AEGP_DoCommand)(AEGP_Command command);
};

struct AEGP_UtilitySuite3 {
    A_Err (*AEGP_ReportInfo)(AEGP_PluginID plugin_id, const A_char* info_string);
    A_Err (*AEGP_StartUndoGroup)(const A_char* undo_name);
    A_Err (*AEGP_EndUndoGroup)(void);
};

struct AEGP_CollectionSuite1 {
    A_Err (*AEGP_NewCollection)(AEGP_PluginID plugin_id, AEGP_CollectionH* collection);
    A_Err (*AEGP_DisposeCollection)(AEGP_CollectionH collection);
    A_Err (*AEGP_GetCollectionNumItems)(AEGP_CollectionH collection, A_u_long* num_items);
    A_Err (*AEGP_GetCollectionItemByIndex)(AEGP_CollectionH collection, A_u_long index, AEGP_CollectionItemV1* item);
    A_Err (*AEGP_CollectionPushBack)(AEGP_CollectionH collection, const AEGP_CollectionItemV1* item);
};

struct AEGP_CompSuite4 {
    A_Err (*AEGP_GetCompFromItem)(AEGP_ItemH item, AEGP_CompH* comp);
    A_Err (*AEGP_GetItemFromComp)(AEGP_CompH comp, AEGP_ItemH* item);
    A_Err (*AEGP_GetNewCollectionFromCompSelection)(AEGP_PluginID plugin_id, AEGP_CompH comp,
                                                    AEGP_CollectionH* collection);
    A_Err (*AEGP_SetSelection)(AEGP_CompH comp, AEGP_CollectionH collection);
};

struct AEGP_ItemSuite3 {
    A_Err (*AEGP_GetActiveItem)(AEGP_ItemH* item);
    A_Err (*AEGP_GetItemType)(AEGP_ItemH item, AEGP_ItemType* type);
    A_Err (*AEGP_GetItemDimensions)(AEGP_ItemH item, A_long* width, A_long* height);
};

// The layer functions every offered version of the layer suite has.
#define ORBISETT_LAYER_SUITE_COMMON_FUNCTIONS                                                      \
    A_Err (*AEGP_GetCompNumLayers)(AEGP_CompH comp, A_long * num_layers);                          \
    A_Err (*AEGP_GetCompLayerByIndex)(AEGP_CompH comp, A_long layer_index, AEGP_LayerH * layer);   \
    A_Err (*AEGP_GetLayerIndex)(AEGP_LayerH layer, A_long * layer_index);                          \
    A_Err (*AEGP_GetLayerSourceItem)(AEGP_LayerH layer, AEGP_ItemH * source_item);                 \
    A_Err (*AEGP_GetLayerCurrentTime)(AEGP_LayerH layer, AEGP_LTimeMode time_mode, A_Time * time); \
    A_Err (*AEGP_GetLayerObjectType)(AEGP_LayerH layer, AEGP_ObjectType * object_type);            \
    A_Err (*AEGP_IsLayer3D)(AEGP_LayerH layer, A_Boolean * is_3d);                                 \
    A_Err (*AEGP_ReorderLayer)(AEGP_LayerH layer, A_long new_index);

struct AEGP_LayerSuite5 {
    ORBISETT_LAYER_SUITE_COMMON_FUNCTIONS
};

struct AEGP_LayerSuite8 {
    ORBISETT_LAYER_SUITE_COMMON_FUNCTIONS
};

struct AEGP_LayerSuite10 {
    ORBISETT_LAYER_SUITE_COMMON_FUNCTIONS
    A_Err (*AEGP_DuplicateLayer)(AEGP_LayerH orig_layer, AEGP_LayerH* duplicate_layer);
};

struct AEGP_StreamSuite4 {
    A_Err (*AEGP_GetNewLayerStream)(AEGP_PluginID plugin_id, AEGP_LayerH layer, AEGP_LayerStream which_stream,
                                    AEGP_StreamRefH* stream);
    A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH stream);
    A_Err (*AEGP_GetLayerStreamValue)(AEGP_LayerH layer, AEGP_LayerStream which_stream, AEGP_LTimeMode time_mode,
                                      const A_Time* time, A_Boolean pre_expression, AEGP_StreamVal* value,
                                      AEGP_StreamType* stream_type);  // stream_type may be null
    A_Err (*AEGP_SetStreamValue)(AEGP_PluginID plugin_id, AEGP_StreamRefH stream, AEGP_StreamValue* value);
};

struct AEGP_KeyframeSuite1 {
    A_Err (*AEGP_GetStreamNumKFs)(AEGP_StreamRefH stream, A_long* num_keyframes);
    A_Err (*AEGP_InsertKeyframe)(AEGP_StreamRefH stream, AEGP_LTimeMode time_mode, const A_Time* time,
                                 AEGP_KeyframeIndex* key_index);  // key_index may be null
};

struct AEGP_PanelSuite1 {
    A_Err (*AEGP_RegisterCreatePanelHook)(AEGP_PluginID plugin_id, const A_u_char* utf8_match_name,
                                          AEGP_CreatePanelHook hook, AEGP_CreatePanelRefcon refcon,
                                          A_Boolean paint_background);
    A_Err (*AEGP_UnRegisterCreatePanelHook)(const A_u_char* utf8_match_name);
    A_Err (*AEGP_SetTitle)(AEGP_PanelH panel, const A_u_char* utf8_name);
    A_Err (*AEGP_ToggleVisibility)(const A_u_char* utf8_match_name);
    A_Err (*AEGP_IsShown)(const A_u_char* utf8_match_name, A_Boolean* tab_is_shown, A_Boolean* panel_is_frontmost);
};

struct PFAppSuite2 {
    A_Err (*PF_AppGetColor)(PF_App_ColorType color_type, PF_App_Color* app_color);
};
