// Outputs all or nothing. Every call that writes an output is made to fail in turn (a preloaded
// shim), and full devices, missing folders and folders are written to: each time the tool ends
// with status 2 and one message naming the option, the file and the system's reason; no
// temporary file is left; every file is as it was, but those renamed before a rename that failed,
// which are complete; what was printed before the failure stays printed.
#include "app_tool.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>

#include <chrono>
#include <cstring>
#include <map>
#include <thread>

namespace {

namespace fs = std::filesystem;
using apptest::readFile;
using apptest::ToolRun;

// One call the shim logged: what it was, the error it fails with, the bytes it writes, its file.
struct Call {
    std::string kind;
    int error = 0;
    std::size_t bytes = 0;
    std::string name;
};

class WriteFaults : public apptest::ToolTest {
protected:
    void SetUp() override {
        ToolTest::SetUp();
        writeScene("s.json", apptest::cardScene(3));
    }

    std::string out(const std::string& name) const { return path("out/" + name); }

    // The arguments on the scene; "@NAME" stands for the file NAME in the output folder.
    std::vector<std::string> line(const std::vector<std::string>& args) const {
        std::vector<std::string> full{path("s.json")};
        for (const std::string& a : args) {
            full.push_back(a.front() == '@' ? out(a.substr(1)) : a);
        }
        return full;
    }

    // Runs the tool under the shim, failing its `fault_at`-th call (none for 0); `calls` gets the log.
    ToolRun runFaulted(const std::vector<std::string>& args, int fault_at, std::vector<Call>& calls) const {
        const std::string asan = std::getenv("ASAN_OPTIONS") ? std::getenv("ASAN_OPTIONS") : "";
        // The shell that starts the tool loads the shim too, but makes none of the calls it counts.
        // It comes before the sanitizers' own library.
        ::setenv("LD_PRELOAD", ORBISETT_FAULT_SHIM, 1);
        ::setenv("ORBISETT_FAULT_AT", std::to_string(fault_at).c_str(), 1);
        ::setenv("ORBISETT_FAULT_LOG", path("calls.log").c_str(), 1);
        ::setenv("ORBISETT_FAULT_DIR", out("").c_str(), 1);
        ::setenv("ASAN_OPTIONS", ("verify_asan_link_order=0:" + asan).c_str(), 1);
        fs::remove(path("calls.log"));
        const ToolRun r = run(line(args));
        ::unsetenv("LD_PRELOAD");
        ::setenv("ASAN_OPTIONS", asan.c_str(), 1);
        calls.clear();
        std::istringstream lines(readFile(path("calls.log")));
        for (Call c; std::getline(lines, c.kind, '\t') && lines >> c.error >> c.bytes && lines.ignore() &&
                     std::getline(lines, c.name);) {
            calls.push_back(c);
        }
        return r;
    }

    // Empties the output folder and puts "earlier NAME" in every output file the arguments name.
    std::map<std::string, std::string> earlierFiles(const std::vector<std::string>& args) const {
        fs::remove_all(out(""));
        fs::create_directory(out(""));
        std::map<std::string, std::string> files;
        for (const std::string& a : args) {
            if (a.front() == '@') {
                std::ofstream(out(a.substr(1)), std::ios::binary) << (files[a.substr(1)] = "earlier " + a + "\n");
            }
        }
        return files;
    }

    // Every name in the output folder with its content.
    std::map<std::string, std::string> folder() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(out(""))) {
            files[entry.path().filename().string()] = entry.is_regular_file() ? readFile(entry.path()) : "";
        }
        return files;
    }
};

// The output file a logged name belongs to: its temporary file is ".NAME.XXXXXX".
std::string outputName(const std::string& logged) {
    const std::string file = fs::path(logged).filename().string();
    return file.substr(1, file.size() - 8);
}

struct SweepCase {
    const char* label;
    std::vector<std::string> args;
};
void PrintTo(const SweepCase& c, std::ostream* os) { *os << c.label; }

