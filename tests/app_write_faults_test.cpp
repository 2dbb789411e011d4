// Outputs all or nothing. Every call that writes an output is made to fail in turn (a preloaded
// shim), and full devices, folders and links that lead nowhere are written to: each time the tool
// ends with status 2 and one message naming the option, the file and the system's reason; no
// temporary file is left; every file is as it was, but those renamed before a rename that failed,
// which are complete; what was printed before the failure stays printed. The same holds, without
// the message, when the tool is interrupted at each of those calls.
#include "app_tool.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>

#include <cstring>
#include <iterator>
#include <map>

namespace {

namespace fs = std::filesystem;

// One call the shim logged: what it was, the error it fails with, the bytes it writes, its file.
struct Call {
    std::string kind;
    int error = 0;
    std::size_t bytes = 0;
    std::string name;
};

std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

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

    // Runs the tool under the shim, failing its `fault_at`-th call (none for 0), or raising `signal`
    // there; `calls` gets its log.
    apptest::ToolRun runFaulted(const std::vector<std::string>& args, std::size_t fault_at, int signal,
                                std::vector<Call>* calls = nullptr) const {
        const std::string asan = std::getenv("ASAN_OPTIONS") ? std::getenv("ASAN_OPTIONS") : "";
        // The shell that starts the tool loads the shim too, but makes none of the calls it counts.
        // It comes before the sanitizers' own library.
        ::setenv("LD_PRELOAD", ORBISETT_FAULT_SHIM, 1);
        ::setenv("ORBISETT_FAULT_AT", std::to_string(fault_at).c_str(), 1);
        ::setenv("ORBISETT_FAULT_LOG", path("calls.log").c_str(), 1);
        ::setenv("ORBISETT_FAULT_DIR", out("").c_str(), 1);
        ::setenv("ASAN_OPTIONS", ("verify_asan_link_order=0:" + asan).c_str(), 1);
        ::setenv("ORBISETT_FAULT_SIGNAL", std::to_string(signal).c_str(), 1);
        const apptest::ToolRun r = run(line(args));
        ::unsetenv("LD_PRELOAD");
        ::setenv("ASAN_OPTIONS", asan.c_str(), 1);
        std::istringstream lines(apptest::readFile(path("calls.log")));
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
            files[entry.path().filename().string()] = entry.is_regular_file() ? apptest::readFile(entry.path()) : "";
        }
        return files;
    }
};

// The output file a logged name belongs to: its temporary file is ".NAME.XXXXXX".
std::string outputName(const std::string& logged) { return fs::path(logged).stem().string().substr(1); }

// The message for the failing call: the standard stream, or the option and the file; and why.
std::string expectedMessage(const Call& call, const std::vector<std::string>& args, const std::string& file) {
    const std::string why = std::strerror(call.error);
    const bool scene_printed = std::find(args.begin(), args.end(), "-") != args.end();
    return call.name == "standard-error"                     ? "standard error: " + why
           : call.name == "standard-output" && scene_printed ? "--out -: cannot write to standard output: " + why
           : call.name == "standard-output"                  ? "standard output: " + why
                                            : *(std::find(args.begin(), args.end(), "@" + outputName(call.name)) - 1) +
                                                  " " + file + ": cannot write: " + why;
}

class WriteFaultSweep : public WriteFaults, public ::testing::WithParamInterface<const char*> {};

