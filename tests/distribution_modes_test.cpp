#include "cylinder_fixture.h"
#include "layout_records.h"
#include "math/random.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace {

using namespace layout_records;

class DistributionModesTest : public CylinderTest {
protected:
    void SetUp() override
    {
        CylinderTest::SetUp();
        // A round cylinder of radius 500 unless a test says otherwise.
        set_float(EDIT_DIM_X, 1000);
        set_float(EDIT_DIM_Z, 1000);
    }

    std::list<LayerInfo>& records() { return state().layers; }
    const LayerInfo& record(std::size_t i) { return nth(records(), i); }

    void layers_of(int n, A_long width = 100, A_long height = 100)
    {
        set_layer_count(0);
        for (int i = 0; i < n; ++i) {
            records().push_back(CylinderTest::record(i + 1, width, height));
        }
        mark_snapshot(records());
    }

    void surface(ADMInt32 id)
    {
        for (ADMInt32 r : {RADIO_WHOLE_CYLINDER, RADIO_SECTOR, RADIO_EQUATOR_ONLY}) {
            set_bool(r, r == id);
        }
    }

    void sector_front_only()
    {
        surface(RADIO_SECTOR);
        set_bool(CHECK_SECTOR_FRONT, true);
        set_bool(CHECK_SECTOR_RIGHT, false);
        set_bool(CHECK_SECTOR_BACK, false);
        set_bool(CHECK_SECTOR_LEFT, false);
    }

    void given_steps(float degrees, float increment, float height_step)
    {
        set_float(EDIT_MIN_LONGITUDE, degrees);
        set_float(EDIT_LONGITUDE_INCREMENT, increment);
        set_float(EDIT_MIN_LATITUDE, height_step);
    }

    // The record sits on the circle of that radius at that angle (degrees) and height.
    void expect_at(std::size_t i, double degrees, double h, double radius = 500)
    {
        SCOPED_TRACE("record " + std::to_string(i));
        const Vector p = layout_point(record(i));
        EXPECT_NEAR(radius, radius_of(p), 1e-9);
        EXPECT_NEAR(degrees, degrees_around(p), 1e-9);
        EXPECT_NEAR(h, p.y, 1e-9);
    }

    void expect_untouched(std::size_t i) { EXPECT_TRUE(is_snapshot(record(i))) << "record " << i; }
};

// ---- Distribute Evenly ---------------------------------------------------------------------------

TEST_F(DistributionModesTest, EvenlySevenLayersMakeRowsOfFourAndThreeAtBottomAndTop)
{
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    layers_of(7);
    ASSERT_EQ(0, dlg().get_layers_pos());
    const double angles[] = {0, 90, 180, 270, 0, 120, 240};
    for (std::size_t i = 0; i < 7; ++i) {
        expect_at(i, angles[i], i < 4 ? -1000 : 1000);
    }
}

TEST_F(DistributionModesTest, EvenlyThreeLayersMakeOneRowAtTheBottom)
{
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    layers_of(3);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    expect_at(1, 120, -1000);
    expect_at(2, 240, -1000);
}

TEST_F(DistributionModesTest, EvenlyTenLayersMakeRowsOfFourThreeThree)
{
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    layers_of(10);
    dlg().get_layers_pos();
    const double angles[] = {0, 90, 180, 270, 0, 120, 240, 0, 120, 240};
    const double heights[] = {-1000, -1000, -1000, -1000, 0, 0, 0, 1000, 1000, 1000};
    for (std::size_t i = 0; i < 10; ++i) {
        expect_at(i, angles[i], heights[i]);
    }
}

TEST_F(DistributionModesTest, EvenlyIgnoresTheSector)
{
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    sector_front_only();
    layers_of(3);
    dlg().get_layers_pos();
    expect_at(1, 120, -1000);
    expect_at(2, 240, -1000);
}

