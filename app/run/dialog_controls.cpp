#include "app/run/dialog_controls.h"

#include "app/run/app_error.h"
#include "app/run/dialog_reading.h"
#include "controls/settings_table.h"

#include <functional>

namespace app {

namespace {

using Action = std::function<platform::Outcome(platform::Force)>;

// Acts as a user first; only what the dialog hides or greys out is forced.
void act(const ControlSetting& setting, const Action& action, const char* what) {
    const ControlSpec& control = *setting.control;
    platform::Outcome outcome = action(platform::Force::no);
    if (outcome.refused == platform::kDriverControlHidden || outcome.refused == platform::kDriverControlDisabled) {
        outcome = action(platform::Force::yes);
    }
    if (!outcome.ok()) {
        throw AppError(setting.where + ": cannot " + what + " " + control.name + ": " +
                       platform::describeStatus(outcome.refused));
    }
}

ControlRef findControl(const DialogView& dialog, const ControlSpec& control) {
    ControlRef ref = dialog.control(control.id);
    if (ref == nullptr) {
        throw HostFailure(std::string("the dialog has no control ") + control.name);
    }
    return ref;
}

bool isOn(ControlRef ref) { return GetControl32BitValue(ref) != 0; }

void setControl(const DialogView& dialog, const ControlSetting& setting) {
    const ControlSpec& control = *setting.control;
    ControlRef ref = findControl(dialog, control);
    if (control.kind == SettingKind::edit) {
        act(
            setting, [&](platform::Force f) { return platform::typeText(ref, setting.text, f); }, "type into");
        return;
    }
    // A radio wanted off is left alone: choosing another of its group turns it off.
    const bool click_needed = setting.on && !isOn(ref);
    const bool uncheck_needed = control.kind == SettingKind::check_box && !setting.on && isOn(ref);
    if (click_needed || uncheck_needed) {
        act(
            setting, [&](platform::Force f) { return platform::click(ref, f); }, "click");
    }
}

void checkControl(const DialogView& dialog, const ControlSetting& setting) {
    const ControlSpec& control = *setting.control;
    ControlRef ref = findControl(dialog, control);
    if (control.kind == SettingKind::edit) {
        if (platform::controlText(ref) != setting.text) {
            throw AppError(setting.where + ": " + control.name + " holds \"" + platform::controlText(ref) +
                           "\", not \"" + setting.text + "\"");
        }
        return;
    }
    if (isOn(ref) != setting.on) {
        std::string message = setting.where + ": " + control.name + " is " + (isOn(ref) ? "on" : "off") +
                              " after setting it " + (setting.on ? "on" : "off");
        if (control.kind == SettingKind::radio) {
            message += ": a radio button goes off only when another of its group is turned on";
        }
        throw AppError(message);
    }
}

}  // namespace

void setControls(const DialogView& dialog, const std::vector<ControlSetting>& settings) {
    for (const ControlSetting& setting : settings) {
        setControl(dialog, setting);
    }
    for (const ControlSetting& setting : settings) {
        checkControl(dialog, setting);
    }
}

void pressButton(const DialogView& dialog, const ControlSpec& button) {
    ControlRef ref = findControl(dialog, button);
    const platform::Outcome outcome = platform::click(ref);
    if (!outcome.ok()) {
        throw HostFailure(std::string("cannot press \"") + button.label +
                          "\": " + platform::describeStatus(outcome.refused));
    }
}

std::vector<ControlState> controlStates(const DialogView& dialog) {
    std::vector<ControlState> states;
    for (const ControlSpec& control : cylinder_controls()) {
        ControlRef ref = holdsValue(control) ? dialog.control(control.id) : nullptr;
        if (ref == nullptr) {
            continue;
        }
        const bool edit = control.kind == SettingKind::edit;
        states.push_back(ControlState{&control, IsControlEnabled(ref) != 0, !edit && isOn(ref),
                                      edit ? platform::controlText(ref) : std::string()});
    }
    return states;
}

nlohmann::json readControls(const DialogView& dialog) { return DialogReading(controlStates(dialog)).settingsJson(); }

DialogView DialogView::find(const host::Host& host) {
    DialogView view;
    // With workspace panels the command shows the panel; without, a floating window.
    for (const std::string& name : host.panelNames()) {
        if (host.panelCreated(name) && host.panelShown(name)) {
            view.panel_ = host.panelView(name);
            return view;
        }
    }
    view.window_ = platform::findWindowByTitle(kProductName);
    if (view.window_ == nullptr) {
        throw HostFailure(std::string("the plug-in opened no \"") + kProductName + "\" window or panel");
    }
    return view;
}

ControlRef DialogView::control(SInt32 id) const {
    return window_ != nullptr ? platform::findControlById(window_, id) : platform::findControlById(panel_, id);
}

std::string DialogView::svg() const {
    return window_ != nullptr ? platform::windowToSvg(window_) : platform::viewToSvg(panel_);
}

}  // namespace app
