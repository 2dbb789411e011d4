// The window system's C interface: windows, controls and views, menus, events,
// strings, theme metrics, display devices and a little 2D drawing.
// Function names, argument orders and constants are those of the window system.
#pragma once

#include <cstdint>

// ---------------------------------------------------------------------------
// Basic types
// ---------------------------------------------------------------------------

typedef std::uint8_t UInt8;
typedef std::int8_t SInt8;
typedef std::uint16_t UInt16;
typedef std::int16_t SInt16;
typedef std::uint32_t UInt32;
typedef std::int32_t SInt32;
typedef std::uint64_t UInt64;
typedef std::int64_t SInt64;
typedef unsigned char Boolean;
typedef SInt32 OSStatus;
typedef SInt16 OSErr;
typedef UInt32 OSType;
typedef OSType ResType;
typedef UInt32 FourCharCode;
typedef unsigned long ItemCount;
typedef unsigned long ByteCount;
typedef long Size;
typedef UInt32 OptionBits;
typedef unsigned char Style;
typedef SInt16 ScriptCode;
typedef double CGFloat;
typedef double EventTime;
typedef const unsigned char* ConstStr255Param;  // length-prefixed (Pascal) string

// Builds a four-character code from its characters, first character in the high byte.
#define PLATFORM_FOUR_CHAR_CODE(a, b, c, d) \
    ((UInt32)(UInt8)(a) << 24 | (UInt32)(UInt8)(b) << 16 | (UInt32)(UInt8)(c) << 8 | (UInt32)(UInt8)(d))

typedef struct OpaqueWindowPtr* WindowRef;
typedef struct OpaqueControlRef* ControlRef;
typedef ControlRef HIViewRef;
typedef struct OpaqueMenuRef* MenuRef;
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const void* CFTypeRef;
typedef struct CGContext* CGContextRef;

typedef long CFIndex;
typedef UInt32 CFStringEncoding;
typedef UInt32 WindowClass;
typedef UInt32 WindowAttributes;
typedef UInt16 WindowRegionCode;
typedef SInt16 ThemeBrush;
typedef UInt16 ThemeFontID;
typedef UInt32 ThemeDrawState;
typedef SInt16 ControlPartCode;
typedef UInt16 ControlSize;
typedef SInt16 MenuID;
typedef UInt32 MenuAttributes;
typedef UInt16 MenuItemIndex;
typedef UInt32 MenuItemAttributes;
typedef UInt32 MenuCommand;
typedef UInt32 EventParamName;
typedef UInt32 EventParamType;
typedef UInt32 EventAttributes;
typedef SInt16 FMFontFamily;
typedef UInt16 ControlBevelThickness;
typedef UInt16 ControlBevelButtonBehavior;
typedef UInt16 ControlBevelButtonMenuBehavior;
typedef UInt16 ControlBevelButtonMenuPlacement;
typedef SInt16 ControlContentType;

struct Rect {
    short top;
    short left;
    short bottom;
    short right;
};

struct Point {
    short v;
    short h;
};

struct CGPoint {
    CGFloat x;
    CGFloat y;
};

struct CGSize {
    CGFloat width;
    CGFloat height;
};

struct CGRect {
    CGPoint origin;
    CGSize size;
};

typedef CGRect HIRect;

struct RGBColor {
    unsigned short red;
    unsigned short green;
    unsigned short blue;
};

struct ControlFontStyleRec {
    SInt16 flags;
    SInt16 font;
    SInt16 size;
    SInt16 style;
    SInt16 mode;
    SInt16 just;
    RGBColor foreColor;
    RGBColor backColor;
};

struct ControlKind {
    OSType signature;
    OSType kind;
};

struct ControlID {
    OSType signature;
    SInt32 id;
};
typedef ControlID HIViewID;

struct EventTypeSpec {
    UInt32 eventClass;
    UInt32 eventKind;
};

struct HICommand {
    UInt32 attributes;
    UInt32 commandID;
    struct {
        MenuRef menuRef;
        MenuItemIndex menuItemIndex;
    } menu;
};

