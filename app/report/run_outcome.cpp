#include "app/report/run_outcome.h"

#include "controls/settings_table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <set>

namespace app {

namespace {

// How far off the surface a written place may be and still count as on it, relative to the
// surface's size: the layout's own arithmetic is many orders of magnitude closer.
constexpr double kOnSurface = 1e-6;

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

std::size_t countOn(const std::vector<Vec3>& points, const Shape& s) {
    return static_cast<std::size_t>(
        std::count_if(points.begin(), points.end(), [&](const Vec3& p) { return onShape(p, s); }));
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, std::fabs(value - std::round(value)) < 0.05 ? "%.0f" : "%.1f", value);
    return text;
}

double boxHalf(const DialogReading& dialog, ADMInt32 id) {
    return controls::boxHalfAxis(static_cast<float>(dialog.number(id)));
}

Shape boxShape(const DialogReading& dialog) {
    const double half_y = boxHalf(dialog, EDIT_DIM_Y);
    return {boxHalf(dialog, EDIT_DIM_X), boxHalf(dialog, EDIT_DIM_Z), -half_y, half_y};
}

// "Radius Set by First": every layer it places lies on a circle whose radius the first record's
// width sets, so the first written layer's distance from the axis is that radius. A first layer
// without width gives no radius, and the layout then falls back to the box's ellipse.
std::optional<Shape> radiusShape(const std::vector<Vec3>& points, const Shape& box, const Surface& surface,
                                 std::vector<std::string>& notes) {
    if (surface.sector && controls::sectorAdmitsNone(*surface.sector)) {
        notes.push_back("the sector admits no half, so no layer was placed and the radius is not known");
        return std::nullopt;
    }
    const double radius = std::hypot(points.front().x, points.front().z);
    const Shape circle{radius, radius, box.low, box.high};
    if (!onShape(points.front(), circle)) {
        notes.push_back("the first layer did not reach the surface, so the radius is not known");
        return std::nullopt;
    }
    if (countOn(points, box) > countOn(points, circle)) {
        notes.push_back("the first layer has no width to set a radius: the box's ellipse was used");
        return box;
    }
    return circle;
}

// The ring's first panel is centred on the ring's ellipse at the Begin side, at height 0; the
// other half-axis follows from the box's proportions.
std::optional<Shape> ringShape(const std::vector<Vec3>& points, const DialogReading& dialog,
                               std::vector<std::string>& notes) {
    const Vec3& p = points.front();
    const double aspect = boxHalf(dialog, EDIT_DIM_Z) / boxHalf(dialog, EDIT_DIM_X);
    double along = 0;   // the half-axis the first panel gives
    double across = 0;  // its distance from the Begin side's axis, 0 at the start
    Shape shape;
    switch (dialog.begin()) {
        case controls::BeginSide::front:
        case controls::BeginSide::back:
            along = dialog.begin() == controls::BeginSide::front ? p.z : -p.z;
            across = p.x, shape.half_z = along, shape.half_x = along / aspect;
            break;
        case controls::BeginSide::left:
        case controls::BeginSide::right:
            along = dialog.begin() == controls::BeginSide::right ? p.x : -p.x;
            across = p.z, shape.half_x = along, shape.half_z = along * aspect;
            break;
    }
    const double slack = kOnSurface * std::max(1.0, std::fabs(along));
    if (points.size() < 3) {
        notes.push_back("a ring needs three layers; with " + std::to_string(points.size()) +
                        " none was built, so its size is not known");
        return std::nullopt;
    }
    if (!(along > 0) || !std::isfinite(along) || std::fabs(across) > slack || std::fabs(p.y) > slack) {
        notes.push_back("the layout placed no layer on a ring, so its size is not known");
        return std::nullopt;
    }
    return shape;
}

std::vector<std::string> differences(const Surface& s, const Shape& box, const std::string& first) {
    std::vector<std::string> notes;
    const std::string box_size = number(2 * box.half_x) + " x " + number(2 * box.half_z);
    if (s.mode == SurfaceMode::radius_by_first && s.half_x == s.half_z) {
        notes.push_back("radius " + number(s.half_x) + " set by the width of \"" + first + "\", not the box's " +
                        box_size);
    }
    if (s.mode == SurfaceMode::ring) {
        notes.push_back("ring " + number(2 * s.half_x) + " x " + number(2 * s.half_z) +
                        " sized by the layers' widths; the box's " + box_size + " gives only its proportions");
    }
    if (s.mode == SurfaceMode::ring || s.mode == SurfaceMode::equator) {
        notes.push_back("all at mid-height: the box's height " + number(box.high - box.low) + " is not used");
    }
    return notes;
}

// The mode and what else shapes the surface, and where it stands.
Surface settingsSurface(const RunFacts& facts, const DialogReading& dialog, Vec3& offset) {
    Surface surface;
    surface.mode = dialog.mode();
    surface.inward = dialog.on(RADIO_INWARD);
    if (dialog.on(CHECK_SCALE_LAYER)) {
        surface.scaled_to = dialog.number(EDIT_FORCE_CONFORM);
    }
    const controls::SectorBoxes boxes = dialog.sectorBoxes();
    if (controls::sectorActsIn(surface.mode) && dialog.on(RADIO_SECTOR) && !controls::sectorAdmitsAll(boxes)) {
        surface.sector = boxes;
    }
    const controls::PlanarOffset centre_offset =
        controls::positionOffset(dialog.on(CHECK_USE_COMP_CENTER), facts.comp_size);
    offset = {centre_offset.x, centre_offset.y, 0};
    // The centre fields as the layout reads them, entered with Y up and Z toward the viewer.
    surface.centre = {dialog.number(EDIT_SPHERE_CENTER_X) + offset.x, -dialog.number(EDIT_SPHERE_CENTER_Y) + offset.y,
                      -dialog.number(EDIT_SPHERE_CENTER_Z) + offset.z};
    return surface;
}

// The shape the layers were put on: the box's for the box modes, read off the first written
// layer for the modes whose size the layers set.
std::optional<Shape> usedShape(const RunOutcome& out, const std::vector<Vec3>& points, const DialogReading& dialog,
                               std::vector<std::string>& notes) {
    const Shape box = boxShape(dialog);
    switch (out.surface.mode) {
        case SurfaceMode::given_steps:
        case SurfaceMode::evenly:
            return box;
        case SurfaceMode::equator:
            return Shape{box.half_x, box.half_z, 0, 0};
        case SurfaceMode::radius_by_first:
        case SurfaceMode::ring:
            break;
    }
    if (out.apply != ApplyState::applied || points.empty()) {
        notes.push_back(out.apply == ApplyState::undone ? "the step was undone, so the size the layers set is not known"
                        : out.apply == ApplyState::applied
                            ? "no layer was written, so the size the layers set is not known"
                            : "nothing was applied, so the size the layers set is not known");
        return std::nullopt;
    }
    std::optional<Shape> shape = out.surface.mode == SurfaceMode::ring ? ringShape(points, dialog, notes)
                                                                       : radiusShape(points, box, out.surface, notes);
    if (shape && out.surface.mode == SurfaceMode::ring) {
        shape->low = shape->high = 0;
    }
    return shape;
}

// The last panel of a ring is sized to close it: its width against the one it had. With "Scale
// Layer to" every layer became a square first, so its width is set against its height.
std::optional<RingClosing> ringClosing(const RunOutcome& out, const RunFacts& facts) {
    if (out.surface.mode != SurfaceMode::ring || !out.surface.known || out.arranged.empty()) {
        return std::nullopt;
    }
    const WrittenLayer& last = facts.written.back();
    double stretch = last.scale.x / last.scale_before.x;
    if (out.surface.scaled_to) {
        const controls::Extent extent = last.source.value_or(out.sourceless);
        stretch = (extent.width * last.scale.x) / (extent.height * last.scale.y);
    }
    if (!std::isfinite(stretch) || percentText(stretch) == "100") {
        return std::nullopt;
    }
    return RingClosing{last.id, stretch};
}

// The same test that has the sector modes place nothing keeps every placement from turning, also
// the ones that ignore the sector.
bool turnsLeftAlone(const DialogReading& dialog) {
    return dialog.on(RADIO_SECTOR) && controls::sectorAdmitsNone(dialog.sectorBoxes());
}

}  // namespace

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

