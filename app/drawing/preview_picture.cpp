#include "app/drawing/preview_picture.h"

#include "app/drawing/layer_corners.h"
#include "app/drawing/palette.h"
#include "app/drawing/preview_caption.h"
#include "app/drawing/preview_label.h"
#include "app/drawing/preview_view.h"
#include "app/drawing/svg_writer.h"

#include <algorithm>
#include <numbers>
#include <optional>
#include <set>

namespace app {

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 800;
constexpr double kMargin = 30;
constexpr double kCaptionSize = 13;
constexpr double kCaptionLine = 18;
constexpr std::size_t kCaptionWidth = 165;  // characters of a caption line
constexpr double kElevation = 28;           // degrees above the horizontal: rows and the ring both read
constexpr int kOutlineSegments = 96;
// Coordinates beyond this many pixels are no longer a place in any composition.
constexpr double kAbsurd = 1e12;

const Style kOutline{"none", std::string(kSurfaceColour.hex), 1.0, 0.7, "6 4"};
const Style kReference{"none", "#c3c9d2", 1.0, 1.0, "2 4"};
// Opaque: a face hides what lies behind it, labels included.
const Style kFront{std::string(kFrontColour.hex), std::string(kEdgeColour.hex), 1.2, 1.0, ""};
const Style kBack{std::string(kBackColour.hex), "#1d2a38", 1.2, 1.0, ""};
const Style kNoSource{"none", std::string(kEdgeColour.hex), 1.2, 0.9, "5 3"};

// Something painted in depth order, far to near: a layer or a piece of the surface's outline.
struct Item {
    double depth = 0;
    const PlacedLayer* layer = nullptr;
    Vec3 a, b;  // the piece of outline, when not a layer
};

bool sane(const PlacedLayer& layer) {
    for (const Vec3& c : layer.corners) {
        for (const double v : {c.x, c.y, c.z}) {
            if (!std::isfinite(v) || std::fabs(v) > kAbsurd) {
                return false;
            }
        }
    }
    return true;
}

std::vector<Vec3> ellipse(const Surface& s, double y) {
    std::vector<Vec3> ring;
    for (int i = 0; i <= kOutlineSegments; ++i) {
        const double a = 2 * std::numbers::pi * i / kOutlineSegments;
        ring.push_back({s.centre.x + s.half_x * std::sin(a), y, s.centre.z + s.half_z * std::cos(a)});
    }
    return ring;
}

// Whether the rim around host angle `a` (as `ellipse` draws it) lies in a half the sector
// admits; the layout measures its angles from the front (host -Z) toward +X.
bool admitted(const Surface& s, double a) {
    return !s.sector || controls::sectorAdmitsAngle(*s.sector, 180.0 - a * 180.0 / std::numbers::pi);
}

// A straight line as pieces, so that each is painted at its own depth.
void addLine(std::vector<std::pair<Vec3, Vec3>>& pieces, const Vec3& from, const Vec3& to) {
    constexpr int kLinePieces = 8;
    for (int i = 0; i < kLinePieces; ++i) {
        pieces.emplace_back(from + (static_cast<double>(i) / kLinePieces) * (to - from),
                            from + (static_cast<double>(i + 1) / kLinePieces) * (to - from));
    }
}

}  // namespace

std::vector<std::pair<Vec3, Vec3>> outlinePieces(const Surface& s) {
    std::vector<std::pair<Vec3, Vec3>> pieces;
    if (!s.known) {
        return pieces;
    }
    const std::vector<double> rims =
        s.top == s.bottom ? std::vector<double>{s.top} : std::vector<double>{s.top, s.bottom};
    const double step = 2 * std::numbers::pi / kOutlineSegments;
    for (const double y : rims) {
        const std::vector<Vec3> ring = ellipse(s, y);
        for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
            if (admitted(s, step * (static_cast<double>(i) + 0.5))) {
                pieces.emplace_back(ring[i], ring[i + 1]);
            }
        }
    }
    const std::vector<Vec3> top_rim = ellipse(s, s.top);
    const std::vector<Vec3> bottom_rim = ellipse(s, s.bottom);
    for (std::size_t i = 0; s.sector && s.top != s.bottom && i + 1 < top_rim.size(); ++i) {
        const double a = step * static_cast<double>(i);
        if (admitted(s, a - 0.5 * step) != admitted(s, a + 0.5 * step)) {
            addLine(pieces, top_rim[i], bottom_rim[i]);
        }
    }
    if (s.top != s.bottom) {
        addLine(pieces, {s.centre.x, s.top, s.centre.z}, {s.centre.x, s.bottom, s.centre.z});
    }
    return pieces;
}

