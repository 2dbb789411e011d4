// The outputs a run asked for, in the order they are written.
#pragma once

#include "app/drawing/drawing.h"
#include "app/gltf/gltf_scene.h"
#include "app/output/output_file.h"
#include "app/page/scene_data.h"
#include "app/run/options.h"
#include "app/run/session.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace app {

// --out (a file, or standard output for "-"), --preview, --dialog, --html, --gltf (pictures and
// glTF in the format their names ask for) and --json-report. `preview` is the preview as drawn for
// --preview, which the list takes over, `page` the data of the page for --html, `gltf` the scene
// for --gltf (null without them).
std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, Drawing* preview,
                                    const PageData* page, const GltfScene* gltf, const nlohmann::json& report);

}  // namespace app