TEST_F(DistributionModesTest, EvenlySkipsRefusedSlotsAndLeavesLayersWithoutOne)
{
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    set_bool(CHECK_DONT_INTERSECT, true);
    // Two rows of four. The first layer reaches atan(1000/500) = 63.4 degrees to each side; the
    // second, atan(800/500) = 58 degrees, would touch it from 90 but not from 180.
    set_layer_sizes({{2000, 100}, {1600, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100},
                     {10, 100}});
    mark_snapshot(records());
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    expect_at(1, 180, -1000);
    expect_at(2, 270, -1000);
    expect_at(3, 0, 1000);
    expect_at(4, 90, 1000);
    expect_at(5, 180, 1000);
    expect_at(6, 270, 1000);
    // The refused slot is not made up for: the last layer finds no slot.
    expect_untouched(7);
}

// ---- Given steps ---------------------------------------------------------------------------------

TEST_F(DistributionModesTest, GivenStepsFillRowsFromTheBottomUntilTheTop)
{
    given_steps(90, 0, 50);
    set_float(EDIT_DIM_Y, 100);
    begin_at(RADIO_BEGIN_FRONT);
    layers_of(13);
    dlg().get_layers_pos();
    for (std::size_t i = 0; i < 12; ++i) {
        expect_at(i, 90.0 * (i % 4), -50.0 + 50.0 * static_cast<double>(i / 4));
    }
    // A fourth row would be at 100, above the top at 50.
    expect_untouched(12);
}

TEST_F(DistributionModesTest, GivenStepsGrowByTheIncrementWithinARowAndStartAgainInTheNext)
{
    // The max field (45 by default) takes no part: the steps grow past it.
    given_steps(30, 10, 50);
    layers_of(9);
    dlg().get_layers_pos();
    const double angles[] = {0, 30, 70, 120, 180, 250, 330};
    for (std::size_t i = 0; i < 7; ++i) {
        expect_at(i, angles[i], -1000);
    }
    // The next step would make 420 degrees: a new row at the start angle, with steps from 30 again.
    expect_at(7, 0, -950);
    expect_at(8, 30, -950);
}

TEST_F(DistributionModesTest, GivenStepsRowsGrowByTheHeightIncrement)
{
    // The max field (50 by default) takes no part: the height steps grow past it.
    given_steps(180, 0, 50);
    set_float(EDIT_LATITUDE_INCREMENT, 20);
    layers_of(8);
    dlg().get_layers_pos();
    const double heights[] = {-1000, -950, -880, -790};
    for (std::size_t i = 0; i < 8; ++i) {
        expect_at(i, i % 2 == 0 ? 0 : 180, heights[i / 2]);
    }
}

TEST_F(DistributionModesTest, GivenStepsSkipTheBackHalfOfAFrontSector)
{
    // The sector's edges at 90 and 270 degrees belong to it.
    given_steps(90, 0, 50);
    sector_front_only();
    layers_of(4);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    expect_at(1, 90, -1000);
    expect_at(2, 270, -1000);
    expect_at(3, 0, -950);
}