namespace {

std::vector<Vec3> compFrame(const host::Comp& comp) {
    const double w = comp.width, h = comp.height;
    return {{0, 0, 0}, {w, 0, 0}, {w, h, 0}, {0, h, 0}};
}

// What the picture frames: the layers the run arranged and the surface where they are (a tall
// cylinder with a few rows at its foot would leave them tiny); the layers the command takes and
// the whole surface when none was arranged; the composition's frame when there is nothing else.
std::vector<Vec3> framedPoints(const std::vector<const PlacedLayer*>& layers, const RunOutcome& o,
                               const host::Comp& comp) {
    std::vector<Vec3> points;
    const std::set<host::Id> arranged(o.arranged.begin(), o.arranged.end());
    const std::set<host::Id> taken(o.taken.begin(), o.taken.end());
    const std::set<host::Id>& chosen = arranged.empty() ? taken : arranged;
    double low = o.surface.top, high = o.surface.bottom;  // host Y: low is up
    if (!arranged.empty()) {
        low = 1e300, high = -1e300;
    }
    for (const PlacedLayer* layer : layers) {
        if (chosen.contains(layer->id)) {
            for (const Vec3& c : layer->corners) {
                points.push_back(c);
                if (!arranged.empty()) {
                    low = std::min(low, c.y);
                    high = std::max(high, c.y);
                }
            }
        }
    }
    if (low > high) {  // no arranged layer could be drawn
        low = o.surface.top, high = o.surface.bottom;
    }
    if (o.surface.known) {
        for (const double y : {std::clamp(o.surface.top, low, high), std::clamp(o.surface.bottom, low, high)}) {
            const std::vector<Vec3> rim = ellipse(o.surface, y);
            points.insert(points.end(), rim.begin(), rim.end());
        }
    }
    if (points.empty()) {
        points = compFrame(comp);
    }
    return points;
}

// The camera looks at the middle of what it frames, on the surface's axis when there is one.
Vec3 frameTarget(const std::vector<Vec3>& points, const Surface& s) {
    Vec3 low = points.front(), high = points.front();
    for (const Vec3& p : points) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    const Vec3 middle = 0.5 * (low + high);
    return s.known ? Vec3{s.centre.x, middle.y, s.centre.z} : middle;
}

void drawSegment(SvgWriter& svg, const View& view, const Area& bounds, const Vec3& a, const Vec3& b,
                 const Style& style) {
    const auto near = view.clipNear(a, b);
    if (!near) {
        return;
    }
    if (const auto flat = clipToArea(view(near->first), view(near->second), bounds)) {
        svg.polyline({flat->first, flat->second}, style);
    }
}

void drawCross(SvgWriter& svg, const View& view, const Area& area, const Vec3& at, const Style& style) {
    if (!view.inFront(at) || !area.contains(view(at))) {
        return;
    }
    const Point2 c = view(at);
    constexpr double r = 6;
    svg.polyline({{c.x - r, c.y}, {c.x + r, c.y}}, style);
    svg.polyline({{c.x, c.y - r}, {c.x, c.y + r}}, style);
}

void drawReference(SvgWriter& svg, const View& view, const Area& area, const host::Comp& comp) {
    const std::vector<Vec3> frame = compFrame(comp);
    const Area& bounds = area;
    svg.beginGroup("composition", "data-reference=\"composition\"");
    for (std::size_t i = 0; i < frame.size(); ++i) {
        drawSegment(svg, view, bounds, frame[i], frame[(i + 1) % frame.size()], kReference);
    }
    drawCross(svg, view, area, {0.5 * comp.width, 0.5 * comp.height, 0}, Style{"none", "#aab2bd", 1.2, 1, ""});
    svg.endGroup();
}

// A layer as drawn: its outline on the picture, the side it shows, and its name where it fits.
struct Face {
    std::vector<Point2> corners;
    bool front = false;
    std::optional<Label> label;
};

Face faceOf(const PlacedLayer& layer, const View& view) {
    Face face;
    face.front = dot(layer.normal, view.camera().eye - layer.centre) > 0;
    for (const Vec3& c : layer.corners) {
        face.corners.push_back(view(c));
    }
    face.label = fitLabel(face.corners, view(layer.centre), layer.name);
    return face;
}

// A name partly hidden by a nearer face would read as another name ("Card 1" of "Card 12"), so a
// label that any face painted after it touches is left out; the name stays on hover. Faces are
// filed in a grid of the picture so that a label meets only the faces near it.
void hideCoveredLabels(std::vector<Face>& faces, const std::vector<Item>& items) {
    constexpr double kCell = 40;
    constexpr int kColumns = static_cast<int>(kWidth / kCell) + 1, kRows = static_cast<int>(kHeight / kCell) + 1;
    auto cells = [](Point2 low, Point2 high, auto&& visit) {
        const int c0 = std::clamp(static_cast<int>(low.x / kCell), 0, kColumns - 1);
        const int c1 = std::clamp(static_cast<int>(high.x / kCell), 0, kColumns - 1);
        const int r0 = std::clamp(static_cast<int>(low.y / kCell), 0, kRows - 1);
        const int r1 = std::clamp(static_cast<int>(high.y / kCell), 0, kRows - 1);
        for (int r = r0; r <= r1; ++r) {
            for (int c = c0; c <= c1; ++c) {
                visit(r * kColumns + c);
            }
        }
    };
    std::vector<std::vector<std::size_t>> grid(static_cast<std::size_t>(kColumns * kRows));
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (items[i].layer == nullptr || !items[i].layer->has_source) {
            continue;  // outlines without a fill hide nothing
        }
        Point2 low{1e300, 1e300}, high{-1e300, -1e300};
        for (const Point2& p : faces[i].corners) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
        cells(low, high, [&](int cell) { grid[static_cast<std::size_t>(cell)].push_back(i); });
    }
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (!faces[i].label) {
            continue;
        }
        bool covered = false;
        cells(faces[i].label->low, faces[i].label->high, [&](int cell) {
            for (const std::size_t j : grid[static_cast<std::size_t>(cell)]) {
                covered = covered || (j > i && covers(faces[j].corners, *faces[i].label));
            }
        });
        if (covered) {
            faces[i].label.reset();
        }
    }
}

