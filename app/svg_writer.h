// A small writer of SVG documents: polygons, lines and texts in document order.
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

class SvgWriter {
public:
    SvgWriter(int width, int height, std::string_view background);

    void polygon(const std::vector<Point2>& points, const Style& style, std::string_view data = {});
    void polyline(const std::vector<Point2>& points, const Style& style);
    void text(Point2 at, std::string_view text, double size, std::string_view fill, std::string_view anchor = "middle");
    // Opens and closes a group, e.g. one layer with its label.
    void beginGroup(std::string_view data);
    void endGroup();
    std::string finish();

private:
    void points(const std::vector<Point2>& points);
    void style(const Style& style);
    std::ostringstream out_;
};

}  // namespace app
