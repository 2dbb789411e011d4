// Exit statuses of the built tool: bad input (2) gives one message naming the file and place or
// the option and writes nothing; a failure the plug-in or the host reported (3) is printed.
// Outputs that cannot be written have their own tests (app_write_faults_test.cpp).
#include "app_tool.h"

#include <filesystem>

namespace {

using apptest::cardScene;
using nlohmann::json;

class Refusals : public apptest::ToolTest {
protected:
    // Runs with outputs asked for and checks the refusal; returns the message without its prefix.
    std::string refused(std::vector<std::string> args, const std::string& input = "") {
        for (const auto& [option, name] : {std::pair{"--preview", "preview.png"}, std::pair{"--dialog", "dialog.svg"},
                                           std::pair{"--json-report", "report.json"}}) {
            args.push_back(option);
            args.push_back(path(name));
        }
        const apptest::ToolRun r = run(args, input);
        EXPECT_EQ(r.status, 2) << r.out << r.err;
        EXPECT_TRUE(r.out.empty()) << r.out;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
        EXPECT_EQ(r.err.rfind("orbisett-host: ", 0), 0u) << r.err;
        for (const char* name : {"preview.png", "dialog.svg", "report.json"}) {
            EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
        }
        return r.err.substr(15, r.err.size() - 16);
    }

    std::string scene() { return writeScene("s.json", cardScene(2)); }
};

// The messages themselves are the settings', the scene reader's and the command line's (their own
// tests); here each kind ends the run with status 2, one line and no output.
TEST_F(Refusals, SettingsScenesCommandLinesAndModules) {
    EXPECT_EQ(refused({scene(), "--set", "EDIT_DIM_Y=12mm"}).rfind("--set EDIT_DIM_Y=12mm: ", 0), 0u);
    json s = cardScene(2);
    s["settings"] = {{"RADIO_OUTWARD", false}};
    EXPECT_EQ(refused({writeScene("radios.json", s)}).rfind(path("radios.json") + ": settings.RADIO_OUTWARD: ", 0), 0u);
    EXPECT_EQ(refused({path("missing.json")}), path("missing.json") + ": cannot be read: No such file or directory");
    EXPECT_EQ(refused({"-"}, "{\"comp\": ").rfind("standard input: not valid JSON: parse error at line 1", 0), 0u);
    s = cardScene(2);
    for (json& layer : s["layers"]) {
        layer["three_d"] = false;
    }
    EXPECT_EQ(refused({writeScene("flat.json", s)}),
              path("flat.json") +
                  ": the \"Orbisett\" menu item is disabled: the selection holds no 3D footage, text "
                  "or shape layer");
    EXPECT_EQ(refused({scene(), "--plugin", path("nowhere.so")}), "--plugin " + path("nowhere.so") + ": no such file");
    std::ofstream(path("fake.so")) << "not a module";
    EXPECT_EQ(refused({scene(), "--plugin", path("fake.so")})
                  .rfind("--plugin " + path("fake.so") + ": cannot load the module: ", 0),
              0u);
}

// Fails: a module whose start-up fails, and an "Apply" that stops at a suite the host withholds.
class Failures : public apptest::ToolTest {};

TEST_F(Failures, FailuresBeforeTheDialogWriteNothingAndAStoppedApplyIsReportedWithWhatItRefused) {
    const std::pair<const char*, std::string> cases[] = {
        {"AEGP Register Suite/1",
         "orbisett-host: the plug-in's start-up failed with error 1\n"
         "orbisett-host: the host stopped the plug-in's entry hook: it threw error 516, a missing suite: the host "
         "does not offer \"AEGP Register Suite/1\"\n"},
        // The command hook's error is kept by the host as its alert.
        {"AEGP Comp Suite/4",
         "orbisett-host: choosing \"Orbisett\" failed with error 516, a missing suite: the host does not offer "
         "\"AEGP Comp Suite/4\"\n"
         "orbisett-host: the host reported: The command \"Orbisett\" failed: error 516.\n"},
    };
    for (const auto& [suite, message] : cases) {
        json s = cardScene(2);
        s["host"]["withhold"] = {suite};
        const apptest::ToolRun r = run({writeScene("s.json", s), "--out", path("after.json")});
        EXPECT_EQ(r.status, 3) << suite;
        EXPECT_EQ(r.err, message);
        EXPECT_TRUE(r.out.empty());
        EXPECT_FALSE(std::filesystem::exists(path("after.json")));
    }
    json s = cardScene(3);
    s["host"]["withhold"] = {"AEGP Stream Suite/4"};
    const apptest::ToolRun r =
        run({writeScene("s.json", s), "--out", path("after.json"), "--json-report", path("report.json")});
    EXPECT_EQ(r.status, 3);
    EXPECT_EQ(r.err,
              "orbisett-host: \"Apply\" stopped: the host refused \"AEGP Stream Suite/4\" (error 13: the host does "
              "not offer that suite); it wrote to 0 of the 3 selected layers, and left the others as they were\n");
    EXPECT_NE(r.out.find("  arranged:     0 of 3 selected layers: \"Apply\" stopped before writing any layer"),
              std::string::npos);
    // The run is still described, and its files written: they show what the host was left with.
    EXPECT_NE(r.out.find("Summary"), std::string::npos);
    const json report = json::parse(apptest::readFile(path("report.json")));
    EXPECT_EQ(report["status"], 3);
    EXPECT_EQ(report["apply"], "stopped");
    EXPECT_EQ(report["stopped_after"], 0);
    EXPECT_EQ(report["failures"].size(), 1u);
    EXPECT_EQ(json::parse(apptest::readFile(path("after.json")))["layers"].size(), 3u);
}

}  // namespace
