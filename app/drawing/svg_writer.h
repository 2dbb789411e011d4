// A small writer of SVG documents: polygons, lines and texts in document order. Nothing that is
// not a finite number is ever written: a shape with such a coordinate is left out and counted.
#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace app {

struct Point2 {
    double x = 0, y = 0;
};

struct Style {
    std::string fill = "none";
    std::string stroke = "none";
    double stroke_width = 1;
    double opacity = 1;
    std::string dash;  // e.g. "6 4"; none when empty
};

struct TextStyle {
    double size = 12;
    std::string fill = "#333333";
    std::string anchor = "middle";
    std::string halo;  // a stroke drawn under the letters, so they read on any background; none when empty
};

class SvgWriter {
public:
    SvgWriter(int width, int height, std::string_view background);

    void polygon(const std::vector<Point2>& points, const Style& style, std::string_view data = {});
    void polyline(const std::vector<Point2>& points, const Style& style);
    void text(Point2 at, std::string_view text, double size, std::string_view fill, std::string_view anchor = "middle");
    void text(Point2 at, std::string_view text, const TextStyle& style);
    // A tooltip for the enclosing group or shape.
    void title(std::string_view text);
    // Opens and closes a group, e.g. one layer with its label. `attributes` are written as they
    // are (name="value" pairs the caller has escaped).
    void beginGroup(std::string_view data, std::string_view attributes = {});
    void endGroup();
    std::string finish();

    // Shapes left out because a coordinate was not a finite number.
    int leftOut() const { return left_out_; }

private:
    bool finite(const std::vector<Point2>& points);
    void points(const std::vector<Point2>& points);
    void style(const Style& style);
    std::ostringstream out_;
    int left_out_ = 0;
};

// A number for an attribute, with full precision (for values a reader checks).
std::string exactNumber(double value);

}  // namespace app
