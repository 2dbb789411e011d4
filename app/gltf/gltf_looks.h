// How the file paints what it holds, in the page's colours (app/drawing/palette.h): faces light
// in front and dark behind, copies the run made warm, outlines darker still, the surface grey and
// the composition's frame purple. Unlit, so that every viewer shows the colours as they are.
#pragma once

#include "app/gltf/gltf_json.h"

#include <array>
#include <string_view>
#include <vector>

namespace app {

enum class Look { front, back, outline, copy_front, copy_back, copy_outline, surface, comp_frame };

// The materials a document uses, numbered in the order they are first asked for.
class Materials {
public:
    int use(Look look);
    bool empty() const { return used_.empty(); }
    void write(JsonText& json) const;

private:
    std::vector<Look> used_;
};

// A colour given as sRGB "#rrggbb" in linear light, as glTF's colour factors are.
std::array<double, 3> linearColour(std::string_view hex);

}  // namespace app
