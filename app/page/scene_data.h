// The composition before and after a run as the data the 3D page reads: every 3D footage, text
// and shape layer with its corners in both states (from placeLayers), its values, keyframe counts
// and what the run did to it; the surface the layout used and its outline, the composition's
// frame, the camera the composition is seen through, and the colours to paint with.
#pragma once

#include "app/drawing/vec3.h"
#include "app/report/run_outcome.h"
#include "host/project.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace app {

// A camera without a point of interest: it looks along its own +Z, turned like a layer by its
// Orientation and then its X, Y and Z Rotation, with its own +Y pointing down the picture. Its
// zoom is the distance at which the composition's frame fills the view: the width seen under the
// host's default angle of view.
struct SceneCamera {
    std::string name;  // the camera layer's name; empty for the host's default camera
    Vec3 position;
    Vec3 right, down, forward;  // unit axes
    double zoom = 0;
};

// The composition's topmost camera layer at the current time, or the host's default camera: on
// the composition's centre, pulled back toward the viewer by the zoom, unturned.
SceneCamera sceneCamera(const host::Comp& comp);

// Numbers a layer has in each column below.
inline constexpr std::size_t kCornerNumbers = 12;  // four corners, x, y and z each
inline constexpr std::size_t kValueNumbers = 12;   // Position, Orientation, X, Y and Z Rotation, Scale
inline constexpr std::size_t kKeyCounts = 6;       // Position, Orientation, Scale, X, Y and Z Rotation

enum class LayerKind : std::uint8_t { footage, text, shape };
// What the run did: put it on the surface, took it without reaching it, changed it otherwise, left
// it as it was, or took it and did not write it (`RunOutcome::left_out`).
enum class LayerRun : std::uint8_t { arranged, not_reached, moved, kept, left_out };

// The page's layers, in layer order, a column per fact: a page of a hundred thousand layers
// holds numbers, not a hundred thousand objects.
struct PageLayers {
    std::vector<std::string> names;
    std::vector<std::uint32_t> numbers;  // place in the layer order, from 1
    std::vector<LayerKind> kinds;
    std::vector<std::uint8_t> sources;  // 1 with a source, 0 without (text, shape)
    std::vector<LayerRun> runs;
    // 1 drawn; 0 left out of what is drawn and framed, as the preview leaves it out: its corners,
    // before or after the run, are not drawable(). Its corners are then zeros in both states.
    std::vector<std::uint8_t> drawn;
    std::vector<std::uint32_t> copy_of;  // for a copy the run made, the copied layer's number in the scene read; else 0
    std::vector<float> corners_before, corners_after;
    std::vector<double> values_before, values_after;
    std::vector<std::uint32_t> keys;

    std::size_t size() const { return numbers.size(); }
};

struct PageData {
    // "comp" (null without a composition), "surface", "camera" and "palette". The surface, when
    // its size is known, holds under "outline" the pieces the preview outlines it with
    // (outlinePieces): only the halves a sector admits.
    nlohmann::json scene;
    PageLayers layers;
};

// The page's data for the reported composition of `after`; `before` is the project as the scene
// made it, `outcome` what the run did.
PageData pageSceneData(const host::Project& before, const host::Project& after, const RunOutcome& outcome);

// The data as the JSON the page reads, safe inside a script element: the scene's parts as they
// are, and under "layers" the count, the names, and each other column as its type, its numbers
// per layer and its bytes (little-endian) in base64.
void writePageData(std::ostream& out, const PageData& data);

}  // namespace app
