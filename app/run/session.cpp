#include "app/run/session.h"

#include "app/run/app_error.h"
#include "app/run/demo_scene.h"
#include "app/run/dialog_controls.h"
#include "controls/settings_table.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <string_view>

namespace app {

namespace {

std::string sceneName(const Options& options) {
    if (!options.scene) {
        return "the demo scene";
    }
    return *options.scene == kStandardStream ? "standard input" : *options.scene;
}

std::vector<ControlSetting> planSettings(const host::Scene& scene, const Options& options) {
    SettingsPlan plan;
    plan.addSceneSettings(scene.settings, sceneName(options));
    for (const std::string& assignment : options.sets) {
        plan.addAssignment(assignment);
    }
    return plan.inDialogOrder();
}

void startPlugin(host::Host& host, const std::string& path) {
    if (path.empty()) {
        throw AppError("no plug-in module: give one with --plugin PATH");
    }
    if (!std::filesystem::exists(path)) {
        throw AppError("--plugin " + path + ": no such file");
    }
    const std::size_t refused_before = host.refusedCalls().size();
    const A_Err err = host.loadPlugin(path);
    if (!host.loaderError().empty()) {
        throw AppError("--plugin " + path + ": cannot load the module: " + host.loaderError());
    }
    if (err != A_Err_NONE || !host.escapedExceptions().empty()) {
        throw HostFailure("the plug-in's start-up failed with " + errorText(host, err, refused_before),
                          hostReports(host));
    }
}

void openDialog(host::Host& host, const std::string& scene) {
    const host::MenuItem* item = host.findMenuItem(kProductName);
    if (item == nullptr) {
        throw HostFailure(std::string("the plug-in added no \"") + kProductName + "\" menu item", hostReports(host));
    }
    host.updateMenus();
    if (!host.findMenuItem(kProductName)->enabled) {
        throw AppError(scene + ": the \"" + kProductName +
                       "\" menu item is disabled: the selection holds no 3D footage, text or shape layer");
    }
    const std::size_t refused_before = host.refusedCalls().size();
    const A_Err err = host.chooseMenuItem(kProductName);
    if (err != A_Err_NONE) {
        throw HostFailure(
            std::string("choosing \"") + kProductName + "\" failed with " + errorText(host, err, refused_before),
            hostReports(host));
    }
    host.idle();
}

std::size_t countCopies(host::Project& project) {
    const host::Comp* comp = project.activeComp();
    if (comp == nullptr) {
        return 0;
    }
    return static_cast<std::size_t>(
        std::count_if(comp->layers.begin(), comp->layers.end(), [](const host::Layer& l) { return l.copy_of != 0; }));
}

ApplyFacts pressApply(host::Host& host, const DialogView& dialog) {
    const std::size_t refused_before = host.refusedCalls().size();
    const std::size_t commands_before = host.commandLog().size();
    const int duplicates_before = host.callCount("AEGP_DuplicateLayer");
    pressButton(dialog, *find_control(BUTTON_APPLY));

    ApplyFacts facts;
    facts.pressed = true;
    facts.refused.assign(host.refusedCalls().begin() + static_cast<std::ptrdiff_t>(refused_before),
                         host.refusedCalls().end());
    host.idle();
    facts.copies = countCopies(host.project());
    facts.duplicate_calls = host.callCount("AEGP_DuplicateLayer") - duplicates_before;
    for (std::size_t i = commands_before; i < host.commandLog().size(); ++i) {
        facts.duplicate_commands += host.commandLog()[i].command == AEGP_Command_DUPLICATE ? 1 : 0;
    }
    return facts;
}

}  // namespace

std::string refusedCallText(const host::RefusedCall& call) {
    const std::string_view acquire = "AcquireSuite ";
    if (call.call.rfind(acquire, 0) == 0) {
        return "\"" + call.call.substr(acquire.size()) + "\" (error " + std::to_string(call.err) +
               ": the host does not offer that suite)";
    }
    return call.call + " (error " + std::to_string(call.err) + ")";
}

std::string errorText(const host::Host& host, A_Err err, std::size_t since) {
    std::string text = "error " + std::to_string(err);
    const std::vector<host::RefusedCall>& refused = host.refusedCalls();
    const std::string_view acquire = "AcquireSuite ";
    // A missing suite is thrown as soon as it is refused: the last refusal is the one.
    for (std::size_t i = refused.size(); err == A_Err_BAD_CALLBACK_PARAM && i > since; --i) {
        if (refused[i - 1].call.rfind(acquire, 0) == 0) {
            return text + ", a missing suite: the host does not offer \"" + refused[i - 1].call.substr(acquire.size()) +
                   "\"";
        }
    }
    return text;
}

std::vector<std::string> hostReports(const host::Host& host) {
    std::vector<std::string> lines;
    for (const host::Report& report : host.reports()) {
        lines.push_back("the host reported: " + report.text);
    }
    for (const host::EscapedException& escaped : host.escapedExceptions()) {
        const std::string_view code = "int ";
        std::string what = escaped.what;
        if (what.rfind(code, 0) == 0) {
            what = "it threw " + errorText(host, std::atoi(what.c_str() + code.size()), 0);
        } else {
            what = "it threw \"" + what + "\"";
        }
        lines.push_back("the host stopped the plug-in's " + escaped.hook + " hook: " + what);
    }
    return lines;
}

const host::Project& SessionResult::before() const {
    const host::Project* base = host->undoBase();
    return base != nullptr ? *base : host->project();
}

host::Scene loadScene(const Options& options) {
    try {
        if (!options.scene) {
            return demoScene();
        }
        if (*options.scene == kStandardStream) {
            const std::string text{std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
            return host::parseScene(text, sceneName(options));
        }
        return host::readSceneFile(*options.scene);
    } catch (const host::SceneError& e) {
        throw AppError(e.what());
    }
}

SessionResult runSession(const Options& options) {
    host::Scene scene = loadScene(options);
    SessionResult result;
    result.asked = planSettings(scene, options);

    result.host = std::make_unique<host::Host>();
    host::Host& host = *result.host;
    host::applyScene(host, std::move(scene));
    // A panel as large as the dialog, so the picture of it shows every control.
    host.setPanelSize(kDialogWidth, kDialogHeight);

    startPlugin(host, options.plugin);
    openDialog(host, sceneName(options));
    const DialogView dialog = DialogView::find(host);
    setControls(dialog, result.asked);
    if (!options.no_apply) {
        result.apply = pressApply(host, dialog);
    }
    result.controls = controlStates(dialog);
    result.dialog_enabled = IsControlEnabled(dialog.control(BUTTON_APPLY)) != 0;
    result.reading = DialogReading(result.controls);
    result.settings = result.reading.settingsJson();
    result.dialog_svg = dialog.svg();
    if (options.undo) {
        result.undo_asked = true;
        result.undone = host.undo();
    }
    host.unloadPlugin();
    return result;
}

}  // namespace app
