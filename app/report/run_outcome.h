// What one run of the command observably did, read off the project before it, the host after it
// and the settings the dialog held: the layers it took, the copies it made, which layers it put on
// the surface and which it did not reach, and the surface it used. The tool reaches the plug-in
// only through its module, so sizes that only the layout knows (the radius that "Radius Set by
// First" computes, the ring's size) are read off where the run put the first layer it wrote.
#pragma once

#include "app/drawing/vec3.h"
#include "host/host.h"
#include "host/project.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace app {

// The placement the dialog's settings chose, by the dialog's precedence: "Radius Set by First"
// when it is on and "Distribute Evenly" off; else "Distribute Evenly" or given steps unless
// "Equator Only"; else the ring with "Create Ring With Layers", else steps along the equator.
enum class SurfaceMode { given_steps, evenly, equator, ring, radius_by_first };

// What became of the "Apply" step.
enum class ApplyState {
    not_applied,  // no "Apply" step in the host (--no-apply)
    applied,      // the step is in the host's history and in effect
    undone,       // the step was taken back: every layer is where it was before
};

// The surface the layout used, in the host frame (X right, Y down, Z away from the viewer).
struct Surface {
    SurfaceMode mode = SurfaceMode::given_steps;
    // Whether its size is known. Always for the modes sized by the box; for "Radius Set by First"
    // and the ring only when the run placed the layer that sets the size (not after --no-apply,
    // --undo, or when no layer reached the surface).
    bool known = false;
    // Where the layout frame's origin lands: the cylinder centre fields as the plug-in reads them
    // (single precision), turned into the host frame (x, -y, -z), plus `RunOutcome::offset`.
    Vec3 centre;
    // Half-axes of the horizontal cross-section along X and Z: the box's halves (single
    // precision) for the box modes, the circle's radius twice for "Radius Set by First", the
    // ring's ellipse for the ring. Zero when not known.
    double half_x = 0;
    double half_z = 0;
    // Host Y of the highest and lowest places (top <= bottom, Y points down): the box's height
    // around the centre, or the centre's height alone for the equator and the ring.
    double top = 0;
    double bottom = 0;
    // The layer whose place gave the size ("Radius Set by First", ring); 0 otherwise.
    host::Id sized_by = 0;
    // Sentences on where the surface used differs from the dialog's box, or why it is not known.
    std::vector<std::string> notes;
};

struct LayerCopy {
    host::Id layer = 0;     // the copy
    host::Id original = 0;  // the layer it was made from
};

struct RunOutcome {
    ApplyState apply = ApplyState::not_applied;
    host::Id comp = 0;  // the active composition the command worked on; 0 when there is none
    // The selected 3D footage, text and shape layers of that composition, in selection order.
    std::vector<host::Id> taken;
    // Layers the run made as copies ("Repeat Layers"), in layer order; gone again after an undo.
    std::vector<LayerCopy> copies;
    // Every layer the "Apply" step wrote, in the plug-in's list order (the first is the first
    // record); copies included. Layers that no longer exist (copies after an undo) are left out.
    std::vector<host::Id> written;
    // Written layers that lie on the surface after the run, in list order. Empty unless applied.
    std::vector<host::Id> arranged;
    // Written layers the layout did not reach: they kept their places, moved by `offset`.
    std::vector<host::Id> not_reached;
    // Added to every position the step wrote: the composition's centre with "Use Comp Center".
    Vec3 offset;
    Surface surface;
};

RunOutcome readRunOutcome(const host::Project& before, const host::Host& after, const nlohmann::json& settings);

// "Radius Set by First", "Distribute Evenly", ... as the dialog names the mode ("Given steps"
// for the mode of the min and increment fields, which has no name in the dialog).
const char* modeName(SurfaceMode mode);

// One line on the surface: the mode, its size and centre, e.g.
// "Radius Set by First: circle of radius 275.2, centre (960, 540, 0), y from 40 to 1040", or
// "...: size not known".
std::string describeSurface(const Surface& surface);

// A setting as the plug-in reads it: edit values clamped to their range and held in single
// precision, controls missing from `settings` at their initial values.
double settingNumber(const nlohmann::json& settings, const char* name);
bool settingOn(const nlohmann::json& settings, const char* name);

}  // namespace app
