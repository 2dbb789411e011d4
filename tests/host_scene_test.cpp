// Scene files: reading, writing with copies, undo groups and reports, bit-exact round trips,
// and a clear message for every kind of bad file.
#include "host/scene_file.h"
#include "host_fixture.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>

using host::Prop;
using host::Vec3;

namespace {

const char* const kScene = R"({
  "host": {"panels": false, "withhold": ["AEGP Layer Suite/10"]},
  "comp": {"name": "Main", "width": 1920, "height": 1080, "time": {"value": 15, "scale": 30}},
  "layers": [
    {"name": "Card 1", "type": "av", "three_d": true, "source": {"width": 400, "height": 300},
     "position": [960, 540, 0], "scale": [50, 50, 100], "orientation": [10, 0, 0], "rotation": [20, 0, 5],
     "keyframes": {"position": [{"time": {"value": 0, "scale": 30}, "value": [0, 0, 0]},
                                {"time": {"value": 30, "scale": 30}, "value": [100, 0, 0]}],
                   "rotation_y": [{"time": {"value": 0, "scale": 1}, "value": 90}]},
     "selected": true},
    {"name": "Title", "type": "text", "three_d": true, "selected": true},
    {"name": "Cam", "type": "camera"}
  ],
  "selection": [2, 1],
  "settings": {"EDIT_DIM_X": "1200"}
})";

using HostScene = HostFixture;

bool sameBits(double x, double y) { return std::memcmp(&x, &y, sizeof x) == 0; }

// The message of the scene error `read` throws.
template <typename Read>
std::string errorOf(Read read) {
    try {
        read();
    } catch (const host::SceneError& e) {
        return e.what();
    }
    return "accepted";
}

std::string messageOf(const std::string& text) {
    return errorOf([&] { host::parseScene(text, "bad.json"); });
}

TEST_F(HostScene, ReadsCompositionLayersKeysSelectionAndTheHostsSuiteOffer) {
    const host::Scene scene = host::parseScene(kScene, "scene.json");
    EXPECT_FALSE(scene.panels);
    ASSERT_EQ(1u, scene.withhold.size());
    EXPECT_EQ("AEGP Layer Suite", scene.withhold[0].first);
    EXPECT_EQ(10, scene.withhold[0].second);
    EXPECT_EQ("1200", scene.settings["EDIT_DIM_X"]);
    const host::Project& p = scene.project;
    ASSERT_EQ(1u, p.comps.size());
    const host::Comp& c = p.comps[0];
    EXPECT_EQ(p.active, c.id);
    EXPECT_EQ(15, c.time.value);
    ASSERT_EQ(3u, c.layers.size());
    const host::Layer& card = c.layers[0];
    EXPECT_EQ(1, card.scene_number);
    EXPECT_EQ(400, p.findFootage(card.source)->width);
    EXPECT_EQ(card.prop(Prop::rotate_x).value.x, 20);
    EXPECT_EQ(card.prop(Prop::rotate_z).value.x, 5);
    EXPECT_EQ(card.prop(Prop::position).valueAt(c.time), (Vec3{50, 0, 0}));
    EXPECT_EQ(90, card.prop(Prop::rotate_y).keys[0].value.x);
    EXPECT_EQ(0u, c.layers[1].source);
    EXPECT_EQ(AEGP_ObjectType_CAMERA, c.layers[2].type);
    EXPECT_FALSE(c.layers[2].three_d);
    EXPECT_EQ((Vec3{100, 100, 100}), c.layers[2].prop(Prop::scale).value);
    EXPECT_EQ((std::vector<host::Id>{c.layers[1].id, c.layers[0].id}), c.selection);
    // Without a selection list, selected layers go in file order.
    std::string text = kScene;
    text.replace(text.find("\"selection\": [2, 1],"), std::strlen("\"selection\": [2, 1],"), "");
    const host::Scene unlisted = host::parseScene(text, "scene.json");
    const host::Comp& in_order = unlisted.project.comps[0];
    EXPECT_EQ((std::vector<host::Id>{in_order.layers[0].id, in_order.layers[1].id}), in_order.selection);
    h.withholdSuite(kAEGPStreamSuite, 4);
    host::applyScene(h, host::parseScene(kScene, "scene.json"));
    EXPECT_EQ((std::vector<std::string>{"AEGP Layer Suite/10", "AEGP Workspace Panel Suite/1"}), h.withheldSuites());
    EXPECT_EQ(3u, h.project().activeComp()->layers.size());
}

