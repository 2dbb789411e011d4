// What one run of the command did, decided from what it observably did (app/report/run_facts.h)
// and the settings the dialog held after it: which layers it put on the surface and which it did
// not reach, and the surface it used. The settings' meaning comes from the control library's
// rules, never from rules of our own; sizes that only the layout knows (the radius "Radius Set
// by First" computes, the ring's size) are read off where the run put the first layer it wrote.
#pragma once

#include "app/report/run_facts.h"
#include "app/run/dialog_reading.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

using SurfaceMode = controls::PlacementMode;

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
    // Half-axes of the horizontal cross-section along X and Z: the box's halves for the box
    // modes, the circle's radius twice for "Radius Set by First", the ring's ellipse for the ring.
    // Zero when not known.
    double half_x = 0;
    double half_z = 0;
    // Host Y of the highest and lowest places (top <= bottom, Y points down): the box's height
    // around the centre, or the centre's height alone for the equator and the ring.
    double top = 0;
    double bottom = 0;
    // The layer whose place gave the size ("Radius Set by First", ring); 0 otherwise.
    host::Id sized_by = 0;
    // The halves a "Sector" admits, when one limits the places: only in the modes that test it,
    // and not when two opposite halves make up the whole cylinder.
    std::optional<controls::SectorBoxes> sector;
    bool inward = false;              // layers turned to face the axis
    std::optional<double> scaled_to;  // "Scale Layer to": every layer brought to this square
    // Sentences on where the surface used differs from the dialog's box, or why it is not known, or
    // how the layers were set on it.
    std::vector<std::string> notes;
};

// How the ring closed: the last panel's width against the width it had, observed from its
// Scale X before and after the run.
struct RingClosing {
    host::Id last = 0;
    double stretch = 1;  // 3 when the last layer was made three times as wide
};

struct RunOutcome {
    ApplyState apply = ApplyState::not_applied;
    host::Id comp = 0;  // the active composition the command worked on; 0 when there is none
    std::vector<host::Id> taken;
    std::vector<LayerCopy> copies;
    // Every layer the "Apply" step wrote, in the plug-in's list order; copies included.
    std::vector<host::Id> written;
    // Written layers that lie on the surface after the run, in list order. Empty unless applied.
    std::vector<host::Id> arranged;
    // Written layers the layout did not reach: they kept their places, moved by `offset`.
    std::vector<host::Id> not_reached;
    // Taken layers the step did not write at all, in selection order: a repeat cut took them from
    // the list, or the step stopped before them. They are exactly as they were. Empty unless applied.
    std::vector<host::Id> left_out;
    // Added to every position the step wrote: the composition's centre with "Use Comp Center".
    Vec3 offset;
    // The extent the layout gave text and shape layers, which have no source of their own.
    controls::Extent sourceless;
    std::optional<RingClosing> ring_closing;
    Surface surface;
};

RunOutcome decideOutcome(const RunFacts& facts, const DialogReading& dialog);
RunOutcome readRunOutcome(const host::Project& before, const host::Host& after, const DialogReading& dialog);

// "Radius Set by First", "Distribute Evenly", ... as the dialog names the mode ("Given steps"
// for the mode of the min and increment fields, which has no name in the dialog).
const char* modeName(SurfaceMode mode);

// One line on the surface: the mode and what else shapes it, its size and centre, e.g.
// "Radius Set by First, Sector (front half), Inward: circle of radius 275.2, centre (960, 540,
// 0), y from 40 to 1040", or "...: size not known".
std::string describeSurface(const Surface& surface);

// The number of percent, as the summary prints it: "300", "99.7".
std::string percentText(double fraction);

// `ids` in their order, less those in `removed`.
std::vector<host::Id> idsWithout(const std::vector<host::Id>& ids, const std::vector<host::Id>& removed);

// How the last panel was sized to close the ring, naming it as given: "the last layer, "NAME",
// was narrowed to 74.5 % of its width to close it" (stretched when it was made wider).
std::string ringClosingText(const std::string& name, const RingClosing& closing);

}  // namespace app
