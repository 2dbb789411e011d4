// The built tool on small scenes: every distribution mode reachable with --set, keyframes,
// repeated layers on both copying paths, and what the table says.
#include "app_tool.h"

#include "app/preview_scene.h"
#include "host/scene_file.h"

#include <cmath>
#include <numbers>
#include <array>
#include <map>
#include <set>

namespace {

using apptest::cardScene;
using nlohmann::json;

constexpr double kPi = std::numbers::pi;

// Where a layer lands at angle phi (degrees) on a circle of `radius` around the composition's
// centre, at layout height h (Y up).
std::array<double, 3> onCircle(double phi_degrees, double radius, double h)
{
    const double phi = phi_degrees * kPi / 180.0;
    return {960 + radius * std::sin(phi), 540 - h, -radius * std::cos(phi)};
}

void expectPosition(const json& layer, const std::array<double, 3>& expected)
{
    const json& p = layer["position"];
    EXPECT_NEAR(p[0].get<double>(), expected[0], 1e-6) << layer["name"];
    EXPECT_NEAR(p[1].get<double>(), expected[1], 1e-6) << layer["name"];
    EXPECT_NEAR(p[2].get<double>(), expected[2], 1e-6) << layer["name"];
}

class DistributionModes : public apptest::ToolTest {};

TEST_F(DistributionModes, EvenlyFillsRowsFromTheBottom)
{
    // Seven layers: two rows of four and three, at the bottom and the top of a 2000 high cylinder.
    const json after = runForScene({writeScene("s.json", cardScene(7)), "--set", "CHECK_DISTRIBUTE_EVENLY=on"});
    const json& layers = after["layers"];
    ASSERT_EQ(layers.size(), 7u);
    for (int i = 0; i < 4; ++i) {
        expectPosition(layers[i], onCircle(90.0 * i, 500, -1000));
    }
    for (int i = 0; i < 3; ++i) {
        expectPosition(layers[4 + i], onCircle(120.0 * i, 500, 1000));
    }
}

TEST_F(DistributionModes, GivenStepsWrapRowsAndStopAtTheTop)
{
    const json after = runForScene({writeScene("s.json", cardScene(13)), "--set", "EDIT_MIN_LONGITUDE=90", "--set",
                                    "EDIT_MIN_LATITUDE=50", "--set", "EDIT_DIM_Y=100"});
    const json& layers = after["layers"];
    ASSERT_EQ(layers.size(), 13u);
    for (int i = 0; i < 12; ++i) {
        expectPosition(layers[i], onCircle(90.0 * (i % 4), 500, -50 + 50 * (i / 4)));
    }
    // The thirteenth would need a row above the top: it keeps its own position, which is
    // written back with the composition's centre added like every other.
    expectPosition(layers[12], {1920, 1080, 0});
}

TEST_F(DistributionModes, EquatorWithoutRingStepsAroundTheMiddle)
{
    const json after = runForScene({writeScene("s.json", cardScene(3)), "--set", "RADIO_EQUATOR_ONLY=on"});
    const json& layers = after["layers"];
    ASSERT_EQ(layers.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        expectPosition(layers[i], onCircle(45.0 * i, 500, 0));
    }
}

TEST_F(DistributionModes, EquatorRingClosesEdgeToEdge)
{
    const std::string scene = writeScene("s.json", cardScene(4, 100, 80));
    const json after = runForScene({scene, "--set", "RADIO_EQUATOR_ONLY=on", "--set", "CHECK_CREATE_RING=on"});
    const host::Scene read = host::parseScene(after.dump(), "after.json");
    const host::Comp& comp = read.project.comps.front();
    const std::vector<app::PlacedLayer> placed = app::placeLayers(read.project, comp);
    ASSERT_EQ(placed.size(), 4u);
    // The first panel at the front, all at mid-height.
    EXPECT_NEAR(placed[0].centre.x, 960, 1e-9);
    EXPECT_LT(placed[0].centre.z, 0);
    for (const app::PlacedLayer& p : placed) {
        EXPECT_NEAR(p.centre.y, 540, 1e-9);
    }
    // Each panel's edge meets the next one's, the last the first's.
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const app::PlacedLayer& a = placed[i];
        const app::PlacedLayer& b = placed[(i + 1) % placed.size()];
        double closest = 1e300;
        for (const app::Vec3& ca : a.corners) {
            for (const app::Vec3& cb : b.corners) {
                closest = std::min(closest, app::length(app::operator-(ca, cb)));
            }
        }
        EXPECT_LT(closest, 1e-6) << "between panels " << i << " and " << (i + 1) % placed.size();
    }
    // Only the last panel is stretched to close the ring.
    EXPECT_EQ(after["layers"][0]["scale"][0].get<double>(), 100);
    EXPECT_NE(after["layers"][3]["scale"][0].get<double>(), 100);
}