struct HICommandExtended {
    UInt32 attributes;
    UInt32 commandID;
    union {
        ControlRef control;
        WindowRef window;
        struct {
            MenuRef menuRef;
            MenuItemIndex menuItemIndex;
        } menu;
    } source;
};

struct ControlButtonContentInfo {
    ControlContentType contentType;
    union {
        SInt16 resID;
        void* iconRef;
        void* imageRef;
    } u;
};
typedef ControlButtonContentInfo* ControlButtonContentInfoPtr;

struct GDevice;
typedef GDevice* GDPtr;
typedef GDPtr* GDHandle;

struct GDevice {
    SInt16 gdRefNum;
    SInt16 gdID;
    SInt16 gdType;
    SInt16 gdFlags;
    Rect gdRect;
    GDHandle gdNextGD;
};

typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef inHandlerCallRef, EventRef inEvent, void* inUserData);
typedef EventHandlerProcPtr EventHandlerUPP;

// ---------------------------------------------------------------------------
// Constants
// ---------------------------------------------------------------------------

// Status codes.
enum : OSStatus {
    noErr = 0,
    paramErr = -50,
    memFullErr = -108,
    errInvalidWindowRef = -5600,
    eventInternalErr = -9868,
    eventParameterNotFoundErr = -9870,
    eventNotHandledErr = -9874,
    errDataNotSupported = -30583,
    errUnknownControl = -30584,
    errRootAlreadyExists = -30595,
    errDataSizeMismatch = -30598,
    errNoRootControl = -30600,
    kFMInvalidFontFamilyErr = -985,
    errAECoercionFail = -1700,
};

// Event classes, kinds, parameters and parameter types.
enum : UInt32 {
    kEventClassMouse = PLATFORM_FOUR_CHAR_CODE('m', 'o', 'u', 's'),
    kEventClassKeyboard = PLATFORM_FOUR_CHAR_CODE('k', 'e', 'y', 'b'),
    kEventClassWindow = PLATFORM_FOUR_CHAR_CODE('w', 'i', 'n', 'd'),
    kEventClassControl = PLATFORM_FOUR_CHAR_CODE('c', 'n', 't', 'l'),
    kEventClassCommand = PLATFORM_FOUR_CHAR_CODE('c', 'm', 'd', 's'),
    kEventClassMenu = PLATFORM_FOUR_CHAR_CODE('m', 'e', 'n', 'u'),
};

enum : UInt32 {
    kEventWindowCloseRequested = 72,
    kEventWindowClose = 72,
    kEventWindowClosed = 73,
    kEventControlDraw = 4,
    kEventControlValueFieldChanged = 151,
    kEventControlDispose = 1001,
    kEventCommandProcess = 1,
};

enum : UInt32 {
    kEventParamDirectObject = PLATFORM_FOUR_CHAR_CODE('-', '-', '-', '-'),
    kEventParamCGContextRef = PLATFORM_FOUR_CHAR_CODE('c', 'n', 't', 'x'),
    typeHICommand = PLATFORM_FOUR_CHAR_CODE('h', 'c', 'm', 'd'),
    typeCGContextRef = PLATFORM_FOUR_CHAR_CODE('c', 'n', 't', 'x'),
    typeWindowRef = PLATFORM_FOUR_CHAR_CODE('w', 'i', 'n', 'd'),
    typeControlRef = PLATFORM_FOUR_CHAR_CODE('c', 't', 'r', 'l'),
    typeWildCard = PLATFORM_FOUR_CHAR_CODE('*', '*', '*', '*'),
};

enum : EventAttributes {
    kEventAttributeNone = 0,
};

// Sources of an HICommand.
enum : UInt32 {
    kHICommandFromMenu = 1,
    kHICommandFromControl = 2,
    kHICommandFromWindow = 4,
};

// Window regions.
enum : WindowRegionCode {
    kWindowStructureRgn = 32,
    kWindowContentRgn = 33,
};

// Window classes.
enum : WindowClass {
    kAlertWindowClass = 1,
    kMovableAlertWindowClass = 2,
    kModalWindowClass = 3,
    kMovableModalWindowClass = 4,
    kFloatingWindowClass = 5,
    kDocumentWindowClass = 6,
};

