#include "app/run/dialog_reading.h"

#include "controls/field_reading.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace app {

namespace {

// A field's number as a scene holds it: a field holds single precision, so the shortest text of
// the float reads back as the same value when typed again.
nlohmann::json fieldNumber(double value) {
    if (std::trunc(value) == value && std::fabs(value) < 9.0e15 && !(value == 0.0 && std::signbit(value))) {
        return static_cast<std::int64_t>(value);
    }
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, static_cast<float>(value)).ptr;
    double shortest = value;
    std::from_chars(text, end, shortest);
    return shortest;
}

}  // namespace

DialogReading::DialogReading(const std::vector<ControlState>& states) {
    for (const ControlState& state : states) {
        const ControlSpec& control = *state.control;
        if (control.kind != SettingKind::edit) {
            switches_[control.id] = state.on;
        } else if (const std::optional<double> reading = controls::fieldReading(control, state.text)) {
            numbers_[control.id] = *reading;
        }
    }
}

double DialogReading::number(ADMInt32 id) const {
    const auto it = numbers_.find(id);
    if (it != numbers_.end()) {
        return it->second;
    }
    const ControlSpec* control = find_control(id);
    return control != nullptr ? static_cast<double>(control->value) : 0.0;
}

bool DialogReading::on(ADMInt32 id) const {
    const auto it = switches_.find(id);
    if (it != switches_.end()) {
        return it->second;
    }
    const ControlSpec* control = find_control(id);
    return control != nullptr && control->value != 0.0f;
}

controls::PlacementMode DialogReading::mode() const {
    return controls::placementMode(
        {on(CHECK_DISTRIBUTE_EVENLY), on(CHECK_RADIUS_BY_FIRST), on(RADIO_EQUATOR_ONLY), on(CHECK_CREATE_RING)});
}

controls::BeginSide DialogReading::begin() const {
    return controls::beginSide(on(RADIO_BEGIN_FRONT), on(RADIO_BEGIN_BACK), on(RADIO_BEGIN_LEFT));
}

controls::SectorBoxes DialogReading::sectorBoxes() const {
    return {on(CHECK_SECTOR_FRONT), on(CHECK_SECTOR_RIGHT), on(CHECK_SECTOR_BACK), on(CHECK_SECTOR_LEFT)};
}

nlohmann::json DialogReading::settingsJson() const {
    nlohmann::json values = nlohmann::json::object();
    for (const ControlSpec& control : cylinder_controls()) {
        if (!holdsValue(control)) {
            continue;
        }
        values[control.name] =
            control.kind == SettingKind::edit ? fieldNumber(number(control.id)) : nlohmann::json(on(control.id));
    }
    return values;
}

}  // namespace app
