// The in-memory compositing host: serves suites through a basic suite, keeps a project, runs
// menus, command, update-menu, idle and death hooks, workspace panels and undo, loads plug-in
// modules, and lets tests inject faults and inspect every call.
//
// Suite functions are plain C functions and cannot carry a context, so one Host is the current
// host at a time: a new Host becomes current, and makeCurrent() switches.
#pragma once

#include "host/project.h"
#include "host_api.h"
#include "platform/driver.h"
#include "platform/platform.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

namespace detail {
struct State;
}

// One StartUndoGroup. Nested groups are recorded too (depth > 0); only outermost groups
// (depth 0) take a snapshot and are undo steps.
struct UndoGroup {
    std::string name;
    int depth = 0;
    bool closed = false;
    bool undone = false;
    // Layers whose properties were set (a value or a keyframe) while this outermost group was
    // open, in the order of their first change: what the step touched. Empty for nested groups.
    std::vector<Id> written;
};

struct Report {
    AEGP_PluginID plugin = 0;
    std::string text;
};

// A call the host answered with an error of its own: a suite it does not offer (or withholds)
// asked for, or a call made to fail. What a real host's log would show.
struct RefusedCall {
    std::string call;  // the function, or "AcquireSuite" with the suite, e.g. "AcquireSuite AEGP Stream Suite/4"
    A_Err err = A_Err_NONE;
};

// A C++ exception that came out of a plug-in hook or entry point and was stopped by the host.
struct EscapedException {
    std::string hook;  // "command", "update menu", "idle", "death", "create panel", "entry"
    std::string what;  // the exception's what(), "int N" for a thrown int, or "unknown"
};

struct MenuItem {
    AEGP_Command command = 0;
    std::string text;
    AEGP_MenuID menu = AEGP_Menu_NONE;
    int position = 0;  // 0-based place in its menu
    bool checked = false;
    bool enabled = true;
};

// A command as the host dispatched it.
struct CommandRecord {
    AEGP_Command command = 0;
    bool handled = false;          // by a hook or by the host itself
    bool handled_by_host = false;  // the host's own handling ran (e.g. duplicating layers)
};

// Suite names as "AEGP Layer Suite/10".
std::string suiteKey(std::string_view name, int32_t version);

// Host colours served by the app suite.
enum : PF_App_ColorType {
    kHostColorText = 2,
    kHostColorPanelBackground = 1000,
};

