// The animation "Before → After": every layer moved from where the scene had it to where the run
// put it, its translation, rotation and scale each with two keys where the run changed them.
#pragma once

#include "app/gltf/gltf_buffer.h"
#include "app/gltf/gltf_json.h"
#include "app/gltf/gltf_scene.h"

#include <vector>

namespace app {

// The last key's time; the first is at 0.
inline constexpr double kAnimationSeconds = 2.0;

// `q` or its opposite, the same rotation, whichever is nearer `to`: keys interpolated between
// the two then take the shorter way round.
Quaternion nearestSign(const Quaternion& q, const Quaternion& to);

struct AnimationChannel {
    std::size_t node = 0;   // the layer's node: layers are the first nodes, in their order
    const char* path = "";  // "translation", "rotation" or "scale"
    int keys = -1;          // the accessor of its two keys
};

// The channels of the layers whose translation, rotation or scale the run changed, their keys
// added to the buffer. A value the run left as it was needs none: the node holds it.
std::vector<AnimationChannel> animationChannels(const std::vector<GltfLayer>& layers, GltfBuffer& buffer);

// The two keys' times, added to the buffer; its accessor.
int addKeyTimes(GltfBuffer& buffer);

// The animation object, its channels' keys at the times of `input`.
void writeAnimation(const std::vector<AnimationChannel>& channels, int input, JsonText& json);

}  // namespace app
