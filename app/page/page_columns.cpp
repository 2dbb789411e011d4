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

void Base64Writer::put(std::uint8_t byte) {
    group_ = (group_ << 8) | byte;
    if (++held_ < 3) {
        return;
    }
    if (length_ + 4 > sizeof(text_)) {
        flushText();
    }
    for (int shift = 18; shift >= 0; shift -= 6) {
        text_[length_++] = kAlphabet[(group_ >> shift) & 63];
    }
    group_ = 0;
    held_ = 0;
}

void Base64Writer::finish() {
    if (held_ > 0) {
        const int held = held_;
        // Zero bytes complete the group; '=' stands for the characters they alone make.
        while (held_ < 3) {
            group_ <<= 8;
            ++held_;
        }
        if (length_ + 4 > sizeof(text_)) {
            flushText();
        }
        for (int i = 0, shift = 18; i < 4; ++i, shift -= 6) {
            text_[length_++] = i <= held ? kAlphabet[(group_ >> shift) & 63] : '=';
        }
        group_ = 0;
        held_ = 0;
    }
    flushText();
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
