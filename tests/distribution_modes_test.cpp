#include "controls/step_search.h"
#include "cylinder_fixture.h"
#include "layout_records.h"
#include "math/random.h"

#include <cmath>
#include <iterator>
#include <vector>

namespace {

using namespace layout_records;
using Mode = controls::PlacementMode;

// Where a record must be after the layout: on the circle of that radius, at that angle (degrees)
// and height; or, with a negative angle, where the snapshot left it.
struct At {
    double degrees;
    double h = 0;
    double radius = 500;
};
constexpr At kUntouched{-1};

class DistributionModesTest : public CylinderTest {
protected:
    void SetUp() override {
        CylinderTest::SetUp();
        // A round cylinder of radius 500 unless a test says otherwise.
        set_float(EDIT_DIM_X, 1000);
        set_float(EDIT_DIM_Z, 1000);
    }

    std::list<LayerInfo>& records() { return state().layers; }
    const LayerInfo& record(std::size_t i) { return nth(records(), i); }

    void layers_of(int n, A_long width = 100, A_long height = 100) {
        set_layer_count(n, width, height);
        mark_snapshot(records());
    }

    // Lays out n layers of that size, or layers of the sizes given.
    void place(int n, A_long width = 100, A_long height = 100) {
        layers_of(n, width, height);
        dlg().get_layers_pos();
    }
    void place(std::initializer_list<std::pair<A_long, A_long>> sizes) {
        set_layer_sizes(sizes);
        mark_snapshot(records());
        dlg().get_layers_pos();
    }

    void given_steps(float degrees, float increment, float height_step) {
        set_float(EDIT_MIN_LONGITUDE, degrees);
        set_float(EDIT_LONGITUDE_INCREMENT, increment);
        set_float(EDIT_MIN_LATITUDE, height_step);
    }

    // Typed, as a user would: the field then reads exactly what was typed.
    void type(ADMInt32 id, const char* text) {
        ASSERT_TRUE(platform::typeText(control(id), text, platform::Force::yes).ok());
    }

    // The settings a search depends on, as a tool reads them from the dialog.
    controls::SearchSettings search_settings(controls::PlacementMode mode) {
        return {mode,
                dlg().get_bool(CHECK_DISTRIBUTE_EVENLY),
                dlg().get_float(EDIT_MIN_LONGITUDE),
                dlg().get_float(EDIT_LONGITUDE_INCREMENT),
                dlg().get_float(EDIT_MIN_LATITUDE),
                dlg().get_float(EDIT_LATITUDE_INCREMENT),
                dlg().get_float(EDIT_DIM_Y),
                dlg().get_int(EDIT_RADIUS_LAYERS),
                dlg().get_bool(CHECK_DONT_INTERSECT),
                dlg().nowhere()};
    }

    void radius_by_first(int layers) {
        set_bool(CHECK_RADIUS_BY_FIRST, true);
        set_int(EDIT_RADIUS_LAYERS, layers);
    }

