#include "cylinder_fixture.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

bool in_hidden_set(ADMInt32 id)
{
    return std::find(kHiddenControls.begin(), kHiddenControls.end(), id) != kHiddenControls.end();
}

class CylinderDialogTest : public CylinderTest {
protected:
    // What the shell does before showing the window the first time.
    void open_as_shell_does()
    {
        dlg().Enable(false);
        dlg().Enable(true);
        sADMDialog->Show(dlg().dialog, true);
    }

    bool enabled(ADMInt32 id) const { return IsControlEnabled(control(id)); }
    bool visible(ADMInt32 id) const { return platform::isEffectivelyVisible(control(id)); }
};

// ---- The settings table as data ----------------------------------------------------------

TEST(CylinderSettingsTable, NamesAndIdentifiersAreUniqueAndFindable)
{
    std::set<std::string> names;
    std::set<ADMInt32> ids;
    for (const ControlSpec& c : cylinder_controls()) {
        EXPECT_TRUE(names.insert(c.name).second) << c.name;
        EXPECT_TRUE(ids.insert(c.id).second) << c.id;
        EXPECT_EQ(&c, find_control(c.name));
        EXPECT_EQ(&c, find_control(c.id));
    }
    // 57 controls with an identifier, plus the hidden frame.
    EXPECT_EQ(58u, names.size());
    EXPECT_EQ(nullptr, find_control("EDIT_DIM_W"));
    EXPECT_EQ(nullptr, find_control(ADMInt32{0}));
    EXPECT_EQ(nullptr, find_control(ADMInt32{999}));
    // The lower limit of the box is the float nearest 0.1, as a tool reading the table sees it.
    EXPECT_EQ(static_cast<float>(0.1), find_control("EDIT_DIM_X")->minimum);
}

TEST(CylinderSettingsTable, ShownColumnMatchesTheHiddenSet)
{
    std::set<ADMInt32> not_shown;
    for (const ControlSpec& c : kCylinderControls) {
        if (!c.shown) {
            not_shown.insert(c.id);
        }
        EXPECT_TRUE(c.shown || c.id != 0) << c.label;
    }
    for (const ControlSpec& c : kCylinderFrames) {
        if (!c.shown) {
            not_shown.insert(c.id);
        }
    }
    EXPECT_EQ(not_shown, std::set<ADMInt32>(kHiddenControls.begin(), kHiddenControls.end()));
    EXPECT_EQ(35u, not_shown.size());
}

// ---- A freshly built window ---------------------------------------------------------------

TEST_F(CylinderDialogTest, FreshWindowAnswersEveryDefaultAndInitialState)
{
    int checked = 0;
    for (const ControlSpec& c : kCylinderControls) {
        switch (c.kind) {
        case SettingKind::edit:
            EXPECT_EQ(c.value, dlg().get_float(c.id)) << c.name;
            ++checked;
            break;
        case SettingKind::check_box:
        case SettingKind::radio:
            EXPECT_EQ(c.value != 0.0f, dlg().get_bool(c.id)) << c.name;
            ++checked;
            break;
        default:
            break;
        }
    }
    EXPECT_EQ(42, checked);
    EXPECT_EQ(4, dlg().get_int(EDIT_RADIUS_LAYERS));
    EXPECT_EQ(1, dlg().get_int(EDIT_REPEAT_COUNT));
    // Radio groups did not upset the initial states: each group has its one default on.
    EXPECT_TRUE(dlg().get_bool(RADIO_BEGIN_FRONT));
    EXPECT_FALSE(dlg().get_bool(RADIO_BEGIN_RIGHT));
    EXPECT_TRUE(dlg().get_bool(RADIO_WHOLE_CYLINDER));
}

