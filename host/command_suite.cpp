// "AEGP Command Suite" 1: unique commands, menu items and running commands.
#include "host/suite_call.h"
#include "host/suite_tables.h"

namespace host::detail {

bool insertItem(State& s, MenuItem item, A_long after_item);
bool removeItem(State& s, AEGP_Command command);

namespace {

bool validMenu(AEGP_MenuID menu) { return menu >= AEGP_Menu_APPLE && menu <= AEGP_Menu_FLOATERS; }

template <typename Body>
A_Err onMenuItem(const char* function, AEGP_Command command, bool valid, Body&& body) {
    return hostCallOn(
        function, [&](State& s) { return findItem(s, command); }, valid, body);
}

A_Err getUniqueCommand(AEGP_Command* unique_command) {
    return hostCall("AEGP_GetUniqueCommand", given(unique_command), [&](State& s) {
        *unique_command = s.next_command++;
        s.issued.insert(*unique_command);
        return A_Err_NONE;
    });
}

A_Err insertMenuCommand(AEGP_Command command, const A_char* name, AEGP_MenuID menu_id, A_long after_item) {
    return hostCall("AEGP_InsertMenuCommand", given(name) && validMenu(menu_id), [&](State& s) {
        if (!isKnownCommand(s, command) || findItem(s, command) != nullptr) {
            return A_Err_PARAMETER;
        }
        MenuItem item;
        item.command = command;
        item.text = name;
        item.menu = menu_id;
        return insertItem(s, std::move(item), after_item) ? A_Err_NONE : A_Err_PARAMETER;
    });
}

A_Err removeMenuCommand(AEGP_Command command) {
    return hostCall("AEGP_RemoveMenuCommand",
                    [&](State& s) { return removeItem(s, command) ? A_Err_NONE : A_Err_PARAMETER; });
}

A_Err setMenuCommandName(AEGP_Command command, const A_char* name) {
    return onMenuItem("AEGP_SetMenuCommandName", command, given(name), [&](State&, MenuItem& item) {
        item.text = name;
        return A_Err_NONE;
    });
}

A_Err setEnabled(const char* function, AEGP_Command command, bool enabled) {
    return onMenuItem(function, command, true, [&](State&, MenuItem& item) {
        item.enabled = enabled;
        return A_Err_NONE;
    });
}

A_Err enableCommand(AEGP_Command command) { return setEnabled("AEGP_EnableCommand", command, true); }

A_Err disableCommand(AEGP_Command command) { return setEnabled("AEGP_DisableCommand", command, false); }

A_Err checkMarkMenuCommand(AEGP_Command command, A_Boolean check) {
    return onMenuItem("AEGP_CheckMarkMenuCommand", command, true, [&](State&, MenuItem& item) {
        item.checked = check != 0;
        return A_Err_NONE;
    });
}

A_Err doCommand(AEGP_Command command) {
    return hostCall("AEGP_DoCommand", command > 0, [&](State& s) { return dispatchCommand(s, command); });
}

const AEGP_CommandSuite1 kSuite{getUniqueCommand, insertMenuCommand, removeMenuCommand,    setMenuCommandName,
                                enableCommand,    disableCommand,    checkMarkMenuCommand, doCommand};

const ServedSuite kServed[] = {{kAEGPCommandSuite, kAEGPCommandSuiteVersion1, &kSuite}};

}  // namespace

std::span<const ServedSuite> commandSuites() { return kServed; }

}  // namespace host::detail
