// Driving the window system from outside, as a user and as the system would: find windows and
// controls, type, click, press close boxes, manage panel container views, set the display list,
// reset everything, and draw windows and views as SVG.
#pragma once

#include "platform/platform.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Why a user action was not carried out. Zero means it was.
enum : OSStatus {
    kDriverNoSuchObject = -31000,   // the window or control does not exist (any more)
    kDriverControlHidden = -31001,  // the control or one of its containing views is hidden
    kDriverControlDisabled = -31002,
    kDriverWindowHidden = -31003,  // the control sits in a hidden window
    kDriverWrongKind = -31004,     // the action does not apply to this kind of control
    kDriverOutOfRange = -31005,    // e.g. a popup item that does not exist
    kDriverNoCloseBox = -31006,
};

// A short English description of a driver status (for messages).
std::string describeStatus(OSStatus status);

// Whether acting on hidden or disabled controls is allowed.
enum class Force { no, yes };

// The outcome of a user action: whether it was refused and, when an event was sent, the status
// the handlers returned (eventNotHandledErr when none handled it).
struct Outcome {
    OSStatus refused = noErr;
    OSStatus eventStatus = eventNotHandledErr;
    bool ok() const { return refused == noErr; }
};

// ---- Finding things -------------------------------------------------------

// Every live window, in creation order.
std::vector<WindowRef> windows();
// The first live window whose title equals the given text (UTF-8), or null.
WindowRef findWindowByTitle(std::string_view title);
// The window currently active, or null.
WindowRef activeWindow();
// The root view of a window, or null when it has none.
ControlRef rootView(WindowRef window);
// The window a control belongs to through its view hierarchy, or null (e.g. in a panel view).
WindowRef windowOf(ControlRef control);
// The first control, depth first in view order, whose ControlID id equals the given id
// (any signature), searching the window's or the view's whole tree; null when none.
ControlRef findControlById(WindowRef window, SInt32 id);
ControlRef findControlById(ControlRef view, SInt32 id);
// The direct subviews of a view, back to front.
std::vector<ControlRef> subviews(ControlRef view);
// Whether a control exists.
bool isLiveControl(ControlRef control);
bool isLiveWindow(WindowRef window);
// Whether the control and every view containing it are visible (and its window, if any).
bool isEffectivelyVisible(ControlRef control);

// Texts as UTF-8: a window's title, a control's title, a control's text data ('cfst').
std::string windowTitle(WindowRef window);
std::string controlTitle(ControlRef control);
std::string controlText(ControlRef control);
// The four-character kind of a control ("cbox", "eutx", ...), empty for an unknown control.
std::string controlKindName(ControlRef control);
// Text of the menu items of a popup button's menu, in order.
std::vector<std::string> popupItems(ControlRef popup);

// ---- Acting as a user -----------------------------------------------------

// Replaces the text of an edit field.
Outcome typeText(ControlRef editField, std::string_view text, Force force = Force::no);
// Clicks a check box, radio button, push button or bevel button: auto-toggling controls toggle
// first (a check box flips, a radio turns on), then a command-process event with the control's
// command id and the control as its source goes to the control, up its views, then its window.
Outcome click(ControlRef control, Force force = Force::no);
// Chooses item `item` (1-based) of a popup button, then sends its command like `click`.
Outcome choosePopupItem(ControlRef popup, SInt32 item, Force force = Force::no);
// Presses a window's close box: sends kEventWindowCloseRequested; unhandled, a window with the
// standard handler is disposed.
Outcome pressCloseBox(WindowRef window);
// Closes a window as the system would: the window is disposed (its handlers see
// kEventWindowClosed, its controls kEventControlDispose).
Outcome closeWindow(WindowRef window);

// ---- Panel container views ------------------------------------------------

// A view not in any window, with the given bounds, visible, for a host's workspace panel.
ControlRef createPanelView(const Rect& bounds);
void showPanelView(ControlRef view, bool visible);
// Disposes the view and its subviews; each receives kEventControlDispose.
void disposePanelView(ControlRef view);

// What a drawing context recorded.
struct FillRecord {
    CGFloat red = 0, green = 0, blue = 0, alpha = 1;
    CGRect rect{};
};
struct DrawRecord {
    OSStatus status = eventNotHandledErr;             // what the view's handlers returned
    CGFloat red = 0, green = 0, blue = 0, alpha = 1;  // the fill colour last set
    std::vector<FillRecord> fills;                    // every filled rectangle with the colour it was filled with
};
// Sends the view a kEventControlDraw with a fresh recording context as kEventParamCGContextRef
// and returns what the handlers drew.
DrawRecord drawView(ControlRef view);

// A recording drawing context for direct use.
CGContextRef createRecordingContext();
DrawRecord recordedDrawing(CGContextRef context);
void releaseRecordingContext(CGContextRef context);

// ---- The system -----------------------------------------------------------

// Replaces the display list; the first display is the main one.
void setDisplays(const std::vector<Rect>& bounds);
std::vector<Rect> displays();
// Disposes every window, view, menu and string and restores the single default display
// 1920 x 1080 at (0, 0). Handlers are not called.
void reset();
// Counts of live objects, to find leaks in tests.
struct LiveCounts {
    std::size_t windows = 0, controls = 0, menus = 0, strings = 0, handlers = 0;
};
LiveCounts liveCounts();

// ---- Pictures -------------------------------------------------------------

// A window (its content area and title) or a view as SVG: visible controls at their bounds with
// titles, texts, values and checked states, text in the face and colour of each control's font
// style and clipped to it; disabled controls greyed (their group marked data-enabled="false").
std::string windowToSvg(WindowRef window);
std::string viewToSvg(ControlRef view);

// Text made safe inside an XML attribute or element, as the pictures need it.
std::string escapeXml(std::string_view text);

}  // namespace platform
