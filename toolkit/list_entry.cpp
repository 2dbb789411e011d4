// A popup's menu seen as a list of entries, and the entry at the list's current index.
#include "toolkit/iADMItem.h"
#include "toolkit/iADMList.h"
#include "toolkit/platform_text.h"

#include <algorithm>

namespace {

constexpr MenuItemAttributes kEntryAttributes = kMenuItemAttrIgnoreMeta;  // 256

}  // namespace

iADMList* iADMList::IndexEntry(ADMInt32 new_index) {
    index = new_index;
    return this;
}

iADMList* iADMList::InsertEntry(ADMInt32 new_index) {
    const toolkit::PlatformString empty("", kCFStringEncodingMacRoman);
    InsertMenuItemTextWithCFString(menu, empty.get(), static_cast<MenuItemIndex>(new_index), kEntryAttributes, 0);
    index = new_index;
    followMenuCount();
    return this;
}

ADMInt32 iADMList::NumberOfEntries() const { return CountMenuItems(menu); }

void iADMList::RemoveEntry(ADMInt32 at) {
    DeleteMenuItem(menu, static_cast<MenuItemIndex>(at + 1));
    followMenuCount();
}

bool iADMList::GetActiveEntry() {
    index = GetControl32BitValue(popup) - 1;
    return CountMenuItems(menu) > 0;
}

void iADMList::Select(bool select) {
    if (select) {
        SetControl32BitValue(popup, index + 1);
    }
}

void iADMList::SetText(const char* text) {
    const toolkit::PlatformString string(text, kCFStringEncodingMacRoman);
    SetMenuItemTextWithCFString(menu, static_cast<MenuItemIndex>(index + 1), string.get());
}

void iADMList::followMenuCount() {
    // The popup's range is its menu's entries, so that any entry can be selected; an empty menu
    // keeps the range the popup was made with.
    if (popup != nullptr) {
        SetControl32BitMaximum(popup, std::max<SInt32>(1, CountMenuItems(menu)));
    }
}

iADMList* iADMItem::getList() {
    list.popup = control;
    list.list = &list;
    return &list;
}
