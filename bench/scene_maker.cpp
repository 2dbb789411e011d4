#include "bench/scene_maker.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench {

std::string sceneJson(const SceneShape& shape) {
    std::string text =
        R"({"comp": {"name": "Main", "width": 1920, "height": 1080, "time": {"value": 0, "scale": 30}},)";
    text += "\n\"layers\": [\n";
    const std::string position = shape.placement == Placement::given_steps_far ? "[500000, 540, 0]" : "[960, 540, 0]";
    for (int i = 1; i <= shape.layers; ++i) {
        text += R"({"name": "Card )" + std::to_string(i) +
                R"(", "type": "av", "three_d": true, "source": {"width": 400, "height": 300}, "position": )" +
                position + R"(, "selected": true})";
        text += i < shape.layers ? ",\n" : "\n";
    }
    switch (shape.placement) {
        case Placement::evenly:
            text += "],\n\"settings\": {\"CHECK_DISTRIBUTE_EVENLY\": true";
            break;
        case Placement::given_steps:
        case Placement::given_steps_far:
            text += "],\n\"settings\": {\"CHECK_DISTRIBUTE_EVENLY\": false";
            break;
        case Placement::ring:
            text += "],\n\"settings\": {\"RADIO_EQUATOR_ONLY\": true, \"CHECK_CREATE_RING\": true";
            break;
    }
    if (shape.keys) {
        text += R"(, "CHECK_KEY_POSITION": true, "CHECK_KEY_ORIENTATION": true, "CHECK_KEY_SCALE": true)";
    }
    if (shape.repeats) {
        text += R"(, "CHECK_REPEAT_LAYERS": true, "EDIT_REPEAT_COUNT": 1)";
    }
    text += "}}\n";
    return text;
}

SceneFile::SceneFile(const SceneShape& shape) {
    static int made = 0;
    path_ = (std::filesystem::temp_directory_path() /
             ("orbisett-bench-" + std::to_string(getpid()) + "-" + std::to_string(++made) + ".json"))
                .string();
    std::ofstream out(path_, std::ios::binary | std::ios::trunc);
    out << sceneJson(shape);
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + path_);
    }
}

SceneFile::~SceneFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

}  // namespace bench
