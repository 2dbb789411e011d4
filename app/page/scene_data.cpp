#include "app/page/scene_data.h"

#include "app/drawing/layer_corners.h"
#include "app/drawing/layer_turn.h"

#include <cmath>
#include <map>
#include <numbers>
#include <set>

namespace app {

namespace {

// The host's default camera sees the composition's width under this horizontal angle.
constexpr double kDefaultAngleOfView = 39.6;

// A thousandth of a pixel or degree is far below what the page can show, and keeps a page of
// tens of thousands of layers small.
double rounded(double value) {
    const double r = std::round(value * 1000.0) / 1000.0;
    return r == 0.0 ? 0.0 : r;
}

nlohmann::json triple(const Vec3& v) { return nlohmann::json::array({rounded(v.x), rounded(v.y), rounded(v.z)}); }

nlohmann::json corners(const PlacedLayer& placed) {
    nlohmann::json flat = nlohmann::json::array();
    for (const Vec3& c : placed.corners) {
        for (const double v : {c.x, c.y, c.z}) {
            flat.push_back(rounded(v));
        }
    }
    return flat;
}

const char* kindName(AEGP_ObjectType type) {
    switch (type) {
        case AEGP_ObjectType_TEXT:
            return "text";
        case AEGP_ObjectType_VECTOR:
            return "shape";
        default:
            return "footage";
    }
}

nlohmann::json values(const host::Layer& layer, const A_Time& time) {
    using host::Prop;
    return {{"position", triple(layer.prop(Prop::position).valueAt(time))},
            {"orientation", triple(layer.prop(Prop::orientation).valueAt(time))},
            {"rotation", triple({layer.prop(Prop::rotate_x).valueAt(time).x, layer.prop(Prop::rotate_y).valueAt(time).x,
                                 layer.prop(Prop::rotate_z).valueAt(time).x})},
            {"scale", triple(layer.prop(Prop::scale).valueAt(time))}};
}

nlohmann::json keyCounts(const host::Layer& layer) {
    using host::Prop;
    return {{"position", layer.prop(Prop::position).keys.size()},
            {"orientation", layer.prop(Prop::orientation).keys.size()},
            {"scale", layer.prop(Prop::scale).keys.size()},
            {"rotation",
             {layer.prop(Prop::rotate_x).keys.size(), layer.prop(Prop::rotate_y).keys.size(),
              layer.prop(Prop::rotate_z).keys.size()}}};
}

// A layer's corners and values as the scene had them, by layer id.
struct BeforeState {
    nlohmann::json corners;
    nlohmann::json values;
};

std::map<host::Id, BeforeState> beforeStates(const host::Project& before, controls::Extent sourceless) {
    std::map<host::Id, BeforeState> states;
    const host::Comp* comp = reportedComp(before);
    if (comp == nullptr) {
        return states;
    }
    for (const PlacedLayer& placed : placeLayers(before, *comp, sourceless)) {
        const host::Layer& layer = comp->layers[static_cast<std::size_t>(placed.number - 1)];
        states[layer.id] = {corners(placed), values(layer, comp->time)};
    }
    return states;
}

nlohmann::json layersData(const host::Project& before, const host::Project& after, const host::Comp& comp,
                          const RunOutcome& outcome) {
    const std::map<host::Id, BeforeState> was = beforeStates(before, outcome.sourceless);
    std::map<host::Id, host::Id> original_of;
    for (const LayerCopy& copy : outcome.copies) {
        original_of[copy.layer] = copy.original;
    }
    const std::set<host::Id> arranged(outcome.arranged.begin(), outcome.arranged.end());
    const std::set<host::Id> not_reached(outcome.not_reached.begin(), outcome.not_reached.end());
    nlohmann::json layers = nlohmann::json::array();
    for (const PlacedLayer& placed : placeLayers(after, comp, outcome.sourceless)) {
        const host::Layer& layer = comp.layers[static_cast<std::size_t>(placed.number - 1)];
        nlohmann::json entry = {{"name", layer.name},           {"number", placed.number},
                                {"kind", kindName(layer.type)}, {"source", placed.has_source},
                                {"after", corners(placed)},     {"values", values(layer, comp.time)},
                                {"keys", keyCounts(layer)}};
        // A copy starts where its original stood.
        const auto original = original_of.find(layer.id);
        const host::Id start = original != original_of.end() ? original->second : layer.id;
        if (original != original_of.end()) {
            const host::Layer* from = before.layer(original->second);
            entry["copy_of"] = from != nullptr ? from->scene_number : 0;
        }
        const auto found = was.find(start);
        entry["before"] = found != was.end() ? found->second.corners : entry["after"];
        entry["before_values"] = found != was.end() ? found->second.values : entry["values"];
        entry["run"] = arranged.contains(layer.id)                                                      ? "arranged"
                       : not_reached.contains(layer.id)                                                 ? "not_reached"
                       : entry["before"] != entry["after"] || entry["before_values"] != entry["values"] ? "moved"
                                                                                                        : "kept";
        layers.push_back(std::move(entry));
    }
    return layers;
}

// The surface's place and size when they are known, and its description either way.
nlohmann::json surfaceData(const Surface& surface) {
    nlohmann::json data = {{"description", describeSurface(surface)}, {"notes", surface.notes}};
    if (surface.known) {
        data["centre"] = triple(surface.centre);
        data["half_x"] = rounded(surface.half_x);
        data["half_z"] = rounded(surface.half_z);
        data["top"] = rounded(surface.top);
        data["bottom"] = rounded(surface.bottom);
    }
    return data;
}

nlohmann::json cameraData(const host::Comp& comp) {
    const SceneCamera camera = sceneCamera(comp);
    return {{"name", camera.name},
            {"position", triple(camera.position)},
            {"right", {camera.right.x, camera.right.y, camera.right.z}},
            {"down", {camera.down.x, camera.down.y, camera.down.z}},
            {"forward", {camera.forward.x, camera.forward.y, camera.forward.z}},
            {"zoom", rounded(camera.zoom)}};
}

}  // namespace

SceneCamera sceneCamera(const host::Comp& comp) {
    SceneCamera camera;
    camera.zoom = 0.5 * comp.width / std::tan(0.5 * kDefaultAngleOfView * std::numbers::pi / 180.0);
    camera.right = {1, 0, 0};
    camera.down = {0, 1, 0};
    camera.forward = {0, 0, 1};
    for (const host::Layer& layer : comp.layers) {
        if (layer.type != AEGP_ObjectType_CAMERA) {
            continue;
        }
        using host::Prop;
        const Vec3 orientation = layer.prop(Prop::orientation).valueAt(comp.time);
        const Vec3 rotation{layer.prop(Prop::rotate_x).valueAt(comp.time).x,
                            layer.prop(Prop::rotate_y).valueAt(comp.time).x,
                            layer.prop(Prop::rotate_z).valueAt(comp.time).x};
        camera.name = layer.name;
        camera.position = layer.prop(Prop::position).valueAt(comp.time);
        camera.right = turnLayerPoint(camera.right, orientation, rotation);
        camera.down = turnLayerPoint(camera.down, orientation, rotation);
        camera.forward = turnLayerPoint(camera.forward, orientation, rotation);
        return camera;
    }
    camera.position = {0.5 * comp.width, 0.5 * comp.height, -camera.zoom};
    return camera;
}

nlohmann::json pageSceneData(const host::Project& before, const host::Project& after, const RunOutcome& outcome) {
    const host::Comp* comp = reportedComp(after);
    if (comp == nullptr) {
        return {{"comp", nullptr}, {"layers", nlohmann::json::array()}};
    }
    return {{"comp", {{"name", comp->name}, {"width", comp->width}, {"height", comp->height}}},
            {"layers", layersData(before, after, *comp, outcome)},
            {"surface", surfaceData(outcome.surface)},
            {"camera", cameraData(*comp)}};
}

}  // namespace app
