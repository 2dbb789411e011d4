// What a Host keeps behind its public face; shared by the suite implementations.
#pragma once

#include "host/host.h"
#include "host/project.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace host::detail {

// Handles are ids with a kind tag in the low bits, so a handle of one kind never passes for
// another and an id that is gone is simply not found.
enum class Tag : std::uintptr_t { layer = 1, comp = 2, item = 3, stream = 4, collection = 5, panel = 6 };

template <typename Handle>
Handle makeHandle(Id id, Tag tag) {
    if (id == 0) {
        return nullptr;
    }
    return reinterpret_cast<Handle>(static_cast<std::uintptr_t>(id << 3) | static_cast<std::uintptr_t>(tag));
}

inline Id handleId(const void* handle, Tag tag) {
    const auto bits = reinterpret_cast<std::uintptr_t>(handle);
    if ((bits & 7u) != static_cast<std::uintptr_t>(tag)) {
        return 0;
    }
    return static_cast<Id>(bits >> 3);
}

struct SuiteCount {
    int acquired = 0;
    int released = 0;
};

// A suite version as the basic suite last found it for a name at one address. Plug-ins ask with
// string literals, so the same address comes again and again; the text is compared all the same.
struct SuiteSlot {
    const char* name = nullptr;
    int32_t version = 0;
    std::string text;
    const void* table = nullptr;  // null: the host has no such suite
    bool withheld = false;
    SuiteCount* count = nullptr;  // null until it was first acquired
};

// A call counter in State::calls found by the address of the function's name (a literal).
struct CallSlot {
    const char* name = nullptr;
    int* count = nullptr;
};

constexpr std::size_t kSlots = 64;

template <typename Slot>
Slot& slotFor(std::array<Slot, kSlots>& slots, const void* address, std::uint32_t salt) {
    const auto bits = reinterpret_cast<std::uintptr_t>(address);
    return slots[((bits >> 3) ^ (bits >> 9) ^ salt) % kSlots];
}

struct Stream {
    Id layer = 0;
    Prop prop = Prop::position;
};

// A registered hook: the plug-in that registered it, the function and the refcon it gets back.
template <typename Hook, typename Refcon>
struct HookEntry {
    AEGP_PluginID plugin = 0;
    Hook hook = nullptr;
    Refcon refcon = nullptr;
};

using UpdateMenuHookEntry = HookEntry<AEGP_UpdateMenuHook, AEGP_UpdateMenuRefcon>;
using DeathHookEntry = HookEntry<AEGP_DeathHook, AEGP_DeathRefcon>;
using IdleHookEntry = HookEntry<AEGP_IdleHook, AEGP_IdleRefcon>;

// A command hook also says which command it takes (0: every one) and whether it runs before or
// after the host's own handling.
struct CommandHookEntry : HookEntry<AEGP_CommandHook, AEGP_CommandRefcon> {
    AEGP_HookPriority priority = AEGP_HP_BeforeAE;
    AEGP_Command command = 0;
};

struct Panel {
    std::string match;
    AEGP_PluginID plugin = 0;
    AEGP_CreatePanelHook hook = nullptr;
    AEGP_CreatePanelRefcon refcon = nullptr;
    bool paint_background = false;
    bool created = false;
    bool shown = false;
    ControlRef view = nullptr;
    Id handle = 0;  // of the created panel; 0 while there is none
    AEGP_PanelFunctions1 functions{};
    AEGP_PanelRefcon panel_refcon = nullptr;
    std::string title;
};

struct UndoSnapshot {
    std::size_t group = 0;  // index into State::groups
    Project project;
};

struct LoadedPlugin {
    bool loaded = false;
    void* module = nullptr;  // null for an entry point linked in
    AEGP_PluginID id = 0;
    A_Err entry_result = A_Err_NONE;
};

struct State {
    Project project;

    // Suites.
    SPBasicSuite basic{};
    std::set<std::string> withheld;
    std::map<std::string, SuiteCount> suite_counts;
    std::array<SuiteSlot, kSlots> suite_slots;  // emptied when the offer or the counted suites change
    int stray_releases = 0;

