#include "app/drawing/preview_picture.h"

#include "app/drawing/palette.h"
#include "app/drawing/preview_content.h"
#include "app/drawing/preview_frame.h"
#include "app/drawing/svg_writer.h"

namespace app {

namespace {

constexpr double kCaptionSize = 13;
const std::string kBackground(kBackgroundColour.hex);

const Style kOutline{"none", std::string(kSurfaceColour.hex), 1.0, 0.7, "6 4"};
const Style kReference{"none", "#c3c9d2", 1.0, 1.0, "2 4"};
// Opaque: a face hides what lies behind it, labels included.
const Style kFront{std::string(kFrontColour.hex), std::string(kEdgeColour.hex), kFaceOutline, 1.0, ""};
const Style kBack{std::string(kBackColour.hex), "#1d2a38", kFaceOutline, 1.0, ""};
const Style kNoSource{"none", std::string(kEdgeColour.hex), kFaceOutline, 0.9, "5 3"};

void drawSegment(Drawing& d, const View& view, const Area& bounds, const Vec3& a, const Vec3& b, const Style& style) {
    const auto near = view.clipNear(a, b);
    if (!near) {
        return;
    }
    if (const auto flat = clipToArea(view(near->first), view(near->second), bounds)) {
        const Point2 line[] = {flat->first, flat->second};
        d.polyline(line, style);
    }
}

void drawCross(Drawing& d, const View& view, const Area& area, const Vec3& at, const Style& style) {
    if (!view.inFront(at) || !area.contains(view(at))) {
        return;
    }
    const Point2 c = view(at);
    constexpr double r = 6;
    const Point2 across[] = {{c.x - r, c.y}, {c.x + r, c.y}};
    const Point2 down[] = {{c.x, c.y - r}, {c.x, c.y + r}};
    d.polyline(across, style);
    d.polyline(down, style);
}

void drawReference(Drawing& d, const View& view, const Area& area, const host::Comp& comp) {
    const std::vector<Vec3> frame = compFrame(comp);
    d.beginGroup("composition", "data-reference=\"composition\"");
    for (std::size_t i = 0; i < frame.size(); ++i) {
        drawSegment(d, view, area, frame[i], frame[(i + 1) % frame.size()], kReference);
    }
    drawCross(d, view, area, {0.5 * comp.width, 0.5 * comp.height, 0}, Style{"none", "#aab2bd", 1.2, 1, ""});
    d.endGroup();
}

void drawLayer(Drawing& d, const PreviewItem& item, double outline) {
    const PlacedLayer& layer = *item.layer;
    d.beginGroup(layer.name);
    d.title(layer.name);
    Style style = !layer.has_source ? kNoSource : item.front ? kFront : kBack;
    style.stroke_width = outline;
    d.polygon(item.corners, style, item.front ? "front" : "back");
    if (const auto& label = item.label) {
        if (!layer.has_source) {
            d.text(label->baseline, layer.name, TextStyle{label->size, "#17324f", "middle", kBackground});
        } else {
            d.text(label->baseline, layer.name,
                   TextStyle{label->size, item.front ? "#0f2740" : "#e3ebf3", "middle", ""});
        }
    }
    d.endGroup();
}

// The surface's numbers as drawn, for readers of the picture.
std::string surfaceAttributes(const Surface& s) {
    return "data-surface=\"" + std::string(s.top == s.bottom ? "ellipse" : "cylinder") + "\" data-centre=\"" +
           exactNumber(s.centre.x) + " " + exactNumber(s.centre.y) + " " + exactNumber(s.centre.z) +
           "\" data-half-x=\"" + exactNumber(s.half_x) + "\" data-half-z=\"" + exactNumber(s.half_z) +
           "\" data-top=\"" + exactNumber(s.top) + "\" data-bottom=\"" + exactNumber(s.bottom) + "\"";
}

void drawScene(Drawing& d, const PreviewContent& c, const Surface& surface) {
    const View& view = *c.view;
    if (surface.known) {
        d.beginGroup("surface", surfaceAttributes(surface));
        d.endGroup();
    }
    drawReference(d, view, c.area, *c.comp);
    // Lines stay inside the scene's area, clear of the caption.
    for (const PreviewItem& item : c.items) {
        if (item.layer != nullptr) {
            drawLayer(d, item, c.outline);
        }
        for (const auto& [a, b] : item.pieces) {
            const Point2 line[] = {a, b};
            d.polyline(line, kOutline);
        }
    }
    const Style centre{"none", std::string(kSurfaceColour.hex), 1.2, 1, ""};
    for (const auto& [a, b] : c.centre_cross) {
        const Point2 line[] = {a, b};
        d.polyline(line, centre);
    }
}

// Last, over a band of the background, so that nothing reaching up into it crosses the words.
void drawCaption(Drawing& d, const PreviewContent& c) {
    d.band(0, c.caption_bottom, Style{kBackground, "none", 0, 1, ""});
    double y = kMargin;
    for (const std::string& line : c.caption) {
        y += kCaptionLine;
        d.text({kMargin, y - 4}, line, TextStyle{kCaptionSize, "#333333", "start", kBackground});
    }
}

}  // namespace

PreviewPicture makePreview(const host::Project& project, const RunOutcome& outcome) {
    PreviewContent content = gatherPreview(project, outcome);
    PreviewPicture picture{Drawing(kPreviewWidth, kPreviewHeight, kBackground), std::move(content.left_out),
                           std::move(content.outside)};
    Drawing& d = picture.drawing;
    if (content.comp == nullptr) {
        d.text({kPreviewWidth / 2.0, kPreviewHeight / 2.0}, "No composition", TextStyle{16, "#333333", "middle", ""});
        return picture;
    }
    drawScene(d, content, outcome.surface);
    drawCaption(d, content);
    d.compact();
    return picture;
}

Preview drawPreview(const host::Project& project, const RunOutcome& outcome) {
    PreviewPicture picture = makePreview(project, outcome);
    return {svgText(picture.drawing), std::move(picture.left_out), std::move(picture.outside)};
}

}  // namespace app