TEST_F(CylinderDialogTest, EditFieldsHoldTheirRangesWhenTyped)
{
    for (const ControlSpec& c : kCylinderControls) {
        if (c.kind != SettingKind::edit) {
            continue;
        }
        ASSERT_TRUE(platform::typeText(control(c.id), "1e12", platform::Force::yes).ok()) << c.name;
        EXPECT_EQ(c.maximum, dlg().get_float(c.id)) << c.name;
        ASSERT_TRUE(platform::typeText(control(c.id), "-1e12", platform::Force::yes).ok()) << c.name;
        EXPECT_EQ(c.minimum, dlg().get_float(c.id)) << c.name;
    }
}

TEST_F(CylinderDialogTest, ReadingWithoutAWindowGivesZeroAndFalse)
{
    CylinderDialog windowless(kPluginId);
    for (const ControlSpec& c : cylinder_controls()) {
        EXPECT_EQ(0.0f, windowless.get_float(c.id)) << c.name;
        EXPECT_EQ(0, windowless.get_int(c.id)) << c.name;
        EXPECT_FALSE(windowless.get_bool(c.id)) << c.name;
    }
}

TEST_F(CylinderDialogTest, ControlsAreCreatedInTableOrderThenFramesThenTheVersionLine)
{
    std::vector<ADMInt32> expected;
    for (const ControlSpec& c : kCylinderControls) {
        expected.push_back(c.id);
    }
    for (const ControlSpec& c : kCylinderFrames) {
        expected.push_back(c.id);
    }
    expected.push_back(STATIC_VERSION);
    std::vector<ADMInt32> made;
    for (ADMItemRef item = sADMDialog->GetFirstItem(dlg().dialog); item != nullptr;
         item = sADMDialog->GetNextItem(dlg().dialog, item)) {
        made.push_back(sADMItem->GetID(item));
    }
    EXPECT_EQ(expected, made);
}

TEST_F(CylinderDialogTest, WindowIsTitledSizedCentredAndHiddenAfterCreation)
{
    EXPECT_EQ("Orbisett", platform::windowTitle(window()));
    EXPECT_EQ("Orbisett", dlg().get_name());
    IASRect bounds{};
    sADMDialog->GetBoundsRect(dlg().dialog, &bounds);
    EXPECT_EQ(385, bounds.right - bounds.left);
    EXPECT_EQ(383, bounds.bottom - bounds.top);
    EXPECT_EQ((1920 - 385) / 2, bounds.left);
    EXPECT_EQ((1080 - 383) / 2, bounds.top);
    EXPECT_FALSE(sADMDialog->IsVisible(dlg().dialog));
}

TEST_F(CylinderDialogTest, VersionLineNamesTheProductAndVersion)
{
    char text[64] = {};
    ASSERT_TRUE(sADMItem->GetText(dlg().get_item(STATIC_VERSION), text, sizeof text));
    EXPECT_STREQ("Orbisett v1.3.2          ", text);
    IASRect line{};
    sADMItem->GetBoundsRect(dlg().get_item(STATIC_VERSION), &line);
    EXPECT_EQ(8, line.left);
    EXPECT_EQ(362, line.top);
}

// ---- Enabling and the hidden set ------------------------------------------------------------

TEST_F(CylinderDialogTest, EnableHidesExactlyTheControlsTheDialogDoesNotOffer)
{
    open_as_shell_does();
    for (const ControlSpec& c : cylinder_controls()) {
        EXPECT_EQ(!in_hidden_set(c.id), visible(c.id)) << c.name;
    }
    EXPECT_TRUE(visible(STATIC_VERSION));
    // Showing a hidden control by hand does not survive the next refresh.
    sADMItem->Show(dlg().get_item(CHECK_DONT_INTERSECT), true);
    EXPECT_TRUE(visible(CHECK_DONT_INTERSECT));
    dlg().Enable(true);
    EXPECT_FALSE(visible(CHECK_DONT_INTERSECT));
}

TEST_F(CylinderDialogTest, RefreshWithNothingSelectedDisablesEveryControl)
{
    open_as_shell_does();
    EXPECT_TRUE(enabled(BUTTON_APPLY));
    EXPECT_TRUE(enabled(EDIT_DIM_X));
    dlg().Enable(false);
    int disabled = 0;
    for (const ControlSpec& c : cylinder_controls()) {
        // Static texts have no control of their own to disable.
        if (c.kind != SettingKind::static_text) {
            EXPECT_FALSE(enabled(c.id)) << c.name;
            ++disabled;
        }
    }
    EXPECT_EQ(44, disabled);
}

