#include "app/gltf/gltf_looks.h"

#include "app/drawing/palette.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace app {

namespace {

struct LookStyle {
    const char* name;
    std::string_view palette;  // the colour's name in the page's palette
};

LookStyle style(Look look) {
    switch (look) {
        case Look::front:
            return {"Front", kFrontColour.name};
        case Look::back:
            return {"Back", kBackColour.name};
        case Look::outline:
            return {"Outline", kEdgeColour.name};
        case Look::copy_front:
            return {"Copy front", "copyFront"};
        case Look::copy_back:
            return {"Copy back", "copyBack"};
        case Look::copy_outline:
            return {"Copy outline", "copyEdge"};
        case Look::surface:
            return {"Surface", kSurfaceColour.name};
        case Look::comp_frame:
            return {"Composition frame", "compFrame"};
    }
    return {"", ""};
}

std::string_view paletteHex(std::string_view name) {
    const auto found = std::find_if(kPagePalette.begin(), kPagePalette.end(),
                                    [name](const PaletteColour& c) { return c.name == name; });
    return found != kPagePalette.end() ? found->hex : "#000000";
}

double linear(double srgb) { return srgb <= 0.04045 ? srgb / 12.92 : std::pow((srgb + 0.055) / 1.055, 2.4); }

}  // namespace

std::array<double, 3> linearColour(std::string_view hex) {
    unsigned value = 0;
    std::from_chars(hex.data() + 1, hex.data() + hex.size(), value, 16);
    return {linear(((value >> 16) & 255) / 255.0), linear(((value >> 8) & 255) / 255.0), linear((value & 255) / 255.0)};
}

int Materials::use(Look look) {
    const auto found = std::find(used_.begin(), used_.end(), look);
    if (found != used_.end()) {
        return static_cast<int>(found - used_.begin());
    }
    used_.push_back(look);
    return static_cast<int>(used_.size() - 1);
}

void Materials::write(JsonText& json) const {
    json.beginArray();
    for (const Look look : used_) {
        const LookStyle s = style(look);
        const std::array<double, 3> c = linearColour(paletteHex(s.palette));
        json.beginObject();
        member(json, "name", s.name);
        json.key("pbrMetallicRoughness");
        json.beginObject();
        numbers(json, "baseColorFactor", {c[0], c[1], c[2], 1.0});
        member(json, "metallicFactor", 0.0);
        member(json, "roughnessFactor", 1.0);
        json.endObject();
        json.key("extensions");
        json.beginObject();
        json.key("KHR_materials_unlit");
        json.beginObject();
        json.endObject();
        json.endObject();
        json.endObject();
    }
    json.endArray();
}

}  // namespace app