// Window attribute bits.
enum : WindowAttributes {
    kWindowNoAttributes = 0,
    kWindowCloseBoxAttribute = 1u << 0,
    kWindowHorizontalZoomAttribute = 1u << 1,
    kWindowVerticalZoomAttribute = 1u << 2,
    kWindowFullZoomAttribute = (1u << 1) | (1u << 2),
    kWindowCollapseBoxAttribute = 1u << 3,
    kWindowResizableAttribute = 1u << 4,
    kWindowSideTitlebarAttribute = 1u << 5,
    kWindowCompositingAttribute = 1u << 19,
    kWindowStandardHandlerAttribute = 1u << 25,
};

// Theme brushes, fonts and draw states.
enum : ThemeBrush {
    kThemeBrushDialogBackgroundActive = 1,
};

enum : ThemeFontID {
    kThemeSystemFont = 0,
    kThemeSmallSystemFont = 1,
    kThemeSmallEmphasizedSystemFont = 2,
    kThemeMiniSystemFont = 109,
    kThemeCurrentPortFont = 200,
};

enum : ThemeDrawState {
    kThemeStateInactive = 0,
    kThemeStateActive = 1,
    kThemeStatePressed = 2,
};

enum : ScriptCode {
    smSystemScript = -1,
};

// Control kinds.
enum : OSType {
    kControlKindSignatureApple = PLATFORM_FOUR_CHAR_CODE('a', 'p', 'p', 'l'),
    kControlKindGroupBox = PLATFORM_FOUR_CHAR_CODE('g', 'r', 'p', 'b'),
    kControlKindBevelButton = PLATFORM_FOUR_CHAR_CODE('b', 'e', 'v', 'l'),
    kControlKindIcon = PLATFORM_FOUR_CHAR_CODE('i', 'c', 'o', 'n'),
    kControlKindPopupButton = PLATFORM_FOUR_CHAR_CODE('p', 'o', 'p', 'b'),
    kControlKindCheckBox = PLATFORM_FOUR_CHAR_CODE('c', 'b', 'o', 'x'),
    kControlKindEditText = PLATFORM_FOUR_CHAR_CODE('e', 't', 'x', 't'),
    kControlKindEditUnicodeText = PLATFORM_FOUR_CHAR_CODE('e', 'u', 't', 'x'),
    kControlKindPushButton = PLATFORM_FOUR_CHAR_CODE('p', 'u', 's', 'h'),
    kControlKindRadioButton = PLATFORM_FOUR_CHAR_CODE('r', 'd', 'i', 'o'),
    kControlKindStaticText = PLATFORM_FOUR_CHAR_CODE('s', 't', 'x', 't'),
    kControlKindUserPane = PLATFORM_FOUR_CHAR_CODE('u', 'p', 'a', 'n'),
    kControlKindRoot = PLATFORM_FOUR_CHAR_CODE('r', 'o', 'o', 't'),
};

// Control data tags.
enum : ResType {
    kControlEditTextCFStringTag = PLATFORM_FOUR_CHAR_CODE('c', 'f', 's', 't'),
    kControlEditTextTextTag = PLATFORM_FOUR_CHAR_CODE('t', 'e', 'x', 't'),
    kControlStaticTextCFStringTag = PLATFORM_FOUR_CHAR_CODE('c', 'f', 's', 't'),
    kControlStaticTextTextTag = PLATFORM_FOUR_CHAR_CODE('t', 'e', 'x', 't'),
    kControlStaticTextIsMultilineTag = PLATFORM_FOUR_CHAR_CODE('s', 't', 'i', 'm'),
    kControlPopupButtonOwnedMenuRefTag = PLATFORM_FOUR_CHAR_CODE('o', 'm', 'r', 'f'),
    kControlPopupButtonMenuRefTag = PLATFORM_FOUR_CHAR_CODE('m', 'h', 'a', 'n'),
    kControlSizeTag = PLATFORM_FOUR_CHAR_CODE('s', 'i', 'z', 'e'),
    kControlFontStyleTag = PLATFORM_FOUR_CHAR_CODE('f', 'o', 'n', 't'),
};

