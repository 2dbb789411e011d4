// The in-memory object model behind the window-system functions. Not part of the interface.
#pragma once

#include "platform/driver.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct __CFString {
    std::u16string chars;
    CFIndex refs = 1;
};

struct OpaqueEventHandlerRef {
    EventHandlerUPP proc = nullptr;
    std::vector<EventTypeSpec> types;
    void* userData = nullptr;
    OpaqueEventTargetRef* target = nullptr;
    bool removed = false;
};

// Events go to a target; a target knows what it belongs to so that commands can travel upward.
struct OpaqueEventTargetRef {
    enum class Owner { application, window, control };
    Owner owner = Owner::application;
    void* object = nullptr;
    std::vector<std::shared_ptr<OpaqueEventHandlerRef>> handlers;  // in installation order
};

struct OpaqueEventRef {
    struct Param {
        EventParamType type = 0;
        std::vector<unsigned char> bytes;
    };
    UInt32 eventClass = 0;
    UInt32 eventKind = 0;
    std::map<EventParamName, Param> params;
    long refs = 1;
};

struct OpaqueEventHandlerCallRef {
    std::vector<std::shared_ptr<OpaqueEventHandlerRef>> chain;  // most recently installed first
    std::size_t next = 0;
};

struct OpaqueMenuRef {
    struct Item {
        std::u16string text;
        MenuItemAttributes attributes = 0;
        MenuCommand command = 0;
    };
    MenuID id = 0;
    MenuAttributes attributes = 0;
    std::vector<Item> items;
    long refs = 1;
};

struct OpaqueControlRef {
    OSType kind = 0;
    Rect bounds{};
    std::u16string title;
    std::u16string text;
    SInt32 value = 0;
    SInt32 minimum = 0;
    SInt32 maximum = 0;
    bool visible = true;
    bool enabled = true;
    bool autoToggle = false;
    bool multiline = false;
    bool password = false;
    ControlSize size = kControlSizeNormal;
    ControlFontStyleRec fontStyle{};
    UInt32 commandID = 0;
    ControlID controlID{};
    MenuRef menu = nullptr;  // a popup's menu; the control holds one reference to it
    OpaqueControlRef* parent = nullptr;
    std::vector<OpaqueControlRef*> children;  // back to front
    OpaqueWindowPtr* rootOf = nullptr;        // set on a window's root view
    OpaqueEventTargetRef target;
    bool disposing = false;
    bool dead = false;
};

struct OpaqueWindowPtr {
    WindowClass windowClass = 0;
    WindowAttributes attributes = 0;
    Rect content{};
    std::u16string title;
    bool visible = false;
    ThemeBrush background = 0;
    OpaqueControlRef* root = nullptr;
    OpaqueEventTargetRef target;
    bool closedSent = false;
    bool disposing = false;
    bool dead = false;
};

struct CGContext {
    platform::DrawRecord record;
};

namespace platform::detail {

struct Display {
    GDevice device{};
    GDPtr pointer = nullptr;
};

// Everything the window system holds. Objects are owned here; a disposed object leaves these
// tables at once, but anyone dispatching to it keeps it in memory until the dispatch is over.
struct State {
    std::vector<std::shared_ptr<OpaqueWindowPtr>> windows;  // creation order
    std::unordered_map<OpaqueControlRef*, std::shared_ptr<OpaqueControlRef>> controls;
    std::unordered_map<OpaqueMenuRef*, std::unique_ptr<OpaqueMenuRef>> menus;
    std::unordered_map<const __CFString*, std::unique_ptr<__CFString>> strings;
    std::unordered_map<OpaqueEventHandlerRef*, std::shared_ptr<OpaqueEventHandlerRef>> handlers;
    std::unordered_map<OpaqueEventRef*, std::unique_ptr<OpaqueEventRef>> events;
    std::unordered_map<CGContext*, std::unique_ptr<CGContext>> contexts;
    std::vector<std::unique_ptr<Display>> displays;
    OpaqueEventTargetRef application;
    OpaqueWindowPtr* active = nullptr;
    ThemeFontID portFont = kThemeSmallSystemFont;
};

State& state();

// Lookups that answer null for objects that do not exist (any more).
std::shared_ptr<OpaqueWindowPtr> liveWindow(WindowRef window);
OpaqueControlRef* liveControl(ControlRef control);
std::shared_ptr<OpaqueControlRef> sharedControl(ControlRef control);
OpaqueMenuRef* liveMenu(MenuRef menu);
__CFString* liveString(CFStringRef string);
CGContext* liveContext(CGContextRef context);

// Strings.
CFStringRef makeString(std::u16string chars);
std::u16string charsOf(CFStringRef string);  // empty for null or unknown strings
std::u16string fromUtf8(std::string_view utf8, bool* ok = nullptr);
std::string toUtf8(const std::u16string& chars);

// Controls.
OSStatus registerControl(WindowRef window, OSType kind, const Rect* bounds, ControlRef* out, OpaqueControlRef** made);
void disposeControlTree(OpaqueControlRef* control);
WindowRef ownerWindow(const OpaqueControlRef* control);
SInt32 clampValue(const OpaqueControlRef& control, SInt32 value);
void detachFromParent(OpaqueControlRef* control);

// Events.
void clearHandlers(OpaqueEventTargetRef& target);
OSStatus dispatch(EventRef event, OpaqueEventTargetRef* target);
// Sends to the control, then up its views, then to its window and the application.
OSStatus dispatchUpward(EventRef event, OpaqueControlRef* control);
EventRef newEvent(UInt32 eventClass, UInt32 eventKind);
void setParam(EventRef event, EventParamName name, EventParamType type, const void* data, std::size_t size);

// Windows.
void disposeWindow(OpaqueWindowPtr* window);

// Menus.
void releaseMenu(MenuRef menu);

// Displays.
void resetDisplays(const std::vector<Rect>& bounds);

}  // namespace platform::detail
