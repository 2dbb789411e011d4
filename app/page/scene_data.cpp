#include "app/page/scene_data.h"

#include "app/drawing/layer_corners.h"
#include "app/drawing/layer_turn.h"
#include "app/drawing/palette.h"
#include "app/drawing/preview_frame.h"
#include "app/page/page_columns.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <ostream>
#include <span>

namespace app {

namespace {

// The host's default camera sees the composition's width under this horizontal angle.
constexpr double kDefaultAngleOfView = 39.6;

// A thousandth of a pixel or degree is far below what the page can show.
double rounded(double value) {
    const double r = std::round(value * 1000.0) / 1000.0;
    return r == 0.0 ? 0.0 : r;
}

nlohmann::json triple(const Vec3& v) { return nlohmann::json::array({rounded(v.x), rounded(v.y), rounded(v.z)}); }

// To a thousandth of a pixel, in the single precision the page draws in.
void appendCorners(std::vector<float>& to, const PlacedLayer& placed) {
    for (const Vec3& c : placed.corners) {
        to.insert(to.end(), {static_cast<float>(rounded(c.x)), static_cast<float>(rounded(c.y)),
                             static_cast<float>(rounded(c.z))});
    }
}

LayerKind kindOf(AEGP_ObjectType type) {
    switch (type) {
        case AEGP_ObjectType_TEXT:
            return LayerKind::text;
        case AEGP_ObjectType_VECTOR:
            return LayerKind::shape;
        default:
            return LayerKind::footage;
    }
}

// Exactly as the host holds them: the page shows them to one decimal, as the tool's table does.
void appendValues(std::vector<double>& to, const host::Layer& layer, const A_Time& time) {
    using host::Prop;
    for (const Prop prop : {Prop::position, Prop::orientation}) {
        const Vec3 v = layer.prop(prop).valueAt(time);
        to.insert(to.end(), {v.x, v.y, v.z});
    }
    for (const Prop prop : {Prop::rotate_x, Prop::rotate_y, Prop::rotate_z}) {
        to.push_back(layer.prop(prop).valueAt(time).x);
    }
    const Vec3 scale = layer.prop(Prop::scale).valueAt(time);
    to.insert(to.end(), {scale.x, scale.y, scale.z});
}

void appendKeyCounts(std::vector<std::uint32_t>& to, const host::Layer& layer) {
    using host::Prop;
    for (const Prop prop :
         {Prop::position, Prop::orientation, Prop::scale, Prop::rotate_x, Prop::rotate_y, Prop::rotate_z}) {
        to.push_back(static_cast<std::uint32_t>(layer.prop(prop).keys.size()));
    }
}

// The layers' corners and values as the scene had them, found by layer id.
class BeforeStates {
public:
    BeforeStates(const host::Project& before, controls::Extent sourceless) {
        const host::Comp* comp = reportedComp(before);
        if (comp == nullptr) {
            return;
        }
        const std::vector<PlacedLayer> layers = placeLayers(before, *comp, sourceless);
        index_.reserve(layers.size());
        corners_.reserve(layers.size() * kCornerNumbers);
        values_.reserve(layers.size() * kValueNumbers);
        drawn_.reserve(layers.size());
        for (const PlacedLayer& placed : layers) {
            index_.push_back({placed.id, static_cast<std::uint32_t>(index_.size())});
            appendCorners(corners_, placed);
            drawn_.push_back(drawable(placed));
            appendValues(values_, comp->layers[static_cast<std::size_t>(placed.number - 1)], comp->time);
        }
        std::sort(index_.begin(), index_.end());
    }

    // The place of the layer's state, or nothing when the scene did not have it.
    std::optional<std::size_t> find(host::Id id) const {
        const auto at = std::lower_bound(index_.begin(), index_.end(), std::pair<host::Id, std::uint32_t>{id, 0});
        return at != index_.end() && at->first == id ? std::optional<std::size_t>(at->second) : std::nullopt;
    }

