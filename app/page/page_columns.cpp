#include "app/page/page_columns.h"

#include <ostream>
#include <string>

namespace app {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

void writeScriptSafeJson(std::ostream& out, const nlohmann::json& value) {
    const std::string text = value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    std::size_t from = 0;
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', from)) {
        out.write(text.data() + from, static_cast<std::streamsize>(at - from));
        out << "\\u003c";
        from = at + 1;
    }
    out.write(text.data() + from, static_cast<std::streamsize>(text.size() - from));
}

void Base64Writer::write(std::span<const std::uint8_t> bytes) {
    std::size_t at = 0;
    while (held_count_ > 0 && held_count_ < 3 && at < bytes.size()) {
        held_[held_count_++] = bytes[at++];
    }
    if (held_count_ == 3) {
        encode((std::uint32_t{held_[0]} << 16) | (std::uint32_t{held_[1]} << 8) | held_[2], 3);
        held_count_ = 0;
    }
    for (; at + 3 <= bytes.size(); at += 3) {
        encode((std::uint32_t{bytes[at]} << 16) | (std::uint32_t{bytes[at + 1]} << 8) | bytes[at + 2], 3);
    }
    while (at < bytes.size()) {
        held_[held_count_++] = bytes[at++];
    }
}

void Base64Writer::finish() {
    if (held_count_ > 0) {
        // Zero bytes complete the group; '=' stands for the characters they alone make.
        const std::uint32_t second = held_count_ > 1 ? held_[1] : 0;
        encode((std::uint32_t{held_[0]} << 16) | (second << 8), held_count_);
        held_count_ = 0;
    }
    flushText();
}

// The four characters of a group of three bytes of which `bytes` are given.
void Base64Writer::encode(std::uint32_t group, int bytes) {
    if (length_ + 4 > sizeof(text_)) {
        flushText();
    }
    for (int i = 0, shift = 18; i < 4; ++i, shift -= 6) {
        text_[length_++] = i <= bytes ? kAlphabet[(group >> shift) & 63] : '=';
    }
}

void Base64Writer::flushText() {
    out_.write(text_, static_cast<std::streamsize>(length_));
    length_ = 0;
}

namespace detail {

void writeColumnHead(std::ostream& out, std::string_view type, std::size_t width) {
    out << R"({"type":")" << type << R"(","width":)" << width << R"(,"base64":")";
}

void writeColumnTail(std::ostream& out) { out << "\"}"; }

}  // namespace detail

}  // namespace app
