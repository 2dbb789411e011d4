// Large scenes for the end-to-end benchmarks, written on the fly rather than kept in the tree.
#pragma once

#include <string>

namespace bench {

// The placement the scene's settings choose. With the given steps (the dialog's initial values) a
// cylinder holds 328 cards and the rest keep their places, piled on one spot: in the composition
// (`given_steps`) or far outside any picture of it (`given_steps_far`).
enum class Placement { evenly, given_steps, given_steps_far, ring };

struct SceneShape {
    int layers = 1000;  // layers in the scene, all selected 3D cards
    Placement placement = Placement::evenly;
    bool keys = false;     // all three "Insert Keys" boxes on
    bool repeats = false;  // "Repeat Layers" on with a count of 1: twice as many layers after Apply
};

// The scene as scene-file JSON: a full-HD composition of cards 400 x 300 with sources of their own,
// all at the composition's centre (or far outside it), in the placement asked for.
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
