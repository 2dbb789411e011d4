#include "app/gltf/gltf_file.h"

#include "app/output/file_ending.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <streambuf>
#include <vector>

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

// A stream's buffer that keeps nothing and counts what it is given.
class CountingBuffer : public std::streambuf {
public:
    std::size_t count() const { return count_; }

protected:
    int_type overflow(int_type c) override {
        count_ += traits_type::eq_int_type(c, traits_type::eof()) ? 0 : 1;
        return traits_type::not_eof(c);
    }
    std::streamsize xsputn(const char*, std::streamsize n) override {
        count_ += static_cast<std::size_t>(n);
        return n;
    }

private:
    std::size_t count_ = 0;
};

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

void writeGltf(const GltfScene& scene, GltfFormat format, std::ostream& out) {
    if (format == GltfFormat::text) {
        writeGltfJson(scene, format, out);
        out << '\n';
        return;
    }
    // The header gives the JSON's length before the JSON: the text is made once to be counted and
    // again to be written, rather than held whole.
    CountingBuffer counter;
    std::ostream counted(&counter);
    const std::vector<unsigned char> buffer = writeGltfJson(scene, format, counted);
    const std::size_t json_length = counter.count();
    const std::size_t json_size = json_length + padding(json_length);
    const std::size_t bin_size = buffer.size() + padding(buffer.size());
    const std::size_t total = 12 + 8 + json_size + (buffer.empty() ? 0 : 8 + bin_size);
    word(out, kMagic);
    word(out, 2);
    word(out, static_cast<std::uint32_t>(total));
    word(out, static_cast<std::uint32_t>(json_size));
    word(out, kJsonChunk);
    writeGltfJson(scene, format, out);
    out << std::string(padding(json_length), ' ');
    if (!buffer.empty()) {
        word(out, static_cast<std::uint32_t>(bin_size));
        word(out, kBinChunk);
        out.write(reinterpret_cast<const char*>(buffer.data()), static_cast<std::streamsize>(buffer.size()));
        out << std::string(padding(buffer.size()), '\0');
    }
}

}  // namespace app
