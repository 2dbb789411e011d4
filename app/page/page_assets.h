// The 3D page's parts, baked into the tool at build time from app/page: the HTML template with
// its @ORBISETT_…@ places, the style sheet, and the script bundled with three.js.
#pragma once

#include <string_view>

namespace app {

extern const std::string_view kPageTemplate;
extern const std::string_view kPageStyle;
extern const std::string_view kPageScript;

}  // namespace app
