// Scene files: a composition with its layers, their values and keyframes, the selection and the
// host's suite offer, as JSON. Output carries the same format plus copies, undo groups and
// reports, so a written scene reads back to the same project.
#pragma once

#include "host/host.h"
#include "host/project.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

// A file that cannot be used: one message naming the file, the place (JSON path) and the problem.
class SceneError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Layer types by their names in scene files.
inline constexpr std::pair<std::string_view, AEGP_ObjectType> kLayerTypeNames[] = {
    {"av", AEGP_ObjectType_AV},         {"text", AEGP_ObjectType_TEXT},   {"vector", AEGP_ObjectType_VECTOR},
    {"camera", AEGP_ObjectType_CAMERA}, {"light", AEGP_ObjectType_LIGHT},
};

struct Scene {
    Project project;
    bool panels = true;                                     // "host"."panels"
    std::vector<std::pair<std::string, int32_t>> withhold;  // "host"."withhold", as name and version
    nlohmann::json settings;                                // "settings" as it stands; null when absent
};

// Parse `text`; `file_name` is only used in messages. Throws SceneError.
Scene parseScene(const std::string& text, const std::string& file_name);
Scene readSceneFile(const std::string& path);

// Makes the scene the host's project and suite offer (handles of the old project die).
void applyScene(Host& host, Scene scene);
// Reads and applies; on any error throws SceneError and leaves the host as it was.
void loadScene(Host& host, const std::string& path, nlohmann::json* settings = nullptr);

// The host's active composition (or its first) as a scene, with copies, undo groups and
// reports; `settings` is written when it is not null.
std::string sceneText(const Host& host, const nlohmann::json& settings = nullptr);
// The same text sent to a stream as it is made, so that a large scene is never held whole; throws
// std::runtime_error when the stream fails.
void writeScene(const Host& host, std::ostream& stream, const nlohmann::json& settings = nullptr);
// Throws SceneError when the file cannot be written.
void saveScene(const Host& host, const std::string& path, const nlohmann::json& settings = nullptr);

}  // namespace host