TEST_F(CylinderDialogTest, InitialRulesAfterTheFirstRefresh)
{
    open_as_shell_does();
    EXPECT_FALSE(enabled(EDIT_RADIUS_LAYERS));
    EXPECT_TRUE(enabled(CHECK_RADIUS_BY_FIRST));
    EXPECT_TRUE(enabled(EDIT_MIN_LATITUDE));
    EXPECT_TRUE(enabled(EDIT_MIN_LONGITUDE));
    EXPECT_FALSE(enabled(EDIT_FORCE_CONFORM));
    EXPECT_FALSE(enabled(CHECK_SECTOR_FRONT));
    EXPECT_FALSE(enabled(CHECK_CREATE_RING));
    // Repeat Layers is off, so its dependants are off (the assistant's own rule).
    EXPECT_FALSE(enabled(EDIT_REPEAT_COUNT));
    EXPECT_FALSE(enabled(CHECK_REPEAT_SEQUENTIALLY));
}

// ---- Dependency rules, driven by clicks ----------------------------------------------------

TEST_F(CylinderDialogTest, DistributeEvenlyDisablesRadiusDistanceAndAngle)
{
    open_as_shell_does();
    ASSERT_TRUE(click(CHECK_DISTRIBUTE_EVENLY).ok());
    EXPECT_TRUE(dlg().get_bool(CHECK_DISTRIBUTE_EVENLY));
    EXPECT_FALSE(enabled(CHECK_RADIUS_BY_FIRST));
    EXPECT_FALSE(enabled(EDIT_MIN_LATITUDE));
    EXPECT_FALSE(enabled(EDIT_MIN_LONGITUDE));
    EXPECT_FALSE(enabled(EDIT_MAX_LONGITUDE));
    EXPECT_TRUE(enabled(EDIT_DIM_X));

    ASSERT_TRUE(click(CHECK_DISTRIBUTE_EVENLY).ok());
    EXPECT_TRUE(enabled(CHECK_RADIUS_BY_FIRST));
    EXPECT_TRUE(enabled(EDIT_MIN_LATITUDE));
    EXPECT_TRUE(enabled(EDIT_MIN_LONGITUDE));
}

TEST_F(CylinderDialogTest, RadiusSetByFirstKeepsTheHeightField)
{
    open_as_shell_does();
    ASSERT_TRUE(click(CHECK_RADIUS_BY_FIRST).ok());
    EXPECT_TRUE(enabled(EDIT_RADIUS_LAYERS));
    EXPECT_FALSE(enabled(EDIT_DIM_X));
    EXPECT_TRUE(enabled(EDIT_DIM_Y));
    EXPECT_FALSE(enabled(EDIT_DIM_Z));
    EXPECT_FALSE(enabled(CHECK_DISTRIBUTE_EVENLY));
    EXPECT_FALSE(enabled(CHECK_SCALE_LAYER));
    EXPECT_FALSE(enabled(RADIO_EQUATOR_ONLY));
    EXPECT_FALSE(enabled(EDIT_MIN_LONGITUDE));
    EXPECT_TRUE(enabled(EDIT_MIN_LATITUDE));
    // A refresh keeps the same picture.
    dlg().Enable(true);
    EXPECT_TRUE(enabled(EDIT_RADIUS_LAYERS));
    EXPECT_FALSE(enabled(EDIT_DIM_X));
    EXPECT_TRUE(enabled(EDIT_DIM_Y));

    ASSERT_TRUE(click(CHECK_RADIUS_BY_FIRST).ok());
    EXPECT_FALSE(enabled(EDIT_RADIUS_LAYERS));
    EXPECT_TRUE(enabled(EDIT_DIM_X));
    EXPECT_TRUE(enabled(EDIT_MIN_LONGITUDE));
}

