// Scene files fed arbitrary bytes: a file is refused with a scene error, or it is a scene whose
// written form reads back to itself.
#include "fuzz_targets.h"

#include "host/scene_file.h"

#include <cmath>
#include <string>

namespace fuzz {

namespace {

bool allFinite(const host::Project& project) {
    const auto finite = [](const host::Vec3& v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); };
    for (const host::Comp& comp : project.comps) {
        for (const host::Layer& layer : comp.layers) {
            for (const host::Property& prop : layer.props) {
                if (!finite(prop.value)) {
                    return false;
                }
                for (const host::Keyframe& key : prop.keys) {
                    if (!finite(key.value)) {
                        return false;
                    }
                }
            }
        }
    }
    return true;
}

}  // namespace

std::string sceneFile(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    host::Scene scene;
    try {
        scene = host::parseScene(text, "fuzz.json");
    } catch (const host::SceneError&) {
        return {};
    }
    host::Host first;
    host::applyScene(first, scene);
    if (!allFinite(first.project())) {
        return "a scene with a value that is not finite was accepted";
    }
    const std::string written = host::sceneText(first);
    host::Scene again;
    try {
        again = host::parseScene(written, "written.json");
    } catch (const host::SceneError& e) {
        return std::string("a written scene does not read back: ") + e.what() + "\n" + written;
    }
    host::Host second;
    host::applyScene(second, again);
    const std::string rewritten = host::sceneText(second);
    if (rewritten != written) {
        return "a scene written, read and written again changed:\n" + written + "\n---\n" + rewritten;
    }
    return {};
}

}  // namespace fuzz
