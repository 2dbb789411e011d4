#include "app/gltf/gltf_animation.h"

#include <array>

namespace app {

namespace {

std::array<float, 6> keys(const Vec3& first, const Vec3& last) {
    return {static_cast<float>(first.x), static_cast<float>(first.y), static_cast<float>(first.z),
            static_cast<float>(last.x),  static_cast<float>(last.y),  static_cast<float>(last.z)};
}

std::array<float, 8> keys(const Quaternion& first, const Quaternion& last) {
    return {static_cast<float>(first.x), static_cast<float>(first.y), static_cast<float>(first.z),
            static_cast<float>(first.w), static_cast<float>(last.x),  static_cast<float>(last.y),
            static_cast<float>(last.z),  static_cast<float>(last.w)};
}

}  // namespace

Quaternion nearestSign(const Quaternion& q, const Quaternion& to) {
    const double dot = q.x * to.x + q.y * to.y + q.z * to.z + q.w * to.w;
    return dot < 0 ? Quaternion{-q.x, -q.y, -q.z, -q.w} : q;
}

std::vector<AnimationChannel> animationChannels(const std::vector<GltfLayer>& layers, GltfBuffer& buffer) {
    std::vector<AnimationChannel> channels;
    for (std::size_t node = 0; node < layers.size(); ++node) {
        const NodeTransform& a = layers[node].before;
        const NodeTransform& b = layers[node].after;
        if (a.translation != b.translation) {
            channels.push_back(
                {node, "translation",
                 buffer.addFloats(BufferView::keys, keys(a.translation, b.translation), Element::vec3, false)});
        }
        if (a.rotation != b.rotation) {
            channels.push_back(
                {node, "rotation",
                 buffer.addFloats(BufferView::keys, keys(nearestSign(a.rotation, b.rotation), b.rotation),
                                  Element::vec4, false)});
        }
        if (a.scale != b.scale) {
            channels.push_back(
                {node, "scale", buffer.addFloats(BufferView::keys, keys(a.scale, b.scale), Element::vec3, false)});
        }
    }
    return channels;
}

void writeAnimation(const std::vector<AnimationChannel>& channels, int input, JsonText& json) {
    json.beginObject();
    member(json, "name", "Before \u2192 After");
    json.key("samplers");
    json.beginArray();
    for (const AnimationChannel& channel : channels) {
        json.beginObject();
        member(json, "input", input);
        member(json, "output", channel.keys);
        member(json, "interpolation", "LINEAR");
        json.endObject();
    }
    json.endArray();
    json.key("channels");
    json.beginArray();
    for (std::size_t i = 0; i < channels.size(); ++i) {
        json.beginObject();
        member(json, "sampler", i);
        json.key("target");
        json.beginObject();
        member(json, "node", channels[i].node);
        member(json, "path", channels[i].path);
        json.endObject();
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

int addKeyTimes(GltfBuffer& buffer) {
    const std::array<float, 2> times{0.0f, static_cast<float>(kAnimationSeconds)};
    return buffer.addFloats(BufferView::keys, times, Element::scalar, true);
}

}  // namespace app