    // The first records, in order, are where `places` says.
    void expect_places(std::initializer_list<At> places, std::size_t from = 0) {
        std::size_t i = from;
        for (const At& at : places) {
            SCOPED_TRACE("record " + std::to_string(i));
            if (at.degrees < 0) {
                EXPECT_TRUE(is_snapshot(record(i)));
            } else {
                const Vector p = layout_point(record(i));
                EXPECT_NEAR(at.radius, radius_of(p), 1e-9);
                EXPECT_NEAR(at.degrees, degrees_around(p), 1e-9);
                EXPECT_NEAR(at.h, p.y, 1e-9);
            }
            ++i;
        }
    }
};

// ---- Distribute Evenly ---------------------------------------------------------------------------

TEST_F(DistributionModesTest, EvenlyMakesRowsOfFourThenThreeFromBottomToTopIgnoringTheSector) {
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    place(3);
    expect_places({{0, -1000}, {120, -1000}, {240, -1000}});
    layers_of(7);
    ASSERT_EQ(0, dlg().get_layers_pos());
    expect_places({{0, -1000}, {90, -1000}, {180, -1000}, {270, -1000}, {0, 1000}, {120, 1000}, {240, 1000}});
    place(10);
    expect_places({{0, -1000},
                   {90, -1000},
                   {180, -1000},
                   {270, -1000},
                   {0, 0},
                   {120, 0},
                   {240, 0},
                   {0, 1000},
                   {120, 1000},
                   {240, 1000}});
    sectors({CHECK_SECTOR_FRONT});
    place(3);
    expect_places({{0, -1000}, {120, -1000}, {240, -1000}});
}

TEST_F(DistributionModesTest, EvenlySkipsRefusedSlotsAndLeavesLayersWithoutOne) {
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    set_bool(CHECK_DONT_INTERSECT, true);
    // Two rows of four. The first layer reaches atan(1000/500) = 63.4 degrees to each side; the
    // second, atan(800/500) = 58 degrees, would touch it from 90 but not from 180. The refused
    // slot is not made up for: the last layer finds no slot.
    place({{2000, 100}, {1600, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100}});
    expect_places(
        {{0, -1000}, {180, -1000}, {270, -1000}, {0, 1000}, {90, 1000}, {180, 1000}, {270, 1000}, kUntouched});
}

// ---- Given steps ---------------------------------------------------------------------------------

TEST_F(DistributionModesTest, GivenStepsGrowByTheIncrementsWithinARowAndFromRowToRow) {
    // The max fields (45 and 50 by default) take no part: the steps grow past them.
    given_steps(30, 10, 50);
    place(9);
    // The next step would make 420 degrees: a new row at the start angle, with steps from 30 again.
    expect_places({{0, -1000},
                   {30, -1000},
                   {70, -1000},
                   {120, -1000},
                   {180, -1000},
                   {250, -1000},
                   {330, -1000},
                   {0, -950},
                   {30, -950}});
    given_steps(180, 0, 50);
    set_float(EDIT_LATITUDE_INCREMENT, 20);
    place(8);
    expect_places({{0, -1000}, {180, -1000}, {0, -950}, {180, -950}, {0, -880}, {180, -880}, {0, -790}, {180, -790}});
}

TEST_F(DistributionModesTest, GivenStepsSkipTheBackHalfOfAFrontSectorAndNoSectorBoxChangesNothing) {
    // The sector's edges at 90 and 270 degrees belong to it.
    given_steps(90, 0, 50);
    sectors({CHECK_SECTOR_FRONT});
    place(4);
    expect_places({{0, -1000}, {90, -1000}, {270, -1000}, {0, -950}});
    given_steps(45, 0, 50);
    sectors({});
    place(3);
    expect_places({kUntouched, kUntouched, kUntouched});
    EXPECT_TRUE(dlg().nowhere());
}

// Each box admits a half of the cylinder, closed at both ends; a point on the axis is at 0 degrees.
TEST_F(DistributionModesTest, SectorBoxesAcceptTheirHalfWithBothEdges) {
    const double degrees[] = {0, 89, 90, 91, 179, 180, 181, 269, 270, 271, 359};
    const struct {
        std::vector<ADMInt32> boxes;
        const char* accepted;  // one letter per angle above, then the axis
    } cases[] = {
        {{CHECK_SECTOR_FRONT}, "yyy-----yyyy"},
        {{CHECK_SECTOR_RIGHT}, "yyyyyy-----y"},
        {{CHECK_SECTOR_BACK}, "--yyyyyyy---"},
        {{CHECK_SECTOR_LEFT}, "y----yyyyyyy"},
        {{CHECK_SECTOR_FRONT, CHECK_SECTOR_RIGHT}, "yyyyyy--yyyy"},
        {{CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK}, "yyyyyyyyyyyy"},
        {{CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT}, "yyyyyyyyyyyy"},
    };
    for (const auto& c : cases) {
        sectors(c.boxes);
        for (std::size_t i = 0; i < std::size(degrees); ++i) {
            // The edges exactly: on the axes of the cross-section.
            const double phi = degrees[i] * math::Constant_PI / 180;
            Vector p = dlg().get_position(phi, 7, 0);
            if (std::fmod(degrees[i], 90) == 0) {
                p = Vector(std::round(p.x), 7, std::round(p.z));
            }
            EXPECT_EQ(c.accepted[i] == 'y', dlg().is_pos_valid(p)) << c.accepted << " at " << degrees[i];
        }
        EXPECT_EQ(c.accepted[std::size(degrees)] == 'y', dlg().is_pos_valid(Vector(0, 7, 0))) << c.accepted;
    }
    surface(RADIO_WHOLE_CYLINDER);
    EXPECT_TRUE(dlg().is_pos_valid(Vector(0, 0, -500)));
}

TEST_F(DistributionModesTest, ZeroStepsStackTheLayersOrEndTheModeWhenNoPlaceIsFree) {
    given_steps(0, 0, 50);
    place(3);
    expect_places({{0, -1000}, {0, -1000}, {0, -1000}});
    set_bool(CHECK_DONT_INTERSECT, true);
    place(3);
    expect_places({{0, -1000}, kUntouched, kUntouched});
    // With a height step of 0 every further row is the same full row again.
    given_steps(180, 0, 0);
    place(3);
    expect_places({{0, -1000}, {180, -1000}, kUntouched});
}

TEST_F(DistributionModesTest, GivenStepsAvoidPlacedLayersWalkingARowOfZeroHeightStepOnceMorePerLayer) {
    given_steps(0, 10, 50);
    set_bool(CHECK_DONT_INTERSECT, true);
    place(2);
    // Step 0 is 0 degrees (the same place), step 1 reaches 10 degrees, where the corner at
    // 10 - 5.7 degrees is still inside the first layer; step 2 reaches 30 degrees.
    expect_places({{0, -1000}, {30, -1000}});
    given_steps(90, 0, 0);
    set_bool(CHECK_DONT_INTERSECT, true);
    // The second layer (56 degrees to each side) is refused at 90 by the first (35 to each side) and
    // goes to 180; a small layer later finds 90 free when the row starts again at the same height.
    place({{700, 100}, {1500, 100}, {100, 100}, {100, 100}, {100, 100}});
    expect_places({{0, -1000}, {180, -1000}, {270, -1000}, {90, -1000}, kUntouched});
    given_steps(180, 0, 0);
    set_float(EDIT_LATITUDE_INCREMENT, 150);
    set_bool(CHECK_DONT_INTERSECT, true);
    place(3);
    // Row changes step 0, then 150: the third layer finds room one row up.
    expect_places({{0, -850}}, 2);
}

TEST_F(DistributionModesTest, RepeatsAreCutToTheLayersThatFit) {
    given_steps(360, 0, 100);
    set_float(EDIT_DIM_Y, 1600);
    set_bool(CHECK_REPEAT_LAYERS, true);
    set_int(EDIT_REPEAT_COUNT, 10);
    place(3);
    // One layer per row, rows from -800 to 800.
    ASSERT_EQ(17u, records().size());
    for (std::size_t i = 0; i < 17; ++i) {
        expect_places({{0, -800.0 + 100.0 * static_cast<double>(i)}}, i);
        EXPECT_EQ(i >= 3, record(i).clone) << "record " << i;
    }
}

TEST_F(DistributionModesTest, LayerCountUsesTheSizesInTurnAndStopsAtAHundredThousand) {
    // 100-wide layers at radius 500 reach 5.7 degrees to each side; a 700-wide one reaches 35.
    given_steps(30, 0, 50);
    set_float(EDIT_DIM_Y, 0.1f);
    set_bool(CHECK_DONT_INTERSECT, true);
    set_layer_sizes({{100, 100}});
    EXPECT_EQ(12, dlg().get_layers_number());
    set_layer_sizes({{100, 100}, {700, 100}});
    // 0 (narrow), 60 (wide, 30 touches the first), 120 (narrow, 90 inside the wide one),
    // 180 (wide), 240 (narrow), 300 (wide; 330 is then inside it and 0 closes the row).
    EXPECT_EQ(6, dlg().get_layers_number());

    set_bool(CHECK_DONT_INTERSECT, false);
    given_steps(0, 0, 50);
    set_float(EDIT_DIM_Y, 2000);
    layers_of(1);
    EXPECT_EQ(100000, dlg().get_layers_number());
}

// ---- The bound on a search ----------------------------------------------------------------------

// A walk that ends by itself, at the top or where its one row is full, does exactly the work the
// tool's rule expects of it: the rule tells a cut search from one that ran out of room.
TEST_F(DistributionModesTest, WalksThatEndByThemselvesDoTheWorkTheToolExpects) {
    given_steps(30, 10, 50);
    set_float(EDIT_LATITUDE_INCREMENT, 20);
    set_float(EDIT_DIM_Y, 1000);
    layers_of(2);
    const auto before = bytes_of(records());
    // Seven steps a row (the seventh completes the turn); rows at -500, -450, -380, -290, -180,
    // -50 and 100, 270, 460; the next passes the top. Every place takes a layer; the count leaves
    // the records and the footprints as they were.
    EXPECT_EQ(63, dlg().get_layers_number());
    EXPECT_EQ(before, bytes_of(records()));
    EXPECT_TRUE(state().volumes.empty());
    EXPECT_EQ(63, state().search.done());
    EXPECT_EQ(63, controls::searchWorkToEnd(search_settings(Mode::given_steps)));

    surface(RADIO_EQUATOR_ONLY);
    given_steps(60, 30, 50);
    place(6);
    EXPECT_EQ(4, state().search.done());
    EXPECT_EQ(4, controls::searchWorkToEnd(search_settings(Mode::equator)));

    // Rows of four: each row change counts as the row plus one, and there are nine up to the top.
    radius_by_first(4);
    place(40, 200, 100);
    EXPECT_EQ(45, state().search.done());
    EXPECT_EQ(45, controls::searchWorkToEnd(search_settings(Mode::radius_by_first)));
}

// A step far too small to type reasonably would otherwise search for billions of steps: the bound
// ends each search after its work, and the tool's rule calls it cut.
TEST_F(DistributionModesTest, TinyStepsEndTheSearchAtTheBound) {
    set_bool(CHECK_DONT_INTERSECT, true);
    type(EDIT_MIN_LONGITUDE, "1e-30");
    const auto expect_cut = [&](Mode walk) {
        EXPECT_TRUE(state().search.cut());
        EXPECT_EQ(controls::kStepSearchBudget, state().search.done());
        EXPECT_TRUE(controls::searchWasCut(search_settings(walk), true));
    };
    place(2);
    expect_places({{0, -1000}, kUntouched});
    expect_cut(Mode::given_steps);
    layers_of(1);
    EXPECT_EQ(1, dlg().get_layers_number());
    expect_cut(Mode::given_steps);
    // The count cut short leaves one layer of the repeats, which the placement then reaches.
    set_bool(CHECK_REPEAT_LAYERS, true);
    place(1);
    EXPECT_EQ(1u, records().size());
    EXPECT_FALSE(is_snapshot(record(0)));
    set_bool(CHECK_REPEAT_LAYERS, false);

    surface(RADIO_EQUATOR_ONLY);
    place(2);
    expect_places({{0}, kUntouched});
    expect_cut(Mode::equator);

    // Row changes of 1e-12 on a cylinder 100 high: the fourth layer climbs past the first row's
    // 100 pixels of height in steps of four.
    radius_by_first(3);
    set_float(EDIT_DIM_Y, 100);
    type(EDIT_MIN_LATITUDE, "1e-12");
    place(4);
    EXPECT_TRUE(is_snapshot(record(3)));
    expect_cut(Mode::radius_by_first);
}

// ---- Radius set by the first layers --------------------------------------------------------------

TEST_F(DistributionModesTest, RadiusMakesTheFirstLayersCloseUpAndItsRowsGrowByTheIncrement) {
    radius_by_first(4);
    place(5, 200, 100);
    expect_places({{0, -1000, 100}, {90, -1000, 100}, {180, -1000, 100}, {270, -1000, 100}, {0, -950, 100}});
    set_float(EDIT_LATITUDE_INCREMENT, 20);
    place(9, 200, 100);
    expect_places({{0, -950, 100}}, 4);
    expect_places({{0, -880, 100}}, 8);

    set_float(EDIT_LATITUDE_INCREMENT, 0);
    set_int(EDIT_RADIUS_LAYERS, 6);
    sectors({CHECK_SECTOR_FRONT});
    place(4, 200, 100);
    const double r = 173.20508075688772;
    expect_places({{0, -1000, r}, {60, -1000, r}, {300, -1000, r}, {0, -950, r}});
}

TEST_F(DistributionModesTest, RadiusRowChangeClimbsPastTheLayersBelowAndTheModeEndsWhenNothingFits) {
    radius_by_first(3);
    const double r = 100 / std::tan(math::Constant_PI / 3);
    place(4, 200, 100);
    expect_places({{0, -950, r}}, 3);
    set_bool(CHECK_DONT_INTERSECT, true);
    place(4, 200, 100);
    // At -950 the centre, at -900 the lower corners touch the first row's top edge at -950.
    expect_places({{0, -850, r}}, 3);
    set_float(EDIT_MIN_LATITUDE, 0);
    set_bool(CHECK_DONT_INTERSECT, true);
    place(4, 200, 100);
    // Rows never climb, and the height band of the first row blocks them.
    expect_places({{240, -1000, r}, kUntouched}, 2);

    // No sector box: no angle is valid in any row.
    set_bool(CHECK_DONT_INTERSECT, false);
    sectors({});
    place(2, 200, 100);
    expect_places({kUntouched, kUntouched});
}

// ---- Mode precedence: Evenly beats Radius, which beats Equator -----------------------------------

TEST_F(DistributionModesTest, EvenlyBeatsRadiusSetByFirstWhichBeatsEquatorOnly) {
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    radius_by_first(4);
    place(3, 200, 100);
    expect_places({{0, -1000, 500}, {120, -1000, 500}});
    set_bool(CHECK_DISTRIBUTE_EVENLY, false);
    surface(RADIO_EQUATOR_ONLY);
    place(2, 200, 100);
    expect_places({{0, -1000, 100}, {90, -1000, 100}});
}

// ---- Equator -------------------------------------------------------------------------------------

TEST_F(DistributionModesTest, EquatorWithEvenlySpreadsTheLayersAllAroundSkippingARefusedPlace) {
    surface(RADIO_EQUATOR_ONLY);
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    place(6);
    expect_places({{0}, {60}, {120}, {180}, {240}, {300}});
    set_bool(CHECK_DONT_INTERSECT, true);
    // The first layer reaches 10 degrees to each side; the second, 55 to each side, would touch it
    // from 60 degrees (its corner at 5 degrees, on the band's top edge) but not from 120.
    place({{176, 100}, {1428, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100}});
    expect_places({{0}, {120}, {180}, {240}, {300}, kUntouched});
}

TEST_F(DistributionModesTest, EquatorTakesGivenStepsAtMidHeightForOneTurn) {
    surface(RADIO_EQUATOR_ONLY);
    given_steps(60, 30, 50);
    place(5);
    // Steps of 60, 90 and 120 degrees; the next, 150, would pass the whole turn.
    expect_places({{0}, {60}, {150}, {270}, kUntouched});
    // A step of 0 that finds no place ends the mode.
    given_steps(0, 0, 50);
    set_bool(CHECK_DONT_INTERSECT, true);
    place(2);
    expect_places({{0}, kUntouched});
}

// ---- Scale Layer to ------------------------------------------------------------------------------

TEST_F(DistributionModesTest, ScaleLayerToMakesEveryLayerSquare) {
    set_bool(CHECK_SCALE_LAYER, true);
    set_float(EDIT_FORCE_CONFORM, 200);
    set_layer_sizes({{400, 100}, {0, 100}});
    records().front().scale.val.three_d = AEGP_ThreeDVal{80, 50, 90};
    dlg().get_layers_pos();
    const LayerInfo& scaled = record(0);
    EXPECT_EQ(40, scaled.scale.val.three_d.x);
    EXPECT_EQ(100, scaled.scale.val.three_d.y);
    EXPECT_EQ(90, scaled.scale.val.three_d.z);
    EXPECT_EQ(200, scaled.size.x);
    EXPECT_EQ(200, scaled.size.y);
    // Without a width there is nothing to scale.
    const LayerInfo& flat = record(1);
    EXPECT_EQ(100, flat.scale.val.three_d.x);
    EXPECT_EQ(100, flat.scale.val.three_d.y);
    EXPECT_EQ(0, flat.size.x);
    EXPECT_EQ(100, flat.size.y);
    EXPECT_TRUE(all_finite(records()));
}

// ---- Reproducibility -----------------------------------------------------------------------------

TEST_F(DistributionModesTest, SameSettingsAndRecordsGiveTheSameLayoutBitForBitReseedingTheGenerator) {
    given_steps(25, 5, 120);
    set_bool(CHECK_DONT_INTERSECT, true);
    set_float(EDIT_DIM_Z, 700);
    set_layer_sizes({{300, 80}, {120, 240}, {90, 90}, {400, 50}, {60, 300}, {250, 250}, {10, 10}});
    const std::list<LayerInfo> snapshot = records();
    dlg().get_layers_pos();
    const auto first = bytes_of(records());
    records() = snapshot;
    dlg().get_layers_pos();
    EXPECT_EQ(first, bytes_of(records()));
    EXPECT_NE(bytes_of(snapshot), first);
    math::SetRand(15021991);
    const std::int32_t expected = math::LRand();
    math::SetRand(42);
    place(2);
    EXPECT_EQ(expected, math::LRand());
    EXPECT_EQ(2u, state().volumes.size());
}

}  // namespace
