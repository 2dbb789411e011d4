// The list --list-controls prints: every control --set and a scene's "settings" take.
#pragma once

#include <string>

namespace app {

// One row per control that holds a value, in the dialog's order: name, kind, range and initial
// value, whether the dialog shows it, and what it sets.
std::string controlList();

}  // namespace app
