#include "bench/tool_run.h"

#include "app/drawing/preview_picture.h"
#include "app/report/layer_table.h"
#include "app/report/run_outcome.h"
#include "app/run/control_settings.h"
#include "app/run/dialog_controls.h"
#include "app/run/session.h"
#include "controls/settings_table.h"
#include "host/scene_file.h"
#include "platform/driver.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include <chrono>
#include <ctime>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace bench {

namespace {

double cpu_seconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// CPU seconds since the last lap.
class Laps {
public:
    double lap() {
        const double now = cpu_seconds();
        const double spent = now - last_;
        last_ = now;
        return spent;
    }

private:
    double last_ = cpu_seconds();
};

void require(bool ok, const std::string& what) {
    if (!ok) {
        throw std::runtime_error(what);
    }
}

}  // namespace

ToolPhases runToolPhases(const std::string& scene_path, const std::string& out_path) {
    platform::reset();
    ToolPhases t;
    Laps laps;

    app::Options options;
    options.scene = scene_path;
    host::Scene scene = app::loadScene(options);
    t.read = laps.lap();

    app::SettingsPlan plan;
    plan.addSceneSettings(scene.settings, scene_path);
    const std::vector<app::ControlSetting> settings = plan.inDialogOrder();
    auto host = std::make_unique<host::Host>();
    host::applyScene(*host, std::move(scene));
    host->setPanelSize(kDialogWidth, kDialogHeight);
    require(host->loadPlugin(ORBISETT_MODULE_PATH) == A_Err_NONE, "the module did not start");
    t.start = laps.lap();

    require(host->chooseMenuItem(kProductName) == A_Err_NONE, "the menu command failed");
    host->idle();
    const app::DialogView dialog = app::DialogView::find(*host);
    app::setControls(dialog, settings);
    t.dialog = laps.lap();

    app::pressButton(dialog, *find_control(BUTTON_APPLY));
    host->idle();
    t.apply = laps.lap();

    const app::DialogReading reading(app::controlStates(dialog));
    const nlohmann::json controls = reading.settingsJson();
    const std::string dialog_svg = dialog.svg();
    host->unloadPlugin();
    t.close = laps.lap();

    host::saveScene(*host, out_path, controls);
    t.write = laps.lap();

    const host::Project* base = host->undoBase();
    const host::Project& before = base != nullptr ? *base : host->project();
    const app::RunOutcome outcome = app::readRunOutcome(before, *host, reading);
    const std::string table = app::layerTable(before, host->project(), outcome.not_reached);
    t.report = laps.lap();

    const std::string preview = app::drawPreview(host->project(), outcome).svg;
    t.preview = laps.lap();

    t.layers_after = static_cast<int>(host->project().activeComp()->layers.size());
    require(!table.empty() && !preview.empty() && !dialog_svg.empty(), "an output came out empty");
    host.reset();
    platform::reset();
    return t;
}

namespace {

// The high-water mark of resident memory of a live process, from /proc; -1 when unreadable.
long peak_rss_kb(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmHWM:", 0) == 0) {
            return std::stol(line.substr(6));
        }
    }
    return -1;
}

}  // namespace

// The child is traced only to stop it as it exits, while its memory is still there to be read:
// the rusage of a child forked from this large process would report the parent's peak.
ProcessRun runToolProcess(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{ORBISETT_TOOL_PATH};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& w : words) {
        argv.push_back(w.data());
    }
    argv.push_back(nullptr);

    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    require(child >= 0, "cannot fork");
    if (child == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        dup2(null, 2);
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }

    ProcessRun run;
    int status = 0;
    rusage usage{};
    // Stopped at the exec when traced; then on to the exit stop, passing other signals through.
    if (wait4(child, &status, 0, &usage) == child && WIFSTOPPED(status)) {
        ptrace(PTRACE_SETOPTIONS, child, nullptr, reinterpret_cast<void*>(PTRACE_O_TRACEEXIT));
        ptrace(PTRACE_CONT, child, nullptr, nullptr);
        while (wait4(child, &status, 0, &usage) == child && WIFSTOPPED(status)) {
            long signal = 0;
            if (status >> 8 == (SIGTRAP | (PTRACE_EVENT_EXIT << 8))) {
                run.peak_rss_kb = peak_rss_kb(child);
            } else if (WSTOPSIG(status) != SIGTRAP) {
                signal = WSTOPSIG(status);
            }
            ptrace(PTRACE_CONT, child, nullptr, reinterpret_cast<void*>(signal));
        }
    }
    run.wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    auto seconds = [](const timeval& tv) {
        return static_cast<double>(tv.tv_sec) + static_cast<double>(tv.tv_usec) * 1e-6;
    };
    run.cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    return run;
}

ProcessRun timeToolProcess(benchmark::State& state, const std::vector<std::string>& arguments) {
    ProcessRun last;
    double cpu = 0;
    for (auto _ : state) {
        last = runToolProcess(arguments);
        if (last.status != 0) {
            state.SkipWithError("the tool failed");
            break;
        }
        cpu += last.cpu;
        state.SetIterationTime(last.wall);
    }
    state.counters["cpu_s"] = cpu / static_cast<double>(state.iterations());
    state.counters["peak_rss_MB"] = static_cast<double>(last.peak_rss_kb) / 1024;
    return last;
}

}  // namespace bench
