// The glTF file of --gltf: its format follows the name's ending, and it is made as it is written.
#pragma once

#include "app/gltf/gltf_document.h"

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace app {

// ".glb" or ".gltf", in any letter case; nothing for any other name.
std::optional<GltfFormat> gltfFormat(std::string_view path);

// Why a glTF file cannot be written under this name, or empty when the ending is one we write.
std::string gltfNameProblem(std::string_view path);

// A binary file: a 12-byte header ("glTF", version 2, the file's length), then the JSON chunk
// padded with spaces and the buffer's chunk padded with zeros, each to four bytes, each after its
// length and type; little-endian throughout. A JSON file: the document as it is.
void writeGltf(const GltfScene& scene, GltfFormat format, std::ostream& out);

}  // namespace app
