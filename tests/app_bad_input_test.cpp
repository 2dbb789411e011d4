// What a new user may feed the tool beyond the usual: numbers at the edges of what the host
// holds, and very large scenes. Each run gives a result with only finite values.
#include "app_tool.h"

#include <cmath>
#include <string>

namespace {

using apptest::cardScene;
using nlohmann::json;

class BadInput : public apptest::ToolTest {};

// The names of every property value in a written scene that is not a finite number.
std::vector<std::string> unusableValues(const json& scene) {
    std::vector<std::string> bad;
    for (const json& layer : scene["layers"]) {
        for (const char* prop : {"position", "scale", "orientation", "rotation"}) {
            for (const json& v : layer[prop]) {
                if (!v.is_number() || !std::isfinite(v.get<double>())) {
                    bad.push_back(layer["name"].get<std::string>() + "." + prop);
                }
            }
        }
        if (layer.contains("keyframes")) {
            for (const auto& [prop, keys] : layer["keyframes"].items()) {
                for (const json& key : keys) {
                    for (const json& v : key["value"]) {
                        if (!v.is_number() || !std::isfinite(v.get<double>())) {
                            bad.push_back(layer["name"].get<std::string>() + ".keyframes." + prop);
                        }
                    }
                }
            }
        }
    }
    return bad;
}

TEST_F(BadInput, HugeFiniteValuesGiveFiniteResultsInEveryMode) {
    json s = cardScene(4);
    s["layers"][0]["scale"] = {1e308, 1e308, 1e308};
    s["layers"][1]["position"] = {1.7e308, -1.7e308, 1e308};
    s["layers"][2]["orientation"] = {1e300, -1e300, 1e300};
    // Keys so far apart that their difference alone overflows, with the current time between them.
    s["comp"]["time"] = {{"value", 1}, {"scale", 1}};
    s["layers"][3]["keyframes"]["position"] = {{{"time", {{"value", 0}, {"scale", 1}}}, {"value", {-1e308, 0, 0}}},
                                               {{"time", {{"value", 2}, {"scale", 1}}}, {"value", {1e308, 0, 0}}}};
    const std::string scene = writeScene("huge.json", s);
    const std::vector<std::vector<std::string>> modes = {
        {},
        {"--set", "CHECK_DISTRIBUTE_EVENLY=on"},
        {"--set", "RADIO_EQUATOR_ONLY=on"},
        {"--set", "CHECK_RADIUS_BY_FIRST=on"},
        {"--set", "RADIO_EQUATOR_ONLY=on", "--set", "CHECK_CREATE_RING=on"},
        {"--set", "CHECK_DONT_INTERSECT=on"},
        {"--set", "CHECK_SCALE_LAYER=on"},
        {"--set", "CHECK_USE_COMP_CENTER=off", "--set", "EDIT_SPHERE_CENTER_X=1e300"},
    };
    for (const std::vector<std::string>& mode : modes) {
        std::vector<std::string> args = {scene, "--set", "CHECK_KEY_POSITION=on"};
        args.insert(args.end(), mode.begin(), mode.end());
        const json after = runForScene(args);
        const std::string named = mode.empty() ? "default" : mode.back();
        EXPECT_EQ(unusableValues(after), std::vector<std::string>{}) << named;
        ASSERT_EQ(after["layers"].size(), 4u) << named;
        // A scale far beyond any width is not turned around by the arithmetic.
        EXPECT_GT(after["layers"][0]["scale"][0].get<double>(), 0.0) << named;
    }
}

TEST_F(BadInput, TenThousandLayersAreAllArranged) {
    const apptest::ToolRun r = run({writeScene("many.json", cardScene(10000, 20, 10)), "--set",
                                    "CHECK_DISTRIBUTE_EVENLY=on", "--out", path("after.json")});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("  arranged:     10000 of 10000 layers (10000 selected layers, no copies made)\n"
                         "  not reached:  none\n"),
              std::string::npos);
    EXPECT_TRUE(unusableValues(json::parse(apptest::readFile(path("after.json")))).empty());
}

}  // namespace
