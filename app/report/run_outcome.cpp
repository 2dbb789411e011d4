#include "app/report/run_outcome.h"

#include "controls/settings_table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <unordered_map>

namespace app {

namespace {

// How far off the surface a written place may be and still count as on it, relative to the
// surface's size: the layout's own arithmetic is many orders of magnitude closer.
constexpr double kOnSurface = 1e-6;

bool isArrangeable(const host::Layer& layer) {
    return layer.three_d && (layer.type == AEGP_ObjectType_AV || layer.type == AEGP_ObjectType_TEXT ||
                             layer.type == AEGP_ObjectType_VECTOR);
}

// A composition's layers by id: compositions of many thousand layers are looked up as often.
class LayerIndex {
public:
    explicit LayerIndex(const host::Comp& comp) {
        for (const host::Layer& layer : comp.layers) {
            layers_.emplace(layer.id, &layer);
        }
    }
    const host::Layer* find(host::Id id) const {
        const auto it = layers_.find(id);
        return it != layers_.end() ? it->second : nullptr;
    }

private:
    std::unordered_map<host::Id, const host::Layer*> layers_;
};

// The last outermost step the plug-in opened, if any.
const host::UndoGroup* applyStep(const host::Host& host) {
    const std::vector<host::UndoGroup>& groups = host.undoGroups();
    for (auto it = groups.rbegin(); it != groups.rend(); ++it) {
        if (it->depth == 0 && it->name == kProductName) {
            return &*it;
        }
    }
    return nullptr;
}

SurfaceMode chosenMode(const nlohmann::json& settings) {
    const bool evenly = settingOn(settings, "CHECK_DISTRIBUTE_EVENLY");
    if (!evenly && settingOn(settings, "CHECK_RADIUS_BY_FIRST")) {
        return SurfaceMode::radius_by_first;
    }
    if (!settingOn(settings, "RADIO_EQUATOR_ONLY")) {
        return evenly ? SurfaceMode::evenly : SurfaceMode::given_steps;
    }
    return settingOn(settings, "CHECK_CREATE_RING") ? SurfaceMode::ring : SurfaceMode::equator;
}

// The Begin radios are tested Front, Back, Left; none of them means Right.
enum class Side { front, back, left, right };

Side beginSide(const nlohmann::json& settings) {
    if (settingOn(settings, "RADIO_BEGIN_FRONT")) {
        return Side::front;
    }
    if (settingOn(settings, "RADIO_BEGIN_BACK")) {
        return Side::back;
    }
    return settingOn(settings, "RADIO_BEGIN_LEFT") ? Side::left : Side::right;
}

// A box extent halved as the layout halves it: in single precision.
double halfExtent(const nlohmann::json& settings, const char* name) {
    return static_cast<double>(static_cast<float>(settingNumber(settings, name)) * 0.5f);
}

// A host position back in the layout frame (Y up, Z toward the viewer) around the surface's centre.
Vec3 layoutPoint(const Vec3& position, const Vec3& centre) {
    return {position.x - centre.x, centre.y - position.y, centre.z - position.z};
}

struct Shape {
    double half_x = 0, half_z = 0;
    double low = 0, high = 0;  // layout heights
};

bool onShape(const Vec3& p, const Shape& s) {
    if (!(s.half_x > 0 && s.half_z > 0) || !std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) {
        return false;
    }
    const double e = std::hypot(p.x / s.half_x, p.z / s.half_z);
    const double slack = kOnSurface * std::max({1.0, s.high - s.low, s.half_x, s.half_z});
    return std::fabs(e - 1) <= kOnSurface && p.y >= s.low - slack && p.y <= s.high + slack;
}

struct Reading {
    const LayerIndex* layers = nullptr;
    std::vector<Vec3> points;  // layout-frame places of the written layers, in list order
};

std::size_t countOn(const Reading& r, const Shape& s) {
    return static_cast<std::size_t>(
        std::count_if(r.points.begin(), r.points.end(), [&](const Vec3& p) { return onShape(p, s); }));
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, std::fabs(value - std::round(value)) < 0.05 ? "%.0f" : "%.1f", value);
    return text;
}

std::string layerName(const Reading& r, host::Id id) {
    const host::Layer* layer = r.layers->find(id);
    return layer != nullptr ? "\"" + layer->name + "\"" : "the first layer";
}

// "Radius Set by First": every layer it places lies on a circle whose radius the first record's
// width sets, so the first written layer's distance from the axis is that radius. A first layer
// without width gives no radius, and the layout then falls back to the box's ellipse.
std::optional<Shape> radiusShape(const Reading& r, const Shape& box, const nlohmann::json& settings,
                                 std::vector<std::string>& notes) {
    if (settingOn(settings, "RADIO_SECTOR") && !settingOn(settings, "CHECK_SECTOR_FRONT") &&
        !settingOn(settings, "CHECK_SECTOR_RIGHT") && !settingOn(settings, "CHECK_SECTOR_BACK") &&
        !settingOn(settings, "CHECK_SECTOR_LEFT")) {
        notes.push_back("the sector holds no side, so no layer was placed and the radius is not known");
        return std::nullopt;
    }
    const Vec3& first = r.points.front();
    const double radius = std::hypot(first.x, first.z);
    Shape circle{radius, radius, box.low, box.high};
    if (!onShape(first, circle)) {
        notes.push_back("the first layer did not reach the surface, so the radius is not known");
        return std::nullopt;
    }
    if (countOn(r, box) > countOn(r, circle)) {
        notes.push_back("the first layer has no width to set a radius: the box's ellipse was used");
        return box;
    }
    return circle;
}

// The ring's first panel is centred on the ring's ellipse at the Begin side, at height 0; the
// other half-axis follows from the box's proportions, computed as the ring computes them.
std::optional<Shape> ringShape(const Reading& r, const nlohmann::json& settings, std::vector<std::string>& notes) {
    const Vec3& p = r.points.front();
    const double hx = static_cast<double>(static_cast<float>(settingNumber(settings, "EDIT_DIM_X"))) * 0.5;
    const double hz = static_cast<double>(static_cast<float>(settingNumber(settings, "EDIT_DIM_Z"))) * 0.5;
    const double aspect = hz / hx;
    double along = 0;   // the half-axis the first panel gives
    double across = 0;  // its distance from the Begin side's axis, 0 at the start
    Shape shape;
    switch (beginSide(settings)) {
        case Side::front:
            along = p.z, across = p.x, shape.half_z = along, shape.half_x = along / aspect;
            break;
        case Side::back:
            along = -p.z, across = p.x, shape.half_z = along, shape.half_x = along / aspect;
            break;
        case Side::left:
            along = -p.x, across = p.z, shape.half_x = along, shape.half_z = along * aspect;
            break;
        case Side::right:
            along = p.x, across = p.z, shape.half_x = along, shape.half_z = along * aspect;
            break;
    }
    const double slack = kOnSurface * std::max(1.0, std::fabs(along));
    if (r.points.size() < 3 || !(along > 0) || !std::isfinite(along) || std::fabs(across) > slack ||
        std::fabs(p.y) > slack) {
        notes.push_back("the ring was not built (it needs three layers with width), so its size is not known");
        return std::nullopt;
    }
    return shape;
}

std::vector<std::string> differences(SurfaceMode mode, const Surface& s, const Shape& box, const std::string& first) {
    std::vector<std::string> notes;
    if (!s.known) {
        return notes;
    }
    const std::string box_size = number(2 * box.half_x) + " x " + number(2 * box.half_z);
    if (mode == SurfaceMode::radius_by_first && s.half_x == s.half_z) {
        notes.push_back("radius " + number(s.half_x) + " set by the width of " + first + ", not the box's " + box_size);
    }
    if (mode == SurfaceMode::ring) {
        notes.push_back("ring " + number(2 * s.half_x) + " x " + number(2 * s.half_z) +
                        " sized by the layers' widths; the box's " + box_size + " gives only its proportions");
    }
    if (mode == SurfaceMode::ring || mode == SurfaceMode::equator) {
        notes.push_back("all at mid-height: the box's height " + number(box.high - box.low) + " is not used");
    }
    return notes;
}

}  // namespace

