// What one run observably did, gathered from the project before it and the host after it, with
// no setting of the dialog consulted: the layers the command took, the copies it made, the layers
// the "Apply" step wrote and where it left them, and the sizes the layout had to go by.
#pragma once

#include "app/drawing/vec3.h"
#include "controls/placement_rules.h"
#include "host/host.h"
#include "host/project.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

// What became of the "Apply" step.
enum class ApplyState {
    not_applied,  // no "Apply" step in the host (--no-apply)
    applied,      // the step is in the host's history and in effect
    undone,       // the step was taken back: every layer is where it was before
};

struct LayerCopy {
    host::Id layer = 0;     // the copy
    host::Id original = 0;  // the layer it was made from
};

// One layer the step wrote, as the run left it.
struct WrittenLayer {
    host::Id id = 0;
    std::string name;
    Vec3 position;                           // host frame, at the composition's time
    Vec3 scale;                              // percent, after the run
    Vec3 scale_before;                       // percent, before the run (its original's for a copy)
    std::optional<controls::Extent> source;  // its source's size; none for text and shape layers
};

struct RunFacts {
    ApplyState apply = ApplyState::not_applied;
    host::Id comp = 0;  // the active composition the command worked on; 0 when there is none
    controls::Extent comp_size;
    // The selected 3D footage, text and shape layers of that composition, in selection order.
    std::vector<host::Id> taken;
    // Layers the run made as copies ("Repeat Layers"), in layer order; gone again after an undo.
    std::vector<LayerCopy> copies;
    // Every layer the "Apply" step wrote, in the order the host was asked to write them (the
    // plug-in's list order); copies included. Layers that no longer exist are left out.
    std::vector<WrittenLayer> written;
    // The largest source among the selected 3D layers, in the order the host's handles sort (the
    // order the plug-in meets them in); 0 x 0 when none has a source.
    controls::Extent largest_source;
};

RunFacts gatherRun(const host::Project& before, const host::Host& after);

// The rectangle of a layer with a source: the source's size; nothing for layers without one.
std::optional<controls::Extent> sourceExtent(const host::Project& project, const host::Layer& layer);

}  // namespace app