TEST_F(DistributionModes, RadiusSetByTheFirstLayers)
{
    // Four 200 wide layers close a square: radius 100 / tan(45 degrees) = 100.
    const json after = runForScene({writeScene("s.json", cardScene(4)), "--set", "CHECK_RADIUS_BY_FIRST=on"});
    const json& layers = after["layers"];
    ASSERT_EQ(layers.size(), 4u);
    for (int i = 0; i < 4; ++i) {
        expectPosition(layers[i], onCircle(90.0 * i, 100, -1000));
    }
    EXPECT_EQ(after["settings"]["CHECK_RADIUS_BY_FIRST"], true);
}

TEST_F(DistributionModes, ApplyIsLeftAloneWithNoApply)
{
    const json after = runForScene({writeScene("s.json", cardScene(2)), "--no-apply", "--set", "EDIT_DIM_X=300"});
    expectPosition(after["layers"][0], {960, 540, 0});
    EXPECT_TRUE(after["undo_groups"].empty());
    EXPECT_EQ(after["settings"]["EDIT_DIM_X"], 300);
}

class Keyframes : public apptest::ToolTest {};

TEST_F(Keyframes, PositionOnlyGetsOneKeyPerLayer)
{
    const std::string scene = writeScene("s.json", cardScene(3));
    const apptest::ToolRun r = run({scene, "--set", "CHECK_KEY_POSITION=on", "--out", path("after.json")});
    ASSERT_EQ(r.status, 0) << r.err;
    const json after = json::parse(apptest::readFile(path("after.json")));
    for (int i = 0; i < 3; ++i) {
        const json& layer = after["layers"][i];
        ASSERT_TRUE(layer.contains("keyframes")) << layer["name"];
        const json& keys = layer["keyframes"];
        ASSERT_EQ(keys["position"].size(), 1u);
        EXPECT_EQ(keys["position"][0]["time"]["value"], 0);
        // The key holds the place; the static value underneath stays as it was.
        expectPosition({{"name", layer["name"]}, {"position", keys["position"][0]["value"]}},
                       onCircle(45.0 * i, 500, -1000));
        expectPosition(layer, {960, 540, 0});
        EXPECT_FALSE(keys.contains("orientation") && !keys["orientation"].empty());
        EXPECT_FALSE(keys.contains("scale") && !keys["scale"].empty());
    }
    // The table counts keys per property: Position, Orientation, Scale, rotations.
    EXPECT_NE(r.out.find("1/0/0/0       moved"), std::string::npos) << r.out;
}

class Repeats : public apptest::ToolTest {
protected:
    void expectCopies(const json& scene)
    {
        const json after = runForScene({writeScene("s.json", scene), "--set", "CHECK_REPEAT_LAYERS=on", "--set",
                                        "EDIT_REPEAT_COUNT=2"});
        const json& layers = after["layers"];
        ASSERT_EQ(layers.size(), 9u);
        std::map<int, int> copies_of;
        std::set<std::array<double, 3>> places;
        for (const json& layer : layers) {
            if (layer.contains("copy_of")) {
                ++copies_of[layer["copy_of"].get<int>()];
            }
            places.insert({layer["position"][0].get<double>(), layer["position"][1].get<double>(),
                           layer["position"][2].get<double>()});
        }
        EXPECT_EQ(copies_of, (std::map<int, int>{{1, 2}, {2, 2}, {3, 2}}));
        // Copies are arranged like the originals: nine layers, nine places.
        EXPECT_EQ(places.size(), 9u);
        EXPECT_EQ(places.count({960, 540, 0}), 0u);
    }
};

TEST_F(Repeats, CopiesMadeByTheLayerSuite) { expectCopies(cardScene(3)); }

TEST_F(Repeats, CopiesMadeByTheDuplicateCommandOnAnOlderHost)
{
    json scene = cardScene(3);
    scene["host"]["withhold"] = {"AEGP Layer Suite/10"};
    expectCopies(scene);
}

TEST_F(Repeats, TableNamesTheOriginals)
{
    const apptest::ToolRun r =
        run({writeScene("s.json", cardScene(2)), "--set", "CHECK_REPEAT_LAYERS=on"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("copy of 1"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("copy of 2"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("4 layers"), std::string::npos) << r.out;
}

}  // namespace
