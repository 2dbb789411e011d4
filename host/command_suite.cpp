// "AEGP Command Suite" 1: unique commands, menu items and running commands.
#include "host/host_state.h"
#include "host/suite_tables.h"

namespace host::detail {

bool insertItem(State& s, MenuItem item, A_long after_item);
bool removeItem(State& s, AEGP_Command command);

namespace {

bool validMenu(AEGP_MenuID menu) { return menu >= AEGP_Menu_APPLE && menu <= AEGP_Menu_FLOATERS; }

A_Err getUniqueCommand(AEGP_Command* unique_command) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_GetUniqueCommand", err);
    if (s == nullptr) {
        return err;
    }
    if (unique_command == nullptr) {
        return A_Err_PARAMETER;
    }
    *unique_command = s->next_command++;
    s->issued.insert(*unique_command);
    return A_Err_NONE;
}

A_Err insertMenuCommand(AEGP_Command command, const A_char* name, AEGP_MenuID menu_id, A_long after_item) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_InsertMenuCommand", err);
    if (s == nullptr) {
        return err;
    }
    if (name == nullptr || !validMenu(menu_id) || !isKnownCommand(*s, command) || findItem(*s, command) != nullptr) {
        return A_Err_PARAMETER;
    }
    MenuItem item;
    item.command = command;
    item.text = name;
    item.menu = menu_id;
    return insertItem(*s, std::move(item), after_item) ? A_Err_NONE : A_Err_PARAMETER;
}

A_Err removeMenuCommand(AEGP_Command command) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_RemoveMenuCommand", err);
    if (s == nullptr) {
        return err;
    }
    return removeItem(*s, command) ? A_Err_NONE : A_Err_PARAMETER;
}

A_Err setMenuCommandName(AEGP_Command command, const A_char* name) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_SetMenuCommandName", err);
    if (s == nullptr) {
        return err;
    }
    MenuItem* item = findItem(*s, command);
    if (item == nullptr || name == nullptr) {
        return A_Err_PARAMETER;
    }
    item->text = name;
    return A_Err_NONE;
}

A_Err setEnabled(const char* function, AEGP_Command command, bool enabled) {
    A_Err err = A_Err_NONE;
    State* s = enter(function, err);
    if (s == nullptr) {
        return err;
    }
    MenuItem* item = findItem(*s, command);
    if (item == nullptr) {
        return A_Err_PARAMETER;
    }
    item->enabled = enabled;
    return A_Err_NONE;
}

A_Err enableCommand(AEGP_Command command) { return setEnabled("AEGP_EnableCommand", command, true); }

A_Err disableCommand(AEGP_Command command) { return setEnabled("AEGP_DisableCommand", command, false); }

A_Err checkMarkMenuCommand(AEGP_Command command, A_Boolean check) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_CheckMarkMenuCommand", err);
    if (s == nullptr) {
        return err;
    }
    MenuItem* item = findItem(*s, command);
    if (item == nullptr) {
        return A_Err_PARAMETER;
    }
    item->checked = check != 0;
    return A_Err_NONE;
}

A_Err doCommand(AEGP_Command command) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_DoCommand", err);
    if (s == nullptr) {
        return err;
    }
    if (command <= 0) {
        return A_Err_PARAMETER;
    }
    return dispatchCommand(*s, command);
}

const AEGP_CommandSuite1 kSuite{getUniqueCommand, insertMenuCommand, removeMenuCommand,    setMenuCommandName,
                                enableCommand,    disableCommand,    checkMarkMenuCommand, doCommand};

}  // namespace

const AEGP_CommandSuite1* commandSuite1() { return &kSuite; }

}  // namespace host::detail