TEST_F(HostScene, WrittenAndSavedScenesReadBackBitExact) {
    host::applyScene(h, host::parseScene(kScene, "scene.json"));
    host::Comp& c = *h.project().activeComp();
    const double awkward[] = {0.1 + 0.2, std::acos(-1.0), 1e-300, -123456789.123456789, 5e-324, 1.0 / 3.0};
    c.layers[0].prop(Prop::position).keys[1].value = Vec3{awkward[0], awkward[1], awkward[2]};
    c.layers[1].prop(Prop::orientation).value = Vec3{awkward[3], awkward[4], awkward[5]};
    c.layers[2].prop(Prop::rotate_z).value.x = awkward[1] * 1e10;
    c.layers[1].name = "Quote \" back\\slash\ttab\x01\x1f\x7f";
    c.name = "caf\xc3\xa9 \xe2\x86\x92";
    const nlohmann::json settings = {{"EDIT_DIM_X", 1600.5}, {"CHECK_KEY_SCALE", true}, {"n", -3}, {"empty", {}}};
    const std::string text = host::sceneText(h, settings);
    // Laid out exactly as the JSON library dumps the same document.
    EXPECT_EQ(nlohmann::ordered_json::parse(text).dump(2) + "\n", text);
    const host::Scene back = host::parseScene(text, "out.json");
    const host::Comp& b = back.project.comps[0];
    const Vec3 k = b.layers[0].prop(Prop::position).keys[1].value;
    EXPECT_TRUE(sameBits(awkward[0], k.x) && sameBits(awkward[1], k.y) && sameBits(awkward[2], k.z));
    const Vec3 o = b.layers[1].prop(Prop::orientation).value;
    EXPECT_TRUE(sameBits(awkward[3], o.x) && sameBits(awkward[4], o.y) && sameBits(awkward[5], o.z));
    EXPECT_TRUE(sameBits(awkward[1] * 1e10, b.layers[2].prop(Prop::rotate_z).value.x));
    // The same project: writing what was read gives the same text.
    host::Host again;
    host::applyScene(again, host::parseScene(text, "out.json"));
    EXPECT_EQ(text, host::sceneText(again, settings));
    // Saved to a file and loaded back.
    const std::string path = ::testing::TempDir() + "host_scene_saved.json";
    host::saveScene(h, path, nlohmann::json{{"EDIT_DIM_X", "1200"}});
    host::Host other;
    nlohmann::json loaded;
    host::loadScene(other, path, &loaded);
    EXPECT_EQ("1200", loaded["EDIT_DIM_X"]);
    EXPECT_EQ(host::sceneText(h), host::sceneText(other));
    std::remove(path.c_str());
}

TEST_F(HostScene, OutputCarriesCopiesUndoGroupsReportsAndSettings) {
    host::applyScene(h, host::parseScene(kScene, "scene.json"));
    auto* ut = utility();
    ut->AEGP_StartUndoGroup("Orbisett");
    host::Comp& c = *h.project().activeComp();
    const host::Id copy = h.project().duplicate(c.layers[1].id);  // a copy of layer 2
    h.project().duplicate(copy);                                  // a copy of that copy
    ut->AEGP_EndUndoGroup();
    ut->AEGP_ReportInfo(1, "Could not add menu item.");

    const nlohmann::json out = nlohmann::json::parse(host::sceneText(h, nlohmann::json{{"RADIO_INWARD", "on"}}));
    ASSERT_EQ(5u, out["layers"].size());
    EXPECT_EQ(2, out["layers"][1]["copy_of"]);
    EXPECT_EQ(2, out["layers"][2]["copy_of"]);
    EXPECT_EQ("Title", out["layers"][1]["name"]);
    EXPECT_FALSE(out["layers"][3].contains("copy_of"));
    EXPECT_EQ(nlohmann::json::array({4, 1}), out["selection"]);
    EXPECT_EQ("Orbisett", out["undo_groups"][0]["name"]);
    EXPECT_EQ(true, out["undo_groups"][0]["closed"]);
    EXPECT_EQ(nlohmann::json::array({"Could not add menu item."}), out["reports"]);
    EXPECT_EQ("on", out["settings"]["RADIO_INWARD"]);
    EXPECT_EQ(false, out["host"]["panels"]);
    // Copies read back as copies of the same scene layer.
    const host::Scene back = host::parseScene(out.dump(), "out.json");
    EXPECT_EQ(2, back.project.comps[0].layers[1].copy_of_number);
}

