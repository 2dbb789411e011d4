#include "app/gltf/gltf_buffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace app {

namespace {

constexpr int kFloat = 5126;
constexpr int kUnsignedShort = 5123;
constexpr int kArrayBuffer = 34962;
constexpr int kElementArrayBuffer = 34963;

std::size_t padded(std::size_t size) { return (size + 3) / 4 * 4; }

template <typename T>
std::size_t append(std::vector<unsigned char>& region, std::span<const T> data) {
    const std::size_t offset = region.size();
    region.resize(offset + data.size_bytes());
    std::memcpy(region.data() + offset, data.data(), data.size_bytes());
    return offset;
}

const char* typeName(Element element) {
    switch (element) {
        case Element::scalar:
            return "SCALAR";
        case Element::vec3:
            return "VEC3";
        case Element::vec4:
            return "VEC4";
    }
    return "";
}

}  // namespace

int GltfBuffer::addFloats(BufferView view, std::span<const float> data, Element element, bool bounds) {
    const auto width = static_cast<std::size_t>(element);
    Accessor accessor{view, append(region(view), data), kFloat, data.size() / width, element, {}, {}};
    if (bounds) {
        // The very single-precision values, so that a reader comparing them with the data agrees.
        accessor.min.assign(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(width));
        accessor.max = accessor.min;
        for (std::size_t i = width; i < data.size(); ++i) {
            accessor.min[i % width] = std::min<double>(accessor.min[i % width], data[i]);
            accessor.max[i % width] = std::max<double>(accessor.max[i % width], data[i]);
        }
    }
    accessors_.push_back(std::move(accessor));
    return static_cast<int>(accessors_.size() - 1);
}

int GltfBuffer::addIndices(std::span<const std::uint16_t> indices) {
    // Index data starts where a four-byte value may, whatever came before.
    std::vector<unsigned char>& r = region(BufferView::indices);
    r.resize(padded(r.size()));
    accessors_.push_back(
        {BufferView::indices, append(r, indices), kUnsignedShort, indices.size(), Element::scalar, {}, {}});
    return static_cast<int>(accessors_.size() - 1);
}

bool GltfBuffer::empty() const {
    return std::all_of(regions_.begin(), regions_.end(), [](const auto& r) { return r.empty(); });
}

std::array<int, GltfBuffer::kViews> GltfBuffer::viewNumbers() const {
    std::array<int, kViews> numbers{};
    int next = 0;
    for (std::size_t v = 0; v < kViews; ++v) {
        numbers[v] = regions_[v].empty() ? -1 : next++;
    }
    return numbers;
}

std::array<std::size_t, GltfBuffer::kViews> GltfBuffer::viewOffsets() const {
    std::array<std::size_t, kViews> offsets{};
    std::size_t at = 0;
    for (std::size_t v = 0; v < kViews; ++v) {
        offsets[v] = at;
        at += padded(regions_[v].size());
    }
    return offsets;
}

void GltfBuffer::writeViews(JsonText& json) const {
    const std::array<std::size_t, kViews> offsets = viewOffsets();
    json.beginArray();
    for (std::size_t v = 0; v < kViews; ++v) {
        if (regions_[v].empty()) {
            continue;
        }
        json.beginObject();
        member(json, "buffer", 0);
        member(json, "byteOffset", offsets[v]);
        member(json, "byteLength", regions_[v].size());
        if (v == static_cast<std::size_t>(BufferView::vertices)) {
            // Positions and normals side by side in one view need their stride stated.
            member(json, "byteStride", 12);
            member(json, "target", kArrayBuffer);
        } else if (v == static_cast<std::size_t>(BufferView::indices)) {
            member(json, "target", kElementArrayBuffer);
        }
        json.endObject();
    }
    json.endArray();
}

void GltfBuffer::writeAccessors(JsonText& json) const {
    const std::array<int, kViews> numbers = viewNumbers();
    json.beginArray();
    for (const Accessor& a : accessors_) {
        json.beginObject();
        member(json, "bufferView", numbers[static_cast<std::size_t>(a.view)]);
        if (a.offset != 0) {
            member(json, "byteOffset", a.offset);
        }
        member(json, "componentType", a.component_type);
        member(json, "count", a.count);
        member(json, "type", typeName(a.element));
        if (!a.min.empty()) {
            for (const auto& [name, bound] : {std::pair{"min", &a.min}, std::pair{"max", &a.max}}) {
                json.key(name);
                json.beginArray();
                for (const double v : *bound) {
                    json.value(v);
                }
                json.endArray();
            }
        }
        json.endObject();
    }
    json.endArray();
}

std::vector<unsigned char> GltfBuffer::bytes() const {
    std::vector<unsigned char> all;
    for (const auto& r : regions_) {
        all.insert(all.end(), r.begin(), r.end());
        all.resize(padded(all.size()), 0);
    }
    return all;
}

}  // namespace app