TEST_F(CylinderDialogTest, EquatorOnlyOffersTheRingAndWaitsForTheRefreshForDistances)
{
    open_as_shell_does();
    ASSERT_TRUE(click(RADIO_EQUATOR_ONLY).ok());
    EXPECT_TRUE(dlg().get_bool(RADIO_EQUATOR_ONLY));
    EXPECT_FALSE(dlg().get_bool(RADIO_WHOLE_CYLINDER));
    EXPECT_TRUE(enabled(CHECK_CREATE_RING));
    EXPECT_FALSE(enabled(CHECK_SECTOR_FRONT));
    // The radios re-apply only the hemisphere rule; the distance group follows on the refresh.
    EXPECT_TRUE(enabled(EDIT_MIN_LATITUDE));
    dlg().Enable(true);
    EXPECT_FALSE(enabled(EDIT_MIN_LATITUDE));
    EXPECT_TRUE(enabled(EDIT_MIN_LONGITUDE));

    // The ring changes no rule at once either.
    ASSERT_TRUE(click(CHECK_CREATE_RING).ok());
    EXPECT_TRUE(enabled(EDIT_MIN_LONGITUDE));
    dlg().Enable(true);
    EXPECT_FALSE(enabled(EDIT_MIN_LONGITUDE));
}

TEST_F(CylinderDialogTest, SectorEnablesItsFourBoxes)
{
    open_as_shell_does();
    ASSERT_TRUE(click(RADIO_SECTOR).ok());
    for (ADMInt32 id : {CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT}) {
        EXPECT_TRUE(enabled(id)) << id;
    }
    EXPECT_FALSE(enabled(CHECK_CREATE_RING));
    ASSERT_TRUE(click(RADIO_WHOLE_CYLINDER).ok());
    EXPECT_FALSE(dlg().get_bool(RADIO_SECTOR));
    for (ADMInt32 id : {CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT}) {
        EXPECT_FALSE(enabled(id)) << id;
    }
}

TEST_F(CylinderDialogTest, ScaleLayerToEnablesTheSizeUnlessTheRadiusComesFromLayers)
{
    open_as_shell_does();
    ASSERT_TRUE(click(CHECK_SCALE_LAYER).ok());
    EXPECT_TRUE(enabled(EDIT_FORCE_CONFORM));
    ASSERT_TRUE(click(CHECK_RADIUS_BY_FIRST).ok());
    EXPECT_FALSE(enabled(EDIT_FORCE_CONFORM));
    ASSERT_TRUE(click(CHECK_RADIUS_BY_FIRST).ok());
    EXPECT_TRUE(enabled(EDIT_FORCE_CONFORM));
    ASSERT_TRUE(click(CHECK_SCALE_LAYER).ok());
    EXPECT_FALSE(enabled(EDIT_FORCE_CONFORM));
}

// A layout reads each setting once and keeps it for its own length only: the rules a user sets off
// afterwards, and the next layout, read the controls afresh.
TEST_F(CylinderDialogTest, SettingsReadByALayoutDoNotOutliveIt)
{
    const host::Layer& card = add_selected_card(400, 300, {100, 100, 100});
    open_as_shell_does();
    ASSERT_TRUE(click(BUTTON_APPLY).ok());
    ASSERT_EQ(-500, card.prop(host::Prop::position).value.z);

    ASSERT_TRUE(click(CHECK_DISTRIBUTE_EVENLY).ok());
    EXPECT_FALSE(enabled(CHECK_RADIUS_BY_FIRST));
    EXPECT_FALSE(enabled(EDIT_MIN_LATITUDE));
    EXPECT_FALSE(enabled(EDIT_MIN_LONGITUDE));
    ASSERT_TRUE(click(CHECK_DISTRIBUTE_EVENLY).ok());
    ASSERT_TRUE(click(CHECK_RADIUS_BY_FIRST).ok());
    EXPECT_TRUE(enabled(EDIT_RADIUS_LAYERS));
    EXPECT_FALSE(enabled(EDIT_DIM_Z));
    ASSERT_TRUE(click(CHECK_RADIUS_BY_FIRST).ok());

    ASSERT_TRUE(platform::typeText(control(EDIT_DIM_Z), "600").ok());
    ASSERT_TRUE(click(BUTTON_APPLY).ok());
    EXPECT_EQ(-300, card.prop(host::Prop::position).value.z);
}