TEST_F(HostScene, BadFilesGiveOneMessageWithFilePlaceAndProblem) {
    EXPECT_EQ(0u, messageOf("{ nope").find("bad.json: not valid JSON: parse error at line 1, column 4"));
    EXPECT_EQ(0u, messageOf(R"({"comp": NaN})").find("bad.json: not valid JSON: parse error at line 1, column 10"));
    EXPECT_NE(std::string::npos, messageOf(R"({"comp": {"name": "x")").find("unexpected end of input"));
    EXPECT_EQ("bad.json: at $: expected an object, found an array", messageOf("[]"));
    EXPECT_EQ("bad.json: at $.comp: missing \"width\"", messageOf(R"({"comp": {"name": "x"}, "layers": []})"));
    EXPECT_EQ("bad.json: at $.comp.width: expected an integer, found a string",
              messageOf(R"({"comp": {"name": "x", "width": "wide", "height": 5}, "layers": []})"));
    EXPECT_EQ("bad.json: at $.comp.height: must be positive",
              messageOf(R"({"comp": {"name": "x", "width": 5, "height": -5}, "layers": []})"));
    const std::string comp = R"("comp": {"name": "x", "width": 5, "height": 5})";
    EXPECT_EQ(
        "bad.json: at $.layers[1].type: unknown layer type \"sphere\" (expected av, text, vector, camera or light)",
        messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av"}, {"name": "b", "type": "sphere"}]})"));
    EXPECT_EQ(
        "bad.json: at $.layers[0].source.height: must be positive",
        messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av", "source": {"width": 4, "height": -3}}]})"));
    EXPECT_EQ("bad.json: at $.layers[0].position[2]: expected a number, found a string",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av", "position": [1, 2, "z"]}]})"));
    EXPECT_EQ("bad.json: at $.layers[0].scale: expected 3 numbers, found 2",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av", "scale": [1, 2]}]})"));
    EXPECT_EQ("bad.json: at $.selection[0]: no layer 2 (the scene has 1 layers)",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av"}], "selection": [2]})"));
    EXPECT_EQ("bad.json: at $.layers[0].positon: unknown key",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av", "positon": [0, 0, 0]}]})"));
    EXPECT_EQ(
        "bad.json: at $.layers[0].source: only av layers have a source",
        messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "text", "source": {"width": 1, "height": 1}}]})"));
    EXPECT_EQ("bad.json: at $.layers[1].position[2]: not a usable number: number overflow parsing '-1e999'",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av"},
                  {"name": "b", "type": "av", "position": [0, {"x": 1}, -1e999]}]})"));
    EXPECT_EQ("bad.json: at $.comp.width: must be at most 30000",
              messageOf(R"({"comp": {"name": "x", "width": 123456789012345678901234, "height": 5}, "layers": []})"));
    EXPECT_EQ("bad.json: at $.comp.width: expected an integer, found a number",
              messageOf(R"({"comp": {"name": "x", "width": 5.0, "height": 5}, "layers": []})"));
    EXPECT_EQ("bad.json: at $.layers[0].keyframes.scale[1]: a second keyframe at the same time",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av", "keyframes": {"scale": [
                  {"time": {"value": 1, "scale": 2}, "value": [1, 1, 1]},
                  {"time": {"value": 15, "scale": 30}, "value": [2, 2, 2]}]}}]})"));
    EXPECT_EQ("bad.json: at $.host.withhold[0]: expected \"Suite Name/version\", found \"AEGP Layer Suite\"",
              messageOf("{" + comp + R"(, "layers": [], "host": {"withhold": ["AEGP Layer Suite"]}})"));
    EXPECT_EQ(0u, messageOf("{" + comp + R"(, "layers": [], "host": {"withhold": ["AEGP Layer Suite/9"]}})")
                      .find("bad.json: at $.host.withhold[0]: the host has no suite \"AEGP Layer Suite/9\" to withhold "
                            "(it has AEGP Register Suite/1, "));
    // Layers are read while the file is parsed, yet reported in the order of the whole document:
    // syntax first, then the composition, then the first bad layer.
    const std::string bad_layers = R"("layers": [{"name": "a", "type": "av"}, {"name": "b", "type": 7}, 3])";
    EXPECT_EQ(0u, messageOf("{" + bad_layers + ", " + comp + ", ").find("bad.json: not valid JSON"));
    EXPECT_EQ("bad.json: at $.comp: missing \"height\"",
              messageOf("{" + bad_layers + R"(, "comp": {"name": "x", "width": 5}})"));
    EXPECT_EQ("bad.json: at $.layers[1].type: expected a string, found an integer",
              messageOf("{" + bad_layers + ", " + comp + "}"));
    EXPECT_EQ("bad.json: at $.layers[2]: expected an object, found an integer",
              messageOf("{" + comp + R"(, "layers": [{"name": "a", "type": "av"}, {"name": "b", "type": "av"}, 3]})"));
}

