#include "cylinder_fixture.h"

#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr SettingKind T = SettingKind::static_text, E = SettingKind::edit, C = SettingKind::check_box,
                      R = SettingKind::radio, P = SettingKind::push_button, F = SettingKind::frame;
constexpr bool Y = true, N = false;

// The controls the dialog offers, in creation order: id, name, kind, label, left, top, width,
// height, minimum, maximum, default or initial state, and whether they stay shown after the first
// refresh. Check boxes and radios run from 0 to 1; static texts take their size from their text.
const ControlSpec kPinned[] = {
    {209, "STATIC_BOUNDING_BOX", T, "Bounding Box", 40, 18, 0, 0, 0, 0, 0, Y},
    {215, "STATIC_DIM_X", T, "X", 22, 38, 0, 0, 0, 0, 0, Y},
    {210, "EDIT_DIM_X", E, "", 40, 36, 75, 18, 0.1, 1e7, 1000, Y},
    {216, "STATIC_DIM_Y", T, "Y", 137, 38, 0, 0, 0, 0, 0, Y},
    {211, "EDIT_DIM_Y", E, "", 155, 36, 75, 18, 0.1, 1e7, 2000, Y},
    {217, "STATIC_DIM_Z", T, "Z", 252, 38, 0, 0, 0, 0, 0, Y},
    {212, "EDIT_DIM_Z", E, "", 270, 36, 75, 18, 0.1, 1e7, 1000, Y},
    {283, "CHECK_RADIUS_BY_FIRST", C, "Radius Set by First", 40, 59, 130, 15, 0, 1, 0, Y},
    {282, "EDIT_RADIUS_LAYERS", E, "", 155, 59, 75, 18, 3, 1000, 4, Y},
    {0, "", T, "Layers", 240, 61, 0, 0, 0, 0, 0, Y},
    {300, "STATIC_CYLINDER_CENTER", T, "Cylinder Center", 40, 82, 0, 0, 0, 0, 0, N},
    {301, "STATIC_CENTER_X", T, "X", 22, 102, 0, 0, 0, 0, 0, N},
    {220, "EDIT_SPHERE_CENTER_X", E, "", 40, 100, 75, 18, -1e7, 1e7, 0, N},
    {302, "STATIC_CENTER_Y", T, "Y", 137, 102, 0, 0, 0, 0, 0, N},
    {221, "EDIT_SPHERE_CENTER_Y", E, "", 155, 100, 75, 18, -1e7, 1e7, 0, N},
    {303, "STATIC_CENTER_Z", T, "Z", 252, 102, 0, 0, 0, 0, 0, N},
    {222, "EDIT_SPHERE_CENTER_Z", E, "", 270, 100, 75, 18, -1e7, 1e7, 0, N},
    {223, "CHECK_DISTRIBUTE_EVENLY", C, "Distribute Evenly", 155, 242, 120, 15, 0, 1, 0, Y},
    {224, "CHECK_DONT_INTERSECT", C, "Don't Intersect", 200, 132, 120, 15, 0, 1, 0, N},
    {264, "CHECK_SCALE_LAYER", C, "Scale Layer to", 40, 155, 115, 15, 0, 1, 0, N},
    {265, "EDIT_FORCE_CONFORM", E, "", 155, 155, 75, 18, 0.1, 10000, 200, N},
    {0, "", T, "pixels", 240, 100, 0, 0, 0, 0, 0, Y},
    {0, "", T, "degrees", 240, 132, 0, 0, 0, 0, 0, Y},
    {0, "", T, "Distance Between", 40, 100, 0, 0, 0, 0, 0, Y},
    {0, "", T, "Layers Vertically", 40, 112, 0, 0, 0, 0, 0, Y},
    {228, "STATIC_LATITUDE_MIN", T, "min", 120, 198, 0, 0, 0, 0, 0, N},
    {232, "EDIT_MIN_LATITUDE", E, "", 155, 100, 75, 18, 0, 1e7, 50, Y},
    {236, "EDIT_LATITUDE_INCREMENT", E, "", 270, 196, 75, 18, 0, 180, 0, N},
    {229, "STATIC_LATITUDE_MAX", T, "max", 120, 221, 0, 0, 0, 0, 0, N},
    {233, "EDIT_MAX_LATITUDE", E, "", 155, 219, 75, 18, 0, 1e7, 50, N},
    {0, "", T, "Frequency of Layers", 40, 132, 0, 0, 0, 0, 0, Y},
    {0, "", T, "Around Cylinder", 40, 144, 0, 0, 0, 0, 0, Y},
    {230, "STATIC_LONGITUDE_MIN", T, "min", 120, 244, 0, 0, 0, 0, 0, N},
    {234, "EDIT_MIN_LONGITUDE", E, "", 155, 132, 75, 18, 0, 360, 45, Y},
    {237, "EDIT_LONGITUDE_INCREMENT", E, "", 270, 242, 75, 18, 0, 360, 0, N},
    {231, "STATIC_LONGITUDE_MAX", T, "max", 120, 267, 0, 0, 0, 0, 0, N},
    {235, "EDIT_MAX_LONGITUDE", E, "", 155, 265, 75, 18, 0, 360, 45, N},
    {0, "", T, "Orientation", 20, 219, 0, 0, 0, 0, 0, Y},
    {271, "RADIO_OUTWARD", R, "Outward", 40, 242, 75, 15, 0, 1, 1, Y},
    {272, "RADIO_INWARD", R, "Inward", 40, 265, 75, 15, 0, 1, 0, Y},
    {304, "STATIC_BEGIN_AT", T, "Begin Distribution at", 155, 297, 0, 0, 0, 0, 0, N},
    {243, "RADIO_BEGIN_FRONT", R, "Front", 155, 320, 75, 15, 0, 1, 1, N},
    {248, "RADIO_BEGIN_RIGHT", R, "Right", 270, 320, 75, 15, 0, 1, 0, N},
    {244, "RADIO_BEGIN_BACK", R, "Back", 155, 338, 75, 15, 0, 1, 0, N},
    {247, "RADIO_BEGIN_LEFT", R, "Left", 270, 338, 75, 15, 0, 1, 0, N},
    {305, "STATIC_ACTIVE_SURFACE", T, "Active Surface", 135, 364, 0, 0, 0, 0, 0, N},
    {251, "RADIO_WHOLE_CYLINDER", R, "Whole Cylinder", 20, 379, 95, 15, 0, 1, 1, N},
    {252, "RADIO_SECTOR", R, "Sector", 20, 397, 95, 15, 0, 1, 0, N},
    {253, "RADIO_EQUATOR_ONLY", R, "Equator Only", 20, 415, 95, 15, 0, 1, 0, N},
    {255, "CHECK_SECTOR_FRONT", C, "Front", 155, 397, 55, 15, 0, 1, 1, N},
    {258, "CHECK_SECTOR_RIGHT", C, "Right", 210, 397, 55, 15, 0, 1, 0, N},
    {256, "CHECK_SECTOR_BACK", C, "Back", 265, 397, 55, 15, 0, 1, 0, N},
    {257, "CHECK_SECTOR_LEFT", C, "Left", 320, 397, 55, 15, 0, 1, 0, N},
    {261, "CHECK_CREATE_RING", C, "Create Ring With Layers", 155, 415, 195, 15, 0, 1, 0, N},
    {520, "CHECK_REVERSE_ORDER", C, "Reverse Layer Order", 20, 447, 135, 15, 0, 1, 0, N},
    {521, "CHECK_RANDOM_ORDER", C, "Random Order", 155, 265, 130, 15, 0, 1, 0, Y},
    {522, "CHECK_USE_COMP_CENTER", C, "Use Comp Center", 155, 465, 130, 15, 0, 1, 1, N},
    {528, "CHECK_REPEAT_LAYERS", C, "Repeat Layers", 40, 178, 130, 15, 0, 1, 0, Y},
    {529, "EDIT_REPEAT_COUNT", E, "", 155, 178, 75, 18, 1, 10000, 1, Y},
    {523, "CHECK_REPEAT_SEQUENTIALLY", C, "Repeat Sequentially", 250, 178, 130, 15, 0, 1, 0, Y},
    {524, "CHECK_KEY_POSITION", C, "Position", 40, 308, 130, 15, 0, 1, 0, Y},
    {525, "CHECK_KEY_ORIENTATION", C, "Orientation", 155, 308, 130, 15, 0, 1, 0, Y},
    {526, "CHECK_KEY_SCALE", C, "Scale", 270, 308, 65, 15, 0, 1, 0, Y},
    {531, "CHECK_CROP_TEXT_LAYERS", C, "Crop Text Layers To Size Of Other 3D Layers", 20, 338, 320, 17, 0, 1, 1, Y},
    {3, "BUTTON_APPLY", P, "Apply", 317, 357, 58, 20, 0, 0, 0, Y},
};

