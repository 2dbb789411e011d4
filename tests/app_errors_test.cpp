// Every kind of refusal: one message on standard error, exit status 2, no file written.
#include "app_tool.h"

#include <filesystem>

namespace {

using apptest::cardScene;
using nlohmann::json;

class Refusals : public apptest::ToolTest {
protected:
    // Runs with every output asked for and checks the refusal; returns the message.
    std::string refused(std::vector<std::string> args)
    {
        for (const auto& [option, name] : {std::pair{"--out", "out.json"}, std::pair{"--preview", "preview.png"},
                                           std::pair{"--dialog", "dialog.svg"}}) {
            args.push_back(option);
            args.push_back(path(name));
        }
        const apptest::ToolRun r = run(args);
        EXPECT_EQ(r.status, 2);
        EXPECT_TRUE(r.out.empty()) << r.out;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
        EXPECT_EQ(r.err.rfind("orbisett-host: ", 0), 0u) << r.err;
        for (const char* name : {"out.json", "preview.png", "dialog.svg"}) {
            EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
        }
        return r.err;
    }

    std::string scene() { return writeScene("s.json", cardScene(2)); }
};

TEST_F(Refusals, UnknownControlListsTheValidNames)
{
    const std::string message = refused({scene(), "--set", "EDIT_DIM_Q=4"});
    EXPECT_NE(message.find("unknown control \"EDIT_DIM_Q\". Valid names: EDIT_DIM_X"), std::string::npos);
}

TEST_F(Refusals, ValuesThatDoNotFitTheControl)
{
    EXPECT_NE(refused({scene(), "--set", "CHECK_RANDOM_ORDER=maybe"}).find("takes on or off"), std::string::npos);
    EXPECT_NE(refused({scene(), "--set", "EDIT_DIM_Y=tall"}).find("takes a number"), std::string::npos);
    EXPECT_NE(refused({scene(), "--set", "RADIO_INWARD=off"}).find("cannot be turned off"), std::string::npos);
    EXPECT_NE(refused({scene(), "--set", "STATIC_BOUNDING_BOX=x"}).find("holds no value"), std::string::npos);
}

TEST_F(Refusals, BadSettingsInTheScene)
{
    json s = cardScene(2);
    s["settings"] = {{"CHECK_KEY_SCALE", 3.5}};
    EXPECT_NE(refused({writeScene("bad.json", s)}).find("settings.CHECK_KEY_SCALE"), std::string::npos);
    s["settings"] = {{"RADIO_OUTWARD", false}};
    // Off for every radio of the group cannot be: the run stops before "Apply".
    EXPECT_NE(refused({writeScene("bad.json", s)}).find("RADIO_OUTWARD is on"), std::string::npos);
}

TEST_F(Refusals, UnreadableAndInvalidScenes)
{
    EXPECT_NE(refused({path("missing.json")}).find("missing.json"), std::string::npos);
    std::ofstream(path("broken.json")) << "{\"comp\": ";
    EXPECT_NE(refused({path("broken.json")}).find("broken.json"), std::string::npos);
    json s = cardScene(1);
    s["layers"][0]["type"] = "hologram";
    EXPECT_NE(refused({writeScene("odd.json", s)}).find("odd.json"), std::string::npos);
}

TEST_F(Refusals, MissingModule)
{
    EXPECT_NE(refused({scene(), "--plugin", path("nowhere.so")}).find("cannot load the plug-in module"),
              std::string::npos);
    std::ofstream(path("fake.so")) << "not a module";
    EXPECT_NE(refused({scene(), "--plugin", path("fake.so")}).find("cannot load the plug-in module"),
              std::string::npos);
}

TEST_F(Refusals, ModuleStartUpFails)
{
    json s = cardScene(2);
    s["host"]["withhold"] = {"AEGP Register Suite/1"};
    EXPECT_NE(refused({writeScene("old.json", s)}).find("the plug-in's start-up failed"), std::string::npos);
}

TEST_F(Refusals, NothingArrangeableSelected)
{
    json s = cardScene(2);
    for (json& layer : s["layers"]) {
        layer["three_d"] = false;
    }
    EXPECT_NE(refused({writeScene("flat.json", s)}).find("menu item is disabled"), std::string::npos);
}

TEST_F(Refusals, WrongCommandLine)
{
    const apptest::ToolRun r = run({"--frobnicate"});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("--frobnicate"), std::string::npos);
}

}  // namespace