class WriteFaultSweep : public WriteFaults, public ::testing::WithParamInterface<SweepCase> {
protected:
    std::string expectedMessage(const Call& call, const std::vector<std::string>& args) const {
        const std::string why = std::strerror(call.error);
        if (call.name == "standard-error") {
            return "standard error: " + why;
        }
        if (call.name == "standard-output") {
            const bool scene = std::find(args.begin(), args.end(), "-") != args.end();
            return scene ? "--out -: cannot write to standard output: " + why : "standard output: " + why;
        }
        const auto named = std::find(args.begin(), args.end(), "@" + outputName(call.name));
        return *(named - 1) + " " + out(outputName(call.name)) + ": cannot write: " + why;
    }
};

TEST_P(WriteFaultSweep, EveryFailingCallIsOneMessageAndReplacesNothing) {
    const std::vector<std::string>& args = GetParam().args;
    std::vector<Call> calls;
    const std::map<std::string, std::string> earlier = earlierFiles(args);
    const ToolRun done = runFaulted(args, 0, calls);
    ASSERT_EQ(done.status, 0) << done.err;
    ASSERT_FALSE(calls.empty());
    const std::vector<Call> baseline = calls;
    const std::map<std::string, std::string> written = folder();
    for (std::size_t k = 1; k <= baseline.size(); ++k) {
        SCOPED_TRACE(baseline[k - 1].kind + " " + baseline[k - 1].name + ", call " + std::to_string(k));
        earlierFiles(args);
        const ToolRun r = runFaulted(args, static_cast<int>(k), calls);
        EXPECT_EQ(r.status, 2);
        ASSERT_GE(calls.size(), k);
        EXPECT_EQ(outputName(calls[k - 1].name), outputName(baseline[k - 1].name));
        std::size_t out_before = 0;
        std::size_t err_before = 0;
        std::map<std::string, std::string> expected = earlier;
        for (std::size_t i = 0; i + 1 < k; ++i) {
            out_before += baseline[i].name == "standard-output" ? baseline[i].bytes : 0;
            err_before += baseline[i].name == "standard-error" ? baseline[i].bytes : 0;
            if (baseline[i].kind == "rename") {
                expected[outputName(baseline[i].name)] = written.at(outputName(baseline[i].name));
            }
        }
        EXPECT_EQ(r.out, done.out.substr(0, out_before));
        EXPECT_EQ(r.err,
                  done.err.substr(0, err_before) + "orbisett-host: " + expectedMessage(baseline[k - 1], args) + "\n");
        EXPECT_EQ(folder(), expected);
    }
    std::cout << GetParam().label << ": " << baseline.size() << " faults injected\n";
}

INSTANTIATE_TEST_SUITE_P(Outputs, WriteFaultSweep,
                         ::testing::Values(SweepCase{"SceneFile", {"--quiet", "--out", "@scene.json"}},
                                           SweepCase{"SceneOnStandardOutput", {"--quiet", "--out", "-"}},
                                           SweepCase{"PreviewSvg", {"--quiet", "--preview", "@p.svg"}},
                                           SweepCase{"PreviewPng", {"--quiet", "--preview", "@p.png"}},
                                           SweepCase{"Dialog", {"--quiet", "--dialog", "@d.png"}},
                                           SweepCase{"Page", {"--quiet", "--html", "@page.html"}},
                                           SweepCase{"Report", {"--quiet", "--json-report", "@r.json"}},
                                           SweepCase{"Table", {}},
                                           SweepCase{"AllWithTheTable",
                                                     {"--out", "@scene.json", "--preview", "@p.png", "--dialog",
                                                      "@d.svg", "--html", "@page.html", "--json-report", "@r.json"}},
                                           SweepCase{"AllWithTheSceneOnStandardOutput",
                                                     {"--out", "-", "--preview", "@p.svg", "--dialog", "@d.png",
                                                      "--html", "@page.html", "--json-report", "@r.json"}}),
                         [](const ::testing::TestParamInfo<SweepCase>& info) { return std::string(info.param.label); });

