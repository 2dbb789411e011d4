#include "app/preview_picture.h"

#include "app/preview_camera.h"
#include "app/preview_scene.h"
#include "app/svg_writer.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <numbers>

namespace app {

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 800;
constexpr double kMargin = 40;
constexpr double kCaptionHeight = 30;
constexpr double kElevation = 28;  // degrees above the horizontal: rows and the ring both read
constexpr int kOutlineSegments = 96;

// Something to paint, sorted far to near.
struct Item {
    double depth = 0;
    const PlacedLayer* layer = nullptr;  // null for a piece of cylinder outline
    std::vector<Vec3> points;
};

std::vector<Vec3> outlineRing(const CylinderShape& c, double y)
{
    std::vector<Vec3> ring;
    for (int i = 0; i <= kOutlineSegments; ++i) {
        const double a = 2 * std::numbers::pi * i / kOutlineSegments;
        ring.push_back({c.centre.x + c.half_x * std::sin(a), y, c.centre.z + c.half_z * std::cos(a)});
    }
    return ring;
}

std::vector<Item> paintItems(const std::vector<PlacedLayer>& layers, const CylinderShape& cylinder,
                             const Camera& camera)
{
    std::vector<Item> items;
    for (const PlacedLayer& layer : layers) {
        double depth = 0;
        for (const Vec3& corner : layer.corners) {
            depth += project(camera, corner).depth / 4;
        }
        items.push_back({depth, &layer, {layer.corners.begin(), layer.corners.end()}});
    }
    // The outlines go in piece by piece, so layers in front of the cylinder's far side hide it.
    for (const double y : {cylinder.centre.y - cylinder.height / 2, cylinder.centre.y + cylinder.height / 2}) {
        const std::vector<Vec3> ring = outlineRing(cylinder, y);
        for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
            const double depth = project(camera, 0.5 * (ring[i] + ring[i + 1])).depth;
            items.push_back({depth, nullptr, {ring[i], ring[i + 1]}});
        }
    }
    std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.depth > b.depth; });
    return items;
}

double boundingRadius(const std::vector<PlacedLayer>& layers, const CylinderShape& cylinder)
{
    double radius = std::hypot(std::max(cylinder.half_x, cylinder.half_z), cylinder.height / 2);
    for (const PlacedLayer& layer : layers) {
        for (const Vec3& p : layer.corners) {
            radius = std::max(radius, length(p - cylinder.centre));
        }
    }
    return std::max(radius, 1.0);
}

// Maps the image plane onto the picture, keeping proportions.
class Fit {
public:
    Fit(const std::vector<Item>& items, const Camera& camera) : camera_(camera)
    {
        double min_x = std::numeric_limits<double>::max(), min_y = min_x;
        double max_x = std::numeric_limits<double>::lowest(), max_y = max_x;
        for (const Item& item : items) {
            for (const Vec3& p : item.points) {
                const Projected q = project(camera, p);
                min_x = std::min(min_x, q.x);
                max_x = std::max(max_x, q.x);
                min_y = std::min(min_y, q.y);
                max_y = std::max(max_y, q.y);
            }
        }
        const double room_x = kWidth - 2 * kMargin;
        const double room_y = kHeight - 2 * kMargin - kCaptionHeight;
        scale_ = std::min(room_x / std::max(max_x - min_x, 1e-9), room_y / std::max(max_y - min_y, 1e-9));
        offset_x_ = kMargin + 0.5 * (room_x - scale_ * (max_x - min_x)) - scale_ * min_x;
        offset_y_ = kMargin + kCaptionHeight + 0.5 * (room_y - scale_ * (max_y - min_y)) - scale_ * min_y;
    }

    Point2 operator()(const Vec3& p) const
    {
        const Projected q = project(camera_, p);
        return {offset_x_ + scale_ * q.x, offset_y_ + scale_ * q.y};
    }

private:
    const Camera& camera_;
    double scale_ = 1, offset_x_ = 0, offset_y_ = 0;
};

double distance(Point2 a, Point2 b) { return std::hypot(a.x - b.x, a.y - b.y); }

void drawLayer(SvgWriter& svg, const PlacedLayer& layer, const Camera& camera, const Fit& fit)
{
    const bool front = dot(layer.normal, camera.eye - layer.centre) > 0;
    std::vector<Point2> corners;
    for (const Vec3& c : layer.corners) {
        corners.push_back(fit(c));
    }
    svg.beginGroup(layer.name);
    svg.polygon(corners,
                front ? Style{"#a9cbef", "#24496f", 1.2, 0.96, ""} : Style{"#56697f", "#1d2a38", 1.2, 0.96, ""},
                front ? "front" : "back");
    const double shortest_edge = std::min(distance(corners[0], corners[1]), distance(corners[1], corners[2]));
    const double size = std::clamp(0.22 * shortest_edge, 7.0, 15.0);
    const Point2 middle = fit(layer.centre);
    svg.text({middle.x, middle.y + 0.35 * size}, layer.name, size, front ? "#0f2740" : "#e3ebf3");
    svg.endGroup();
}

std::string caption(const host::Comp& comp, std::size_t layers, const CylinderShape& cylinder)
{
    char text[256];
    std::snprintf(text, sizeof text,
                  "\"%s\": %zu 3D layers; cylinder %.0f x %.0f x %.0f. Light: front faces, dark: back faces.",
                  comp.name.c_str(), layers, 2 * cylinder.half_x, cylinder.height, 2 * cylinder.half_z);
    return text;
}

}  // namespace

std::string previewSvg(const host::Project& project, const nlohmann::json& settings)
{
    SvgWriter svg(kWidth, kHeight, "#f6f7f9");
    const host::Comp* comp = reportedComp(project);
    if (comp == nullptr) {
        svg.text({kWidth / 2.0, kHeight / 2.0}, "No composition", 16, "#333333");
        return svg.finish();
    }
    const std::vector<PlacedLayer> layers = placeLayers(project, *comp);
    const CylinderShape cylinder = cylinderFromSettings(settings, *comp);

    // Far enough back that everything lies in front of the camera.
    const Camera camera = raisedCamera(cylinder.centre, boundingRadius(layers, cylinder), kElevation);
    const std::vector<Item> items = paintItems(layers, cylinder, camera);
    const Fit fit(items, camera);

    svg.text({kMargin, kMargin}, caption(*comp, layers.size(), cylinder), 14, "#333333", "start");
    const Style outline{"none", "#8a94a3", 1.0, 0.7, "6 4"};
    for (const Item& item : items) {
        if (item.layer != nullptr) {
            drawLayer(svg, *item.layer, camera, fit);
        } else {
            svg.polyline({fit(item.points[0]), fit(item.points[1])}, outline);
        }
    }
    return svg.finish();
}

}  // namespace app