double settingNumber(const nlohmann::json& settings, const char* name) {
    const ControlSpec* control = find_control(name);
    const double initial = control != nullptr ? control->value : 0.0;
    if (!settings.is_object() || !settings.contains(name) || !settings[name].is_number()) {
        return initial;
    }
    const double value = settings[name].get<double>();
    if (control == nullptr) {
        return value;
    }
    return static_cast<double>(static_cast<float>(
        std::clamp(value, static_cast<double>(control->minimum), static_cast<double>(control->maximum))));
}

bool settingOn(const nlohmann::json& settings, const char* name) {
    if (settings.is_object() && settings.contains(name) && settings[name].is_boolean()) {
        return settings[name].get<bool>();
    }
    const ControlSpec* control = find_control(name);
    return control != nullptr && control->value != 0.0f;
}

const char* modeName(SurfaceMode mode) {
    switch (mode) {
        case SurfaceMode::given_steps:
            return "Given steps";
        case SurfaceMode::evenly:
            return "Distribute Evenly";
        case SurfaceMode::equator:
            return "Equator Only";
        case SurfaceMode::ring:
            return "Create Ring With Layers";
        case SurfaceMode::radius_by_first:
            return "Radius Set by First";
    }
    return "";
}

std::string describeSurface(const Surface& s) {
    std::string text = std::string(modeName(s.mode)) + ": ";
    if (!s.known) {
        return text + "size not known";
    }
    if (s.half_x == s.half_z) {
        text += "circle of radius " + number(s.half_x);
    } else {
        text += "ellipse " + number(2 * s.half_x) + " x " + number(2 * s.half_z);
    }
    text += ", centre (" + number(s.centre.x) + ", " + number(s.centre.y) + ", " + number(s.centre.z) + ")";
    if (s.top != s.bottom) {
        text += ", y from " + number(s.top) + " to " + number(s.bottom);
    }
    return text;
}

