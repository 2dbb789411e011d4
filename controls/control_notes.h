// What each value control of the cylinder dialog sets, in a user's words, and when it acts: notes
// kept beside the control table for tools that list the controls or explain a setting. The plug-in
// itself never reads them.
#pragma once

#include "adm_types.h"

#include <span>

struct ControlNote {
    ADMInt32 id;
    const char* meaning;  // what the control sets
    // When it acts, as a sentence that follows "the dialog greys it out: " for controls the
    // dialog can grey out; empty for the others.
    const char* acts_when;
    bool whole_number;  // an edit field the plug-in reads as an integer
    // Why the control never acts, as a sentence, for those the dialog keeps but the layout never
    // follows; empty for the others.
    const char* never_acts;
};

// Notes on every control that holds a value, in the dialog's order.
std::span<const ControlNote> control_notes();
// The note on one control; null for controls without a value.
const ControlNote* control_note(ADMInt32 id);
