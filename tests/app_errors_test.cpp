// Exit statuses of the built tool: bad input (2) gives one message naming the file and place or
// the option and writes nothing; a failure the plug-in or the host reported (3) is printed; and
// outputs are all or nothing.
#include "app_tool.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
    EXPECT_EQ(report["failures"].size(), 1u);
    EXPECT_EQ(json::parse(apptest::readFile(path("after.json")))["layers"].size(), 3u);
}

class AllOrNothing : public apptest::ToolTest {
protected:
    const std::string before = "{\"kept\": true}\n";
    std::vector<std::string> leftovers() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(dir())) {
            if (entry.path().filename().string().front() == '.') {
                names.push_back(entry.path().filename().string());
            }
        }
        return names;
    }
};

TEST_F(AllOrNothing, AFailingLaterOutputLeavesTheEarlierFileAsItWas) {
    const std::string ok = path("ok.json");
    std::ofstream(ok, std::ios::binary) << before;
    const std::string scene = writeScene("s.json", cardScene(2));
    const apptest::ToolRun missing = run({scene, "--out", ok, "--preview", path("no/such/folder/p.svg")});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.err, "orbisett-host: --preview " + path("no/such/folder/p.svg") +
                               ": cannot write: No such file or directory (the folder " + path("no/such/folder") +
                               " does not exist)\n");
    EXPECT_TRUE(missing.out.empty());
    std::filesystem::create_directory(path("taken"));
    const apptest::ToolRun folder = run({scene, "--out", ok, "--json-report", path("taken")});
    EXPECT_EQ(folder.err, "orbisett-host: --json-report " + path("taken") + ": cannot write: it is a folder\n");
    EXPECT_EQ(apptest::readFile(ok), before);
    EXPECT_EQ(leftovers(), std::vector<std::string>{});
    // With every output writable, all are replaced.
    ASSERT_EQ(run({scene, "--out", ok, "--json-report", path("r.json")}).status, 0);
    EXPECT_NE(apptest::readFile(ok), before);
    EXPECT_TRUE(std::filesystem::exists(path("r.json")));
    // A replaced file gets the rights of a new file, not those of the temporary one.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    struct stat written {};
    ASSERT_EQ(::stat(ok.c_str(), &written), 0);
    EXPECT_EQ(written.st_mode & 0777, 0666 & ~mask);
}

TEST_F(AllOrNothing, APipeNamedAsAnOutputIsWrittenToNotReplaced) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const int reader = ::open(path("pipe").c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    const apptest::ToolRun r = run({writeScene("s.json", cardScene(1)), "--json-report", path("pipe")});
    EXPECT_EQ(r.status, 0) << r.err;
    std::string received;
    char buffer[4096];
    for (ssize_t n; (n = ::read(reader, buffer, sizeof buffer)) > 0;) {
        received.append(buffer, static_cast<std::size_t>(n));
    }
    ::close(reader);
    EXPECT_TRUE(std::filesystem::is_fifo(path("pipe")));
    EXPECT_NE(received.find("\"status\": 0"), std::string::npos) << received;
}

}  // namespace