// The frames, created after the controls.
const ControlSpec kPinnedFrames[] = {
    {0, "", F, "", 5, 5, 375, 210, 0, 0, 0, Y},
    {0, "", F, "", 5, 213, 137, 77, 0, 0, 0, Y},
    {0, "", F, "", 140, 213, 240, 77, 0, 0, 0, Y},
    {306, "FRAME_ACTIVE_SURFACE", F, "", 5, 357, 375, 81, 0, 0, 0, N},
    {0, "", F, "Insert Keys", 5, 293, 375, 36, 0, 0, 0, Y},
};

// Every field of a row, floats to the last bit.
std::string row(const ControlSpec& c) {
    std::ostringstream s;
    s << std::setprecision(9) << c.id << ' ' << c.name << ' ' << static_cast<int>(c.kind) << " \"" << c.label << "\" "
      << c.left << ' ' << c.top << ' ' << c.width << ' ' << c.height << ' ' << c.minimum << ' ' << c.maximum << ' '
      << c.value << (c.shown ? " shown" : " hidden");
    return s.str();
}

class CylinderDialogTest : public CylinderTest {
protected:
    // What the shell does before showing the window the first time.
    void open_as_shell_does() {
        dlg().Enable(false);
        dlg().Enable(true);
        sADMDialog->Show(dlg().dialog, true);
    }

