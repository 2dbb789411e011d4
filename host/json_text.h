// Pretty JSON written as it goes, laid out exactly as the JSON library's dump with an indent of two
// spaces: the same text as building the document and dumping it, without building it. Used for
// scene files of tens of thousands of layers, whose document would cost more than the project.
// Compact, it is laid out as the library's dump without an indent: no blank between tokens.
#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class JsonText {
public:
    // Text goes to `sink` in pieces as it is made; with no sink it stays in the buffer for take().
    explicit JsonText(std::ostream* sink = nullptr, bool compact = false);

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    // The key of the next member of the object being written.
    void key(std::string_view name);

    void value(double number);
    void value(std::int64_t number);
    void value(int number) { value(static_cast<std::int64_t>(number)); }
    void value(std::uint32_t number) { value(static_cast<std::int64_t>(number)); }
    void value(bool flag);
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(const std::string& text) { value(std::string_view(text)); }
    // A key and its value.
    template <typename T>
    void member(std::string_view name, const T& v) {
        key(name);
        value(v);
    }
    // A whole document of the library, nested at the current place.
    void document(const nlohmann::json& document);

    // Sends what is left to the sink; throws when the sink failed.
    void finish();
    // The text, when there is no sink.
    std::string take();

private:
    void beforeValue();
    void open(char bracket);
    void close(char bracket);
    void newline(std::size_t depth);
    void quoted(std::string_view text);
    void spill();

    std::ostream* sink_;
    bool compact_;
    std::string buffer_;
    std::vector<bool> empty_;  // per open object or array: nothing written in it yet
    bool after_key_ = false;
};

}  // namespace host
