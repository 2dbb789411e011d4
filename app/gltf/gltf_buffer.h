// The file's one buffer and what reads it: vertex data, indices and the animation's keys, each a
// buffer view of its own, and the accessors on them, numbered as they are added.
#pragma once

#include "app/gltf/gltf_json.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace app {

enum class BufferView { vertices, indices, keys };

// Elements of an accessor: 1, 3 or 4 numbers each.
enum class Element { scalar = 1, vec3 = 3, vec4 = 4 };

class GltfBuffer {
public:
    // Single-precision values in `view`, `element` at a time; `bounds` writes their minimum and
    // maximum, which positions and key times must have. Returns the accessor's number.
    int addFloats(BufferView view, std::span<const float> data, Element element, bool bounds);
    int addIndices(std::span<const std::uint16_t> indices);

    bool empty() const;
    // The views that hold data, in the buffer's order, and the accessors on them.
    void writeViews(JsonText& json) const;
    void writeAccessors(JsonText& json) const;
    // The buffer's bytes: each view's data, padded to four bytes.
    std::vector<unsigned char> bytes() const;

private:
    struct Accessor {
        BufferView view;
        std::size_t offset;  // within the view
        int component_type;
        std::size_t count;
        Element element;
        std::vector<double> min, max;
    };
    static constexpr std::size_t kViews = 3;

    std::vector<unsigned char>& region(BufferView view) { return regions_[static_cast<std::size_t>(view)]; }
    // Each view's number in the file, -1 for an empty one, and its offset in the buffer.
    std::array<int, kViews> viewNumbers() const;
    std::array<std::size_t, kViews> viewOffsets() const;

    std::array<std::vector<unsigned char>, kViews> regions_;
    std::vector<Accessor> accessors_;
};

}  // namespace app
