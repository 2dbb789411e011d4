#include "app/gltf/gltf_scene.h"

#include "app/drawing/layer_corners.h"
#include "app/drawing/preview_frame.h"
#include "app/page/scene_data.h"

#include <cfloat>
#include <cmath>
#include <map>
#include <tuple>

namespace app {

namespace {

const char* typeName(AEGP_ObjectType type) {
    switch (type) {
        case AEGP_ObjectType_TEXT:
            return "text";
        case AEGP_ObjectType_VECTOR:
            return "shape";
        default:
            return "footage";
    }
}

LayerValues valuesAt(const host::Layer& layer, const A_Time& time) {
    using host::Prop;
    return {layer.prop(Prop::position).valueAt(time),
            layer.prop(Prop::orientation).valueAt(time),
            {layer.prop(Prop::rotate_x).valueAt(time).x, layer.prop(Prop::rotate_y).valueAt(time).x,
             layer.prop(Prop::rotate_z).valueAt(time).x},
            layer.prop(Prop::scale).valueAt(time)};
}

NodeTransform nodeTransform(const LayerValues& v) {
    return {gltfPoint(v.position), gltfRotation(v.orientation, v.rotation), gltfScale(v.scale)};
}

// Keys of the animation are single precision; the node's own values are written in full.
bool fitsSingle(const Vec3& v) {
    return std::abs(v.x) <= FLT_MAX && std::abs(v.y) <= FLT_MAX && std::abs(v.z) <= FLT_MAX;
}

bool fits(const NodeTransform& t) {
    const Quaternion& q = t.rotation;
    return fitsSingle(t.translation) && fitsSingle(t.scale) && std::isfinite(q.x + q.y + q.z + q.w);
}

// The layer the copy was made from, by copy; empty for a run without copies.
std::map<host::Id, host::Id> originals(const RunOutcome& outcome) {
    std::map<host::Id, host::Id> of;
    for (const LayerCopy& copy : outcome.copies) {
        of[copy.layer] = copy.original;
    }
    return of;
}

// Where the layer `id` stood in the scene read; `fallback` when it was not there.
NodeTransform transformBefore(const host::Project& before, host::Id id, const NodeTransform& fallback) {
    const host::Comp* comp = reportedComp(before);
    const host::Layer* layer = before.layer(id);
    return comp != nullptr && layer != nullptr ? nodeTransform(valuesAt(*layer, comp->time)) : fallback;
}

// The surface's outline as the preview draws it (the halves a sector admits, the axis), as lines.
std::vector<Vec3> surfaceLines(const Surface& surface) {
    std::vector<Vec3> points;
    for (const auto& [from, to] : outlinePieces(surface)) {
        points.push_back(gltfPoint(from));
        points.push_back(gltfPoint(to));
    }
    return points;
}

GltfCamera camera(const host::Comp& comp) {
    const SceneCamera seen = sceneCamera(comp);
    GltfCamera camera;
    camera.name = seen.name.empty() ? "Default camera" : seen.name;
    camera.place.translation = gltfPoint(seen.position);
    camera.place.rotation = gltfRotationOfAxes(seen.right, seen.down, seen.forward);
    // The composition's frame fills the view at the zoom distance.
    camera.yfov = 2.0 * std::atan(0.5 * comp.height / seen.zoom);
    camera.aspect_ratio = static_cast<double>(comp.width) / comp.height;
    camera.zoom = seen.zoom;
    return camera;
}

void addLayers(GltfScene& scene, const host::Project& before, const host::Project& after, const host::Comp& comp,
               const RunOutcome& outcome) {
    const std::map<host::Id, host::Id> original_of = originals(outcome);
    std::map<std::tuple<double, double, bool, bool>, std::size_t> quad_of;
    for (const PlacedLayer& placed : placeLayers(after, comp, outcome.sourceless)) {
        const host::Layer& layer = comp.layers[static_cast<std::size_t>(placed.number - 1)];
        GltfLayer out;
        out.name = placed.name;
        out.number = placed.number;
        out.type = typeName(layer.type);
        out.values = valuesAt(layer, comp.time);
        out.after = nodeTransform(out.values);
        const auto original = original_of.find(layer.id);
        if (original != original_of.end()) {
            const host::Layer* from = before.layer(original->second);
            out.copy_of = from != nullptr ? from->scene_number : 0;
        }
        out.before = transformBefore(before, original != original_of.end() ? original->second : layer.id, out.after);
        if (!fits(out.before) || !fits(out.after)) {
            scene.left_out.push_back(out.name);
            continue;
        }
        const auto [width, height] = layerSize(after, layer, outcome.sourceless);
        const LayerQuad quad{width, height, original != original_of.end(), placed.has_source};
        const auto [found, added] =
            quad_of.try_emplace({width, height, quad.copy, quad.has_source}, scene.quads.size());
        if (added) {
            scene.quads.push_back(quad);
        }
        out.quad = found->second;
        scene.layers.push_back(std::move(out));
    }
}

}  // namespace

GltfScene gltfScene(const host::Project& before, const host::Project& after, const RunOutcome& outcome) {
    GltfScene scene;
    const host::Comp* comp = reportedComp(after);
    if (comp == nullptr) {
        return scene;
    }
    scene.has_comp = true;
    scene.comp_name = comp->name;
    scene.comp_width = comp->width;
    scene.comp_height = comp->height;
    scene.surface_description = describeSurface(outcome.surface);
    addLayers(scene, before, after, *comp, outcome);
    scene.surface = surfaceLines(outcome.surface);
    for (const Vec3& corner : {Vec3{0, 0, 0}, Vec3{1.0 * comp->width, 0, 0},
                               Vec3{1.0 * comp->width, 1.0 * comp->height, 0}, Vec3{0, 1.0 * comp->height, 0}}) {
        scene.comp_frame.push_back(gltfPoint(corner));
    }
    scene.camera = camera(*comp);
    return scene;
}

}  // namespace app