// Each box admits a half of the cylinder, closed at both ends; a point on the axis is at 0 degrees.
TEST_F(DistributionModesTest, SectorBoxesAcceptTheirHalfWithBothEdges)
{
    const double degrees[] = {0, 89, 90, 91, 179, 180, 181, 269, 270, 271, 359};
    const struct {
        std::vector<ADMInt32> boxes;
        const char* accepted;  // one letter per angle above
    } cases[] = {
        {{CHECK_SECTOR_FRONT}, "yyy-----yyy" "y"},
        {{CHECK_SECTOR_RIGHT}, "yyyyyy-----" "y"},
        {{CHECK_SECTOR_BACK}, "--yyyyyyy--" "-"},
        {{CHECK_SECTOR_LEFT}, "y----yyyyyy" "y"},
        {{CHECK_SECTOR_FRONT, CHECK_SECTOR_RIGHT}, "yyyyyy--yyy" "y"},
        {{CHECK_SECTOR_FRONT, CHECK_SECTOR_BACK}, "yyyyyyyyyyy" "y"},
        {{CHECK_SECTOR_LEFT, CHECK_SECTOR_RIGHT}, "yyyyyyyyyyy" "y"},
    };
    surface(RADIO_SECTOR);
    for (const auto& c : cases) {
        for (ADMInt32 id : {CHECK_SECTOR_FRONT, CHECK_SECTOR_RIGHT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT}) {
            set_bool(id, std::find(c.boxes.begin(), c.boxes.end(), id) != c.boxes.end());
        }
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

TEST_F(DistributionModesTest, NoSectorBoxChangesNothingAndWritesNoOrientation)
{
    given_steps(45, 0, 50);
    surface(RADIO_SECTOR);
    for (ADMInt32 id : {CHECK_SECTOR_FRONT, CHECK_SECTOR_RIGHT, CHECK_SECTOR_BACK, CHECK_SECTOR_LEFT}) {
        set_bool(id, false);
    }
    layers_of(3);
    dlg().get_layers_pos();
    for (std::size_t i = 0; i < 3; ++i) {
        expect_untouched(i);
    }
    EXPECT_TRUE(dlg().nowhere());
    EXPECT_FALSE(dlg().is_orient_changed());
}

TEST_F(DistributionModesTest, GivenStepsAvoidPlacedLayers)
{
    given_steps(0, 10, 50);
    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(2);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    // Step 0 is 0 degrees (the same place), step 1 reaches 10 degrees, where the corner at
    // 10 - 5.7 degrees is still inside the first layer; step 2 reaches 30 degrees.
    expect_at(1, 30, -1000);
}

TEST_F(DistributionModesTest, ZeroStepsWithoutOverlapTestStackTheLayers)
{
    given_steps(0, 0, 50);
    layers_of(3);
    dlg().get_layers_pos();
    for (std::size_t i = 0; i < 3; ++i) {
        expect_at(i, 0, -1000);
    }
}

TEST_F(DistributionModesTest, ZeroAngularStepThatFindsNoPlaceEndsTheMode)
{
    given_steps(0, 0, 50);
    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(3);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    expect_untouched(1);
    expect_untouched(2);
}

TEST_F(DistributionModesTest, ZeroHeightStepThatFindsNoPlaceEndsTheMode)
{
    given_steps(180, 0, 0);
    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(3);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    expect_at(1, 180, -1000);
    // Every further row is the same full row again.
    expect_untouched(2);
}

TEST_F(DistributionModesTest, ZeroHeightStepWalksTheRowOnceMoreForEachLayer)
{
    given_steps(90, 0, 0);
    set_bool(CHECK_DONT_INTERSECT, true);
    // The second layer (56 degrees to each side) is refused at 90 by the first (35 to each side) and
    // goes to 180; a small layer later finds 90 free when the row starts again at the same height.
    set_layer_sizes({{700, 100}, {1500, 100}, {100, 100}, {100, 100}, {100, 100}});
    mark_snapshot(records());
    dlg().get_layers_pos();
    expect_at(0, 0, -1000);
    expect_at(1, 180, -1000);
    expect_at(2, 270, -1000);
    expect_at(3, 90, -1000);
    expect_untouched(4);
}

TEST_F(DistributionModesTest, FirstZeroHeightStepIsNotTheEndWhenTheIncrementGrows)
{
    given_steps(180, 0, 0);
    set_float(EDIT_LATITUDE_INCREMENT, 150);
    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(3);
    dlg().get_layers_pos();
    // Row changes step 0, then 150: the third layer finds room one row up.
    expect_at(2, 0, -850);
}

TEST_F(DistributionModesTest, RepeatsAreCutToTheLayersThatFit)
{
    given_steps(360, 0, 100);
    set_float(EDIT_DIM_Y, 1600);
    set_bool(CHECK_REPEAT_LAYERS, true);
    set_int(EDIT_REPEAT_COUNT, 10);
    layers_of(3);
    dlg().get_layers_pos();
    // One layer per row, rows from -800 to 800.
    ASSERT_EQ(17u, records().size());
    for (std::size_t i = 0; i < 17; ++i) {
        expect_at(i, 0, -800.0 + 100.0 * static_cast<double>(i));
        EXPECT_EQ(i >= 3, record(i).clone) << "record " << i;
    }
}

TEST_F(DistributionModesTest, LayerCountLeavesRecordsAndFootprintsAlone)
{
    given_steps(90, 0, 50);
    set_float(EDIT_DIM_Y, 100);
    layers_of(2);
    const auto before = bytes_of(records());
    EXPECT_EQ(12, dlg().get_layers_number());
    EXPECT_EQ(before, bytes_of(records()));
    EXPECT_TRUE(state().volumes.empty());
}

TEST_F(DistributionModesTest, LayerCountUsesTheSizesInTurn)
{
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
}

TEST_F(DistributionModesTest, LayerCountIsCappedAtOneHundredThousand)
{
    given_steps(0, 0, 50);
    layers_of(1);
    EXPECT_EQ(100000, dlg().get_layers_number());
}

// ---- Radius set by the first layers --------------------------------------------------------------

TEST_F(DistributionModesTest, RadiusMakesTheFirstLayersCloseUp)
{
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 4);
    layers_of(5, 200, 100);
    dlg().get_layers_pos();
    for (std::size_t i = 0; i < 4; ++i) {
        expect_at(i, 90.0 * static_cast<double>(i), -1000, 100);
    }
    expect_at(4, 0, -950, 100);

    set_int(EDIT_RADIUS_LAYERS, 6);
    layers_of(2, 200, 100);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000, 173.20508075688772);
    expect_at(1, 60, -1000, 173.20508075688772);
}

