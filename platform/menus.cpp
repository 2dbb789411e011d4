// Menus: reference-counted lists of items with text, attributes and command ids.
#include "platform/internal.h"

#include <algorithm>

namespace platform::detail {

void releaseMenu(MenuRef menu) {
    OpaqueMenuRef* m = liveMenu(menu);
    if (m && --m->refs == 0)
        state().menus.erase(m);
}

}  // namespace platform::detail

using namespace platform::detail;

extern "C" {

OSStatus CreateNewMenu(MenuID inMenuID, MenuAttributes inMenuAttributes, MenuRef* outMenuRef) {
    if (!outMenuRef)
        return paramErr;
    auto menu = std::make_unique<OpaqueMenuRef>();
    menu->id = inMenuID;
    menu->attributes = inMenuAttributes;
    *outMenuRef = menu.get();
    state().menus.emplace(menu.get(), std::move(menu));
    return noErr;
}

void DisposeMenu(MenuRef theMenu) { releaseMenu(theMenu); }

OSStatus RetainMenu(MenuRef inMenu) {
    OpaqueMenuRef* m = liveMenu(inMenu);
    if (!m)
        return paramErr;
    ++m->refs;
    return noErr;
}

OSStatus ReleaseMenu(MenuRef inMenu) {
    if (!liveMenu(inMenu))
        return paramErr;
    releaseMenu(inMenu);
    return noErr;
}

MenuID GetMenuID(MenuRef menu) {
    OpaqueMenuRef* m = liveMenu(menu);
    return m ? m->id : 0;
}

OSStatus InsertMenuItemTextWithCFString(MenuRef inMenu, CFStringRef inString, MenuItemIndex inAfterItem,
                                        MenuItemAttributes inAttributes, MenuCommand inCommandID) {
    OpaqueMenuRef* m = liveMenu(inMenu);
    if (!m)
        return paramErr;
    // An index past the end appends, as it does for the first item of an empty menu.
    std::size_t at = std::min<std::size_t>(inAfterItem, m->items.size());
    m->items.insert(m->items.begin() + static_cast<long>(at),
                    OpaqueMenuRef::Item{charsOf(inString), inAttributes, inCommandID});
    return noErr;
}

OSStatus SetMenuItemTextWithCFString(MenuRef inMenu, MenuItemIndex inItem, CFStringRef inString) {
    OpaqueMenuRef* m = liveMenu(inMenu);
    if (!m)
        return paramErr;
    if (inItem < 1 || inItem > m->items.size())
        return paramErr;
    m->items[inItem - 1].text = charsOf(inString);
    return noErr;
}

void DeleteMenuItem(MenuRef theMenu, MenuItemIndex item) {
    OpaqueMenuRef* m = liveMenu(theMenu);
    if (!m || item < 1 || item > m->items.size())
        return;
    m->items.erase(m->items.begin() + (item - 1));
}

UInt16 CountMenuItems(MenuRef theMenu) {
    OpaqueMenuRef* m = liveMenu(theMenu);
    return m ? static_cast<UInt16>(m->items.size()) : 0;
}

OSStatus CopyMenuItemTextAsCFString(MenuRef inMenu, MenuItemIndex inItem, CFStringRef* outString) {
    OpaqueMenuRef* m = liveMenu(inMenu);
    if (!m || !outString)
        return paramErr;
    if (inItem < 1 || inItem > m->items.size())
        return paramErr;
    *outString = makeString(m->items[inItem - 1].text);
    return noErr;
}

}  // extern "C"
