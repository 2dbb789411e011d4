#include "app/gltf/gltf_file.h"

#include "app/output/file_ending.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace app {

namespace {

void word(std::ostream& out, std::uint32_t value) {
    const char bytes[4] = {static_cast<char>(value & 255), static_cast<char>((value >> 8) & 255),
                           static_cast<char>((value >> 16) & 255), static_cast<char>((value >> 24) & 255)};
    out.write(bytes, 4);
}

std::uint32_t padding(std::size_t size) { return static_cast<std::uint32_t>((4 - size % 4) % 4); }

constexpr std::uint32_t kMagic = 0x46546C67;      // "glTF"
constexpr std::uint32_t kJsonChunk = 0x4E4F534A;  // "JSON"
constexpr std::uint32_t kBinChunk = 0x004E4942;   // "BIN\0"

}  // namespace

std::optional<GltfFormat> gltfFormat(std::string_view path) {
    if (endsWith(path, ".glb")) {
        return GltfFormat::binary;
    }
    if (endsWith(path, ".gltf")) {
        return GltfFormat::text;
    }
    return std::nullopt;
}

std::string gltfNameProblem(std::string_view path) {
    if (gltfFormat(path)) {
        return {};
    }
    return "--gltf " + std::string(path) + ": the file's name must end in .glb or .gltf, which choose its format";
}

void writeGltf(const GltfDocument& document, GltfFormat format, std::ostream& out) {
    if (format == GltfFormat::text) {
        out << document.json << '\n';
        return;
    }
    const std::size_t json_size = document.json.size() + padding(document.json.size());
    const std::size_t bin_size = document.buffer.size() + padding(document.buffer.size());
    const std::size_t total = 12 + 8 + json_size + (document.buffer.empty() ? 0 : 8 + bin_size);
    word(out, kMagic);
    word(out, 2);
    word(out, static_cast<std::uint32_t>(total));
    word(out, static_cast<std::uint32_t>(json_size));
    word(out, kJsonChunk);
    out << document.json << std::string(padding(document.json.size()), ' ');
    if (!document.buffer.empty()) {
        word(out, static_cast<std::uint32_t>(bin_size));
        word(out, kBinChunk);
        out.write(reinterpret_cast<const char*>(document.buffer.data()),
                  static_cast<std::streamsize>(document.buffer.size()));
        out << std::string(padding(document.buffer.size()), '\0');
    }
}

}  // namespace app
