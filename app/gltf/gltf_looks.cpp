#include "app/gltf/gltf_looks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace app {

namespace {

struct LookStyle {
    const char* name;
    const char* colour;
};

LookStyle style(Look look) {
    switch (look) {
        case Look::front:
            return {"Front", "#a9cbef"};
        case Look::back:
            return {"Back", "#56697f"};
        case Look::outline:
            return {"Outline", "#24496f"};
        case Look::copy_front:
            return {"Copy front", "#f3cf9b"};
        case Look::copy_back:
            return {"Copy back", "#8c6a43"};
        case Look::copy_outline:
            return {"Copy outline", "#6b4310"};
        case Look::surface:
            return {"Surface", "#8a94a3"};
        case Look::comp_frame:
            return {"Composition frame", "#9c36b5"};
    }
    return {"", "#000000"};
}

double linear(double srgb) { return srgb <= 0.04045 ? srgb / 12.92 : std::pow((srgb + 0.055) / 1.055, 2.4); }

}  // namespace

std::array<double, 3> linearColour(const char* hex) {
    const long value = std::strtol(hex + 1, nullptr, 16);
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
        const std::array<double, 3> c = linearColour(s.colour);
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
