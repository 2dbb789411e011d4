// A layer of a composition and its animatable properties with their keyframes: plain values, so
// that a layer (and with it the whole project) can be copied for undo.
#pragma once

#include "host_api.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace host {

// Identity of a project object. Ids are unique in the process and never reused, so a handle
// made from an id can never come to mean another object.
using Id = std::uint64_t;
Id newId();

struct Vec3 {
    double x = 0, y = 0, z = 0;
    friend bool operator==(const Vec3&, const Vec3&) = default;
};

// The animatable properties a layer has. Rotations are one-dimensional: their value is in x.
enum class Prop : std::size_t { position, scale, orientation, rotate_x, rotate_y, rotate_z };
constexpr std::size_t kPropCount = 6;
bool isOneD(Prop prop);
// The property behind a layer stream identifier; false for streams the host does not keep.
bool propFromStream(AEGP_LayerStream stream, Prop* prop);
AEGP_StreamType streamTypeOf(Prop prop);
const char* propName(Prop prop);  // "position", "scale", "orientation", "rotation_x", ...

// Compares two times exactly (as fractions); -1, 0 or 1. A zero scale counts as 1.
int compareTimes(const A_Time& a, const A_Time& b);
double seconds(const A_Time& t);

struct Keyframe {
    A_Time time{0, 1};
    Vec3 value;
};

struct Property {
    Vec3 value;                  // the static value, used while there are no keyframes
    std::vector<Keyframe> keys;  // sorted by time, at most one key per time

    // Linear between keys, held before the first and after the last.
    Vec3 valueAt(const A_Time& time) const;
    // Index of the key at exactly this time, or -1.
    int keyAt(const A_Time& time) const;
    // Adds a key holding `value` at `time` (keeping an existing key there); returns its index.
    int insertKey(const A_Time& time, const Vec3& value);
    // Sets the key at `time` to `value`, adding one when none is there; returns its index.
    int setKey(const A_Time& time, const Vec3& value);
};

struct Layer {
    Id id = 0;
    std::string name;
    AEGP_ObjectType type = AEGP_ObjectType_AV;
    bool three_d = true;
    Id source = 0;                             // a footage item (or comp); 0 for none
    std::array<Property, kPropCount> props{};  // indexed by Prop
    Id copy_of = 0;                            // the layer this one was made as a copy of
    int scene_number = 0;                      // 1-based place in the scene it was read from; 0 if made later
    int copy_of_number = 0;                    // "copy_of" as read from a scene: the scene number it copies

    Property& prop(Prop p) { return props[static_cast<std::size_t>(p)]; }
    const Property& prop(Prop p) const { return props[static_cast<std::size_t>(p)]; }
};

}  // namespace host
