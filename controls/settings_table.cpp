#include "controls/settings_table.h"

#include <vector>

namespace {

using K = SettingKind;

constexpr ControlSpec text(ADMInt32 id, const char* name, const char* label, short left, short top) {
    return {id, name, K::static_text, label, left, top, 0, 0, 0.0f, 0.0f, 0.0f, !hiddenByDialog(id)};
}

constexpr ControlSpec edit(ADMInt32 id, const char* name, short left, short top, short width, short height,
                           float minimum, float maximum, float value) {
    return {id, name, K::edit, "", left, top, width, height, minimum, maximum, value, !hiddenByDialog(id)};
}

constexpr ControlSpec check(ADMInt32 id, const char* name, const char* label, short left, short top, short width,
                            short height, bool on) {
    return {id, name, K::check_box, label, left, top, width, height, 0.0f, 1.0f, on ? 1.0f : 0.0f, !hiddenByDialog(id)};
}

constexpr ControlSpec radio(ADMInt32 id, const char* name, const char* label, short left, short top, short width,
                            short height, bool on) {
    return {id, name, K::radio, label, left, top, width, height, 0.0f, 1.0f, on ? 1.0f : 0.0f, !hiddenByDialog(id)};
}

constexpr ControlSpec frame(ADMInt32 id, const char* name, const char* label, short left, short top, short width,
                            short height) {
    return {id, name, K::frame, label, left, top, width, height, 0.0f, 0.0f, 0.0f, !hiddenByDialog(id)};
}

constexpr ControlSpec button(ADMInt32 id, const char* name, const char* label, short left, short top, short width,
                             short height) {
    return {id, name, K::push_button, label, left, top, width, height, 0.0f, 0.0f, 0.0f, !hiddenByDialog(id)};
}

}  // namespace

