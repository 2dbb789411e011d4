#include "controls/control_notes.h"

#include "controls/control_ids.h"

#include <array>

namespace {

constexpr bool whole = true;

constexpr ControlNote note(ADMInt32 id, const char* meaning, const char* acts_when = "", bool whole_number = false,
                           const char* never_acts = "") {
    return {id, meaning, acts_when, whole_number, never_acts};
}

const char* const kNotRead = "the layout does not read this field; the dialog only keeps it";
const char* const kSideNotReached =
    "RADIO_BEGIN_FRONT or RADIO_BEGIN_BACK, a radio group of their own, is always on, and the layout asks them first";

const char* const kNotRadius =
    "it is not used while CHECK_RADIUS_BY_FIRST sets the radius (unless CHECK_DISTRIBUTE_EVENLY is on too, which "
    "then decides the layout)";
const char* const kVertical =
    "it acts in the given-steps placement (CHECK_DISTRIBUTE_EVENLY and RADIO_EQUATOR_ONLY off) and with "
    "CHECK_RADIUS_BY_FIRST (also under RADIO_EQUATOR_ONLY), never with CHECK_DISTRIBUTE_EVENLY";
const char* const kAngular =
    "it acts only in the given-steps placement and along the equator without CHECK_CREATE_RING; "
    "CHECK_DISTRIBUTE_EVENLY and CHECK_RADIUS_BY_FIRST set the step themselves";
const char* const kSector = "the sector boxes act only with RADIO_SECTOR on";
const char* const kRepeat = "it acts only with CHECK_REPEAT_LAYERS on";

const std::array kNotes = {
    note(EDIT_DIM_X, "cylinder width along X, \"Bounding Box\" X", kNotRadius),
    note(EDIT_DIM_Y, "cylinder height, \"Bounding Box\" Y"),
    note(EDIT_DIM_Z, "cylinder depth along Z, \"Bounding Box\" Z", kNotRadius),
    note(CHECK_RADIUS_BY_FIRST, "\"Radius Set by First\": the first N layers' widths close a circle",
         "it acts only with CHECK_DISTRIBUTE_EVENLY off"),
    note(EDIT_RADIUS_LAYERS, "N of \"Radius Set by First\" N \"Layers\"", "it acts only with CHECK_RADIUS_BY_FIRST on",
         whole),
    note(EDIT_SPHERE_CENTER_X, "cylinder centre X"),
    note(EDIT_SPHERE_CENTER_Y, "cylinder centre Y (up)"),
    note(EDIT_SPHERE_CENTER_Z, "cylinder centre Z (toward the viewer)"),
    note(CHECK_DISTRIBUTE_EVENLY, "\"Distribute Evenly\": rows of equal spacing over the whole height",
         "still, with CHECK_RADIUS_BY_FIRST on as well, this one decides the layout and the radius is not used"),
    note(CHECK_DONT_INTERSECT,
         "\"Don't Intersect\": skip places where a layer's centre or a corner would fall within the band on the "
         "cylinder that a layer placed before takes up; layers can still overlap where only edges cross"),
    note(CHECK_SCALE_LAYER, "\"Scale Layer to\": bring every layer to a square of EDIT_FORCE_CONFORM pixels",
         "still, the layers are scaled while CHECK_RADIUS_BY_FIRST is on, and the first one's new width sets the "
         "radius"),
    note(EDIT_FORCE_CONFORM, "size for \"Scale Layer to\", pixels",
         "it acts only with CHECK_SCALE_LAYER on (and still does while CHECK_RADIUS_BY_FIRST greys it)"),
    note(EDIT_MIN_LATITUDE, "\"Distance Between Layers Vertically\", pixels", kVertical),
    note(EDIT_LATITUDE_INCREMENT, "growth of the vertical distance per row", kVertical),
    note(EDIT_MAX_LATITUDE, "kept by the dialog; the layout does not use it", "", false, kNotRead),
    note(EDIT_MIN_LONGITUDE, "\"Frequency of Layers Around Cylinder\", degrees", kAngular),
    note(EDIT_LONGITUDE_INCREMENT, "growth of the angular step per step", kAngular),
    note(EDIT_MAX_LONGITUDE, "kept by the dialog; the layout does not use it", "", false, kNotRead),
    note(RADIO_OUTWARD, "\"Outward\": layers face away from the axis"),
    note(RADIO_INWARD, "\"Inward\": layers face the axis"),
    note(RADIO_BEGIN_FRONT, "\"Begin Distribution at\" \"Front\""),
    note(RADIO_BEGIN_RIGHT, "\"Begin Distribution at\" \"Right\"; never acts (Front or Back is always on)", "", false,
         kSideNotReached),
    note(RADIO_BEGIN_BACK, "\"Begin Distribution at\" \"Back\""),
    note(RADIO_BEGIN_LEFT, "\"Begin Distribution at\" \"Left\"; never acts (Front or Back is always on)", "", false,
         kSideNotReached),
    note(RADIO_WHOLE_CYLINDER, "\"Whole Cylinder\": the active surface is all of it"),
    note(RADIO_SECTOR, "\"Sector\": only the halves ticked in the sector boxes"),
    note(RADIO_EQUATOR_ONLY, "\"Equator Only\": one row at mid-height",
         "it is not used while CHECK_RADIUS_BY_FIRST sets the radius (unless CHECK_DISTRIBUTE_EVENLY is on too), "
         "though choosing it still turns RADIO_SECTOR off"),
    note(CHECK_SECTOR_FRONT, "sector \"Front\": the front half", kSector),
    note(CHECK_SECTOR_RIGHT, "sector \"Right\": the right half", kSector),
    note(CHECK_SECTOR_BACK, "sector \"Back\": the back half", kSector),
    note(CHECK_SECTOR_LEFT, "sector \"Left\": the left half", kSector),
    note(CHECK_CREATE_RING, "\"Create Ring With Layers\": close a ring edge to edge at the equator",
         "it acts only with RADIO_EQUATOR_ONLY on and CHECK_RADIUS_BY_FIRST off (or overruled by "
         "CHECK_DISTRIBUTE_EVENLY)"),
    note(CHECK_REVERSE_ORDER, "\"Reverse Layer Order\""),
    note(CHECK_RANDOM_ORDER, "\"Random Order\""),
    note(CHECK_USE_COMP_CENTER, "\"Use Comp Center\": the centre is taken from the composition's middle"),
    note(CHECK_REPEAT_LAYERS, "\"Repeat Layers\": arrange copies of the selected layers too"),
    note(EDIT_REPEAT_COUNT, "count of \"Repeat Layers\": copies of each selected layer", kRepeat, whole),
    note(CHECK_REPEAT_SEQUENTIALLY, "\"Repeat Sequentially\": copies made by the Duplicate command go last", kRepeat),
    note(CHECK_KEY_POSITION, "\"Insert Keys\" \"Position\""),
    note(CHECK_KEY_ORIENTATION, "\"Insert Keys\" \"Orientation\""),
    note(CHECK_KEY_SCALE, "\"Insert Keys\" \"Scale\""),
    note(CHECK_CROP_TEXT_LAYERS,
         "\"Crop Text Layers To Size Of Other 3D Layers\": text and shape layers take the "
         "largest selected source's size instead of the composition's",
         "it acts only when the selection holds a 3D layer with a source (the dialog also greys it on a host "
         "without AEGP Layer Suite/8, where it still acts)"),
};

}  // namespace

std::span<const ControlNote> control_notes() { return kNotes; }

const ControlNote* control_note(ADMInt32 id) {
    for (const ControlNote& n : kNotes) {
        if (n.id == id) {
            return &n;
        }
    }
    return nullptr;
}