enum : ControlPartCode {
    kControlEntireControl = 0,
    kControlNoPart = 0,
    kControlEditTextPart = 5,
};

enum : ControlSize {
    kControlSizeNormal = 0,
    kControlSizeSmall = 1,
    kControlSizeLarge = 2,
    kControlSizeMini = 3,
};

// Font-style flags and the meta fonts a style may name.
enum : SInt16 {
    kControlUseFontMask = 0x0001,
    kControlUseFaceMask = 0x0002,
    kControlUseSizeMask = 0x0004,
    kControlUseForeColorMask = 0x0008,
    kControlUseBackColorMask = 0x0010,
    kControlUseModeMask = 0x0020,
    kControlUseJustMask = 0x0040,
    kControlAddFontSizeMask = 0x0100,
    kControlAddToMetaFontMask = 0x0200,
};

enum : SInt16 {
    kControlFontBigSystemFont = -1,
    kControlFontSmallSystemFont = -2,
    kControlFontSmallBoldSystemFont = -3,
    kControlFontViewSystemFont = -4,
    kControlFontMiniSystemFont = -5,
};

// Bevel buttons, icon content, popups.
enum : UInt16 {
    kControlBevelButtonSmallBevel = 0,
    kControlBevelButtonNormalBevel = 1,
    kControlBevelButtonLargeBevel = 2,
    kControlBehaviorPushbutton = 0,
    kControlBevelButtonMenuOnBottom = 0,
};

enum : ControlContentType {
    kControlContentTextOnly = 0,
    kControlNoContent = 0,
};

enum : SInt16 {
    teFlushDefault = 0,
    teFlushLeft = -2,
};

enum : MenuAttributes {
    kMenuAttrNone = 0,
};

enum : MenuItemAttributes {
    kMenuItemAttrIgnoreMeta = 1u << 8,
};

// Font families known to the font manager.
enum : FMFontFamily {
    kInvalidFontFamily = -1,
    kFontIDGeneva = 3,
    kFontIDMonaco = 4,
    kFontIDTimes = 20,
    kFontIDHelvetica = 21,
    kFontIDCourier = 22,
};

// String encodings.
enum : CFStringEncoding {
    kCFStringEncodingMacRoman = 0,
    kCFStringEncodingISOLatin1 = 0x0201,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUTF8 = 0x08000100,
};

#define kCFAllocatorDefault ((CFAllocatorRef) nullptr)

// ---------------------------------------------------------------------------
// Functions
// ---------------------------------------------------------------------------

extern "C" {

// Strings. A created or copied string is owned by the caller (release it with CFRelease).
CFStringRef CFStringCreateWithCString(CFAllocatorRef alloc, const char* cStr, CFStringEncoding encoding);
Boolean CFStringGetCString(CFStringRef theString, char* buffer, CFIndex bufferSize, CFStringEncoding encoding);
CFIndex CFStringGetLength(CFStringRef theString);
CFTypeRef CFRetain(CFTypeRef cf);
void CFRelease(CFTypeRef cf);
CFIndex CFGetRetainCount(CFTypeRef cf);

// Windows.
OSStatus CreateNewWindow(WindowClass windowClass, WindowAttributes attributes, const Rect* contentBounds,
                         WindowRef* outWindow);
void DisposeWindow(WindowRef window);
OSStatus SetThemeWindowBackground(WindowRef inWindow, ThemeBrush inBrush, Boolean inUpdate);
void SetPortWindowPort(WindowRef window);
OSStatus UseThemeFont(ThemeFontID inFontID, ScriptCode inScript);
OSErr CreateRootControl(WindowRef inWindow, ControlRef* outControl);
OSErr GetRootControl(WindowRef inWindow, ControlRef* outControl);
void ShowWindow(WindowRef window);
void HideWindow(WindowRef window);
Boolean IsWindowVisible(WindowRef window);
Boolean IsWindowActive(WindowRef inWindow);
OSStatus GetWindowBounds(WindowRef window, WindowRegionCode regionCode, Rect* globalBounds);
OSStatus SetWindowBounds(WindowRef window, WindowRegionCode regionCode, const Rect* globalBounds);
OSStatus SetWindowTitleWithCFString(WindowRef inWindow, CFStringRef inString);
OSStatus CopyWindowTitleAsCFString(WindowRef inWindow, CFStringRef* outString);
OSStatus GetWindowClass(WindowRef inWindow, WindowClass* outClass);
OSStatus GetWindowAttributes(WindowRef window, WindowAttributes* outAttributes);

// Events.
EventHandlerUPP NewEventHandlerUPP(EventHandlerProcPtr userRoutine);
void DisposeEventHandlerUPP(EventHandlerUPP userUPP);
OSStatus InstallEventHandler(EventTargetRef inTarget, EventHandlerUPP inHandler, ItemCount inNumTypes,
                             const EventTypeSpec* inList, void* inUserData, EventHandlerRef* outRef);
OSStatus RemoveEventHandler(EventHandlerRef inHandlerRef);
EventTargetRef GetWindowEventTarget(WindowRef inWindow);
EventTargetRef GetControlEventTarget(ControlRef inControl);
EventTargetRef GetApplicationEventTarget(void);
UInt32 GetEventClass(EventRef inEvent);
UInt32 GetEventKind(EventRef inEvent);
OSStatus GetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inDesiredType,
                           EventParamType* outActualType, ByteCount inBufferSize, ByteCount* outActualSize,
                           void* outData);
