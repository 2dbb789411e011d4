#include "host/json_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace host {

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kSpill = 1 << 16;  // bytes kept before they go to the sink

}  // namespace

JsonText::JsonText(std::ostream* sink, bool compact) : sink_(sink), compact_(compact) {}

void JsonText::newline(std::size_t depth) {
    if (compact_) {
        return;
    }
    buffer_ += '\n';
    buffer_.append(depth * kIndent, ' ');
}

void JsonText::beforeValue() {
    if (after_key_) {
        after_key_ = false;
        return;
    }
    if (!empty_.empty()) {  // an element of an array
        if (!empty_.back()) {
            buffer_ += ',';
        }
        empty_.back() = false;
        newline(empty_.size());
    }
}

void JsonText::open(char bracket) {
    beforeValue();
    buffer_ += bracket;
    empty_.push_back(true);
}

void JsonText::close(char bracket) {
    const bool was_empty = empty_.back();
    empty_.pop_back();
    if (!was_empty) {
        newline(empty_.size());
    }
    buffer_ += bracket;
    spill();
}

void JsonText::beginObject() { open('{'); }

void JsonText::endObject() { close('}'); }

void JsonText::beginArray() { open('['); }

void JsonText::endArray() { close(']'); }

void JsonText::key(std::string_view name) {
    if (!empty_.back()) {
        buffer_ += ',';
    }
    empty_.back() = false;
    newline(empty_.size());
    quoted(name);
    buffer_ += compact_ ? ":" : ": ";
    after_key_ = true;
}

void JsonText::value(double number) {
    beforeValue();
    if (!std::isfinite(number)) {
        buffer_ += "null";
        return;
    }
    // The library's own shortest round-trip form, so the text is the one its dump makes.
    std::array<char, 64> digits{};
    const char* end = nlohmann::detail::to_chars(digits.data(), digits.data() + digits.size(), number);
    buffer_.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

void JsonText::value(std::int64_t number) {
    beforeValue();
    std::array<char, 24> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    buffer_.append(digits.data(), result.ptr);
}

void JsonText::value(bool flag) {
    beforeValue();
    buffer_ += flag ? "true" : "false";
}

void JsonText::value(std::string_view text) {
    beforeValue();
    quoted(text);
}

void JsonText::quoted(std::string_view text) {
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            // Beyond ASCII the library checks the UTF-8 and escapes as it always has.
            buffer_ += nlohmann::json(std::string(text)).dump();
            return;
        }
    }
    buffer_ += '"';
    for (const char c : text) {
        switch (c) {
            case '"':
                buffer_ += "\\\"";
                break;
            case '\\':
                buffer_ += "\\\\";
                break;
            case '\b':
                buffer_ += "\\b";
                break;
            case '\f':
                buffer_ += "\\f";
                break;
            case '\n':
                buffer_ += "\\n";
                break;
            case '\r':
                buffer_ += "\\r";
                break;
            case '\t':
                buffer_ += "\\t";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    static const char hex[] = "0123456789abcdef";
                    buffer_ += "\\u00";
                    buffer_ += hex[(c >> 4) & 0xf];
                    buffer_ += hex[c & 0xf];
                } else {
                    buffer_ += c;
                }
        }
    }
    buffer_ += '"';
}

void JsonText::document(const nlohmann::json& document) {
    using Type = nlohmann::json::value_t;
    switch (document.type()) {
        case Type::object:
            beginObject();
            for (auto it = document.begin(); it != document.end(); ++it) {
                key(it.key());
                this->document(it.value());
            }
            endObject();
            return;
        case Type::array:
            beginArray();
            for (const nlohmann::json& element : document) {
                this->document(element);
            }
            endArray();
            return;
        case Type::string:
            value(std::string_view(document.get_ref<const std::string&>()));
            return;
        case Type::boolean:
            value(document.get<bool>());
            return;
        case Type::number_integer:
            value(document.get<std::int64_t>());
            return;
        case Type::number_float:
            value(document.get<double>());
            return;
        default:
            // Unsigned numbers, null and the rest: the library's own text.
            beforeValue();
            buffer_ += document.dump();
            return;
    }
}

void JsonText::spill() {
    if (sink_ != nullptr && buffer_.size() >= kSpill) {
        sink_->write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        buffer_.clear();
    }
}

void JsonText::finish() {
    if (sink_ != nullptr) {
        sink_->write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        buffer_.clear();
        if (!sink_->flush()) {
            throw std::runtime_error("the text could not be written");
        }
    }
}

std::string JsonText::take() { return std::move(buffer_); }

}  // namespace host
