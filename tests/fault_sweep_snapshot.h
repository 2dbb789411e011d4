// Exact pictures of a host project, to tell whether a run changed anything and whether one
// undo put everything back: every object, value and key, the layer order and the selection.
#pragma once

#include "host/project.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace sweep {

// Hexadecimal floating point: two doubles print alike only when they are the same bits.
inline std::string exact(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%a", value);
    return text;
}

inline std::string exact(const host::Vec3& v) { return exact(v.x) + " " + exact(v.y) + " " + exact(v.z); }

inline std::string exact(const A_Time& t) { return std::to_string(t.value) + "/" + std::to_string(t.scale); }

inline std::string layerSnapshot(const host::Layer& layer) {
    std::string out = "  layer " + std::to_string(layer.id) + " \"" + layer.name + "\" type " +
                      std::to_string(layer.type) + (layer.three_d ? " 3d" : " 2d") + " source " +
                      std::to_string(layer.source) + " copy_of " + std::to_string(layer.copy_of) + " scene " +
                      std::to_string(layer.scene_number) + "/" + std::to_string(layer.copy_of_number) + "\n";
    for (std::size_t p = 0; p < host::kPropCount; ++p) {
        const host::Property& prop = layer.props[p];
        out += std::string("    ") + host::propName(static_cast<host::Prop>(p)) + " " + exact(prop.value) + "\n";
        for (const host::Keyframe& key : prop.keys) {
            out += "      key " + exact(key.time) + " " + exact(key.value) + "\n";
        }
    }
    return out;
}

inline std::string projectSnapshot(const host::Project& project) {
    std::string out = "active " + std::to_string(project.active) + "\n";
    for (const host::Footage& f : project.footage) {
        out += "footage " + std::to_string(f.id) + " \"" + f.name + "\" " + std::to_string(f.width) + "x" +
               std::to_string(f.height) + "\n";
    }
    for (const host::Comp& comp : project.comps) {
        out += "comp " + std::to_string(comp.id) + " \"" + comp.name + "\" " + std::to_string(comp.width) + "x" +
               std::to_string(comp.height) + " at " + exact(comp.time) + "\n";
        for (const host::Layer& layer : comp.layers) {
            out += layerSnapshot(layer);
        }
        out += "  selection";
        for (host::Id id : comp.selection) {
            out += " " + std::to_string(id);
        }
        out += "\n";
    }
    return out;
}

// "Card 1 position" for every property whose value or one of whose keys is NaN or infinite.
inline std::vector<std::string> nonFiniteValues(const host::Project& project) {
    const auto finite = [](const host::Vec3& v) {
        return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
    };
    std::vector<std::string> found;
    for (const host::Comp& comp : project.comps) {
        for (const host::Layer& layer : comp.layers) {
            for (std::size_t p = 0; p < host::kPropCount; ++p) {
                const host::Property& prop = layer.props[p];
                bool ok = finite(prop.value);
                for (const host::Keyframe& key : prop.keys) {
                    ok = ok && finite(key.value);
                }
                if (!ok) {
                    found.push_back(layer.name + " " + host::propName(static_cast<host::Prop>(p)));
                }
            }
        }
    }
    return found;
}

}  // namespace sweep