// Where thousands of faces crowd into a small part of the picture, outlines of a fixed width would
// cover their fills, and the dark outlines of front faces would read as back faces. Outlines get
// thinner until their ink is at most about a sixth of the area the faces span.
double outlineWidth(const std::vector<Face>& faces) {
    constexpr double kInk = 1.0 / 6, kThinnest = 0.2;
    double perimeter = 0;
    Point2 low{1e300, 1e300}, high{-1e300, -1e300};
    for (const Face& face : faces) {
        for (std::size_t k = 0; k < face.corners.size(); ++k) {
            const Point2 p = face.corners[k], q = face.corners[(k + 1) % face.corners.size()];
            perimeter += std::hypot(q.x - p.x, q.y - p.y);
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
    }
    const double span =
        std::clamp(high.x - low.x, 0.0, double{kWidth}) * std::clamp(high.y - low.y, 0.0, double{kHeight});
    if (perimeter <= 0) {
        return kFront.stroke_width;
    }
    return std::clamp(kInk * span / perimeter, kThinnest, kFront.stroke_width);
}

void drawLayer(SvgWriter& svg, const PlacedLayer& layer, const Face& face, double outline) {
    svg.beginGroup(layer.name);
    svg.title(layer.name);
    Style style = !layer.has_source ? kNoSource : face.front ? kFront : kBack;
    style.stroke_width = outline;
    svg.polygon(face.corners, style, face.front ? "front" : "back");
    if (const auto& label = face.label) {
        if (!layer.has_source) {
            svg.text(label->baseline, layer.name,
                     TextStyle{label->size, "#17324f", "middle", std::string(kBackgroundColour.hex)});
        } else {
            svg.text(label->baseline, layer.name, label->size, face.front ? "#0f2740" : "#e3ebf3");
        }
    }
    svg.endGroup();
}

// The surface's numbers as drawn, for readers of the picture.
std::string surfaceAttributes(const Surface& s) {
    return "data-surface=\"" + std::string(s.top == s.bottom ? "ellipse" : "cylinder") + "\" data-centre=\"" +
           exactNumber(s.centre.x) + " " + exactNumber(s.centre.y) + " " + exactNumber(s.centre.z) +
           "\" data-half-x=\"" + exactNumber(s.half_x) + "\" data-half-z=\"" + exactNumber(s.half_z) +
           "\" data-top=\"" + exactNumber(s.top) + "\" data-bottom=\"" + exactNumber(s.bottom) + "\"";
}

}  // namespace