OSStatus CreateEvent(CFAllocatorRef inAllocator, UInt32 inClassID, UInt32 inKind, EventTime inWhen,
                     EventAttributes inAttributes, EventRef* outEvent);
OSStatus SetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inType, ByteCount inSize,
                           const void* inDataPtr);
EventRef RetainEvent(EventRef inEvent);
void ReleaseEvent(EventRef inEvent);
OSStatus SendEventToEventTarget(EventRef inEvent, EventTargetRef inTarget);
OSStatus CallNextEventHandler(EventHandlerCallRef inCallRef, EventRef inEvent);

// Controls. A null window makes a control that belongs to the view it is later added to.
OSStatus CreateGroupBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title, Boolean primary,
                               ControlRef* outControl);
OSStatus CreateBevelButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title,
                                  ControlBevelThickness thickness, ControlBevelButtonBehavior behavior,
                                  ControlButtonContentInfoPtr info, SInt16 menuID,
                                  ControlBevelButtonMenuBehavior menuBehavior,
                                  ControlBevelButtonMenuPlacement menuPlacement, ControlRef* outControl);
OSStatus CreateIconControl(WindowRef inWindow, const Rect* inBounds, const ControlButtonContentInfo* inIconContent,
                           Boolean inDontTrack, ControlRef* outControl);
OSStatus CreatePopupButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, SInt16 menuID,
                                  Boolean variableWidth, SInt16 titleWidth, SInt16 titleJustification, Style titleStyle,
                                  ControlRef* outControl);
OSStatus CreateCheckBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title, SInt32 initialValue,
                               Boolean autoToggle, ControlRef* outControl);
OSStatus CreateEditUnicodeTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text, Boolean isPassword,
                                      const ControlFontStyleRec* style, ControlRef* outControl);
OSStatus CreatePushButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, ControlRef* outControl);
OSStatus CreateRadioButtonControl(WindowRef window, const Rect* boundsRect, CFStringRef title, SInt32 initialValue,
                                  Boolean autoToggle, ControlRef* outControl);
OSStatus CreateStaticTextControl(WindowRef window, const Rect* boundsRect, CFStringRef text,
                                 const ControlFontStyleRec* style, ControlRef* outControl);
void DisposeControl(ControlRef theControl);
WindowRef GetControlOwner(ControlRef inControl);

// Control data: text tags take and return a CFStringRef (the caller releases what it gets back).
OSErr SetControlData(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size inSize, const void* inData);
OSErr GetControlData(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size inBufferSize, void* inBuffer,
                     Size* outActualSize);