    // Calls and faults.
    std::map<std::string, int, std::less<>> calls;
    std::array<CallSlot, kSlots> call_slots;  // so that counting a call does not build a string
    long total_calls = 0;
    long fail_countdown = 0;  // 0: no pending "n-th call" fault
    A_Err fail_nth_err = A_Err_NONE;
    std::map<std::string, A_Err, std::less<>> fail_functions;
    std::vector<std::string> failed;
    std::vector<RefusedCall> refused;

    // Objects the plug-in owns.
    std::map<Id, Stream> streams;
    std::map<Id, std::vector<AEGP_CollectionItemV1>> collections;

    // Undo.
    std::vector<UndoGroup> groups;
    std::vector<UndoSnapshot> undo_stack;
    Project pending;  // snapshot taken when the outermost open group started
    std::size_t pending_group = 0;
    std::unordered_set<Id> written_in_group;  // the open outermost group's `written`, for lookup
    int depth = 0;
    int stray_ends = 0;

    // Menus and hooks.
    std::map<AEGP_MenuID, std::vector<MenuItem>> menus;
    std::set<AEGP_Command> issued;
    AEGP_Command next_command = 10000;
    std::vector<CommandHookEntry> command_hooks;
    std::vector<UpdateMenuHookEntry> update_menu_hooks;
    std::vector<DeathHookEntry> death_hooks;
    std::vector<IdleHookEntry> idle_hooks;
    std::vector<CommandRecord> command_log;
    std::vector<Report> reports;
    std::vector<EscapedException> escaped;

    // Panels.
    std::vector<Panel> panels;
    A_long panel_width = 300;
    A_long panel_height = 500;

    // Plug-ins.
    LoadedPlugin plugin;
    AEGP_PluginID next_plugin_id = 1;
    std::map<AEGP_PluginID, AEGP_GlobalRefcon> refcons;
    std::string loader_error;

    Host* owner = nullptr;
};

inline LayerPlace placeOf(State& s, AEGP_LayerH layer) { return s.project.find(handleId(layer, Tag::layer)); }
inline Comp* compOf(State& s, AEGP_CompH comp) { return s.project.comp(handleId(comp, Tag::comp)); }
inline std::vector<AEGP_CollectionItemV1>* collectionOf(State& s, AEGP_CollectionH collection) {
    auto it = s.collections.find(handleId(collection, Tag::collection));
    return it == s.collections.end() ? nullptr : &it->second;
}

// Starts a host call: counts it and applies the faults. Returns null with `err` set when the
// call must fail (a fault, or no current host).
State* enter(const char* function, A_Err& err);

// Dispatching to plug-in code; an escaping exception is recorded under `hook` and turned into
// A_Err_GENERIC.
A_Err callHook(State& s, const char* hook, const std::function<A_Err()>& call);
AEGP_GlobalRefcon refconOf(const State& s, AEGP_PluginID plugin);

// Menus and commands (menus.cpp).
MenuItem* findItem(State& s, AEGP_Command command);
A_Err dispatchCommand(State& s, AEGP_Command command);
bool isKnownCommand(const State& s, AEGP_Command command);

// Undo (undo.cpp).
void startUndoGroup(State& s, std::string name);
A_Err endUndoGroup(State& s);
// Notes that a layer's property was set, for the open outermost group's `written`.
void noteWrite(State& s, Id layer);

// The host's own duplicate command on the active composition's selection.
bool duplicateSelection(State& s);

// Panels (panels.cpp).
Panel* findPanel(State& s, std::string_view match);
Panel* findPanelByHandle(State& s, AEGP_PanelH handle);
A_Err togglePanel(State& s, Panel& panel);

// Suite tables, by name and version; null for a suite the host does not have.
const void* suiteTable(std::string_view name, int32_t version);
// Every suite the host has, as "Name/version", in the order it lists them.
std::vector<std::string> suiteKeys();

}  // namespace host::detail
