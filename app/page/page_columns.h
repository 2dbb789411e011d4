// The pieces of the page's data as they are written into the page: JSON that can stand inside a
// script element, and columns of numbers as their bytes in base64, which the page reads straight
// into typed arrays.
#pragma once

#include <nlohmann/json.hpp>

#include <array>
#include <bit>
#include <cstdint>
#include <iosfwd>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace app {

// JSON in which no '<' can open "</script" or "<!--": a '<' occurs only inside JSON strings, where
// its \u escape reads back the same. Text that is not UTF-8 is replaced, not refused.
void writeScriptSafeJson(std::ostream& out, const nlohmann::json& value);

// Base64 of bytes given in any pieces, written out in blocks.
class Base64Writer {
public:
    explicit Base64Writer(std::ostream& out) : out_(out) {}
    ~Base64Writer() = default;
    Base64Writer(const Base64Writer&) = delete;
    Base64Writer& operator=(const Base64Writer&) = delete;

    void write(std::span<const std::uint8_t> bytes);
    // Writes what is held, with the padding of a last, short group.
    void finish();

private:
    void encode(std::uint32_t group, int bytes);
    void flushText();

    std::ostream& out_;
    std::uint8_t held_[3] = {};
    int held_count_ = 0;
    char text_[4096] = {};
    std::size_t length_ = 0;
};

// A column as {"type": ..., "width": ..., "base64": ...}: `width` numbers a layer, each number's
// bytes little-endian. `type` names what the page reads it as: u8, u32, f32 or f64.
template <typename T>
void writeColumn(std::ostream& out, std::string_view type, std::size_t width, const std::vector<T>& values);

namespace detail {
void writeColumnHead(std::ostream& out, std::string_view type, std::size_t width);
void writeColumnTail(std::ostream& out);
}  // namespace detail

template <typename T>
void writeColumn(std::ostream& out, std::string_view type, std::size_t width, const std::vector<T>& values) {
    static_assert(sizeof(T) == 1 || sizeof(T) == 4 || sizeof(T) == 8);
    using Bits = std::conditional_t<sizeof(T) == 1, std::uint8_t,
                                    std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>;
    detail::writeColumnHead(out, type, width);
    Base64Writer base64(out);
    std::array<std::uint8_t, 3 * 1024> block;
    std::size_t used = 0;
    for (const T& value : values) {
        const Bits bits = std::bit_cast<Bits>(value);
        for (std::size_t k = 0; k < sizeof(T); ++k) {
            block[used++] = static_cast<std::uint8_t>(bits >> (8 * k));
        }
        if (used + sizeof(T) > block.size()) {
            base64.write(std::span(block).first(used));
            used = 0;
        }
    }
    base64.write(std::span(block).first(used));
    base64.finish();
    detail::writeColumnTail(out);
}

}  // namespace app
