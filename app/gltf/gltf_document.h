// The glTF document of a scene: its JSON and its one buffer.
#pragma once

#include "app/gltf/gltf_scene.h"

#include <string>
#include <vector>

namespace app {

// A binary file (.glb: the JSON and the buffer in chunks) or a JSON file with the buffer in it as
// a data URI (.gltf).
enum class GltfFormat { binary, text };

struct GltfDocument {
    std::string json;
    std::vector<unsigned char> buffer;
};

GltfDocument gltfDocument(const GltfScene& scene, GltfFormat format);

}  // namespace app