const std::array<ControlSpec, kCylinderControlCount> kCylinderControls = {{
    text(STATIC_BOUNDING_BOX, "STATIC_BOUNDING_BOX", "Bounding Box", 40, 18),
    text(STATIC_DIM_X, "STATIC_DIM_X", "X", 22, 38),
    edit(EDIT_DIM_X, "EDIT_DIM_X", 40, 36, 75, 18, EDIT_DIM_X_MIN, EDIT_DIM_X_MAX, EDIT_DIM_X_DFLT),
    text(STATIC_DIM_Y, "STATIC_DIM_Y", "Y", 137, 38),
    edit(EDIT_DIM_Y, "EDIT_DIM_Y", 155, 36, 75, 18, EDIT_DIM_Y_MIN, EDIT_DIM_Y_MAX, EDIT_DIM_Y_DFLT),
    text(STATIC_DIM_Z, "STATIC_DIM_Z", "Z", 252, 38),
    edit(EDIT_DIM_Z, "EDIT_DIM_Z", 270, 36, 75, 18, EDIT_DIM_Z_MIN, EDIT_DIM_Z_MAX, EDIT_DIM_Z_DFLT),
    check(CHECK_RADIUS_BY_FIRST, "CHECK_RADIUS_BY_FIRST", "Radius Set by First", 40, 59, 130, 15, false),
    edit(EDIT_RADIUS_LAYERS, "EDIT_RADIUS_LAYERS", 155, 59, 75, 18, 3.0f, 1000.0f, 4.0f),
    text(0, "", "Layers", 240, 61),
    text(STATIC_CYLINDER_CENTER, "STATIC_CYLINDER_CENTER", "Cylinder Center", 40, 82),
    text(STATIC_CENTER_X, "STATIC_CENTER_X", "X", 22, 102),
    edit(EDIT_SPHERE_CENTER_X, "EDIT_SPHERE_CENTER_X", 40, 100, 75, 18, EDIT_SPHERE_CENTER_X_MIN,
         EDIT_SPHERE_CENTER_X_MAX, EDIT_SPHERE_CENTER_X_DFLT),
    text(STATIC_CENTER_Y, "STATIC_CENTER_Y", "Y", 137, 102),
    edit(EDIT_SPHERE_CENTER_Y, "EDIT_SPHERE_CENTER_Y", 155, 100, 75, 18, EDIT_SPHERE_CENTER_Y_MIN,
         EDIT_SPHERE_CENTER_Y_MAX, EDIT_SPHERE_CENTER_Y_DFLT),
    text(STATIC_CENTER_Z, "STATIC_CENTER_Z", "Z", 252, 102),
    edit(EDIT_SPHERE_CENTER_Z, "EDIT_SPHERE_CENTER_Z", 270, 100, 75, 18, EDIT_SPHERE_CENTER_Z_MIN,
         EDIT_SPHERE_CENTER_Z_MAX, EDIT_SPHERE_CENTER_Z_DFLT),
    check(CHECK_DISTRIBUTE_EVENLY, "CHECK_DISTRIBUTE_EVENLY", "Distribute Evenly", 155, 242, 120, 15, false),
    check(CHECK_DONT_INTERSECT, "CHECK_DONT_INTERSECT", "Don't Intersect", 200, 132, 120, 15, false),
    check(CHECK_SCALE_LAYER, "CHECK_SCALE_LAYER", "Scale Layer to", 40, 155, 115, 15, false),
    edit(EDIT_FORCE_CONFORM, "EDIT_FORCE_CONFORM", 155, 155, 75, 18, EDIT_FORCE_CONFORM_MIN, EDIT_FORCE_CONFORM_MAX,
         EDIT_FORCE_CONFORM_DFLT),
    text(0, "", "pixels", 240, 100),
    text(0, "", "degrees", 240, 132),
    text(0, "", "Distance Between", 40, 100),
    text(0, "", "Layers Vertically", 40, 112),
    text(STATIC_LATITUDE_MIN, "STATIC_LATITUDE_MIN", "min", 120, 198),
    edit(EDIT_MIN_LATITUDE, "EDIT_MIN_LATITUDE", 155, 100, 75, 18, EDIT_MIN_LATITUDE_MIN, EDIT_MIN_LATITUDE_MAX,
         EDIT_MIN_LATITUDE_DFLT),
    edit(EDIT_LATITUDE_INCREMENT, "EDIT_LATITUDE_INCREMENT", 270, 196, 75, 18, EDIT_LATITUDE_INCREMENT_MIN,
         EDIT_LATITUDE_INCREMENT_MAX, EDIT_LATITUDE_INCREMENT_DFLT),
    text(STATIC_LATITUDE_MAX, "STATIC_LATITUDE_MAX", "max", 120, 221),
    edit(EDIT_MAX_LATITUDE, "EDIT_MAX_LATITUDE", 155, 219, 75, 18, EDIT_MAX_LATITUDE_MIN, EDIT_MAX_LATITUDE_MAX,
         EDIT_MAX_LATITUDE_DFLT),
    text(0, "", "Frequency of Layers", 40, 132),
    text(0, "", "Around Cylinder", 40, 144),
    text(STATIC_LONGITUDE_MIN, "STATIC_LONGITUDE_MIN", "min", 120, 244),
    edit(EDIT_MIN_LONGITUDE, "EDIT_MIN_LONGITUDE", 155, 132, 75, 18, EDIT_MIN_LONGITUDE_MIN, EDIT_MIN_LONGITUDE_MAX,
         EDIT_MIN_LONGITUDE_DFLT),
    edit(EDIT_LONGITUDE_INCREMENT, "EDIT_LONGITUDE_INCREMENT", 270, 242, 75, 18, EDIT_LONGITUDE_INCREMENT_MIN,
         EDIT_LONGITUDE_INCREMENT_MAX, EDIT_LONGITUDE_INCREMENT_DFLT),
    text(STATIC_LONGITUDE_MAX, "STATIC_LONGITUDE_MAX", "max", 120, 267),
    edit(EDIT_MAX_LONGITUDE, "EDIT_MAX_LONGITUDE", 155, 265, 75, 18, EDIT_MAX_LONGITUDE_MIN, EDIT_MAX_LONGITUDE_MAX,
         EDIT_MAX_LONGITUDE_DFLT),
    text(0, "", "Orientation", 20, 219),
    radio(RADIO_OUTWARD, "RADIO_OUTWARD", "Outward", 40, 242, 75, 15, true),
    radio(RADIO_INWARD, "RADIO_INWARD", "Inward", 40, 265, 75, 15, false),
    text(STATIC_BEGIN_AT, "STATIC_BEGIN_AT", "Begin Distribution at", 155, 297),
    radio(RADIO_BEGIN_FRONT, "RADIO_BEGIN_FRONT", "Front", 155, 320, 75, 15, true),
    radio(RADIO_BEGIN_RIGHT, "RADIO_BEGIN_RIGHT", "Right", 270, 320, 75, 15, false),
    radio(RADIO_BEGIN_BACK, "RADIO_BEGIN_BACK", "Back", 155, 338, 75, 15, false),
    radio(RADIO_BEGIN_LEFT, "RADIO_BEGIN_LEFT", "Left", 270, 338, 75, 15, false),
    text(STATIC_ACTIVE_SURFACE, "STATIC_ACTIVE_SURFACE", "Active Surface", 135, 364),
    radio(RADIO_WHOLE_CYLINDER, "RADIO_WHOLE_CYLINDER", "Whole Cylinder", 20, 379, 95, 15, true),
    radio(RADIO_SECTOR, "RADIO_SECTOR", "Sector", 20, 397, 95, 15, false),
    radio(RADIO_EQUATOR_ONLY, "RADIO_EQUATOR_ONLY", "Equator Only", 20, 415, 95, 15, false),
    check(CHECK_SECTOR_FRONT, "CHECK_SECTOR_FRONT", "Front", 155, 397, 55, 15, true),
    check(CHECK_SECTOR_RIGHT, "CHECK_SECTOR_RIGHT", "Right", 210, 397, 55, 15, false),
    check(CHECK_SECTOR_BACK, "CHECK_SECTOR_BACK", "Back", 265, 397, 55, 15, false),
    check(CHECK_SECTOR_LEFT, "CHECK_SECTOR_LEFT", "Left", 320, 397, 55, 15, false),
    check(CHECK_CREATE_RING, "CHECK_CREATE_RING", "Create Ring With Layers", 155, 415, 195, 15, false),
    check(CHECK_REVERSE_ORDER, "CHECK_REVERSE_ORDER", "Reverse Layer Order", 20, 447, 135, 15, false),
    check(CHECK_RANDOM_ORDER, "CHECK_RANDOM_ORDER", "Random Order", 155, 265, 130, 15, false),
    check(CHECK_USE_COMP_CENTER, "CHECK_USE_COMP_CENTER", "Use Comp Center", 155, 465, 130, 15, true),
    check(CHECK_REPEAT_LAYERS, "CHECK_REPEAT_LAYERS", "Repeat Layers", 40, 178, 130, 15, false),
    edit(EDIT_REPEAT_COUNT, "EDIT_REPEAT_COUNT", 155, 178, 75, 18, 1.0f, 10000.0f, 1.0f),
    check(CHECK_REPEAT_SEQUENTIALLY, "CHECK_REPEAT_SEQUENTIALLY", "Repeat Sequentially", 250, 178, 130, 15, false),
    check(CHECK_KEY_POSITION, "CHECK_KEY_POSITION", "Position", 40, 308, 130, 15, false),
    check(CHECK_KEY_ORIENTATION, "CHECK_KEY_ORIENTATION", "Orientation", 155, 308, 130, 15, false),
    check(CHECK_KEY_SCALE, "CHECK_KEY_SCALE", "Scale", 270, 308, 65, 15, false),
    check(CHECK_CROP_TEXT_LAYERS, "CHECK_CROP_TEXT_LAYERS", "Crop Text Layers To Size Of Other 3D Layers", 20, 338, 320,
          17, true),
    button(BUTTON_APPLY, "BUTTON_APPLY", "Apply", 317, 357, 58, 20),
}};

