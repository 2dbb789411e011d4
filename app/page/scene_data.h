// The composition before and after a run as the data the 3D page reads: every 3D footage, text
// and shape layer with its corners in both states (from placeLayers), its values, keyframe counts
// and what the run did to it; the surface the layout used, the composition's frame and the camera
// the composition is seen through.
#pragma once

#include "app/drawing/vec3.h"
#include "app/report/run_outcome.h"
#include "host/project.h"

#include <nlohmann/json.hpp>

#include <string>

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

// The page's data for the reported composition of `after`; `before` is the project as the scene
// made it, `outcome` what the run did.
nlohmann::json pageSceneData(const host::Project& before, const host::Project& after, const RunOutcome& outcome);

}  // namespace app