    bool enabled(ADMInt32 id) const { return IsControlEnabled(control(id)); }
    bool visible(ADMInt32 id) const { return platform::isEffectivelyVisible(control(id)); }
    void expect_enabled(const std::vector<ADMInt32>& on, const std::vector<ADMInt32>& off = {}) const {
        for (ADMInt32 id : on) {
            EXPECT_TRUE(enabled(id)) << find_control(id)->name << " should be enabled";
        }
        for (ADMInt32 id : off) {
            EXPECT_FALSE(enabled(id)) << find_control(id)->name << " should be disabled";
        }
    }
    void clicks(std::initializer_list<ADMInt32> ids) {
        for (ADMInt32 id : ids) {
            ASSERT_TRUE(click(id).ok()) << find_control(id)->name;
        }
    }
};

// ---- The settings table ----------------------------------------------------------------------

TEST(CylinderSettingsTable, HoldsThePinnedControlsAndFrames) {
    ASSERT_EQ(std::size(kPinned), kCylinderControls.size());
    for (std::size_t i = 0; i < kCylinderControls.size(); ++i) {
        EXPECT_EQ(row(kPinned[i]), row(kCylinderControls[i])) << "control " << i + 1;
    }
    ASSERT_EQ(std::size(kPinnedFrames), kCylinderFrames.size());
    for (std::size_t i = 0; i < kCylinderFrames.size(); ++i) {
        EXPECT_EQ(row(kPinnedFrames[i]), row(kCylinderFrames[i])) << "frame " << i + 1;
    }
    // Every control with an identifier is found by its name and by its identifier, and no other.
    for (const ControlSpec& c : kPinned) {
        if (c.id != 0) {
            ASSERT_NE(nullptr, find_control(c.name)) << c.name;
            EXPECT_EQ(c.id, find_control(c.name)->id);
            EXPECT_EQ(find_control(c.name), find_control(c.id)) << c.name;
        }
    }
    EXPECT_EQ(58u, cylinder_controls().size());
    EXPECT_EQ(nullptr, find_control("EDIT_DIM_W"));
    EXPECT_EQ(nullptr, find_control(ADMInt32{0}));
    EXPECT_EQ(nullptr, find_control(ADMInt32{999}));
    // The lower limit of the box is the float nearest 0.1, as a tool reading the table sees it.
    EXPECT_EQ(static_cast<float>(0.1), find_control("EDIT_DIM_X")->minimum);
}