std::vector<host::Id> idsWithout(const std::vector<host::Id>& ids, const std::vector<host::Id>& removed) {
    const std::set<host::Id> gone(removed.begin(), removed.end());
    std::vector<host::Id> kept;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(kept), [&](host::Id id) { return gone.count(id) == 0; });
    return kept;
}

std::string percentText(double fraction) { return number(fraction * 100); }

std::string ringClosingText(const std::string& name, const RingClosing& closing) {
    return "the last layer, \"" + name + "\", was " + (closing.stretch < 1 ? "narrowed" : "stretched") + " to " +
           percentText(closing.stretch) + " % of its width to close it";
}

std::string describeSurface(const Surface& s) {
    std::string text = modeName(s.mode);
    if (s.sector) {
        std::vector<std::string> halves;
        for (const auto& [ticked, name] : {std::pair{s.sector->front, "front"}, std::pair{s.sector->right, "right"},
                                           std::pair{s.sector->back, "back"}, std::pair{s.sector->left, "left"}}) {
            if (ticked) {
                halves.push_back(name);
            }
        }
        text += halves.empty() ? ", Sector (no half)" : ", Sector (" + halves.front();
        if (halves.size() == 2) {
            text += " and " + halves.back();
        }
        text += halves.empty() ? "" : halves.size() == 1 ? " half)" : " halves)";
    }
    if (s.inward) {
        text += ", Inward";
    }
    if (s.scaled_to) {
        text += ", Scale Layer to " + number(*s.scaled_to) + " px";
    }
    text += ": ";
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

RunOutcome decideOutcome(const RunFacts& facts, const DialogReading& dialog) {
    RunOutcome out;
    out.apply = facts.apply;
    out.comp = facts.comp;
    out.taken = facts.taken;
    out.copies = facts.copies;
    out.sourceless =
        controls::sourcelessExtent(dialog.on(CHECK_CROP_TEXT_LAYERS), facts.largest_source, facts.comp_size);
    out.surface = settingsSurface(facts, dialog, out.offset);
    Surface& surface = out.surface;
    if (facts.comp == 0) {
        surface.notes.push_back("no composition was active, so the command took no layer");
        return out;
    }
    std::vector<Vec3> points;
    for (const WrittenLayer& layer : facts.written) {
        out.written.push_back(layer.id);
        points.push_back(layoutPoint(layer.position, surface.centre));
    }
    if (out.apply == ApplyState::applied) {
        out.left_out = idsWithout(out.taken, out.written);
    }
    const std::optional<Shape> shape = usedShape(out, points, dialog, surface.notes);
    if (!shape) {
        // No surface is known to have taken a layer: every layer written kept its place.
        if (out.apply == ApplyState::applied) {
            out.not_reached = out.written;
        }
        return out;
    }
    const bool sized_by_layers = surface.mode == SurfaceMode::ring || surface.mode == SurfaceMode::radius_by_first;
    surface.sized_by = sized_by_layers ? out.written.front() : 0;
    surface.known = true;
    surface.half_x = shape->half_x;
    surface.half_z = shape->half_z;
    surface.top = surface.centre.y - shape->high;
    surface.bottom = surface.centre.y - shape->low;
    const std::string first = sized_by_layers ? facts.written.front().name : "";
    for (std::string& note : differences(surface, boxShape(dialog), first)) {
        surface.notes.push_back(std::move(note));
    }
    if (out.apply != ApplyState::applied) {
        return out;
    }
    // The ring places every panel or none; its panels are chords, so only the first lies on it.
    const bool ring_built = surface.mode == SurfaceMode::ring;
    for (std::size_t i = 0; i < out.written.size(); ++i) {
        (ring_built || onShape(points[i], *shape) ? out.arranged : out.not_reached).push_back(out.written[i]);
    }
    out.ring_closing = ringClosing(out, facts);
    if (!out.arranged.empty() && turnsLeftAlone(dialog)) {
        surface.notes.push_back(
            "the layers were placed but not turned: with RADIO_SECTOR on and no sector box ticked, \"Apply\" leaves "
            "Orientation and the rotations as they were");
    }
    return out;
}

RunOutcome readRunOutcome(const host::Project& before, const host::Host& after, const DialogReading& dialog) {
    return decideOutcome(gatherRun(before, after), dialog);
}

}  // namespace app
