#include "app/drawing/layer_corners.h"

#include "app/drawing/layer_turn.h"
#include "app/report/run_facts.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

bool isSurfaceLayer(const host::Layer& layer) {
    // Cameras and lights have no rectangle to show.
    return layer.three_d && (layer.type == AEGP_ObjectType_AV || layer.type == AEGP_ObjectType_TEXT ||
                             layer.type == AEGP_ObjectType_VECTOR);
}

// Coordinates beyond this many pixels are no longer a place in any composition.
constexpr double kAbsurd = 1e12;

}  // namespace

bool drawable(const PlacedLayer& layer) {
    for (const Vec3& c : layer.corners) {
        for (const double v : {c.x, c.y, c.z}) {
            if (!std::isfinite(v) || std::fabs(v) > kAbsurd) {
                return false;
            }
        }
    }
    return true;
}

const host::Comp* reportedComp(const host::Project& project) {
    for (const host::Comp& comp : project.comps) {
        if (comp.id == project.active) {
            return &comp;
        }
    }
    return project.comps.empty() ? nullptr : &project.comps.front();
}

std::array<double, 2> layerSize(const host::Project& project, const host::Layer& layer, controls::Extent sourceless) {
    const controls::Extent extent = sourceExtent(project, layer).value_or(sourceless);
    return {static_cast<double>(extent.width), static_cast<double>(extent.height)};
}

PlacedLayer placeRectangle(double width, double height, const Vec3& position, const Vec3& scale,
                           const Vec3& orientation, const Vec3& rotation) {
    const double hx = 0.5 * width * scale.x / 100.0;
    const double hy = 0.5 * height * scale.y / 100.0;
    const std::array<Vec3, 4> local{{{-hx, -hy, 0}, {hx, -hy, 0}, {hx, hy, 0}, {-hx, hy, 0}}};
    PlacedLayer placed;
    for (std::size_t i = 0; i < local.size(); ++i) {
        placed.corners[i] = position + turnLayerPoint(local[i], orientation, rotation);
    }
    placed.centre = position;
    // Unturned, (c3 - c0) x (c1 - c0) points along -Z, the way the visible face looks.
    placed.normal = normalized(cross(placed.corners[3] - placed.corners[0], placed.corners[1] - placed.corners[0]));
    return placed;
}

std::vector<PlacedLayer> placeLayers(const host::Project& project, const host::Comp& comp,
                                     controls::Extent sourceless) {
    using host::Prop;
    std::vector<PlacedLayer> placed;
    for (std::size_t i = 0; i < comp.layers.size(); ++i) {
        const host::Layer& layer = comp.layers[i];
        if (!isSurfaceLayer(layer)) {
            continue;
        }
        const auto [width, height] = layerSize(project, layer, sourceless);
        const Vec3 rotation{layer.prop(Prop::rotate_x).valueAt(comp.time).x,
                            layer.prop(Prop::rotate_y).valueAt(comp.time).x,
                            layer.prop(Prop::rotate_z).valueAt(comp.time).x};
        PlacedLayer p = placeRectangle(width, height, layer.prop(Prop::position).valueAt(comp.time),
                                       layer.prop(Prop::scale).valueAt(comp.time),
                                       layer.prop(Prop::orientation).valueAt(comp.time), rotation);
        p.name = layer.name;
        p.id = layer.id;
        p.has_source = sourceExtent(project, layer).has_value();
        p.number = static_cast<int>(i + 1);
        placed.push_back(std::move(p));
    }
    return placed;
}

}  // namespace app
