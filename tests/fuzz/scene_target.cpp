// Scene files fed arbitrary bytes: a file is refused with a scene error, or it is a scene whose
// written form reads back to itself.
#include "fuzz_targets.h"

#include "fault_sweep_snapshot.h"
#include "host/scene_file.h"

#include <string>

namespace fuzz {

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
    if (!sweep::nonFiniteValues(first.project()).empty()) {
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