class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    static Host* current();
    void makeCurrent();

    // ---- Suites -----------------------------------------------------------------------
    SPBasicSuite* basicSuite();
    // A withheld suite is refused by acquire, as an older host would.
    void withholdSuite(std::string_view name, int32_t version);
    void offerSuite(std::string_view name, int32_t version);
    bool isWithheld(std::string_view name, int32_t version) const;
    std::vector<std::string> withheldSuites() const;  // suite keys, sorted
    // Successful acquires and releases of one suite version.
    int acquireCount(std::string_view name, int32_t version) const;
    int releaseCount(std::string_view name, int32_t version) const;
    // Successful acquires of all suites together.
    int acquireCount() const;
    // Whether every suite acquired was released as often; the keys of those that were not.
    bool allSuitesReleased() const;
    std::vector<std::string> unreleasedSuites() const;
    // Releases of suites that were not held at the time.
    int strayReleases() const;

    // ---- Calls and faults -------------------------------------------------------------
    // Every suite function and the basic suite's "AcquireSuite" and "ReleaseSuite" count.
    int callCount(std::string_view function) const;
    long totalCalls() const;
    std::map<std::string, int> callCounts() const;
    void resetCallCounts();
    // The n-th host call from now (n >= 1) fails with `err`, once.
    void failNthCall(long n, A_Err err);
    // Every call of `function` fails with `err` until faults are cleared.
    void failFunction(std::string function, A_Err err);
    void clearFaults();
    // Names of the calls that were made to fail, in order.
    std::vector<std::string> failedCalls() const;
    // Those calls and the suites refused on acquire, in order.
    const std::vector<RefusedCall>& refusedCalls() const;

    // ---- Handles ----------------------------------------------------------------------
    std::size_t openCollections() const;
    std::size_t openStreams() const;
    AEGP_LayerH layerHandle(Id layer) const;
    AEGP_CompH compHandle(Id comp) const;
    AEGP_ItemH itemHandle(Id item) const;
    // The id behind a handle when it names a live object, else 0.
    Id layerId(AEGP_LayerH layer) const;
    Id compId(AEGP_CompH comp) const;
    Id itemId(AEGP_ItemH item) const;

    // ---- Project ----------------------------------------------------------------------
    Project& project();
    const Project& project() const;
    // Swaps in a whole new project (handles of the old one become invalid) and forgets undo.
    void replaceProject(Project project);

    // ---- Undo -------------------------------------------------------------------------
    const std::vector<UndoGroup>& undoGroups() const;
    int undoDepth() const;  // groups opened and not closed
    // EndUndoGroup calls without an open group.
    int strayUndoEnds() const;
    bool undoBalanced() const;
    // Restores the snapshot of the last closed outermost group not yet undone; false if none.
    bool undo();
    // The project as the oldest step that can still be undone found it: what undoing every step
    // would bring back. Null when there is nothing to undo.
    const Project* undoBase() const;

    // ---- Menus and hooks --------------------------------------------------------------
    std::vector<MenuItem> menuItems() const;                    // every menu, in menu order
    const MenuItem* findMenuItem(std::string_view text) const;  // null when there is none
    const MenuItem* menuItem(AEGP_Command command) const;
    // Calls the update-menu hooks, as before a menu is shown.
    void updateMenus();
    // Dispatches a command as the user choosing it: hooks before the host (priority 1), the
    // host's own handling unless handled, then hooks after the host (priority 2).
    A_Err doCommand(AEGP_Command command);
    // Updates the menus, then chooses the item with this text; A_Err_PARAMETER when there is
    // no such item or it is disabled.
    A_Err chooseMenuItem(std::string_view text);
    const std::vector<CommandRecord>& commandLog() const;
    // Calls every idle hook `times` times.
    void idle(int times = 1);
    // The plug-ins' reports, and the alert the host gives when a command hook returns an error.
    const std::vector<Report>& reports() const;
    const std::vector<EscapedException>& escapedExceptions() const;
    std::size_t hookCount() const;  // command, update-menu, idle, death and panel hooks

    // ---- Workspace panels -------------------------------------------------------------
    std::vector<std::string> panelNames() const;  // match names with a create-panel hook
    A_Err togglePanel(std::string_view match_name);
    bool panelCreated(std::string_view match_name) const;
    bool panelShown(std::string_view match_name) const;
    ControlRef panelView(std::string_view match_name) const;
    std::string panelTitle(std::string_view match_name) const;
    // Disposes the panel's container view (its handlers see the dispose event); the next
    // toggle creates the panel anew. False when the panel is not created.
    bool disposePanel(std::string_view match_name);
    // Asks the plug-in's panel functions for the snap sizes; empty when there is none.
    std::vector<A_LPoint> panelSnapSizes(std::string_view match_name);
    // Sends the panel's container view a draw event, as the window system does when the panel
    // needs painting, and returns what was drawn; an empty record when the panel is not created.
    platform::DrawRecord drawPanel(std::string_view match_name);
    // Whether the plug-in asked the host to paint the panel's background.
    bool panelPaintsBackground(std::string_view match_name) const;
    // The size new panel container views get.
    void setPanelSize(A_long width, A_long height);

    // ---- Plug-ins ---------------------------------------------------------------------
    // Loads a module and calls its entry point. A_Err_GENERIC with loaderError() set when
    // the module or its entry point cannot be found; else the entry point's result.
    A_Err loadPlugin(const std::string& path);
    // Calls an entry point that is linked in (no module).
    A_Err startPlugin(AEGP_PluginInitFuncPrototype entry, const std::string& file_path = "");
    // Disposes the plug-in's panels, calls the death hooks, forgets its hooks, closes the module.
    void unloadPlugin();
    bool pluginLoaded() const;
    AEGP_PluginID pluginId() const;
    A_Err entryResult() const;
    const std::string& loaderError() const;

    // Internal state, for the suite implementations.
    detail::State& state();
    const detail::State& state() const;

private:
    std::unique_ptr<detail::State> state_;
};

}  // namespace host
