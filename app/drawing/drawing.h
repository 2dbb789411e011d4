// A picture as a list of shapes in painting order — polygons, lines and texts in groups — kept
// apart from how it is written, so that the same list becomes SVG text or PNG pixels.
#pragma once

#include <cstdint>
#include <span>
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
    bool operator==(const Style&) const = default;
};

struct TextStyle {
    double size = 12;
    std::string fill = "#333333";
    std::string anchor = "middle";
    std::string halo;  // a stroke drawn under the letters, so they read on any background; none when empty
    bool operator==(const TextStyle&) const = default;
};

class Drawing {
public:
    enum class Kind : std::uint8_t { group, group_end, title, polygon, polyline, text, band };

    // One shape; its points are `points()[first, first + count)`, its style an index into
    // `styles()` (polygons, lines, bands) or `textStyles()` (texts). A group's `style` is its
    // attributes' index in `attributes()`, 0 for none.
    struct Shape {
        Kind kind;
        std::uint32_t style = 0;
        std::uint32_t first = 0;
        std::uint32_t count = 0;
        // A group's name, a title, a text, a polygon's face: `textOf(shape)`. All texts share one
        // buffer, so that a shape of a drawing of 100,000 layers takes 24 bytes.
        std::uint32_t text_at = 0;
        std::uint32_t text_size = 0;
    };

    Drawing(int width, int height, std::string background);

    // Shapes with a coordinate that is not a finite number are left out and counted.
    void polygon(std::span<const Point2> points, const Style& style, std::string_view face = {});
    void polyline(std::span<const Point2> points, const Style& style);
    void text(Point2 at, std::string_view text, const TextStyle& style);
    // A rectangle filled with the style's fill, across the picture's width from `top` to `bottom`.
    void band(double top, double bottom, const Style& style);
    // A tooltip for the enclosing group.
    void title(std::string_view text);
    // `attributes` are written as they are (name="value" pairs the caller has escaped).
    void beginGroup(std::string_view name, std::string_view attributes = {});
    void endGroup();

    int width() const { return width_; }
    int height() const { return height_; }
    const std::string& background() const { return background_; }
    const std::vector<Shape>& shapes() const { return shapes_; }
    std::span<const Point2> pointsOf(const Shape& shape) const {
        return std::span<const Point2>(points_).subspan(shape.first, shape.count);
    }
    std::string_view textOf(const Shape& shape) const {
        return std::string_view(texts_).substr(shape.text_at, shape.text_size);
    }
    const std::vector<Style>& styles() const { return styles_; }
    const std::vector<TextStyle>& textStyles() const { return text_styles_; }
    const std::vector<std::string>& attributes() const { return attributes_; }
    int leftOut() const { return left_out_; }

    // Gives back the room kept for shapes still to come: the drawing is complete.
    void compact();

private:
    bool add(Kind kind, std::span<const Point2> points, std::uint32_t style, std::string_view text);
    std::uint32_t styleIndex(const Style& style);
    std::uint32_t textStyleIndex(const TextStyle& style);

    int width_, height_;
    std::string background_;
    std::vector<Shape> shapes_;
    std::vector<Point2> points_;
    std::string texts_;
    std::vector<Style> styles_;
    std::vector<TextStyle> text_styles_;
    std::vector<std::string> attributes_{""};
    int left_out_ = 0;
};

}  // namespace app