// ---- A freshly built window ---------------------------------------------------------------

// Created in table order, then the frames and the version line; each control at its place, with
// its label, its default or initial state, and its range when typed into, shown after the first
// refresh exactly when the table says so. Without a window every setting reads 0 or false.
TEST_F(CylinderDialogTest, FreshWindowHoldsThePinnedControls) {
    open_as_shell_does();
    std::vector<ADMInt32> expected;
    for (const ControlSpec& c : kPinned) {
        expected.push_back(c.id);
    }
    for (const ControlSpec& c : kPinnedFrames) {
        expected.push_back(c.id);
    }
    expected.push_back(STATIC_VERSION);
    std::vector<ADMInt32> made;
    for (ADMItemRef item = sADMDialog->GetFirstItem(dlg().dialog); item != nullptr;
         item = sADMDialog->GetNextItem(dlg().dialog, item)) {
        made.push_back(sADMItem->GetID(item));
    }
    EXPECT_EQ(expected, made);

    CylinderDialog windowless(kPluginId);
    for (const ControlSpec& c : kPinned) {
        if (c.id == 0) {
            continue;
        }
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.shown, visible(c.id));
        IASRect r{};
        sADMItem->GetBoundsRect(dlg().get_item(c.id), &r);
        EXPECT_EQ(c.left, r.left);
        EXPECT_EQ(c.top, r.top);
        char text[64] = {};
        sADMItem->GetText(dlg().get_item(c.id), text, sizeof text);
        if (c.kind == E) {
            EXPECT_EQ(c.width, r.right - r.left);
            EXPECT_EQ(c.value, dlg().get_float(c.id));
            ASSERT_TRUE(platform::typeText(control(c.id), "1e12", platform::Force::yes).ok());
            EXPECT_EQ(c.maximum, dlg().get_float(c.id));
            ASSERT_TRUE(platform::typeText(control(c.id), "-1e12", platform::Force::yes).ok());
            EXPECT_EQ(c.minimum, dlg().get_float(c.id));
        } else {
            EXPECT_STREQ(c.label, text);
        }
        if (c.kind == C || c.kind == R) {
            EXPECT_EQ(c.value != 0, dlg().get_bool(c.id));
        }
        EXPECT_EQ(0.0f, windowless.get_float(c.id));
        EXPECT_EQ(0, windowless.get_int(c.id));
        EXPECT_FALSE(windowless.get_bool(c.id));
    }
    IASRect apply{};
    sADMItem->GetBoundsRect(dlg().get_item(BUTTON_APPLY), &apply);
    EXPECT_EQ(20, apply.bottom - apply.top);
}