TEST_F(DistributionModesTest, RadiusRowsGrowByTheHeightIncrement)
{
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 4);
    set_float(EDIT_LATITUDE_INCREMENT, 20);
    layers_of(9, 200, 100);
    dlg().get_layers_pos();
    expect_at(4, 0, -950, 100);
    expect_at(8, 0, -880, 100);
}

TEST_F(DistributionModesTest, RadiusSkipsTheBackHalfOfAFrontSector)
{
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 6);
    sector_front_only();
    layers_of(4, 200, 100);
    dlg().get_layers_pos();
    const double r = 173.20508075688772;
    expect_at(0, 0, -1000, r);
    expect_at(1, 60, -1000, r);
    expect_at(2, 300, -1000, r);
    expect_at(3, 0, -950, r);
}

TEST_F(DistributionModesTest, RadiusRowChangeClimbsPastTheLayersBelow)
{
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 3);
    layers_of(4, 200, 100);
    dlg().get_layers_pos();
    expect_at(3, 0, -950, 100 / std::tan(math::Constant_PI / 3));

    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(4, 200, 100);
    dlg().get_layers_pos();
    // At -950 the centre, at -900 the lower corners touch the first row's top edge at -950.
    expect_at(3, 0, -850, 100 / std::tan(math::Constant_PI / 3));
}

TEST_F(DistributionModesTest, RadiusModeEndsWhenNothingCanEverBePlaced)
{
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 3);
    set_float(EDIT_MIN_LATITUDE, 0);
    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(4, 200, 100);
    dlg().get_layers_pos();
    // Rows never climb, and the height band of the first row blocks them.
    expect_at(2, 240, -1000, 100 / std::tan(math::Constant_PI / 3));
    expect_untouched(3);

    // No sector box: no angle is valid in any row.
    set_bool(CHECK_DONT_INTERSECT, false);
    surface(RADIO_SECTOR);
    set_bool(CHECK_SECTOR_FRONT, false);
    layers_of(2, 200, 100);
    dlg().get_layers_pos();
    expect_untouched(0);
    expect_untouched(1);
}

