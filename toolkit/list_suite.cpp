// ADMListSuite4: the entries of a popup's list.
#include "toolkit/suite_access.h"

using toolkit::listOf;

namespace {

ADMEntryRef GetActiveEntry(ADMListRef list) {
    if (list == nullptr) {
        return nullptr;
    }
    iADMList* l = listOf(list);
    return l->GetActiveEntry() ? l : nullptr;
}

ADMEntryRef IndexEntry(ADMListRef list, ADMInt32 index) {
    return list != nullptr ? listOf(list)->IndexEntry(index) : nullptr;
}

ADMEntryRef InsertEntry(ADMListRef list, ADMInt32 index) {
    return list != nullptr ? listOf(list)->InsertEntry(index) : nullptr;
}

ADMInt32 NumberOfEntries(ADMListRef list) { return list != nullptr ? listOf(list)->NumberOfEntries() : 0; }

void RemoveEntry(ADMListRef list, ADMInt32 index) {
    if (list != nullptr) {
        listOf(list)->RemoveEntry(index);
    }
}

}  // namespace

ADMListSuite4 g_ADMListSuite = {
    .GetActiveEntry = GetActiveEntry,
    .IndexEntry = IndexEntry,
    .InsertEntry = InsertEntry,
    .NumberOfEntries = NumberOfEntries,
    .RemoveEntry = RemoveEntry,
};
