// What a new user may feed the tool: broken files, numbers at the edges of what JSON and the
// host hold, very large scenes and counts, over-long field text. Each run gives one clear
// message or a correct result with only finite values.
#include "app_tool.h"

#include "cylinder/settings_table.h"

#include <cmath>
#include <string>

namespace {

using apptest::cardScene;
using nlohmann::json;

class BadInput : public apptest::ToolTest {
protected:
    // A refusal: status 2 and one line naming the problem.
    std::string refusal(const std::vector<std::string>& args)
    {
        const apptest::ToolRun r = run(args);
        EXPECT_EQ(r.status, 2) << r.out;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
        return r.err;
    }

    std::string textFile(const std::string& name, const std::string& text)
    {
        std::ofstream(path(name)) << text;
        return path(name);
    }
};

// The names of every property value in a written scene that is not a finite number.
std::vector<std::string> unusableValues(const json& scene)
{
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

TEST_F(BadInput, EmptyTruncatedAndNonJsonNumbersAreRefusedWithTheirPlace)
{
    EXPECT_NE(refusal({textFile("empty.json", "")}).find("empty.json: not valid JSON: parse error at line 1, column 1"),
              std::string::npos);
    const std::string truncated = cardScene(3).dump(2);
    EXPECT_NE(refusal({textFile("cut.json", truncated.substr(0, truncated.size() / 2))}).find("unexpected end of input"),
              std::string::npos);
    // JSON has no NaN or infinity; an overflowing literal is named as such.
    std::string scene = cardScene(1).dump();
    const std::string at = "\"position\":[960,540,0]";
    ASSERT_NE(scene.find(at), std::string::npos);
    for (const char* value : {"NaN", "Infinity", "-inf"}) {
        std::string odd = scene;
        odd.replace(odd.find(at), at.size(), std::string("\"position\":[") + value + ",540,0]");
        EXPECT_NE(refusal({textFile("odd.json", odd)}).find("odd.json: not valid JSON"), std::string::npos) << value;
    }
    std::string overflow = scene;
    overflow.replace(overflow.find(at), at.size(), "\"position\":[960,-1e999,0]");
    EXPECT_NE(refusal({textFile("big.json", overflow)}).find("big.json: not a usable number"), std::string::npos);
}

TEST_F(BadInput, SizesAtOrBelowZeroAreRefusedOrHeldAtTheFieldsLimit)
{
    json s = cardScene(2);
    s["comp"]["width"] = 0;
    EXPECT_NE(refusal({writeScene("flat.json", s)}).find("at $.comp.width: must be positive"), std::string::npos);
    s = cardScene(2);
    s["layers"][1]["source"]["height"] = -150;
    EXPECT_NE(refusal({writeScene("neg.json", s)}).find("at $.layers[1].source.height: must be positive"),
              std::string::npos);

    // The fields read such text as their minimum: a cylinder 0.1 across and 0.1 high, cards
    // brought to 0.1 pixels wide. The scene keeps the text as typed, so a rerun reads it alike.
    const json after =
        runForScene({writeScene("s.json", cardScene(2)), "--set", "EDIT_DIM_X=-5", "--set", "EDIT_DIM_Z=-5", "--set",
                     "EDIT_DIM_Y=0", "--set", "EDIT_FORCE_CONFORM=0", "--set", "CHECK_SCALE_LAYER=on"});
    EXPECT_EQ(after["settings"]["EDIT_DIM_X"], -5);
    EXPECT_TRUE(unusableValues(after).empty());
    const double centre[] = {960, 540, 0};
    for (const json& layer : after["layers"]) {
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(layer["position"][axis].get<double>(), centre[axis], 0.05 + 1e-6) << layer["name"];
        }
        EXPECT_DOUBLE_EQ(layer["scale"][0].get<double>(), 100.0 * (0.1f / 200.0f));
        EXPECT_DOUBLE_EQ(layer["scale"][1].get<double>(), 100.0 * (0.1f / 150.0f));
    }
}

TEST_F(BadInput, HugeFiniteValuesGiveFiniteResultsInEveryMode)
{
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
        {"--set", "CHECK_CREATE_RING=on"},
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

TEST_F(BadInput, TenThousandLayersAreAllPlaced)
{
    const apptest::ToolRun r = run({writeScene("many.json", cardScene(10000, 20, 10)), "--set",
                                    "CHECK_DISTRIBUTE_EVENLY=on", "--out", path("after.json")});
    ASSERT_EQ(r.status, 0) << r.err;
    std::size_t moved = 0;
    for (std::size_t at = r.out.find("moved"); at != std::string::npos; at = r.out.find("moved", at + 1)) {
        ++moved;
    }
    EXPECT_EQ(moved, 10000u);
    const json after = json::parse(apptest::readFile(path("after.json")));
    EXPECT_TRUE(unusableValues(after).empty());
    // Evenly: 100 rows of 100, the first row at the bottom of the 2000-high cylinder.
    EXPECT_DOUBLE_EQ(after["layers"][0]["position"][1].get<double>(), 540.0 + 1000.0);
}

TEST_F(BadInput, RepeatCountBeyondItsMaximumMakesTheMaximumOfCopies)
{
    // The field holds a billion at its maximum of 10000; one-degree steps on a cylinder ten
    // million high leave room for every copy.
    const apptest::ToolRun r =
        run({writeScene("two.json", cardScene(2)), "--set", "CHECK_REPEAT_LAYERS=on", "--set", "EDIT_REPEAT_COUNT=1000000000",
             "--set", "EDIT_MIN_LONGITUDE=1", "--set", "EDIT_MAX_LONGITUDE=1", "--set", "EDIT_MIN_LATITUDE=1",
             "--set", "EDIT_MAX_LATITUDE=1", "--set", "EDIT_DIM_Y=1e7", "--out", path("after.json")});
    ASSERT_EQ(r.status, 0) << r.err;
    const json after = json::parse(apptest::readFile(path("after.json")));
    EXPECT_EQ(after["layers"].size(), 2u + 2u * static_cast<std::size_t>(EDIT_REPEAT_COUNT_MAX));
    EXPECT_TRUE(unusableValues(after).empty());
}

TEST_F(BadInput, TextLongerThanAnEditFieldReadsIsRefused)
{
    const std::string scene = writeScene("s.json", cardScene(1));
    // Leading zeros change nothing while the field sees the whole number...
    const json fits = runForScene({scene, "--set", "EDIT_DIM_X=" + std::string(120, '0') + "1500"});
    EXPECT_EQ(fits["settings"]["EDIT_DIM_X"], 1500);
    // ...but past what it reads it would see another number, so the tool says so.
    const std::string message = refusal({scene, "--set", "EDIT_DIM_X=" + std::string(200, '0') + "1500"});
    EXPECT_NE(message.find("reads only the first 127 characters"), std::string::npos) << message;
    EXPECT_NE(message.find("this one has 204"), std::string::npos) << message;
}

}  // namespace
