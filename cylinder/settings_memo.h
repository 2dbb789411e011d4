// Control values remembered for the length of one layout. A layout reads the same few controls
// thousands of times, each read parsing an edit field's text; nothing can change a control while a
// layout runs, so the first value read stands for the rest of it.
#pragma once

#include "adm_types.h"

#include <array>
#include <cstdint>
#include <type_traits>

class SettingsMemo {
public:
    // Starts remembering afresh; values kept before are forgotten.
    void open();
    void close() { open_ = false; }
    bool is_open() const { return open_; }

    // The value kept for the control, else the one `read` returns, which is then kept. Controls
    // outside the identifier range are always read.
    template <typename T, typename Read>
    T get(ADMInt32 id, Read read);

private:
    // Identifiers of the cylinder dialog's controls stay below this.
    static constexpr ADMInt32 kIds = 1024;

    template <typename T>
    struct Slots {
        std::array<std::uint32_t, kIds> generation{};  // the opening a value was kept in
        std::array<T, kIds> value{};
    };

    template <typename T>
    Slots<T>& slots() {
        static_assert(std::is_same_v<T, float> || std::is_same_v<T, int> || std::is_same_v<T, bool>);
        if constexpr (std::is_same_v<T, float>) {
            return floats_;
        } else if constexpr (std::is_same_v<T, int>) {
            return ints_;
        } else {
            return bools_;
        }
    }

    bool open_ = false;
    std::uint32_t generation_ = 0;
    Slots<float> floats_;
    Slots<int> ints_;
    Slots<bool> bools_;
};

template <typename T, typename Read>
T SettingsMemo::get(ADMInt32 id, Read read) {
    if (!open_ || id < 0 || id >= kIds) {
        return read();
    }
    Slots<T>& s = slots<T>();
    const auto i = static_cast<std::size_t>(id);
    if (s.generation[i] != generation_) {
        s.value[i] = read();
        s.generation[i] = generation_;
    }
    return s.value[i];
}
