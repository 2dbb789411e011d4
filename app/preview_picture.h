// The perspective picture of a composition after a run, as SVG.
#pragma once

#include "host/project.h"

#include <nlohmann/json.hpp>

#include <string>

namespace app {

// Every 3D layer of the reported composition drawn back to front, front faces light and back
// faces dark, each labelled with its name; the cylinder's top and bottom outlines drawn faintly;
// seen from a camera raised above the cylinder's centre.
std::string previewSvg(const host::Project& project, const nlohmann::json& settings);

}  // namespace app