TEST_F(CylinderDialogTest, WindowIsTitledSizedCentredHiddenAndNamesTheVersion) {
    EXPECT_EQ("Orbisett", platform::windowTitle(window_));
    EXPECT_EQ("Orbisett", dlg().get_name());
    IASRect bounds{};
    sADMDialog->GetBoundsRect(dlg().dialog, &bounds);
    EXPECT_EQ(385, bounds.right - bounds.left);
    EXPECT_EQ(383, bounds.bottom - bounds.top);
    EXPECT_EQ((1920 - 385) / 2, bounds.left);
    EXPECT_EQ((1080 - 383) / 2, bounds.top);
    EXPECT_FALSE(sADMDialog->IsVisible(dlg().dialog));
    char text[64] = {};
    ASSERT_TRUE(sADMItem->GetText(dlg().get_item(STATIC_VERSION), text, sizeof text));
    EXPECT_STREQ("Orbisett v1.3.2          ", text);
    IASRect line{};
    sADMItem->GetBoundsRect(dlg().get_item(STATIC_VERSION), &line);
    EXPECT_EQ(8, line.left);
    EXPECT_EQ(362, line.top);
}

// ---- Enabling and the hidden set ------------------------------------------------------------

TEST_F(CylinderDialogTest, EnableKeepsTheHiddenSetHiddenAndNothingSelectedDisablesAll) {
    open_as_shell_does();
    EXPECT_FALSE(visible(FRAME_ACTIVE_SURFACE));
    EXPECT_TRUE(visible(STATIC_VERSION));
    // Showing a hidden control by hand does not survive the next refresh.
    sADMItem->Show(dlg().get_item(CHECK_DONT_INTERSECT), true);
    EXPECT_TRUE(visible(CHECK_DONT_INTERSECT));
    dlg().Enable(true);
    EXPECT_FALSE(visible(CHECK_DONT_INTERSECT));

    EXPECT_TRUE(enabled(BUTTON_APPLY));
    dlg().Enable(false);
    for (const ControlSpec& c : kPinned) {
        // Static texts have no control of their own to disable.
        if (c.kind != T) {
            EXPECT_FALSE(enabled(c.id)) << c.name;
        }
    }
}

// ---- Dependency rules, driven by clicks ----------------------------------------------------

// A click on a control (0: the shell's refresh instead), then the controls that must be enabled
// and those that must be disabled.
struct RuleStep {
    ADMInt32 click;
    std::vector<ADMInt32> on;
    std::vector<ADMInt32> off;
};

void PrintTo(const RuleStep& step, std::ostream* out) {
    *out << (step.click == 0 ? "refresh" : find_control(step.click)->name);
}

class CylinderRules : public CylinderDialogTest, public ::testing::WithParamInterface<std::vector<RuleStep>> {};

TEST_P(CylinderRules, FollowTheClicksAndTheRefresh) {
    open_as_shell_does();
    for (const RuleStep& step : GetParam()) {
        SCOPED_TRACE(::testing::PrintToString(step));
        if (step.click == 0) {
            dlg().Enable(true);
        } else {
            clicks({step.click});
        }
        expect_enabled(step.on, step.off);
    }
}

const RuleStep kRadiusSetByFirst = {CHECK_RADIUS_BY_FIRST,
                                    {EDIT_RADIUS_LAYERS, EDIT_DIM_Y, EDIT_MIN_LATITUDE},
                                    {EDIT_DIM_X, EDIT_DIM_Z, CHECK_DISTRIBUTE_EVENLY, CHECK_SCALE_LAYER,
                                     RADIO_EQUATOR_ONLY, EDIT_MIN_LONGITUDE, EDIT_FORCE_CONFORM}};

