// From the dialog manager's references to the toolkit objects they point at.
#pragma once

#include "toolkit/iADMDialog.h"

namespace toolkit {

inline iADMDialog* dialogOf(ADMDialogRef ref) { return static_cast<iADMDialog*>(ref); }
inline iADMItem* itemOf(ADMItemRef ref) { return static_cast<iADMItem*>(ref); }
inline iADMList* listOf(ADMListRef ref) { return static_cast<iADMList*>(ref); }
inline iADMEntry* entryOf(ADMEntryRef ref) { return static_cast<iADMEntry*>(ref); }

}  // namespace toolkit
