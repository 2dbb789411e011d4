#include "cylinder_fixture.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

namespace {

constexpr SettingKind T = SettingKind::static_text, E = SettingKind::edit, C = SettingKind::check_box,
                      R = SettingKind::radio;

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

TEST(CylinderSettingsTable, FindsEveryNamedControlAndHidesOnlyControlsItHas) {
    // Every control with an identifier is found by its name and by its identifier, and no other.
    for (const ControlSpec& c : kCylinderControls) {
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
    // The hidden set names 35 different controls of the table.
    EXPECT_TRUE(std::ranges::all_of(kHiddenControls, [](ADMInt32 id) { return find_control(id) != nullptr; }));
    EXPECT_EQ(35u, std::set<ADMInt32>(kHiddenControls.begin(), kHiddenControls.end()).size());
    // The lower limit of the box is the float nearest 0.1, as a tool reading the table sees it.
    EXPECT_EQ(static_cast<float>(0.1), find_control("EDIT_DIM_X")->minimum);
}

// ---- A freshly built window ---------------------------------------------------------------

// Created in table order, then the frames and the version line; each control at its place, with
// its label, its default or initial state, and its range when typed into, shown after the first
// refresh exactly when the table says so. Without a window every setting reads 0 or false.
TEST_F(CylinderDialogTest, FreshWindowHoldsTheTablesControls) {
    open_as_shell_does();
    std::vector<ADMInt32> expected;
    std::ranges::transform(kCylinderControls, std::back_inserter(expected), &ControlSpec::id);
    std::ranges::transform(kCylinderFrames, std::back_inserter(expected), &ControlSpec::id);
    expected.push_back(STATIC_VERSION);
    std::vector<ADMInt32> made;
    for (ADMItemRef item = sADMDialog->GetFirstItem(dlg().dialog); item != nullptr;
         item = sADMDialog->GetNextItem(dlg().dialog, item)) {
        made.push_back(sADMItem->GetID(item));
    }
    EXPECT_EQ(expected, made);

    CylinderDialog windowless(kPluginId);
    for (const ControlSpec& c : kCylinderControls) {
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
    for (const ControlSpec& c : kCylinderControls) {
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