TEST_P(WriteFaultSweep, EveryFailingCallIsOneMessageAndReplacesNothing) {
    const std::vector<std::string> args = words(GetParam());
    const std::map<std::string, std::string> earlier = earlierFiles(args);
    std::vector<Call> baseline;
    const apptest::ToolRun done = runFaulted(args, 0, 0, &baseline);
    ASSERT_TRUE(done.status == 0 && !baseline.empty()) << done.err;
    const std::map<std::string, std::string> written = folder();
    // Replaced files get the rights of a new file.
    for (const auto& [name, content] : written) {
        EXPECT_EQ(fs::status(out(name)).permissions(), fs::status(path("s.json")).permissions()) << name;
    }
    for (std::size_t k = 1; k <= baseline.size(); ++k) {
        const Call& failing = baseline[k - 1];
        // The call fails, or the tool is interrupted there: it then ends by the signal, silently.
        for (const int signal : {0, k % 2 ? SIGINT : SIGTERM}) {
            SCOPED_TRACE(::testing::Message()
                         << failing.kind << " " << failing.name << " #" << k << " signal " << signal);
            earlierFiles(args);
            const apptest::ToolRun r = runFaulted(args, k, signal);
            std::map<std::string, std::size_t> printed;
            std::map<std::string, std::string> expected = earlier;
            for (std::size_t i = 0; i < k; ++i) {
                printed[baseline[i].name] += i + 1 < k ? baseline[i].bytes : 0;
                // A rename the signal came at finishes while the signal is held back.
                if (baseline[i].kind == "rename" && (i + 1 < k || signal != 0)) {
                    expected[outputName(baseline[i].name)] = written.at(outputName(baseline[i].name));
                }
            }
            EXPECT_EQ(r.out, done.out.substr(0, printed["standard-output"]));
            const std::string message =
                "orbisett-host: " + expectedMessage(failing, args, out(outputName(failing.name)));
            EXPECT_EQ(std::to_string(r.status) + " " + r.err, (signal != 0 ? "-1 " : "2 ") +
                                                                  done.err.substr(0, printed["standard-error"]) +
                                                                  (signal != 0 ? "" : message + "\n"));
            EXPECT_EQ(folder(), expected);
        }
    }
    std::cout << baseline.size() << " faults injected\n";
}

// Each output alone, the table alone, and all together with the table or with the scene on
// standard output.
INSTANTIATE_TEST_SUITE_P(
    Outputs, WriteFaultSweep,
    ::testing::Values("--quiet --out @scene.json", "--quiet --out -", "--quiet --preview @p.svg",
                      "--quiet --preview @p.png", "--quiet --dialog @d.png", "--quiet --html @page.html",
                      "--quiet --gltf @m.glb", "--quiet --json-report @r.json", "",
                      "--out @scene.json --preview @p.png --dialog @d.svg --html @page.html --json-report @r.json",
                      "--out - --preview @p.svg --dialog @d.png --html @page.html --json-report @r.json"));

TEST_F(WriteFaults, FullDevicesFoldersAndLinksThatLeadNowhere) {
    fs::create_symlink("made.json", path("link.json"));
    fs::create_symlink("missing/deeper.json", path("astray.json"));
    const std::string full = "No space left on device";
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {words("--quiet --out /dev/full"), "--out /dev/full: cannot write: " + full},
        {words("--out - --json-report @r.json"), "--out -: cannot write to standard output: " + full},
        {words("--json-report @r.json --html @page.html"), "standard output: " + full},
        {words("--list-controls"), "standard output: " + full},
        {{"--out", "@ok.json", "--json-report", path("")},
         "--json-report " + path("") + ": cannot write: it is a folder"},
        // A dangling link followed into a folder that does not exist.
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
        const apptest::ToolRun r = run(line(args), "", "/dev/full");
        EXPECT_EQ(std::to_string(r.status) + " " + r.err, "2 orbisett-host: " + message + "\n");
        EXPECT_EQ(folder(), earlier) << message;
    }
}

// A dangling link is written through; a pipe is written to, never replaced.
TEST_F(WriteFaults, LinksAndPipesAreWrittenThrough) {
    earlierFiles({});
    fs::create_symlink("made.json", out("link.json"));
    ASSERT_EQ(::mkfifo(out("pipe").c_str(), 0600), 0);
    const int reader = ::open(out("pipe").c_str(), O_RDONLY | O_NONBLOCK);
    const apptest::ToolRun r = run(line(words("--quiet --out @link.json --json-report @pipe")));
    EXPECT_EQ(r.status, 0) << r.err;
    char received[4096] = {};
    EXPECT_GT(::read(reader, received, sizeof received - 1), 0);
    ::close(reader);
    EXPECT_NE(std::string(received).find("\"status\": 0"), std::string::npos) << received;
    EXPECT_TRUE(fs::is_symlink(out("link.json")) && fs::is_fifo(out("pipe")));
    EXPECT_NE(apptest::readFile(out("made.json")).find("\"layers\""), std::string::npos);
}

}  // namespace
