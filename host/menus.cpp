// Menus and command dispatch: the host's own items, items that plug-ins insert, command hooks
// before and after the host's own handling, and the host's duplicate command.
#include "host/host_state.h"

#include <algorithm>
#include <string>

namespace host {

namespace detail {

namespace {

constexpr AEGP_Command kBuiltInCommands[] = {AEGP_Command_DUPLICATE};

void renumber(std::vector<MenuItem>& items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].position = static_cast<int>(i);
    }
}

struct HookError {
    A_Err err = A_Err_NONE;
    AEGP_PluginID plugin = 0;
};

void runCommandHooks(State& s, AEGP_Command command, AEGP_HookPriority priority, bool& handled, HookError& first) {
    const std::vector<CommandHookEntry> hooks = s.command_hooks;  // hooks may register hooks
    for (const CommandHookEntry& h : hooks) {
        if (h.priority != priority || (h.command != command && h.command != 0)) {
            continue;
        }
        A_Boolean out = 0;
        const A_Err err = callHook(s, "command", [&] {
            return h.hook(refconOf(s, h.plugin), h.refcon, command, priority, handled ? 1 : 0, &out);
        });
        if (err != A_Err_NONE && first.err == A_Err_NONE) {
            first = HookError{err, h.plugin};
        }
        // Once a hook has handled the command it stays handled.
        handled = handled || out != 0;
    }
}

// The host's own handling of its commands; false when the host has none for this command.
bool hostHandles(State& s, AEGP_Command command) {
    if (command == AEGP_Command_DUPLICATE) {
        duplicateSelection(s);
        return true;
    }
    return false;
}

// What the host tells the user when a command's hook returns an error.
std::string commandFailure(State& s, AEGP_Command command, A_Err err) {
    const MenuItem* item = findItem(s, command);
    const std::string name = item != nullptr ? "\"" + item->text + "\"" : "command " + std::to_string(command);
    return "The command " + name + " failed: error " + std::to_string(err) + ".";
}

}  // namespace

void addBuiltInMenus(State& s) {
    s.menus[AEGP_Menu_EDIT].push_back(MenuItem{AEGP_Command_DUPLICATE, "Duplicate", AEGP_Menu_EDIT, 0, false, true});
}

bool isKnownCommand(const State& s, AEGP_Command command) {
    return s.issued.count(command) != 0 ||
           std::find(std::begin(kBuiltInCommands), std::end(kBuiltInCommands), command) != std::end(kBuiltInCommands);
}

MenuItem* findItem(State& s, AEGP_Command command) {
    for (auto& [menu, items] : s.menus) {
        for (MenuItem& item : items) {
            if (item.command == command) {
                return &item;
            }
        }
    }
    return nullptr;
}

bool insertItem(State& s, MenuItem item, A_long after_item) {
    std::vector<MenuItem>& items = s.menus[item.menu];
    std::size_t at = items.size();
    if (after_item == AEGP_MENU_INSERT_AT_TOP) {
        at = 0;
    } else if (after_item == AEGP_MENU_INSERT_SORTED) {
        at = static_cast<std::size_t>(
            std::find_if(items.begin(), items.end(), [&](const MenuItem& m) { return m.text > item.text; }) -
            items.begin());
    } else if (after_item > 0) {
        at = std::min(items.size(), static_cast<std::size_t>(after_item));
    } else if (after_item != AEGP_MENU_INSERT_AT_BOTTOM) {
        return false;
    }
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
    renumber(items);
    return true;
}

bool removeItem(State& s, AEGP_Command command) {
    for (auto& [menu, items] : s.menus) {
        auto it = std::find_if(items.begin(), items.end(), [&](const MenuItem& m) { return m.command == command; });
        if (it != items.end()) {
            items.erase(it);
            renumber(items);
            return true;
        }
    }
    return false;
}

A_Err dispatchCommand(State& s, AEGP_Command command) {
    CommandRecord record;
    record.command = command;
    bool handled = false;
    HookError first;
    runCommandHooks(s, command, AEGP_HP_BeforeAE, handled, first);
    if (!handled && hostHandles(s, command)) {
        handled = true;
        record.handled_by_host = true;
    }
    runCommandHooks(s, command, AEGP_HP_AfterAE, handled, first);
    record.handled = handled;
    s.command_log.push_back(record);
    if (first.err != A_Err_NONE) {
        // A real host shows an alert; here it is kept with the plug-in's own reports.
        s.reports.push_back(Report{first.plugin, commandFailure(s, command, first.err)});
        return first.err;
    }
    return handled ? A_Err_NONE : A_Err_PARAMETER;
}

bool duplicateSelection(State& s) {
    Comp* comp = s.project.activeComp();
    if (comp == nullptr) {
        return false;
    }
    const bool own_group = s.depth == 0;
    if (own_group) {
        startUndoGroup(s, "Duplicate Layers");
    }
    std::vector<Id> copies;
    const std::vector<Id> selection = comp->selection;
    for (Id layer : selection) {
        if (Id copy = s.project.duplicate(layer)) {
            copies.push_back(copy);
        }
    }
    comp->selection = copies;
    if (own_group) {
        endUndoGroup(s);
    }
    return true;
}

}  // namespace detail

std::vector<MenuItem> Host::menuItems() const {
    std::vector<MenuItem> out;
    for (const auto& [menu, items] : state_->menus) {
        out.insert(out.end(), items.begin(), items.end());
    }
    return out;
}

const MenuItem* Host::findMenuItem(std::string_view text) const {
    for (const auto& [menu, items] : state_->menus) {
        for (const MenuItem& item : items) {
            if (item.text == text) {
                return &item;
            }
        }
    }
    return nullptr;
}

const MenuItem* Host::menuItem(AEGP_Command command) const { return detail::findItem(*state_, command); }

A_Err Host::doCommand(AEGP_Command command) { return detail::dispatchCommand(*state_, command); }

A_Err Host::chooseMenuItem(std::string_view text) {
    updateMenus();
    const MenuItem* item = findMenuItem(text);
    if (item == nullptr || !item->enabled) {
        return A_Err_PARAMETER;
    }
    return doCommand(item->command);
}

const std::vector<CommandRecord>& Host::commandLog() const { return state_->command_log; }

}  // namespace host