RunOutcome readRunOutcome(const host::Project& before, const host::Host& after, const nlohmann::json& settings) {
    RunOutcome out;
    Surface& surface = out.surface;
    surface.mode = chosenMode(settings);
    const host::Comp* comp_before = before.comp(before.active);
    const host::Comp* comp = comp_before != nullptr ? after.project().comp(comp_before->id) : nullptr;
    if (comp_before == nullptr || comp == nullptr) {
        surface.notes.push_back("no composition was active, so the command took no layer");
        return out;
    }
    out.comp = comp->id;
    const LayerIndex layers_before(*comp_before);
    const LayerIndex layers_after(*comp);

    for (const host::Id id : comp_before->selection) {
        const host::Layer* layer = layers_before.find(id);
        if (layer != nullptr && isArrangeable(*layer)) {
            out.taken.push_back(id);
        }
    }
    for (const host::Layer& layer : comp->layers) {
        if (layer.copy_of != 0 && layers_before.find(layer.id) == nullptr) {
            out.copies.push_back({layer.id, layer.copy_of});
        }
    }

    if (settingOn(settings, "CHECK_USE_COMP_CENTER")) {
        out.offset = {static_cast<double>(comp_before->width) * 0.5, static_cast<double>(comp_before->height) * 0.5, 0};
    }
    // The centre fields as the layout reads them, entered with Y up and Z toward the viewer.
    const Vec3 centre_field{settingNumber(settings, "EDIT_SPHERE_CENTER_X"),
                            settingNumber(settings, "EDIT_SPHERE_CENTER_Y"),
                            settingNumber(settings, "EDIT_SPHERE_CENTER_Z")};
    surface.centre = {centre_field.x + out.offset.x, -centre_field.y + out.offset.y, -centre_field.z + out.offset.z};

    const double half_y = halfExtent(settings, "EDIT_DIM_Y");
    const Shape box{halfExtent(settings, "EDIT_DIM_X"), halfExtent(settings, "EDIT_DIM_Z"), -half_y, half_y};

    const host::UndoGroup* step = applyStep(after);
    if (step != nullptr) {
        out.apply = step->undone ? ApplyState::undone : ApplyState::applied;
        for (const host::Id id : step->written) {
            if (layers_after.find(id) != nullptr) {
                out.written.push_back(id);
            }
        }
    }

    Reading reading{&layers_after, {}};
    for (const host::Id id : out.written) {
        reading.points.push_back(
            layoutPoint(layers_after.find(id)->prop(host::Prop::position).valueAt(comp->time), surface.centre));
    }

    std::optional<Shape> shape;
    switch (surface.mode) {
        case SurfaceMode::given_steps:
        case SurfaceMode::evenly:
            shape = box;
            break;
        case SurfaceMode::equator:
            shape = Shape{box.half_x, box.half_z, 0, 0};
            break;
        case SurfaceMode::radius_by_first:
        case SurfaceMode::ring:
            if (out.apply != ApplyState::applied || reading.points.empty()) {
                surface.notes.push_back(out.apply == ApplyState::undone
                                            ? "the step was undone, so the size the layers set is not known"
                                            : "nothing was applied, so the size the layers set is not known");
                break;
            }
            surface.sized_by = out.written.front();
            shape = surface.mode == SurfaceMode::ring ? ringShape(reading, settings, surface.notes)
                                                      : radiusShape(reading, box, settings, surface.notes);
            if (!shape) {
                surface.sized_by = 0;
            }
            break;
    }
    if (!shape) {
        return out;
    }
    if (surface.mode == SurfaceMode::ring) {
        shape->low = shape->high = 0;
    }
    surface.known = true;
    surface.half_x = shape->half_x;
    surface.half_z = shape->half_z;
    surface.top = surface.centre.y - shape->high;
    surface.bottom = surface.centre.y - shape->low;
    const std::string first = surface.sized_by != 0 ? layerName(reading, surface.sized_by) : "";
    for (std::string& note : differences(surface.mode, surface, box, first)) {
        surface.notes.push_back(std::move(note));
    }

    if (out.apply != ApplyState::applied) {
        return out;
    }
    // The ring places every panel or none; its panels are chords, so only the first lies on it.
    const bool ring_built = surface.mode == SurfaceMode::ring;
    for (std::size_t i = 0; i < out.written.size(); ++i) {
        (ring_built || onShape(reading.points[i], *shape) ? out.arranged : out.not_reached).push_back(out.written[i]);
    }
    return out;
}

}  // namespace app
