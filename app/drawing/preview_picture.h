// The perspective picture of a composition after a run.
#pragma once

#include "app/drawing/drawing.h"
#include "app/report/run_outcome.h"
#include "host/project.h"

#include <string>
#include <vector>

namespace app {

struct PreviewPicture {
    Drawing drawing;
    // Layers not drawn because their corners are not finite numbers (or too large for any
    // picture), by name: the tool names them in its messages too. Also in the caption.
    std::vector<std::string> left_out;
    // Layers that lie outside the picture's frame, by name; named in the caption.
    std::vector<std::string> outside;
};

// Every 3D footage, text and shape layer of the composition drawn back to front from a camera
// raised above the surface the run used: front faces light, back faces dark, layers without a
// source as dashed outlines; a name where it fits on its face and stays readable, the full name on
// hover. The surface is outlined; the composition's frame and centre are drawn faintly for
// reference. The picture is framed on the layers the run arranged and the surface (on the layers
// the command takes when nothing was arranged); the caption says what ran, on which surface, and
// what is not shown.
PreviewPicture makePreview(const host::Project& project, const RunOutcome& outcome);

struct Preview {
    std::string svg;
    std::vector<std::string> left_out;
    std::vector<std::string> outside;
};

// The same picture as SVG text.
Preview drawPreview(const host::Project& project, const RunOutcome& outcome);

}  // namespace app