TEST_F(HostScene, ARepeatedLayersKeyCountsOnlyOnceAsTheLastOne) {
    const host::Scene scene = host::parseScene(
        R"({"layers": [{"name": "gone", "type": "sphere", "source": {"width": 1, "height": 1}}],
            "comp": {"name": "x", "width": 5, "height": 5},
            "layers": [{"name": "kept", "type": "av", "source": {"width": 4, "height": 3}, "selected": true}]})",
        "twice.json");
    const host::Comp& c = scene.project.comps[0];
    ASSERT_EQ(1u, c.layers.size());
    EXPECT_EQ("kept", c.layers[0].name);
    EXPECT_EQ(1, c.layers[0].scene_number);
    EXPECT_EQ(std::vector<host::Id>{c.layers[0].id}, c.selection);
    ASSERT_EQ(1u, scene.project.footage.size());
    EXPECT_EQ(4, scene.project.findFootage(c.layers[0].source)->width);
}

TEST_F(HostScene, ABadFileLeavesTheHostAsItWas) {
    host::applyScene(h, host::parseScene(kScene, "scene.json"));
    const host::Id first = h.project().activeComp()->layers[0].id;
    const std::string path = ::testing::TempDir() + "host_scene_bad.json";
    {
        std::ofstream out(path);
        out << R"({"comp": {"name": "x", "width": 5, "height": 5}, "layers": [{"name": "a", "type": "av"}],
                   "host": {"panels": true}, "selection": [1, 1]})";
    }
    EXPECT_EQ(path + ": at $.selection[1]: layer 1 is selected twice", errorOf([&] { host::loadScene(h, path); }));
    EXPECT_EQ(first, h.layerId(h.layerHandle(first)));
    EXPECT_EQ(3u, h.project().activeComp()->layers.size());
    EXPECT_TRUE(h.isWithheld(kAEGPWorkspacePanelSuite, 1));
    std::remove(path.c_str());
    EXPECT_EQ(0u, errorOf([&] { host::loadScene(h, path); }).find(path + ": cannot be read"));
    EXPECT_EQ(::testing::TempDir() + ": is a folder, not a scene file",
              errorOf([&] { host::loadScene(h, ::testing::TempDir()); }));
}

}  // namespace