INSTANTIATE_TEST_SUITE_P(
    Sequences, CylinderRules,
    ::testing::Values(
        // After the first refresh Repeat Layers is off, so its dependants are off (the assistant's
        // own rule).
        std::vector<RuleStep>{{0,
                               {CHECK_RADIUS_BY_FIRST, EDIT_MIN_LATITUDE, EDIT_MIN_LONGITUDE},
                               {EDIT_RADIUS_LAYERS, EDIT_FORCE_CONFORM, CHECK_SECTOR_FRONT, CHECK_CREATE_RING,
                                EDIT_REPEAT_COUNT, CHECK_REPEAT_SEQUENTIALLY}}},
        // Distribute Evenly disables radius, distance and angle.
        std::vector<RuleStep>{
            {CHECK_DISTRIBUTE_EVENLY,
             {EDIT_DIM_X},
             {CHECK_RADIUS_BY_FIRST, EDIT_MIN_LATITUDE, EDIT_MIN_LONGITUDE, EDIT_MAX_LONGITUDE}},
            {CHECK_DISTRIBUTE_EVENLY, {CHECK_RADIUS_BY_FIRST, EDIT_MIN_LATITUDE, EDIT_MIN_LONGITUDE}, {}}},
        // Radius Set by First keeps the height field and greys out the size of "Scale Layer to" and
        // the ring of Equator Only until it is off again; a refresh keeps the same picture.
        std::vector<RuleStep>{
            {CHECK_SCALE_LAYER, {EDIT_FORCE_CONFORM}, {}},
            kRadiusSetByFirst,
            {0, kRadiusSetByFirst.on, kRadiusSetByFirst.off},
            {CHECK_RADIUS_BY_FIRST, {EDIT_DIM_X, EDIT_MIN_LONGITUDE, EDIT_FORCE_CONFORM}, {EDIT_RADIUS_LAYERS}},
            {RADIO_EQUATOR_ONLY, {CHECK_CREATE_RING}, {}},
            {CHECK_RADIUS_BY_FIRST, {EDIT_DIM_Y}, {CHECK_CREATE_RING, EDIT_MIN_LATITUDE, EDIT_MIN_LONGITUDE}},
            {0, {}, {CHECK_CREATE_RING}},
            {CHECK_RADIUS_BY_FIRST, {CHECK_CREATE_RING}, {}},
            {CHECK_SCALE_LAYER, {}, {EDIT_FORCE_CONFORM}}},
        // Equator Only offers the ring at once; the radios re-apply only the hemisphere rule, and
        // the distance group follows on the refresh. The ring changes no rule at once either.
        std::vector<RuleStep>{{RADIO_EQUATOR_ONLY, {CHECK_CREATE_RING, EDIT_MIN_LATITUDE}, {CHECK_SECTOR_FRONT}},
                              {0, {EDIT_MIN_LONGITUDE}, {EDIT_MIN_LATITUDE}},
                              {CHECK_CREATE_RING, {EDIT_MIN_LONGITUDE}, {}},
                              {0, {}, {EDIT_MIN_LONGITUDE}}},
        // Sector enables its four boxes, and the whole cylinder takes them away.
        std::vector<RuleStep>{{RADIO_SECTOR,
                               {CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT},
                               {CHECK_CREATE_RING}},
                              {RADIO_WHOLE_CYLINDER,
                               {},
                               {CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT}}}));

// A layout reads each setting once and keeps it for its own length only: the rules a user sets off
// afterwards, and the next layout, read the controls afresh.
TEST_F(CylinderDialogTest, SettingsReadByALayoutDoNotOutliveIt) {
    const host::Layer& card = add_selected_card(400, 300, {100, 100, 100});
    open_as_shell_does();
    ASSERT_TRUE(click(BUTTON_APPLY).ok());
    ASSERT_EQ(-500, card.prop(host::Prop::position).value.z);

    clicks({CHECK_DISTRIBUTE_EVENLY});
    expect_enabled({}, {CHECK_RADIUS_BY_FIRST, EDIT_MIN_LATITUDE, EDIT_MIN_LONGITUDE});
    clicks({CHECK_DISTRIBUTE_EVENLY, CHECK_RADIUS_BY_FIRST});
    expect_enabled({EDIT_RADIUS_LAYERS}, {EDIT_DIM_Z});
    clicks({CHECK_RADIUS_BY_FIRST});

    ASSERT_TRUE(platform::typeText(control(EDIT_DIM_Z), "600").ok());
    ASSERT_TRUE(click(BUTTON_APPLY).ok());
    EXPECT_EQ(-300, card.prop(host::Prop::position).value.z);
}

