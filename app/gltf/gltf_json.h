// Members of the glTF document's JSON, written with the host's streaming JSON text: a document of
// tens of thousands of nodes is not built as a tree first.
#pragma once

#include "app/drawing/vec3.h"
#include "host/json_text.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace app {

using host::JsonText;

inline void member(JsonText& json, std::string_view key, std::size_t value) {
    json.key(key);
    json.value(static_cast<std::int64_t>(value));
}
inline void member(JsonText& json, std::string_view key, int value) {
    json.key(key);
    json.value(value);
}
inline void member(JsonText& json, std::string_view key, double value) {
    json.key(key);
    json.value(value);
}
inline void member(JsonText& json, std::string_view key, std::string_view value) {
    json.key(key);
    json.value(value);
}
inline void member(JsonText& json, std::string_view key, const char* value) {
    member(json, key, std::string_view(value));
}
inline void numbers(JsonText& json, std::string_view key, std::initializer_list<double> values) {
    json.key(key);
    json.beginArray();
    for (const double v : values) {
        json.value(v);
    }
    json.endArray();
}
inline void member(JsonText& json, std::string_view key, const Vec3& v) { numbers(json, key, {v.x, v.y, v.z}); }

}  // namespace app
