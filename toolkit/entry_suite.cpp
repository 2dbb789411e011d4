// ADMEntrySuite6: the entry at a list's current index.
#include "toolkit/suite_access.h"

using toolkit::entryOf;

namespace {

ADMInt32 GetIndex(ADMEntryRef entry) { return entry != nullptr ? entryOf(entry)->index : 0; }

void Select(ADMEntryRef entry, ADMBoolean select) {
    if (entry != nullptr) {
        entryOf(entry)->Select(select != 0);
    }
}

void SetText(ADMEntryRef entry, const char* text) {
    if (entry != nullptr) {
        entryOf(entry)->SetText(text);
    }
}

}  // namespace

ADMEntrySuite6 g_ADMEntrySuite = {
    .GetIndex = GetIndex,
    .Select = Select,
    .SetText = SetText,
};
