// The composition before and after a run as the glTF file holds it, already in glTF's frame
// (gltf_frame.h): every 3D footage, text and shape layer as a node with the quad of its extent,
// where the scene had it and where the run put it; the surface the run used and the composition's
// frame as lines; the camera the composition is seen through.
#pragma once

#include "app/drawing/vec3.h"
#include "app/gltf/gltf_frame.h"
#include "app/report/run_outcome.h"
#include "host/project.h"

#include <string>
#include <vector>

namespace app {

struct NodeTransform {
    Vec3 translation;
    Quaternion rotation;
    Vec3 scale{1, 1, 1};
};

// A layer's transform as the host holds it: Position, Orientation, X, Y and Z Rotation, Scale.
struct LayerValues {
    Vec3 position, orientation, rotation, scale;
};

// The quad a layer is drawn as, in the layer's own frame: its extent around its anchor, and how
// it is painted. Layers that look alike share one.
struct LayerQuad {
    double width = 0, height = 0;  // pixels
    bool copy = false;             // made by the run: warm colours
    bool has_source = true;        // false for text and shape layers: a dashed outline
};

struct GltfLayer {
    std::string name;
    int number = 0;         // place in the composition after the run
    const char* type = "";  // "footage", "text" or "shape"
    int copy_of = 0;        // for a copy, the number in the scene read of the layer it copies
    LayerValues values;     // after the run, as the host holds them
    NodeTransform before;   // where the scene had it (a copy: where its original stood)
    NodeTransform after;    // where the run put it
    std::size_t quad = 0;   // in GltfScene::quads
};

struct GltfCamera {
    std::string name;
    NodeTransform place;  // looking along its node's -Z, its +Y up
    double yfov = 0;      // radians
    double aspect_ratio = 1;
    double zoom = 0;  // pixels, as the host gives it
};

struct GltfScene {
    bool has_comp = false;
    std::string comp_name;
    int comp_width = 0, comp_height = 0;
    std::string surface_description;
    std::vector<GltfLayer> layers;
    std::vector<LayerQuad> quads;
    std::vector<Vec3> surface;     // line segments, two points each; empty when its size is not known
    std::vector<Vec3> comp_frame;  // the frame's corners, a closed line
    GltfCamera camera;
    // Layers whose values do not fit the file's numbers (not finite, or beyond single precision).
    std::vector<std::string> left_out;
};

// The reported composition of `after`; `before` is the project as the scene made it, `outcome`
// what the run did.
GltfScene gltfScene(const host::Project& before, const host::Project& after, const RunOutcome& outcome);

}  // namespace app
