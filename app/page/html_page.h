// The interactive 3D page of a run: one self-contained HTML file that shows the composition
// before and after the run, with the page's script and three.js inside it.
#pragma once

#include "app/page/scene_data.h"

#include <iosfwd>

namespace app {

// Writes the page of the data of pageSceneData(), as it is made: a page of many layers is never
// held whole.
void writeHtmlPage(std::ostream& out, const PageData& data);

}  // namespace app
