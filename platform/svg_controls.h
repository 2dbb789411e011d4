// Drawing a view's controls into an SVG picture, in the colours and faces they hold.
#pragma once

#include "platform/colour.h"
#include "platform/internal.h"

#include <sstream>
#include <vector>

namespace platform::detail {

// The font families of the pictures: faces whose widths match the theme fonts' come first.
inline constexpr const char* kSansFamily = "Helvetica, Arial, 'DejaVu Sans Condensed', sans-serif";

// What lies behind the controls: the theme's background, and what a view's handlers painted on it.
class Backdrop {
public:
    explicit Backdrop(Colour theme) : theme_(theme) {}
    void paint(const CGRect& rect, Colour colour, CGFloat alpha);
    Colour at(double x, double y) const;

private:
    struct Fill {
        CGRect rect;
        Colour colour;
        CGFloat alpha;
    };
    Colour theme_;
    std::vector<Fill> fills_;
};

// Draws the visible subviews of `parent`, back to front, with `origin` as the parent's top left
// in the picture. Disabled controls, and those in a disabled view, are greyed.
void paintSubviews(std::ostringstream& out, const OpaqueControlRef& parent, int originX, int originY, bool enabled,
                   const Backdrop& backdrop);

}  // namespace platform::detail
