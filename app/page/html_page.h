// The interactive 3D page of a run: one self-contained HTML file that shows the composition
// before and after the run, with the page's script and three.js inside it.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace app {

// The page for the data of pageSceneData().
std::string htmlPage(const nlohmann::json& scene_data);

}  // namespace app
