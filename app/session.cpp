#include "app/session.h"

#include "app/app_error.h"
#include "app/control_settings.h"
#include "app/demo_scene.h"
#include "app/dialog_controls.h"
#include "app/dialog_view.h"
#include "cylinder/settings_table.h"

#include <filesystem>

namespace app {

namespace {

SettingsPlan planSettings(const host::Scene& scene, const Options& options)
{
    SettingsPlan plan;
    plan.addSceneSettings(scene.settings, options.scene ? *options.scene : std::string("the demo scene"));
    for (const std::string& assignment : options.sets) {
        plan.addAssignment(assignment);
    }
    return plan;
}

std::string reportsText(const host::Host& host)
{
    std::string text;
    for (const host::Report& report : host.reports()) {
        text += " \"" + report.text + "\"";
    }
    for (const host::EscapedException& escaped : host.escapedExceptions()) {
        text += " (exception from the " + escaped.hook + ": " + escaped.what + ")";
    }
    return text;
}

void startPlugin(host::Host& host, const std::string& path)
{
    if (path.empty()) {
        throw AppError("no plug-in module: give one with --plugin PATH");
    }
    if (!std::filesystem::exists(path)) {
        throw AppError("cannot load the plug-in module " + path + ": no such file");
    }
    const A_Err err = host.loadPlugin(path);
    if (!host.loaderError().empty()) {
        throw AppError("cannot load the plug-in module " + path + ": " + host.loaderError());
    }
    if (err != A_Err_NONE || !host.escapedExceptions().empty()) {
        throw AppError("the plug-in's start-up failed with error " + std::to_string(err) + reportsText(host));
    }
}

void openDialog(host::Host& host)
{
    const host::MenuItem* item = host.findMenuItem(kProductName);
    if (item == nullptr) {
        throw AppError(std::string("the plug-in added no \"") + kProductName + "\" menu item");
    }
    host.updateMenus();
    if (!host.findMenuItem(kProductName)->enabled) {
        throw AppError(std::string("the \"") + kProductName +
                       "\" menu item is disabled: the selection holds no 3D footage, text or shape layer");
    }
    const A_Err err = host.chooseMenuItem(kProductName);
    if (err != A_Err_NONE) {
        throw AppError(std::string("choosing \"") + kProductName + "\" failed with error " + std::to_string(err) +
                       reportsText(host));
    }
    host.idle();
}

}  // namespace

const host::Project& SessionResult::before() const
{
    const host::Project* base = host->undoBase();
    return base != nullptr ? *base : host->project();
}

host::Scene loadScene(const Options& options)
{
    try {
        return options.scene ? host::readSceneFile(*options.scene) : demoScene();
    } catch (const host::SceneError& e) {
        throw AppError(e.what());
    }
}

SessionResult runSession(const Options& options)
{
    host::Scene scene = loadScene(options);
    const std::vector<ControlSetting> settings = planSettings(scene, options).inDialogOrder();

    SessionResult result;
    result.host = std::make_unique<host::Host>();
    host::Host& host = *result.host;
    host::applyScene(host, std::move(scene));
    // A panel as large as the dialog, so the picture of it shows every control.
    host.setPanelSize(kDialogWidth, kDialogHeight);

    startPlugin(host, options.plugin);
    openDialog(host);
    const DialogView dialog = DialogView::find(host);
    setControls(dialog, settings);
    if (!options.no_apply) {
        pressButton(dialog, *find_control(BUTTON_APPLY));
        host.idle();
    }
    result.settings = readControls(dialog);
    result.dialog_svg = dialog.svg();
    if (options.undo) {
        result.undo_asked = true;
        result.undone = host.undo();
    }
    host.unloadPlugin();
    return result;
}

}  // namespace app