// ---- Mode precedence -----------------------------------------------------------------------------

TEST_F(DistributionModesTest, EvenlyBeatsRadiusSetByFirst)
{
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 4);
    layers_of(3, 200, 100);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000, 500);
    expect_at(1, 120, -1000, 500);
}

TEST_F(DistributionModesTest, RadiusSetByFirstBeatsEquatorOnly)
{
    set_bool(CHECK_RADIUS_BY_FIRST, true);
    set_int(EDIT_RADIUS_LAYERS, 4);
    surface(RADIO_EQUATOR_ONLY);
    layers_of(2, 200, 100);
    dlg().get_layers_pos();
    expect_at(0, 0, -1000, 100);
    expect_at(1, 90, -1000, 100);
}

// ---- Equator -------------------------------------------------------------------------------------

TEST_F(DistributionModesTest, EquatorWithEvenlySpreadsTheLayersAllAround)
{
    surface(RADIO_EQUATOR_ONLY);
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    layers_of(6);
    dlg().get_layers_pos();
    for (std::size_t i = 0; i < 6; ++i) {
        expect_at(i, 60.0 * static_cast<double>(i), 0);
    }
}

TEST_F(DistributionModesTest, EquatorWithOneRefusedPlaceLeavesTheLastLayer)
{
    surface(RADIO_EQUATOR_ONLY);
    set_bool(CHECK_DISTRIBUTE_EVENLY, true);
    set_bool(CHECK_DONT_INTERSECT, true);
    // The first layer reaches 10 degrees to each side; the second, 55 to each side, would touch it
    // from 60 degrees (its corner at 5 degrees, on the band's top edge) but not from 120.
    set_layer_sizes({{176, 100}, {1428, 100}, {10, 100}, {10, 100}, {10, 100}, {10, 100}});
    mark_snapshot(records());
    dlg().get_layers_pos();
    expect_at(0, 0, 0);
    expect_at(1, 120, 0);
    expect_at(2, 180, 0);
    expect_at(3, 240, 0);
    expect_at(4, 300, 0);
    expect_untouched(5);
}

TEST_F(DistributionModesTest, EquatorTakesGivenStepsAtMidHeightForOneTurn)
{
    surface(RADIO_EQUATOR_ONLY);
    given_steps(60, 30, 50);
    layers_of(5);
    dlg().get_layers_pos();
    // Steps of 60, 90 and 120 degrees; the next, 150, would pass the whole turn.
    expect_at(0, 0, 0);
    expect_at(1, 60, 0);
    expect_at(2, 150, 0);
    expect_at(3, 270, 0);
    expect_untouched(4);
}

TEST_F(DistributionModesTest, EquatorZeroStepThatFindsNoPlaceEndsTheMode)
{
    surface(RADIO_EQUATOR_ONLY);
    given_steps(0, 0, 50);
    set_bool(CHECK_DONT_INTERSECT, true);
    layers_of(2);
    dlg().get_layers_pos();
    expect_at(0, 0, 0);
    expect_untouched(1);
}

// ---- Scale Layer to ------------------------------------------------------------------------------

TEST_F(DistributionModesTest, ScaleLayerToMakesEveryLayerSquare)
{
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

TEST_F(DistributionModesTest, SameSettingsAndRecordsGiveTheSameLayoutBitForBit)
{
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
}

TEST_F(DistributionModesTest, LayoutReseedsTheRandomGenerator)
{
    math::SetRand(15021991);
    const std::int32_t expected = math::LRand();
    math::SetRand(42);
    layers_of(2);
    dlg().get_layers_pos();
    EXPECT_EQ(expected, math::LRand());
    EXPECT_EQ(2u, state().volumes.size());
}

} // namespace
