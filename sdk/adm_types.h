// Types of the dialog-manager model: references, the notifier record, fonts, styles and procs.
#pragma once

#include <cstdint>

typedef int32_t ASErr;
typedef int32_t ADMInt32;
typedef int16_t ADMInt16;
typedef unsigned char ADMBoolean;
typedef float ADMFloat;
typedef void* ADMUserData;

struct IASRect {
    int16_t top;
    int16_t left;
    int16_t bottom;
    int16_t right;
};

struct IASPoint {
    int16_t v;  // vertical
    int16_t h;  // horizontal
};

typedef struct _Opaque_ADMDialog* ADMDialogRef;
typedef struct _Opaque_ADMItem* ADMItemRef;
typedef struct _Opaque_ADMList* ADMListRef;
typedef struct _Opaque_ADMEntry* ADMEntryRef;
typedef struct _Opaque_ADMNotifier* ADMNotifierRef;

// The notifier record handed to notify procs: item (null for dialog-level events), the notifier
// type text, and a result the receiver may set.
struct _Opaque_ADMNotifier {
    ADMItemRef item;
    const char* type;
    ADMInt32 result;
};

// What the dialog objects receive in Notify.
typedef ADMNotifierRef IADMNotifier;

#define kADMUserChangedNotifier "ADM User Changed Notifier"
#define kADMCloseHitNotifier "ADM Close Hit Notifier"

// Item type names.
#define kADMFrameType "ADM Frame Type"
#define kADMPicturePushButtonType "ADM Picture Push Button Type"
#define kADMPictureStaticType "ADM Picture Static Type"
#define kADMPopupListType "ADM Popup List Type"
#define kADMPopupMenuType "ADM Popup Menu Type"
#define kADMTextCheckBoxType "ADM Text Check Box Type"
#define kADMTextEditType "ADM Text Edit Type"
#define kADMTextPushButtonType "ADM Text Push Button Type"
#define kADMTextRadioButtonType "ADM Text Radio Button Type"
#define kADMTextStaticType "ADM Text Static Type"

// The "not handled" status a notifier result carries after default handling.
enum : ADMInt32 { kADMEventNotHandled = -9874 };

enum ADMFont : ADMInt32 {
    kADMDefaultFont = 0,
    kADMDialogFont = 1,
    kADMPaletteFont = 2,
    kADMItalicDialogFont = 3,
    kADMItalicPaletteFont = 4,
    kADMBoldDialogFont = 5,
    kADMBoldPaletteFont = 6,
    kADMBoldItalicDialogFont = 7,
    kADMBoldItalicPaletteFont = 8,
    kADMFixedWidthFont = 9,
    kADMItalicFixedWidthFont = 10,
    kADMBoldFixedWidthFont = 11,
    kADMBoldItalicFixedWidthFont = 12,
};

enum ADMDialogStyle : ADMInt32 {
    kADMModalDialogStyle = 0,
    kADMAlertDialogStyle = 1,
    kADMFloatingDialogStyle = 2,
    kADMTabbedFloatingDialogStyle = 3,
    kADMResizingFloatingDialogStyle = 4,
    kADMTabbedResizingFloatingDialogStyle = 5,
    kADMPopupDialogStyle = 6,
    kADMNoCloseFloatingDialogStyle = 7,
    kADMSystemAlertDialogStyle = 8,
    kADMPopupModalDialogStyle = 9,
    kADMWindowDialogStyle = 10,
    kADMSideTitleFloatingDialogStyle = 11,
    kADMNoCloseSideTitleFloatingDialogStyle = 12,
    kADMPopupFloatingDialogStyle = 13,
    kADMTabbedHierarchyFloatingDialogStyle = 14,
    kADMTabbedResizingHierarchyFloatingDialogStyle = 15,
};

enum ADMFrameStyle : ADMInt32 {
    kADMBlackFrameStyle = 0,
    kADMGrayFrameStyle = 1,
    kADMSunkenFrameStyle = 2,
    kADMRaisedFrameStyle = 3,
    kADMEtchedFrameStyle = 4,
};

enum ADMUnits : ADMInt32 {
    kADMNoUnits = 0,
    kADMPointUnits = 1,
    kADMInchUnits = 2,
    kADMMillimeterUnits = 3,
    kADMCentimeterUnits = 4,
    kADMPicaUnits = 5,
    kADMPercentUnits = 6,
    kADMDegreeUnits = 7,
    kADMPixelUnits = 13,
};

typedef ASErr (*ADMDialogInitProc)(ADMDialogRef dialog);
typedef void (*ADMDialogNotifyProc)(ADMDialogRef dialog, ADMNotifierRef notifier);
typedef void (*ADMDialogDestroyProc)(ADMDialogRef dialog);
typedef ASErr (*ADMItemInitProc)(ADMItemRef item);
