// The report printed after a run: one row per layer of the composition, then the host's reports.
#pragma once

#include "host/host.h"
#include "host/project.h"

#include <string>

namespace app {

// What the run did to a layer, judged against the project before the run.
std::string layerChange(const host::Project& before, const host::Layer& layer);

// The table of the active composition's layers (number, name, type, position, orientation,
// scale, keyframe counts, what the run did).
std::string layerTable(const host::Project& before, const host::Project& after);

// The host's report messages and the exceptions it stopped, one per line; empty when none.
std::string hostReports(const host::Host& host);

}  // namespace app
