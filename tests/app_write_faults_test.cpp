// Outputs all or nothing. Every call that writes an output is made to fail in turn (a preloaded
// shim), and full devices, folders and links that lead nowhere are written to: each time the tool
// ends with status 2 and one message naming the option, the file and the system's reason; no
// temporary file is left; every file is as it was, but those renamed before a rename that failed,
// which are complete; what was printed before the failure stays printed.
#include "app_tool.h"

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
    std::string out(const std::string& name) const { return path("out/" + name); }

    // The arguments on a scene of three cards; "@NAME" stands for the file NAME in the output folder.
    std::vector<std::string> line(const std::vector<std::string>& args) const {
        std::vector<std::string> full{writeScene("s.json", apptest::cardScene(3))};
        for (const std::string& a : args) {
            full.push_back(a.front() == '@' ? out(a.substr(1)) : a);
        }
        return full;
    }

    // Runs the tool under the shim, failing its `fault_at`-th call (none for 0); `calls` gets its log.
    ToolRun runFaulted(const std::vector<std::string>& args, int fault_at, std::vector<Call>* calls = nullptr) const {
        const std::string asan = std::getenv("ASAN_OPTIONS") ? std::getenv("ASAN_OPTIONS") : "";
        // The shell that starts the tool loads the shim too, but makes none of the calls it counts.
        // It comes before the sanitizers' own library.
        ::setenv("LD_PRELOAD", ORBISETT_FAULT_SHIM, 1);
        ::setenv("ORBISETT_FAULT_AT", std::to_string(fault_at).c_str(), 1);
        ::setenv("ORBISETT_FAULT_LOG", path("calls.log").c_str(), 1);
        ::setenv("ORBISETT_FAULT_DIR", out("").c_str(), 1);
        ::setenv("ASAN_OPTIONS", ("verify_asan_link_order=0:" + asan).c_str(), 1);
        const ToolRun r = run(line(args));
        ::unsetenv("LD_PRELOAD");
        ::setenv("ASAN_OPTIONS", asan.c_str(), 1);
        std::istringstream lines(readFile(path("calls.log")));
        for (Call c; calls != nullptr && lines >> c.kind >> c.error >> c.bytes >> c.name;) {
            calls->push_back(c);
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

// The message for the failing call: the option and the file, or the standard stream, and why.
std::string expectedMessage(const Call& call, const std::vector<std::string>& args, const std::string& file) {
    const std::string why = std::strerror(call.error);
    if (call.name == "standard-output" || call.name == "standard-error") {
        return call.name == "standard-error" ? "standard error: " + why
               : std::find(args.begin(), args.end(), "-") != args.end()
                   ? "--out -: cannot write to standard output: " + why
                   : "standard output: " + why;
    }
    return *(std::find(args.begin(), args.end(), "@" + outputName(call.name)) - 1) + " " + file +
           ": cannot write: " + why;
}

class WriteFaultSweep : public WriteFaults, public ::testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(WriteFaultSweep, EveryFailingCallIsOneMessageAndReplacesNothing) {
    const std::vector<std::string>& args = GetParam();
    const std::map<std::string, std::string> earlier = earlierFiles(args);
    std::vector<Call> baseline;
    const ToolRun done = runFaulted(args, 0, &baseline);
    ASSERT_TRUE(done.status == 0 && !baseline.empty()) << done.err;
    const std::map<std::string, std::string> written = folder();
    for (std::size_t k = 1; k <= baseline.size(); ++k) {
        const Call& failing = baseline[k - 1];
        SCOPED_TRACE(failing.kind + " " + failing.name + ", call " + std::to_string(k));
        earlierFiles(args);
        const ToolRun r = runFaulted(args, static_cast<int>(k));
        std::map<std::string, std::size_t> printed;
        std::map<std::string, std::string> expected = earlier;
        for (std::size_t i = 0; i + 1 < k; ++i) {
            printed[baseline[i].name] += baseline[i].bytes;
            if (baseline[i].kind == "rename") {
                expected[outputName(baseline[i].name)] = written.at(outputName(baseline[i].name));
            }
        }
        EXPECT_EQ(r.out, done.out.substr(0, printed["standard-output"]));
        EXPECT_EQ(std::to_string(r.status) + " " + r.err,
                  "2 " + done.err.substr(0, printed["standard-error"]) +
                      "orbisett-host: " + expectedMessage(failing, args, out(outputName(failing.name))) + "\n");
        EXPECT_EQ(folder(), expected);
    }
    std::cout << baseline.size() << " faults injected\n";
}

// Each output alone, the table alone, and all together with the table or with the scene on
// standard output.
using Args = std::vector<std::string>;
INSTANTIATE_TEST_SUITE_P(Outputs, WriteFaultSweep,
                         ::testing::Values(Args{"--quiet", "--out", "@scene.json"}, Args{"--quiet", "--out", "-"},
                                           Args{"--quiet", "--preview", "@p.svg"},
                                           Args{"--quiet", "--preview", "@p.png"},
                                           Args{"--quiet", "--dialog", "@d.png"},
                                           Args{"--quiet", "--html", "@page.html"},
                                           Args{"--quiet", "--json-report", "@r.json"}, Args{},
                                           Args{"--out", "@scene.json", "--preview", "@p.png", "--dialog", "@d.svg",
                                                "--html", "@page.html", "--json-report", "@r.json"},
                                           Args{"--out", "-", "--preview", "@p.svg", "--dialog", "@d.png", "--html",
                                                "@page.html", "--json-report", "@r.json"}));

// Standard output is full in every case.
TEST_F(WriteFaults, FullDevicesFoldersAndLinksThatLeadNowhere) {
    fs::create_symlink("made.json", path("link.json"));
    fs::create_symlink("missing/deeper.json", path("astray.json"));
    const std::string full = "No space left on device";
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"--quiet", "--out", "/dev/full"}, "--out /dev/full: cannot write: " + full},
        {{"--out", "-", "--json-report", "@r.json"}, "--out -: cannot write to standard output: " + full},
        {{"--json-report", "@r.json", "--html", "@page.html"}, "standard output: " + full},
        {{"--list-controls"}, "standard output: " + full},
        {{"--out", "@ok.json", "--json-report", path("")},
         "--json-report " + path("") + ": cannot write: it is a folder"},
        // A dangling link is followed, into a folder that does not exist.
        {{"--out", "@ok.json", "--json-report", path("astray.json")},
         "--json-report " + path("astray.json") + ": cannot write: No such file or directory (the folder " +
             path("missing") + " does not exist)"},
        // Two names for one file would leave one output lost.
        {{"--out", path("link.json"), "--json-report", path("made.json")},
         "--out " + path("link.json") + " and --json-report " + path("made.json") + " name the same file " +
             path("made.json")},
    };
    for (const auto& [args, message] : cases) {
        const std::map<std::string, std::string> earlier = earlierFiles(args);
        const ToolRun r = run(line(args), "", "/dev/full");
        EXPECT_EQ(std::to_string(r.status) + " " + r.err, "2 orbisett-host: " + message + "\n");
        EXPECT_EQ(folder(), earlier) << message;
    }
}

