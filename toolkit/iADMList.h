// The list cursor of a popup control. Seen through a list reference it walks the popup's menu;
// seen through an entry reference it is the entry at its current index.
#pragma once

#include "adm_types.h"
#include "platform/platform.h"

// The dialog manager's list and entry references point at this one object.
struct _Opaque_ADMList {};
struct _Opaque_ADMEntry {};

class iADMList : public _Opaque_ADMList, public _Opaque_ADMEntry {
public:
    // List side.
    iADMList* IndexEntry(ADMInt32 new_index);
    iADMList* InsertEntry(ADMInt32 new_index);
    ADMInt32 NumberOfEntries() const;
    void RemoveEntry(ADMInt32 at);
    bool GetActiveEntry();

    // Entry side.
    void Select(bool select);
    void SetText(const char* text);

    ADMInt32 index = 0;        // the current entry, 0-based
    iADMList* list = nullptr;  // this same object once the item has handed it out
    ControlRef popup = nullptr;
    MenuRef menu = nullptr;

private:
    void followMenuCount();
};

using iADMEntry = iADMList;