Preview drawPreview(const host::Project& project, const RunOutcome& outcome) {
    Preview preview;
    SvgWriter svg(kWidth, kHeight, kBackgroundColour.hex);
    const host::Comp* comp = outcome.comp != 0 ? project.comp(outcome.comp) : reportedComp(project);
    if (comp == nullptr) {
        svg.text({kWidth / 2.0, kHeight / 2.0}, "No composition", 16, "#333333");
        preview.svg = svg.finish();
        return preview;
    }

    const std::vector<PlacedLayer> placed = placeLayers(project, *comp, outcome.sourceless);
    std::vector<const PlacedLayer*> layers;
    for (const PlacedLayer& layer : placed) {
        if (sane(layer)) {
            layers.push_back(&layer);
        } else {
            preview.left_out.push_back(layer.name);
        }
    }

    // The caption's length decides how much room the scene gets, and the caption names what
    // falls outside the scene: frame first with a caption of the longest likely size.
    const std::vector<Vec3> framed = framedPoints(layers, outcome, *comp);
    const Vec3 target = frameTarget(framed, outcome.surface);
    auto sceneArea = [](std::size_t caption_lines) {
        return Area{kMargin, kMargin + kCaptionLine * static_cast<double>(caption_lines), kWidth - kMargin,
                    kHeight - kMargin};
    };
    CaptionFacts facts{comp, &outcome, {}, preview.left_out};
    std::size_t caption_lines = 0;
    for (const std::string& sentence : captionSentences(facts)) {
        caption_lines += wrapText(sentence, kCaptionWidth).size();
    }
    // One more line for the list of layers outside, should there be any.
    Area area = sceneArea(caption_lines + 1);
    const View view(framed, target, kElevation, area);

    std::vector<Item> items;
    for (const PlacedLayer* layer : layers) {
        bool in_front = true;
        Area box{1e300, 1e300, -1e300, -1e300};
        double depth = 0;
        for (const Vec3& c : layer->corners) {
            in_front = in_front && view.inFront(c);
            const Point2 q = view(c);
            box = {std::min(box.left, q.x), std::min(box.top, q.y), std::max(box.right, q.x),
                   std::max(box.bottom, q.y)};
            depth += view.depth(c) / 4;
        }
        const bool overlaps = box.right >= 0 && box.left <= kWidth && box.bottom >= area.top && box.top <= kHeight;
        if (in_front && overlaps) {
            items.push_back({depth, layer, {}, {}});
        } else if (!in_front && view.inFront(layer->centre)) {
            preview.left_out.push_back(layer->name);  // it reaches behind the camera: too large to draw
        } else {
            preview.outside.push_back(layer->name);
        }
    }
    for (const auto& [a, b] : outlinePieces(outcome.surface)) {
        items.push_back({view.depth(0.5 * (a + b)), nullptr, a, b});
    }
    std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.depth > b.depth; });

    if (outcome.surface.known) {
        svg.beginGroup("surface", surfaceAttributes(outcome.surface));
        svg.endGroup();
    }
    drawReference(svg, view, area, *comp);
    std::vector<Face> faces(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].layer != nullptr) {
            faces[i] = faceOf(*items[i].layer, view);
        }
    }
    hideCoveredLabels(faces, items);
    const double outline = outlineWidth(faces);
    // Lines stay inside the scene's area, clear of the caption.
    const Area& bounds = area;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Item& item = items[i];
        if (item.layer != nullptr) {
            drawLayer(svg, *item.layer, faces[i], outline);
        } else {
            drawSegment(svg, view, bounds, item.a, item.b, kOutline);
        }
    }
    if (outcome.surface.known) {
        drawCross(svg, view, area, outcome.surface.centre, Style{"none", std::string(kSurfaceColour.hex), 1.2, 1, ""});
    }
    // Last, over anything that reaches up into it.
    facts.outside = preview.outside;
    facts.left_out = preview.left_out;
    double y = kMargin;
    for (const std::string& sentence : captionSentences(facts)) {
        for (const std::string& line : wrapText(sentence, kCaptionWidth)) {
            y += kCaptionLine;
            svg.text({kMargin, y - 4}, line,
                     TextStyle{kCaptionSize, "#333333", "start", std::string(kBackgroundColour.hex)});
        }
    }
    preview.svg = svg.finish();
    return preview;
}

}  // namespace app