// A pipe named as an output is written to once every file is ready beside its name: the tool
// waits for a reader, and an interruption there leaves no temporary file. A dangling link is
// written through, and the files get the rights of a new file.
TEST_F(WriteFaults, APipeIsWrittenToAndAnInterruptedRunLeavesNoTemporaryFile) {
    std::string command = "exec " + apptest::quoted(ORBISETT_HOST_PATH);
    for (const std::string& a : line({"--quiet", "--out", "@link", "--html", "@page.html", "--json-report", "@pipe"})) {
        command += " " + apptest::quoted(a);
    }
    for (const int signal : {SIGINT, SIGTERM, 0}) {
        const std::map<std::string, std::string> earlier = earlierFiles({"@page.html"});
        fs::create_symlink("made.json", out("link"));
        ASSERT_EQ(::mkfifo(out("pipe").c_str(), 0600), 0);
        const pid_t pid = ::fork();
        if (pid == 0) {
            ::signal(SIGINT, SIG_DFL);  // as from a terminal
            ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
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
        EXPECT_TRUE(fs::is_fifo(out("pipe")) && fs::is_symlink(out("link")));
        EXPECT_EQ(report.find("\n  \"status\": 0,\n") != std::string::npos, signal == 0) << report;
        fs::remove(out("pipe"));
        fs::remove(out("link"));
        EXPECT_EQ(folder() == earlier, signal != 0);
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(fs::status(out("made.json")).permissions(), static_cast<fs::perms>(0666 & ~mask));
}

}  // namespace