// The displayed height comes from Scale Y: "Scale Layer to" brings a squashed layer to the size.
TEST_F(CylinderDialogTest, ScaleLayerToSizesALayerByBothItsScales)
{
    const host::Layer& card = add_selected_card(400, 300, {100, 50, 100});
    open_as_shell_does();
    ASSERT_TRUE(click(CHECK_SCALE_LAYER).ok());
    ASSERT_TRUE(click(BUTTON_APPLY).ok());
    const host::Vec3 scale = card.prop(host::Prop::scale).value;
    EXPECT_FLOAT_EQ(50, scale.x);
    EXPECT_FLOAT_EQ(200.0f / 150 * 50, scale.y);
    EXPECT_EQ(100, scale.z);
}

TEST_F(CylinderDialogTest, ClicksStillReachTheAssistantsRules)
{
    open_as_shell_does();
    ASSERT_TRUE(click(CHECK_REPEAT_LAYERS).ok());
    EXPECT_TRUE(enabled(EDIT_REPEAT_COUNT));
    EXPECT_TRUE(enabled(CHECK_REPEAT_SEQUENTIALLY));
}

TEST_F(CylinderDialogTest, RepeatingIsAllowedOnlyWithoutRadiusEvenOrEquator)
{
    EXPECT_TRUE(dlg().enable_repeat_layers());
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    EXPECT_FALSE(dlg().enable_repeat_layers());
    set_bool(CHECK_RADIUS_BY_FIRST, false);
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    EXPECT_FALSE(dlg().enable_repeat_layers());
    set_bool(CHECK_DISTRIBUTE_EVENLY, false);
    set_bool(RADIO_EQUATOR_ONLY, true);
    EXPECT_FALSE(dlg().enable_repeat_layers());
    set_bool(RADIO_WHOLE_CYLINDER, true);
    EXPECT_TRUE(dlg().enable_repeat_layers());
}

// ---- The picture a user sees -------------------------------------------------------------------

TEST_F(CylinderDialogTest, PictureShowsTheOfferedLabelsOnly)
{
    open_as_shell_does();
    const std::string svg = platform::windowToSvg(window());
    std::ofstream("cylinder_dialog.svg") << svg;
    auto shows = [&](const std::string& text) { return svg.find(">" + text + "</text>") != std::string::npos; };
    EXPECT_TRUE(shows("Orbisett"));
    // The version line (its trailing blanks are the layout's to wrap away).
    EXPECT_NE(std::string::npos, svg.find(">Orbisett v1.3.2"));
    for (const char* label :
         {"Bounding Box", "X", "Y", "Z", "Radius Set by First", "Layers", "Distance Between", "Layers Vertically",
          "pixels", "Frequency of Layers", "Around Cylinder", "degrees", "Repeat Layers", "Repeat Sequentially",
          "Orientation", "Outward", "Inward", "Distribute Evenly", "Random Order", "Insert Keys", "Position",
          "Scale", "Crop Text Layers To Size Of Other 3D Layers", "Apply"}) {
        EXPECT_TRUE(shows(label)) << label;
    }
    for (const char* label :
         {"Cylinder Center", "Don&apos;t Intersect", "Scale Layer to", "min", "max", "Begin Distribution at", "Front",
          "Back", "Left", "Right", "Active Surface", "Whole Cylinder", "Sector", "Equator Only",
          "Create Ring With Layers", "Reverse Layer Order", "Use Comp Center"}) {
        EXPECT_FALSE(shows(label)) << label;
    }
    // The default values are on show in the offered fields.
    EXPECT_TRUE(shows("1000"));
    EXPECT_TRUE(shows("2000"));
    EXPECT_TRUE(shows("45"));
}

}  // namespace
