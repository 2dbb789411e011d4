// The composition after a run as 3D geometry in the host frame: every 3D layer as its turned
// and placed rectangle, and the cylinder the dialog's settings describe.
#pragma once

#include "app/drawing/vec3.h"
#include "controls/placement_rules.h"
#include "host/project.h"

#include <nlohmann/json.hpp>

#include <array>
#include <string>
#include <vector>

namespace app {

struct PlacedLayer {
    std::string name;
    host::Id id = 0;
    int number = 0;               // 1-based place in the layer order
    bool has_source = true;       // false for text and shape layers, drawn at the extent the layout gave them
    std::array<Vec3, 4> corners;  // wound so that the front face's normal follows from them
    Vec3 centre;                  // the anchor, at the layer's position
    Vec3 normal;                  // the visible face's unit normal, from the drawn corners
};

// The composition the tool reports on: the active one, or the first.
const host::Comp* reportedComp(const host::Project& project);

// The layer's rectangle: its source's size, or for a layer without a source (text, shape) the
// extent the layout gives such layers (`RunOutcome::sourceless`).
std::array<double, 2> layerSize(const host::Project& project, const host::Layer& layer, controls::Extent sourceless);

// Every 3D footage, text and shape layer of the composition, at the composition's current time;
// layers without a source at the extent `sourceless`.
std::vector<PlacedLayer> placeLayers(const host::Project& project, const host::Comp& comp, controls::Extent sourceless);

// Whether every corner is a finite number within reach of any picture: a layer that is not is left
// out of what is drawn and framed, and named instead.
bool drawable(const PlacedLayer& layer);

// A rectangle of size w x h, anchor at its centre, scaled (percent), turned and moved.
PlacedLayer placeRectangle(double width, double height, const Vec3& position, const Vec3& scale,
                           const Vec3& orientation, const Vec3& rotation);

}  // namespace app