OSErr GetControlDataSize(ControlRef inControl, ControlPartCode inPart, ResType inTagName, Size* outMaxSize);
OSErr SetControlFontStyle(ControlRef inControl, const ControlFontStyleRec* inStyle);
OSStatus SetControlCommandID(ControlRef inControl, UInt32 inCommandID);
OSStatus GetControlCommandID(ControlRef inControl, UInt32* outCommandID);
OSStatus SetControlID(ControlRef inControl, const ControlID* inID);
OSStatus GetControlID(ControlRef inControl, ControlID* outID);
OSStatus GetControlByID(WindowRef inWindow, const ControlID* inID, ControlRef* outControl);
OSStatus GetControlKind(ControlRef inControl, ControlKind* outControlKind);

void SetControl32BitValue(ControlRef theControl, SInt32 newValue);
SInt32 GetControl32BitValue(ControlRef theControl);
void SetControl32BitMinimum(ControlRef theControl, SInt32 newMinimum);
SInt32 GetControl32BitMinimum(ControlRef theControl);
void SetControl32BitMaximum(ControlRef theControl, SInt32 newMaximum);
SInt32 GetControl32BitMaximum(ControlRef theControl);

void ShowControl(ControlRef inControl);
void HideControl(ControlRef inControl);
Boolean IsControlVisible(ControlRef inControl);
void EnableControl(ControlRef inControl);
void DisableControl(ControlRef inControl);
Boolean IsControlEnabled(ControlRef inControl);

void SetControlBounds(ControlRef theControl, const Rect* bounds);
Rect* GetControlBounds(ControlRef theControl, Rect* bounds);
OSErr GetBestControlRect(ControlRef inControl, Rect* outRect, SInt16* outBaseLineOffset);
OSStatus GetThemeTextDimensions(CFStringRef inString, ThemeFontID inFontID, ThemeDrawState inState,
                                Boolean inWrapToWidth, Point* ioBounds, SInt16* outBaseline);

OSStatus SetControlTitleWithCFString(ControlRef inControl, CFStringRef inString);
OSStatus CopyControlTitleAsCFString(ControlRef inControl, CFStringRef* outString);

// Views: a view's subviews are kept back to front; an added view goes in front.
OSStatus HIViewAddSubview(HIViewRef inParent, HIViewRef inNewChild);
OSStatus HIViewRemoveFromSuperview(HIViewRef inView);
HIViewRef HIViewGetSuperview(HIViewRef inView);
HIViewRef HIViewGetFirstSubview(HIViewRef inView);
HIViewRef HIViewGetNextView(HIViewRef inView);
OSStatus HIViewGetBounds(HIViewRef inView, HIRect* outRect);
OSStatus HIViewGetFrame(HIViewRef inView, HIRect* outRect);
OSStatus HIViewFindByID(HIViewRef inStartView, HIViewID inID, HIViewRef* outView);

// Menus.
OSStatus CreateNewMenu(MenuID inMenuID, MenuAttributes inMenuAttributes, MenuRef* outMenuRef);
void DisposeMenu(MenuRef theMenu);
OSStatus RetainMenu(MenuRef inMenu);
OSStatus ReleaseMenu(MenuRef inMenu);
MenuID GetMenuID(MenuRef menu);
OSStatus InsertMenuItemTextWithCFString(MenuRef inMenu, CFStringRef inString, MenuItemIndex inAfterItem,
                                        MenuItemAttributes inAttributes, MenuCommand inCommandID);
OSStatus SetMenuItemTextWithCFString(MenuRef inMenu, MenuItemIndex inItem, CFStringRef inString);
void DeleteMenuItem(MenuRef theMenu, MenuItemIndex item);
UInt16 CountMenuItems(MenuRef theMenu);
OSStatus CopyMenuItemTextAsCFString(MenuRef inMenu, MenuItemIndex inItem, CFStringRef* outString);

// Drawing.
void CGContextSetRGBFillColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextFillRect(CGContextRef c, CGRect rect);

// Fonts and displays.
FMFontFamily FMGetFontFamilyFromName(ConstStr255Param iName);
GDHandle GetDeviceList(void);
GDHandle GetMainDevice(void);
GDHandle GetNextDevice(GDHandle curDevice);
Boolean PtInRect(Point pt, const Rect* r);

}  // extern "C"
