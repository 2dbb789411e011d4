// What a run did, read back from the host after it: the surface each mode used must be the one
// the plug-in's layout computed (to 1e-9), wherever the centre is, and the layers on it counted.
#include "app_tool.h"
#include "cylinder_fixture.h"
#include "dialog_settings.h"

#include "app/report/run_outcome.h"
#include "app/run/session.h"

#include <cmath>
#include <numbers>

namespace {

using apptest::cardScene;
using nlohmann::json;

constexpr double kExact = 1e-9;

class RunOutcomes : public apptest::ToolTest {
protected:
    // Runs the module in this process on `scene` with the given settings, as the tool does.
    app::RunOutcome outcome(const json& scene, std::vector<std::string> sets, bool no_apply = false,
                            bool undo = false) {
        app::Options options;
        options.scene = writeScene("s.json", scene);
        options.sets = std::move(sets);
        options.no_apply = no_apply;
        options.undo = undo;
        options.plugin = ORBISETT_MODULE_PATH;
        const app::SessionResult result = app::runSession(options);
        return app::readRunOutcome(result.before(), *result.host, result.reading);
    }
};

// Off the composition's centre, so that every conversion of the centre shows.
const std::vector<std::string> kOffCentre{"EDIT_SPHERE_CENTER_X=130.7", "EDIT_SPHERE_CENTER_Y=-45.3",
                                          "EDIT_SPHERE_CENTER_Z=260.1", "CHECK_USE_COMP_CENTER=off"};

std::vector<std::string> withSets(std::vector<std::string> sets) {
    std::vector<std::string> all = kOffCentre;
    all.insert(all.end(), sets.begin(), sets.end());
    return all;
}

TEST_F(RunOutcomes, BoxModesUseTheBoxHalvedInSinglePrecisionAndTheRadiusTheFirstLayersPolygon) {
    const double half_x = static_cast<double>(1234.567f * 0.5f);
    const double half_z = static_cast<double>(777.7f * 0.5f);
    for (const auto& [mode_set, mode] : {std::pair{"EDIT_MIN_LONGITUDE=45", app::SurfaceMode::given_steps},
                                         std::pair{"CHECK_DISTRIBUTE_EVENLY=on", app::SurfaceMode::evenly},
                                         std::pair{"RADIO_EQUATOR_ONLY=on", app::SurfaceMode::equator}}) {
        const app::RunOutcome o =
            outcome(cardScene(6), withSets({"EDIT_DIM_X=1234.567", "EDIT_DIM_Z=777.7", "EDIT_DIM_Y=900", mode_set}));
        EXPECT_EQ(o.surface.mode, mode) << mode_set;
        ASSERT_TRUE(o.surface.known) << mode_set;
        EXPECT_EQ(o.surface.half_x, half_x) << mode_set;
        EXPECT_EQ(o.surface.half_z, half_z) << mode_set;
        EXPECT_NEAR(o.surface.centre.x, static_cast<double>(130.7f), kExact) << mode_set;
        EXPECT_NEAR(o.surface.centre.y, static_cast<double>(45.3f), kExact) << mode_set;
        EXPECT_NEAR(o.surface.centre.z, static_cast<double>(-260.1f), kExact) << mode_set;
        EXPECT_EQ(o.arranged.size(), 6u) << mode_set;
        EXPECT_TRUE(o.not_reached.empty()) << mode_set;
        if (mode == app::SurfaceMode::equator) {
            EXPECT_EQ(o.surface.top, o.surface.bottom);
        } else {
            EXPECT_NEAR(o.surface.bottom - o.surface.top, 900, kExact);
        }
    }
    // Five 200 wide cards: the circle inside a regular pentagon of side 200; the box plays no part.
    const double radius = 100 / std::tan(std::numbers::pi / 5);
    const app::RunOutcome o = outcome(cardScene(7), withSets({"CHECK_RADIUS_BY_FIRST=on", "EDIT_RADIUS_LAYERS=5"}));
    EXPECT_EQ(o.surface.mode, app::SurfaceMode::radius_by_first);
    ASSERT_TRUE(o.surface.known);
    EXPECT_NEAR(o.surface.half_x, radius, kExact);
    EXPECT_NEAR(o.surface.half_z, radius, kExact);
    EXPECT_EQ(o.surface.sized_by, o.written.front());
    EXPECT_EQ(o.arranged.size(), 7u);
    ASSERT_FALSE(o.surface.notes.empty());
    EXPECT_NE(o.surface.notes.front().find("radius 137.6 set by the width of \"Card 1\""), std::string::npos)
        << o.surface.notes.front();

    // Distribute Evenly wins over the radius: the box again.
    const app::RunOutcome even =
        outcome(cardScene(7), withSets({"CHECK_RADIUS_BY_FIRST=on", "CHECK_DISTRIBUTE_EVENLY=on"}));
    EXPECT_EQ(even.surface.mode, app::SurfaceMode::evenly);
    EXPECT_EQ(even.surface.half_x, 500);
}

// The ring of the plug-in's own code, applied to a host with the controls set straight (no
// notification runs, so any Begin side can be had): the outcome read back, and the first
// record's centre in the layout frame as the layout computed it.
std::pair<app::RunOutcome, MainDlg::Vector> coreRing(const json& settings) {
    platform::reset();
    host::Host host;
    host::Project& project = host.project();
    const host::Id comp = project.addComp("Main", 1920, 1080);
    std::vector<host::Id> ids;
    for (const A_long width : {200, 200, 333, 200, 200}) {
        ids.push_back(project.addLayer(comp, "Card", AEGP_ObjectType_AV, true, project.addFootage("card", width, 150)));
    }
    project.select(comp, ids);
    const host::Project before = project;
    sSPBasic = host.basicSuite();
    MainDlg::Vector first;
    app::RunOutcome outcome;
    {
        CylinderDialog dlg(7);
        dlg.deleteOnDestroy = false;
        dlg.Create(nullptr, kProductName, 0, kADMFloatingDialogStyle, 0);
        for (const auto& [name, value] : settings.items()) {
            const ADMItemRef item = dlg.get_item(find_control(name)->id);
            if (value.is_boolean()) {
                sADMItem->SetBooleanValue(item, value.get<bool>());
            } else {
                sADMItem->SetFloatValue(item, value.get<float>());
            }
        }
        dlg.apply_assistant();
        const AEGP_ThreeDVal p = dlg.layers.front().position.val.three_d;
        first = MainDlg::Vector(p.x - dlg.get_float(EDIT_SPHERE_CENTER_X), -p.y - dlg.get_float(EDIT_SPHERE_CENTER_Y),
                                -p.z - dlg.get_float(EDIT_SPHERE_CENTER_Z));
        outcome = app::readRunOutcome(before, host, apptest::dialogReading(settings));
    }
    sSPBasic = nullptr;
    platform::reset();
    return {outcome, first};
}

TEST_F(RunOutcomes, RingIsTheEllipseOfThePluginsFirstPanelAtEachBeginSide) {
    const double aspect = static_cast<double>(700.0f) * 0.5 / (static_cast<double>(1500.0f) * 0.5);
    for (const char* side : {"RADIO_BEGIN_FRONT", "RADIO_BEGIN_BACK", "RADIO_BEGIN_LEFT", "RADIO_BEGIN_RIGHT"}) {
        json settings = {{"EDIT_DIM_X", 1500},
                         {"EDIT_DIM_Z", 700},
                         {"EDIT_SPHERE_CENTER_X", 130.7},
                         {"EDIT_SPHERE_CENTER_Y", -45.3},
                         {"EDIT_SPHERE_CENTER_Z", 260.1},
                         {"CHECK_USE_COMP_CENTER", false},
                         {"RADIO_WHOLE_CYLINDER", false},
                         {"RADIO_EQUATOR_ONLY", true},
                         {"CHECK_CREATE_RING", true}};
        for (const char* s : {"RADIO_BEGIN_FRONT", "RADIO_BEGIN_BACK", "RADIO_BEGIN_LEFT", "RADIO_BEGIN_RIGHT"}) {
            settings[s] = std::string(s) == side;
        }
        const auto [o, first] = coreRing(settings);
        const bool on_z = side == std::string("RADIO_BEGIN_FRONT") || side == std::string("RADIO_BEGIN_BACK");
        EXPECT_EQ(o.surface.mode, app::SurfaceMode::ring) << side;
        ASSERT_TRUE(o.surface.known) << side;
        EXPECT_NEAR(on_z ? o.surface.half_z : o.surface.half_x, on_z ? std::fabs(first.z) : std::fabs(first.x), kExact)
            << side;
        EXPECT_NEAR(o.surface.half_z / o.surface.half_x, aspect, kExact) << side;
        EXPECT_EQ(o.surface.top, o.surface.bottom) << side;
        EXPECT_NEAR(o.surface.top, static_cast<double>(45.3f), kExact) << side;
        EXPECT_EQ(o.arranged.size(), 5u) << side;
    }
}

TEST_F(RunOutcomes, CopiesAreWrittenInListOrderAndWithoutAnAppliedStepNothingIsArranged) {
    const app::RunOutcome o = outcome(cardScene(2), {"CHECK_REPEAT_LAYERS=on", "EDIT_REPEAT_COUNT=3"});
    EXPECT_EQ(o.taken.size(), 2u);
    EXPECT_EQ(o.copies.size(), 6u);
    EXPECT_EQ(o.written.size(), 8u);
    EXPECT_EQ(o.arranged.size(), 8u);
    for (const app::LayerCopy& copy : o.copies) {
        EXPECT_TRUE(copy.original == o.taken[0] || copy.original == o.taken[1]);
    }
    const app::RunOutcome none = outcome(cardScene(4), {"CHECK_RADIUS_BY_FIRST=on"}, true);
    EXPECT_EQ(none.apply, app::ApplyState::not_applied);
    EXPECT_TRUE(none.written.empty());
    EXPECT_TRUE(none.arranged.empty());
    EXPECT_FALSE(none.surface.known);

    const app::RunOutcome undone = outcome(cardScene(4), {}, false, true);
    EXPECT_EQ(undone.apply, app::ApplyState::undone);
    EXPECT_EQ(undone.written.size(), 4u);
    EXPECT_TRUE(undone.arranged.empty());
    EXPECT_TRUE(undone.surface.known);  // the box's size needs no run
    EXPECT_EQ(undone.surface.half_x, 500);
}

}  // namespace
