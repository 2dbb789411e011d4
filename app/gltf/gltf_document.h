// The glTF document of a scene: its JSON, written as it is made, and its one buffer.
#pragma once

#include "app/gltf/gltf_scene.h"

#include <ostream>
#include <vector>

namespace app {

// A binary file (.glb: the JSON and the buffer in chunks) or a JSON file with the buffer in it as
// a data URI (.gltf).
enum class GltfFormat { binary, text };

// Writes the document's JSON to `out` as it is made, a piece at a time, and returns the bytes of
// its one buffer: a document of tens of thousands of nodes is never held whole.
std::vector<unsigned char> writeGltfJson(const GltfScene& scene, GltfFormat format, std::ostream& out);

}  // namespace app
