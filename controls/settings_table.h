// The cylinder dialog's controls as data: identifier, name, kind, label, place, range, initial
// value and whether the user sees it. The dialog builds itself from this table, and tools set
// controls by name through it.
#pragma once

#include "adm_types.h"
#include "controls/control_ids.h"
#include "controls/product.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

// Limits and defaults of the edit fields (those of the layer count and the repeat count are only
// in the table).
inline constexpr float EDIT_DIM_X_MIN = 0.1f;
inline constexpr float EDIT_DIM_X_MAX = 1e7f;
inline constexpr float EDIT_DIM_X_DFLT = 1000.0f;
inline constexpr float EDIT_DIM_Y_MIN = 0.1f;
inline constexpr float EDIT_DIM_Y_MAX = 1e7f;
inline constexpr float EDIT_DIM_Y_DFLT = 2000.0f;
inline constexpr float EDIT_DIM_Z_MIN = 0.1f;
inline constexpr float EDIT_DIM_Z_MAX = 1e7f;
inline constexpr float EDIT_DIM_Z_DFLT = 1000.0f;
inline constexpr float EDIT_SPHERE_CENTER_X_MIN = -1e7f;
inline constexpr float EDIT_SPHERE_CENTER_X_MAX = 1e7f;
inline constexpr float EDIT_SPHERE_CENTER_X_DFLT = 0.0f;
inline constexpr float EDIT_SPHERE_CENTER_Y_MIN = -1e7f;
inline constexpr float EDIT_SPHERE_CENTER_Y_MAX = 1e7f;
inline constexpr float EDIT_SPHERE_CENTER_Y_DFLT = 0.0f;
inline constexpr float EDIT_SPHERE_CENTER_Z_MIN = -1e7f;
inline constexpr float EDIT_SPHERE_CENTER_Z_MAX = 1e7f;
inline constexpr float EDIT_SPHERE_CENTER_Z_DFLT = 0.0f;
inline constexpr float EDIT_FORCE_CONFORM_MIN = 0.1f;
inline constexpr float EDIT_FORCE_CONFORM_MAX = 10000.0f;
inline constexpr float EDIT_FORCE_CONFORM_DFLT = 200.0f;
inline constexpr float EDIT_MIN_LATITUDE_MIN = 0.0f;
inline constexpr float EDIT_MIN_LATITUDE_MAX = 1e7f;
inline constexpr float EDIT_MIN_LATITUDE_DFLT = 50.0f;
inline constexpr float EDIT_LATITUDE_INCREMENT_MIN = 0.0f;
inline constexpr float EDIT_LATITUDE_INCREMENT_MAX = 180.0f;
inline constexpr float EDIT_LATITUDE_INCREMENT_DFLT = 0.0f;
inline constexpr float EDIT_MAX_LATITUDE_MIN = 0.0f;
inline constexpr float EDIT_MAX_LATITUDE_MAX = 1e7f;
inline constexpr float EDIT_MAX_LATITUDE_DFLT = 50.0f;
inline constexpr float EDIT_MIN_LONGITUDE_MIN = 0.0f;
inline constexpr float EDIT_MIN_LONGITUDE_MAX = 360.0f;
inline constexpr float EDIT_MIN_LONGITUDE_DFLT = 45.0f;
inline constexpr float EDIT_LONGITUDE_INCREMENT_MIN = 0.0f;
inline constexpr float EDIT_LONGITUDE_INCREMENT_MAX = 360.0f;
inline constexpr float EDIT_LONGITUDE_INCREMENT_DFLT = 0.0f;
inline constexpr float EDIT_MAX_LONGITUDE_MIN = 0.0f;
inline constexpr float EDIT_MAX_LONGITUDE_MAX = 360.0f;
inline constexpr float EDIT_MAX_LONGITUDE_DFLT = 45.0f;

enum class SettingKind { static_text, edit, check_box, radio, push_button, frame };

// One control of the dialog. Places are left, top, width, height in the content area; static
// texts use only left and top. For edits `value` is the default, for check boxes and radios the
// initial state (0 or 1); other kinds ignore the three numbers.
struct ControlSpec {
    ADMInt32 id;       // 0 for controls never looked up
    const char* name;  // empty for controls never looked up
    SettingKind kind;
    const char* label;
    short left;
    short top;
    short width;
    short height;
    float minimum;
    float maximum;
    float value;
    bool shown;  // stays visible after the dialog's first refresh: not in kHiddenControls
};

// Controls 1 to 65, in creation order.
inline constexpr std::size_t kCylinderControlCount = 65;
extern const std::array<ControlSpec, kCylinderControlCount> kCylinderControls;

// The frames, created after the controls, all with the etched style.
inline constexpr std::size_t kCylinderFrameCount = 5;
extern const std::array<ControlSpec, kCylinderFrameCount> kCylinderFrames;

// The controls the dialog never offers, in the order it hides them. A control's `shown` is
// derived from this list.
inline constexpr std::size_t kHiddenControlCount = 35;
inline constexpr std::array<ADMInt32, kHiddenControlCount> kHiddenControls = {
    STATIC_CYLINDER_CENTER, EDIT_SPHERE_CENTER_X, STATIC_CENTER_X,          EDIT_SPHERE_CENTER_Y,
    STATIC_CENTER_Y,        EDIT_SPHERE_CENTER_Z, STATIC_CENTER_Z,          CHECK_DONT_INTERSECT,
    CHECK_SCALE_LAYER,      EDIT_FORCE_CONFORM,   STATIC_BEGIN_AT,          RADIO_BEGIN_FRONT,
    RADIO_BEGIN_RIGHT,      RADIO_BEGIN_BACK,     RADIO_BEGIN_LEFT,         STATIC_ACTIVE_SURFACE,
    RADIO_WHOLE_CYLINDER,   RADIO_SECTOR,         RADIO_EQUATOR_ONLY,       CHECK_SECTOR_FRONT,
    CHECK_SECTOR_RIGHT,     CHECK_SECTOR_BACK,    CHECK_SECTOR_LEFT,        CHECK_CREATE_RING,
    FRAME_ACTIVE_SURFACE,   CHECK_REVERSE_ORDER,  CHECK_USE_COMP_CENTER,    STATIC_LATITUDE_MIN,
    STATIC_LATITUDE_MAX,    EDIT_MAX_LATITUDE,    EDIT_LATITUDE_INCREMENT,  STATIC_LONGITUDE_MIN,
    STATIC_LONGITUDE_MAX,   EDIT_MAX_LONGITUDE,   EDIT_LONGITUDE_INCREMENT,
};

constexpr bool hiddenByDialog(ADMInt32 id) {
    return std::find(kHiddenControls.begin(), kHiddenControls.end(), id) != kHiddenControls.end();
}

// The version line, created last.
inline constexpr const char* kVersionFormat = "%s v%s          ";
inline constexpr short kVersionLeft = 8;
inline constexpr short kVersionTop = 362;
inline constexpr ADMFont kVersionFont = kADMBoldPaletteFont;

// The dialog's content size.
inline constexpr short kDialogWidth = 385;
inline constexpr short kDialogHeight = 383;

// Lookup among the controls and frames that carry a name or an identifier; null when none.
const ControlSpec* find_control(std::string_view name);
const ControlSpec* find_control(ADMInt32 id);

// Every named control and frame, for listing.
std::span<const ControlSpec> cylinder_controls();
