// The colours of the tool's pictures: the SVG preview paints with them, and the 3D page gets them
// with its data, so that both show a layer alike. Front faces light, back faces dark, layers the
// run made as copies in warm tones.
#pragma once

#include <array>
#include <string_view>

namespace app {

struct PaletteColour {
    std::string_view name;  // the page's name for it
    std::string_view hex;   // #rrggbb
};

inline constexpr PaletteColour kBackgroundColour{"background", "#f6f7f9"};
inline constexpr PaletteColour kFrontColour{"front", "#a9cbef"};
inline constexpr PaletteColour kBackColour{"back", "#56697f"};
// Outlines, and the dashes of a layer without a source on a front face.
inline constexpr PaletteColour kEdgeColour{"edge", "#24496f"};
// On a dark back face a dark dash would vanish.
inline constexpr PaletteColour kBackDashColour{"backDash", "#e3ebf3"};
inline constexpr PaletteColour kSurfaceColour{"surface", "#8a94a3"};

// The page's palette: the colours above and those only the page draws.
inline constexpr std::array kPagePalette{
    kBackgroundColour,
    kFrontColour,
    kBackColour,
    kEdgeColour,
    kBackDashColour,
    PaletteColour{"copyFront", "#f3cf9b"},
    PaletteColour{"copyBack", "#8c6a43"},
    PaletteColour{"copyEdge", "#6b4310"},
    PaletteColour{"copyBackDash", "#fdf0dc"},
    PaletteColour{"selected", "#e8590c"},
    kSurfaceColour,
    PaletteColour{"compFrame", "#9c36b5"},
    PaletteColour{"camera", "#2b8a3e"},
};

}  // namespace app
