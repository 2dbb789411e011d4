// The dialog's settings as the window system holds them after the run: each edit field's text
// read by the field's own rule, each check box and radio as it stands. Every report on the run
// takes the settings from here, and asks the control library's rules what they chose.
#pragma once

#include "app/run/dialog_controls.h"
#include "controls/placement_rules.h"

#include <nlohmann/json.hpp>

#include <map>
#include <vector>

namespace app {

class DialogReading {
public:
    // Every control at its initial value: a dialog as it opens.
    DialogReading() = default;
    explicit DialogReading(const std::vector<ControlState>& states);

    // The number an edit field holds: its text read by the field's rule. A field whose text gives
    // no number keeps the one it held, which for the tool (it types each field once, and only
    // numbers) is the initial value.
    double number(ADMInt32 id) const;
    bool on(ADMInt32 id) const;

    controls::PlacementMode mode() const;
    controls::BeginSide begin() const;
    controls::SectorBoxes sectorBoxes() const;

    // Every value control, for a written scene: edit fields as the number they hold (whole
    // numbers as integers, others in the shortest form that reads back as the same field value),
    // check boxes and radios as booleans.
    nlohmann::json settingsJson() const;

private:
    std::map<ADMInt32, double> numbers_;
    std::map<ADMInt32, bool> switches_;
};

}  // namespace app