// Text and shape layers take the size of the selected 3D source of the largest area, here neither
// the widest nor the tallest (a 2D layer's larger source does not count); without "Crop Text Layers
// To Size Of Other 3D Layers", or without a selected 3D source, the composition's size. "Scale Layer
// to" 200 shows it in the Scale written: 100 * 200 / width and 100 * 200 / height. A card's
// displayed height comes from its Scale Y.
TEST_F(CylinderDialogTest, TextAndShapeLayersTakeTheSourceOfLargestAreaOrTheCompositionSize) {
    host::Project& project = host_->project();
    const auto add = [&](AEGP_ObjectType type, bool three_d, A_long width, A_long height) {
        return project.addLayer(comp_id_, "Layer", type, three_d,
                                width == 0 ? 0 : project.addFootage("Source", width, height));
    };
    const host::Id text = add(AEGP_ObjectType_TEXT, true, 0, 0);
    const host::Id shape = add(AEGP_ObjectType_VECTOR, true, 0, 0);
    const host::Id flat = add(AEGP_ObjectType_AV, false, 4000, 4000);
    const host::Id large = add(AEGP_ObjectType_AV, true, 1600, 900);
    const std::vector<host::Id> mixed = {
        text, add(AEGP_ObjectType_AV, true, 2400, 100), shape, add(AEGP_ObjectType_AV, true, 100, 3000), large, flat};
    add(AEGP_ObjectType_AV, true, 3000, 3000);
    const struct {
        bool crop;
        std::vector<host::Id> selection;
        int width, height;
    } cases[] = {{true, mixed, 1600, 900}, {false, mixed, 1920, 1080}, {true, {text, shape, flat}, 1920, 1080}};
    open_as_shell_does();
    clicks({CHECK_SCALE_LAYER});
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << "crop " << c.crop << ", " << c.selection.size() << " selected");
        project.select(comp_id_, c.selection);
        if (dlg().get_bool(CHECK_CROP_TEXT_LAYERS) != c.crop) {
            clicks({CHECK_CROP_TEXT_LAYERS});
        }
        for (host::Id id : {text, shape, large}) {
            project.layer(id)->prop(host::Prop::scale).value = {100, id == large ? 50.0 : 100.0, 100};
        }
        clicks({BUTTON_APPLY});
        const host::Vec3 card = project.layer(large)->prop(host::Prop::scale).value;
        EXPECT_FLOAT_EQ(c.selection == mixed ? 200.0f / 450 * 50 : 50, card.y);
        for (host::Id id : {text, shape}) {
            const host::Vec3 scale = project.layer(id)->prop(host::Prop::scale).value;
            EXPECT_FLOAT_EQ(100.0 * 200 / c.width, scale.x);
            EXPECT_FLOAT_EQ(100.0 * 200 / c.height, scale.y);
        }
    }
}

TEST_F(CylinderDialogTest, RepeatingIsAllowedOnlyWithoutRadiusEvenOrEquatorAndClicksReachItsRule) {
    open_as_shell_does();
    clicks({CHECK_REPEAT_LAYERS});
    expect_enabled({EDIT_REPEAT_COUNT, CHECK_REPEAT_SEQUENTIALLY});
    EXPECT_TRUE(dlg().enable_repeat_layers());
    for (ADMInt32 id : {CHECK_RADIUS_BY_FIRST, CHECK_DISTRIBUTE_EVENLY, RADIO_EQUATOR_ONLY}) {
        set_bool(id, true);
        EXPECT_FALSE(dlg().enable_repeat_layers()) << find_control(id)->name;
        set_bool(id, false);
    }
    EXPECT_TRUE(dlg().enable_repeat_layers());
}

}  // namespace