const std::array<ControlSpec, kCylinderFrameCount> kCylinderFrames = {{
    frame(0, "", "", 5, 5, 375, 210),
    frame(0, "", "", 5, 213, 137, 77),
    frame(0, "", "", 140, 213, 240, 77),
    frame(FRAME_ACTIVE_SURFACE, "FRAME_ACTIVE_SURFACE", "", 5, 357, 375, 81),
    frame(0, "", "Insert Keys", 5, 293, 375, 36),
}};

std::span<const ControlSpec> cylinder_controls() {
    // Only controls with an identifier can be looked up; several unnamed labels share id 0.
    static const std::vector<ControlSpec> named = [] {
        std::vector<ControlSpec> all;
        for (const ControlSpec& c : kCylinderControls) {
            if (c.id != 0) {
                all.push_back(c);
            }
        }
        for (const ControlSpec& c : kCylinderFrames) {
            if (c.id != 0) {
                all.push_back(c);
            }
        }
        return all;
    }();
    return named;
}

const ControlSpec* find_control(std::string_view name) {
    for (const ControlSpec& c : cylinder_controls()) {
        if (name == c.name) {
            return &c;
        }
    }
    return nullptr;
}

const ControlSpec* find_control(ADMInt32 id) {
    if (id == 0) {
        return nullptr;
    }
    for (const ControlSpec& c : cylinder_controls()) {
        if (c.id == id) {
            return &c;
        }
    }
    return nullptr;
}
