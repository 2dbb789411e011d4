// The scene the tool runs when no scene file is named: a full-HD composition with two dozen 3D
// cards of mixed sizes, a 3D text layer, a camera and a 2D background, and settings that lay the
// cards out in three rows around the cylinder.
#pragma once

#include "host/scene_file.h"

#include <nlohmann/json.hpp>

namespace app {

// The demo scene as scene-file JSON.
nlohmann::json demoSceneJson();
// The same, parsed as the host reads scene files.
host::Scene demoScene();

}  // namespace app