    std::span<const float> corners(std::size_t place) const {
        return std::span(corners_).subspan(place * kCornerNumbers, kCornerNumbers);
    }
    std::span<const double> values(std::size_t place) const {
        return std::span(values_).subspan(place * kValueNumbers, kValueNumbers);
    }
    bool drawn(std::size_t place) const { return drawn_[place]; }

private:
    std::vector<std::pair<host::Id, std::uint32_t>> index_;
    std::vector<bool> drawn_;
    std::vector<float> corners_;
    std::vector<double> values_;
};

// The before state of the layer just added: its own, its original's for a copy (a copy starts
// where its original stood), or the after state for a layer the scene did not have. Whether that
// state can be drawn.
bool appendBefore(PageLayers& layers, const BeforeStates& was, host::Id start, bool after_drawn) {
    const std::optional<std::size_t> found = was.find(start);
    if (found) {
        const auto corners = was.corners(*found);
        const auto values = was.values(*found);
        layers.corners_before.insert(layers.corners_before.end(), corners.begin(), corners.end());
        layers.values_before.insert(layers.values_before.end(), values.begin(), values.end());
        return was.drawn(*found);
    }
    const std::size_t corners = layers.corners_after.size() - kCornerNumbers;
    const std::size_t values = layers.values_after.size() - kValueNumbers;
    layers.corners_before.insert(layers.corners_before.end(), layers.corners_after.begin() + corners,
                                 layers.corners_after.end());
    layers.values_before.insert(layers.values_before.end(), layers.values_after.begin() + values,
                                layers.values_after.end());
    return after_drawn;
}

// A layer left out of the drawing holds no place there: nothing of it is drawn or framed.
void undrawLast(PageLayers& layers) {
    std::fill(layers.corners_before.end() - kCornerNumbers, layers.corners_before.end(), 0.0f);
    std::fill(layers.corners_after.end() - kCornerNumbers, layers.corners_after.end(), 0.0f);
}

bool lastStatesDiffer(const PageLayers& layers) {
    const auto last = [](const auto& column, std::size_t n) { return std::span(column).last(n); };
    return !std::ranges::equal(last(layers.corners_before, kCornerNumbers),
                               last(layers.corners_after, kCornerNumbers)) ||
           !std::ranges::equal(last(layers.values_before, kValueNumbers), last(layers.values_after, kValueNumbers));
}

// Every column's room for `count` layers, so that none grows by copying itself.
void reserve(PageLayers& layers, std::size_t count) {
    layers.names.reserve(count);
    layers.numbers.reserve(count);
    layers.kinds.reserve(count);
    layers.sources.reserve(count);
    layers.runs.reserve(count);
    layers.drawn.reserve(count);
    layers.copy_of.reserve(count);
    layers.corners_before.reserve(count * kCornerNumbers);
    layers.corners_after.reserve(count * kCornerNumbers);
    layers.values_before.reserve(count * kValueNumbers);
    layers.values_after.reserve(count * kValueNumbers);
    layers.keys.reserve(count * kKeyCounts);
}

PageLayers layersData(const host::Project& before, const host::Project& after, const host::Comp& comp,
                      const RunOutcome& outcome) {
    const BeforeStates was(before, outcome.sourceless);
    std::vector<LayerCopy> copies = outcome.copies;
    std::ranges::sort(copies, {}, &LayerCopy::layer);
    const auto sorted = [](std::vector<host::Id> ids) {
        std::ranges::sort(ids);
        return ids;
    };
    const std::vector<host::Id> arranged = sorted(outcome.arranged);
    const std::vector<host::Id> not_reached = sorted(outcome.not_reached);
    const std::vector<host::Id> left_out = sorted(outcome.left_out);
    const std::vector<PlacedLayer> placed_layers = placeLayers(after, comp, outcome.sourceless);
    PageLayers layers;
    reserve(layers, placed_layers.size());
    for (const PlacedLayer& placed : placed_layers) {
        const host::Layer& layer = comp.layers[static_cast<std::size_t>(placed.number - 1)];
        layers.names.push_back(layer.name);
        layers.numbers.push_back(static_cast<std::uint32_t>(placed.number));
        layers.kinds.push_back(kindOf(layer.type));
        layers.sources.push_back(placed.has_source ? 1 : 0);
        appendCorners(layers.corners_after, placed);
        appendValues(layers.values_after, layer, comp.time);
        appendKeyCounts(layers.keys, layer);
        const auto copy = std::ranges::lower_bound(copies, layer.id, {}, &LayerCopy::layer);
        const bool is_copy = copy != copies.end() && copy->layer == layer.id;
        const host::Layer* original = is_copy ? before.layer(copy->original) : nullptr;
        layers.copy_of.push_back(original != nullptr ? static_cast<std::uint32_t>(original->scene_number) : 0);
        const bool before_drawn = appendBefore(layers, was, is_copy ? copy->original : layer.id, drawable(placed));
        layers.runs.push_back(std::ranges::binary_search(arranged, layer.id)      ? LayerRun::arranged
                              : std::ranges::binary_search(not_reached, layer.id) ? LayerRun::not_reached
                              : std::ranges::binary_search(left_out, layer.id)    ? LayerRun::left_out
                              : lastStatesDiffer(layers)                          ? LayerRun::moved
                                                                                  : LayerRun::kept);
        layers.drawn.push_back(before_drawn && drawable(placed) ? 1 : 0);
        if (layers.drawn.back() == 0) {
            undrawLast(layers);
        }
    }
    return layers;
}

// The preview's outline of the surface, each piece as the six numbers of its two ends: a few
// hundred pieces at most, so plain JSON numbers.
nlohmann::json outlineData(const Surface& surface) {
    nlohmann::json pieces = nlohmann::json::array();
    for (const auto& [from, to] : outlinePieces(surface)) {
        pieces.push_back(
            {rounded(from.x), rounded(from.y), rounded(from.z), rounded(to.x), rounded(to.y), rounded(to.z)});
    }
    return pieces;
}

// The surface's place, size and outline when they are known, and its description either way.
nlohmann::json surfaceData(const Surface& surface) {
    nlohmann::json data = {{"description", describeSurface(surface)}, {"notes", surface.notes}};
    if (surface.known) {
        data["centre"] = triple(surface.centre);
        data["half_x"] = rounded(surface.half_x);
        data["half_z"] = rounded(surface.half_z);
        data["top"] = rounded(surface.top);
        data["bottom"] = rounded(surface.bottom);
        data["outline"] = outlineData(surface);
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

nlohmann::json paletteData() {
    nlohmann::json colours = nlohmann::json::object();
    for (const PaletteColour& colour : kPagePalette) {
        colours[std::string(colour.name)] = colour.hex;
    }
    return colours;
}

template <typename T>
void writeNamedColumn(std::ostream& out, std::string_view name, std::string_view type, std::size_t width,
                      const std::vector<T>& values) {
    out << ",\"" << name << "\":";
    writeColumn(out, type, width, values);
}

void writeLayers(std::ostream& out, const PageLayers& layers) {
    out << R"({"count":)" << layers.size() << R"(,"names":[)";
    for (std::size_t i = 0; i < layers.names.size(); ++i) {
        out << (i > 0 ? "," : "");
        writeScriptSafeJson(out, layers.names[i]);
    }
    out << "]";
    writeNamedColumn(out, "numbers", "u32", 1, layers.numbers);
    writeNamedColumn(out, "kinds", "u8", 1, layers.kinds);
    writeNamedColumn(out, "sources", "u8", 1, layers.sources);
    writeNamedColumn(out, "runs", "u8", 1, layers.runs);
    writeNamedColumn(out, "drawn", "u8", 1, layers.drawn);
    writeNamedColumn(out, "copy_of", "u32", 1, layers.copy_of);
    writeNamedColumn(out, "corners_before", "f32", kCornerNumbers, layers.corners_before);
    writeNamedColumn(out, "corners_after", "f32", kCornerNumbers, layers.corners_after);
    writeNamedColumn(out, "values_before", "f64", kValueNumbers, layers.values_before);
    writeNamedColumn(out, "values_after", "f64", kValueNumbers, layers.values_after);
    writeNamedColumn(out, "keys", "u32", kKeyCounts, layers.keys);
    out << "}";
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

PageData pageSceneData(const host::Project& before, const host::Project& after, const RunOutcome& outcome) {
    PageData data;
    data.scene = {{"comp", nullptr}, {"palette", paletteData()}};
    const host::Comp* comp = reportedComp(after);
    if (comp == nullptr) {
        return data;
    }
    data.scene["comp"] = {{"name", comp->name}, {"width", comp->width}, {"height", comp->height}};
    data.scene["surface"] = surfaceData(outcome.surface);
    data.scene["camera"] = cameraData(*comp);
    data.layers = layersData(before, after, *comp, outcome);
    return data;
}

void writePageData(std::ostream& out, const PageData& data) {
    out << "{";
    for (auto part = data.scene.begin(); part != data.scene.end(); ++part) {
        writeScriptSafeJson(out, part.key());
        out << ":";
        writeScriptSafeJson(out, part.value());
        out << ",";
    }
    out << "\"layers\":";
    writeLayers(out, data.layers);
    out << "}";
}

}  // namespace app