TEST_F(WriteFaults, FullDevicesMissingFoldersAndFolders) {
    const std::string full = "No space left on device";
    const struct {
        std::vector<std::string> args;
        std::string to;  // standard output
        std::string message;
    } cases[] = {
        {{"--quiet", "--out", "/dev/full"}, "", "--out /dev/full: cannot write: " + full},
        {{"--out", "/dev/full", "--json-report", "@r.json", "--html", "@page.html"},
         "",
         "--out /dev/full: cannot write: " + full},
        {{"--quiet", "--out", "-", "--json-report", "@r.json"},
         "/dev/full",
         "--out -: cannot write to standard output: " + full},
        {{"--json-report", "@r.json", "--preview", "@p.svg"}, "/dev/full", "standard output: " + full},
        {{"--list-controls"}, "/dev/full", "standard output: " + full},
        {{"--out", "@ok.json", "--preview", out("no/such/p.svg")},
         "",
         "--preview " + out("no/such/p.svg") + ": cannot write: No such file or directory (the folder " +
             out("no/such") + " does not exist)"},
        {{"--out", "@ok.json", "--json-report", path("")},
         "",
         "--json-report " + path("") + ": cannot write: it is a folder"},
    };
    for (const auto& c : cases) {
        const std::map<std::string, std::string> earlier = earlierFiles(c.args);
        const ToolRun r = run(line(c.args), "", c.to);
        EXPECT_EQ(r.status, 2) << c.message;
        EXPECT_EQ(r.err, "orbisett-host: " + c.message + "\n");
        EXPECT_EQ(folder(), earlier) << c.message;
    }
}

// A pipe named as an output is written to once every file is ready beside its name: the tool
// waits for a reader, and an interruption there leaves no temporary file.
TEST_F(WriteFaults, APipeIsWrittenToAndAnInterruptedRunLeavesNoTemporaryFile) {
    const std::vector<std::string> args =
        line({"--quiet", "--out", "@scene.json", "--html", "@page.html", "--json-report", "@pipe"});
    for (const int signal : {SIGINT, SIGTERM, 0}) {
        const std::map<std::string, std::string> earlier = earlierFiles({"@scene.json", "@page.html"});
        ASSERT_EQ(::mkfifo(out("pipe").c_str(), 0600), 0);
        const pid_t pid = ::fork();
        if (pid == 0) {
            std::vector<char*> argv{const_cast<char*>(ORBISETT_HOST_PATH)};
            for (const std::string& a : args) {
                argv.push_back(const_cast<char*>(a.c_str()));
            }
            argv.push_back(nullptr);
            ::signal(SIGINT, SIG_DFL);  // as from a terminal
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        for (int i = 0; i < 3000 && folder().size() < 5; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_EQ(folder().size(), 5u);
        const std::string report = signal == 0 ? readFile(out("pipe")) : "";
        ::kill(pid, signal);
        int raw = 0;
        ::waitpid(pid, &raw, 0);
        EXPECT_EQ(raw, signal == 0 ? 0 : signal);  // ended by the signal, or done
        EXPECT_TRUE(fs::is_fifo(out("pipe")));
        fs::remove(out("pipe"));
        EXPECT_EQ(folder().size(), 2u);
        EXPECT_EQ(folder() == earlier, signal != 0);
        EXPECT_EQ(report.find("\n  \"status\": 0,\n") != std::string::npos, signal == 0) << report;
    }
}

TEST_F(WriteFaults, LinksAreWrittenThroughEvenDanglingOnesWithTheRightsOfANewFile) {
    earlierFiles({});
    fs::create_symlink("made.json", out("link.json"));
    fs::create_symlink("missing/deeper.json", out("astray.json"));
    ToolRun r = run(line({"--quiet", "--out", "@link.json"}));
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(fs::is_symlink(out("link.json")));
    EXPECT_NE(readFile(out("made.json")).find("\"layers\""), std::string::npos);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    struct stat made {};
    ASSERT_EQ(::stat(out("made.json").c_str(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0666 & ~mask);
    r = run(line({"--out", "@astray.json"}));
    EXPECT_EQ(r.err, "orbisett-host: --out " + out("astray.json") +
                         ": cannot write: No such file or directory (the folder " + out("missing") +
                         " does not exist)\n");
    // Two names for one file would leave one output lost.
    r = run(line({"--out", "@link.json", "--json-report", "@made.json"}));
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.err, "orbisett-host: --out " + out("link.json") + " and --json-report " + out("made.json") +
                         " name the same file " + out("made.json") + "\n");
}

}  // namespace
