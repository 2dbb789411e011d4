// Dialog settings for in-process reports: each value typed into its field or set on its box, as
// the window system would hold it, and read back through the field's own rule.
#pragma once

#include "app/run/control_settings.h"
#include "app/run/dialog_reading.h"

#include <nlohmann/json.hpp>

namespace apptest {

inline app::DialogReading dialogReading(const nlohmann::json& settings) {
    std::vector<app::ControlState> states;
    for (const auto& [name, value] : settings.items()) {
        app::ControlState state;
        state.control = find_control(name);
        state.on = value.is_boolean() && value.get<bool>();
        state.text = value.is_number() ? app::numberText(value.get<double>()) : std::string();
        states.push_back(state);
    }
    return app::DialogReading(states);
}

}  // namespace apptest
