// Large scenes for the end-to-end benchmarks, written on the fly rather than kept in the tree.
#pragma once

#include <string>

namespace bench {

struct SceneShape {
    int layers = 1000;     // layers in the scene, all selected 3D cards
    bool keys = false;     // all three "Insert Keys" boxes on
    bool repeats = false;  // "Repeat Layers" on with a count of 1: twice as many layers after Apply
};

// The scene as scene-file JSON: a full-HD composition of cards 400 x 300 with sources of their own,
// laid out with "Distribute Evenly".
std::string sceneJson(const SceneShape& shape);

// A scene file in the temporary directory, removed when the object goes.
class SceneFile {
public:
    explicit SceneFile(const SceneShape& shape);
    ~SceneFile();
    SceneFile(const SceneFile&) = delete;
    SceneFile& operator=(const SceneFile&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace bench
