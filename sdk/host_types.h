// Basic types, handles and constants of the host interface, as the plug-in sees them.
#pragma once

#include <cstdint>

typedef int32_t A_long;
typedef uint32_t A_u_long;
typedef int16_t A_short;
typedef uint16_t A_u_short;
typedef char A_char;
typedef unsigned char A_u_char;
typedef uint8_t A_Boolean;
typedef double A_FpLong;
typedef float A_FpShort;
typedef int32_t A_Err;

struct A_Time {
    A_long value;
    A_u_long scale;
};

struct A_LPoint {
    A_long x;  // width where the point is a size
    A_long y;  // height where the point is a size
};

// Host error codes.
enum : A_Err {
    A_Err_NONE = 0,
    A_Err_GENERIC = 1,
    A_Err_STRUCT = 2,
    A_Err_PARAMETER = 3,
    A_Err_ALLOC = 4,
    A_Err_MISSING_SUITE = 13,
    A_Err_BAD_CALLBACK_PARAM = 516,  // what a missing suite is reported as
};

// Opaque host handles.
typedef struct _AEGP_Layer* AEGP_LayerH;
typedef struct _AEGP_Comp* AEGP_CompH;
typedef struct _AEGP_Item* AEGP_ItemH;
typedef struct _AEGP_Stream* AEGP_StreamRefH;
typedef struct _AEGP_Collection* AEGP_CollectionH;
typedef struct _AEGP_Panel* AEGP_PanelH;
typedef struct _AEGP_GlobalRefcon* AEGP_GlobalRefcon;
typedef struct _AEGP_CommandRefcon* AEGP_CommandRefcon;
typedef struct _AEGP_UpdateMenuRefcon* AEGP_UpdateMenuRefcon;
typedef struct _AEGP_DeathRefcon* AEGP_DeathRefcon;
typedef struct _AEGP_IdleRefcon* AEGP_IdleRefcon;
typedef struct _AEGP_CreatePanelRefcon* AEGP_CreatePanelRefcon;
typedef struct _AEGP_PanelRefcon* AEGP_PanelRefcon;
typedef struct SPPlugin* SPPluginRef;

// The window system's view type, shared with the platform header.
struct OpaqueControlRef;
typedef OpaqueControlRef* AEGP_PlatformViewRef;

typedef A_long AEGP_PluginID;
typedef A_long AEGP_Command;
typedef A_long AEGP_MenuID;
typedef A_long AEGP_HookPriority;
typedef A_long AEGP_WindowType;
typedef A_long AEGP_ItemType;
typedef A_long AEGP_ObjectType;
typedef A_long AEGP_LTimeMode;
typedef A_long AEGP_LayerStream;
typedef A_long AEGP_CollectionItemType;
typedef A_long AEGP_StreamType;
typedef A_long AEGP_KeyframeIndex;
typedef A_long AEGP_FlyoutMenuCmdID;

enum : AEGP_MenuID {
    AEGP_Menu_NONE = 0,
    AEGP_Menu_APPLE = 1,
    AEGP_Menu_FILE = 2,
    AEGP_Menu_EDIT = 3,
    AEGP_Menu_COMPOSITION = 4,
    AEGP_Menu_LAYER = 5,
    AEGP_Menu_EFFECT = 6,
    AEGP_Menu_WINDOW = 7,
    AEGP_Menu_FLOATERS = 8,  // the Window menu's section of floating windows
};

enum : A_long {
    AEGP_MENU_INSERT_SORTED = -2,
    AEGP_MENU_INSERT_AT_BOTTOM = -1,
    AEGP_MENU_INSERT_AT_TOP = 0,
};

enum : AEGP_HookPriority {
    AEGP_HP_BeforeAE = 1,
    AEGP_HP_AfterAE = 2,
};

enum : AEGP_ItemType {
    AEGP_ItemType_NONE = 0,
    AEGP_ItemType_FOLDER = 1,
    AEGP_ItemType_COMP = 2,
    AEGP_ItemType_FOOTAGE = 4,
};

enum : AEGP_ObjectType {
    AEGP_ObjectType_NONE = -1,
    AEGP_ObjectType_AV = 0,
    AEGP_ObjectType_LIGHT = 1,
    AEGP_ObjectType_CAMERA = 2,
    AEGP_ObjectType_TEXT = 3,
    AEGP_ObjectType_VECTOR = 4,  // shape layers
};

enum : AEGP_LTimeMode {
    AEGP_LTimeMode_LayerTime = 0,
    AEGP_LTimeMode_CompTime = 1,
};

enum : AEGP_LayerStream {
    AEGP_LayerStream_NONE = -1,
    AEGP_LayerStream_ANCHORPOINT = 0,
    AEGP_LayerStream_POSITION = 1,
    AEGP_LayerStream_SCALE = 2,
    AEGP_LayerStream_ROTATION = 3,  // the Z rotation
    AEGP_LayerStream_ROTATE_Z = 3,
    AEGP_LayerStream_OPACITY = 4,
    AEGP_LayerStream_ROTATE_X = 8,
    AEGP_LayerStream_ROTATE_Y = 9,
    AEGP_LayerStream_ORIENTATION = 10,
};

enum : AEGP_CollectionItemType {
    AEGP_CollectionItemType_NONE = 0,
    AEGP_CollectionItemType_LAYER = 1,
    AEGP_CollectionItemType_MASK = 2,
    AEGP_CollectionItemType_EFFECT = 3,
    AEGP_CollectionItemType_STREAM = 4,
};

enum : AEGP_StreamType {
    AEGP_StreamType_NO_DATA = 0,
    AEGP_StreamType_ThreeD_SPATIAL = 1,
    AEGP_StreamType_ThreeD = 2,
    AEGP_StreamType_TwoD_SPATIAL = 3,
    AEGP_StreamType_TwoD = 4,
    AEGP_StreamType_OneD = 5,
};

// The host's menu command that duplicates the selected layers.
enum : AEGP_Command { AEGP_Command_DUPLICATE = 2080 };

struct AEGP_ThreeDVal {
    A_FpLong x, y, z;
};
struct AEGP_TwoDVal {
    A_FpLong x, y;
};
typedef A_FpLong AEGP_OneDVal;

union AEGP_StreamVal {
    AEGP_ThreeDVal three_d;
    AEGP_TwoDVal two_d;
    AEGP_OneDVal one_d;
};

struct AEGP_StreamValue {
    AEGP_StreamRefH streamH;
    AEGP_StreamVal val;
};

struct AEGP_LayerCollectionItem {
    AEGP_LayerH layerH;
};

union AEGP_CollectionItemUnion {
    AEGP_LayerCollectionItem layer;
};

struct AEGP_CollectionItemV1 {
    AEGP_CollectionItemType type;
    AEGP_CollectionItemUnion u;
};

// Colours the host offers to plug-in interfaces.
typedef A_long PF_App_ColorType;
struct PF_App_Color {
    A_u_short red, green, blue;
};
