#include "app/drawing/preview_content.h"

#include "app/drawing/preview_caption.h"
#include "app/drawing/preview_frame.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr std::size_t kCaptionWidth = 165;  // characters of a caption line
std::vector<std::string> captionLines(const CaptionFacts& facts) {
    std::vector<std::string> lines;
    for (const std::string& sentence : captionSentences(facts)) {
        for (std::string& line : wrapText(sentence, kCaptionWidth)) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

enum class Placed { drawn, outside, too_large };

// A layer on the picture; `placed` says why not when it lies beyond the picture, behind the
// camera, or reaches from in front of it to behind it (too large to draw).
std::optional<PreviewItem> itemOf(const PlacedLayer& layer, const View& view, const Area& area, Placed& placed) {
    PreviewItem item;
    item.layer = &layer;
    Area box{1e300, 1e300, -1e300, -1e300};
    for (std::size_t k = 0; k < layer.corners.size(); ++k) {
        const Vec3& c = layer.corners[k];
        if (!view.inFront(c)) {
            placed = view.inFront(layer.centre) ? Placed::too_large : Placed::outside;
            return std::nullopt;
        }
        const Point2 q = view(c);
        item.corners[k] = q;
        box = {std::min(box.left, q.x), std::min(box.top, q.y), std::max(box.right, q.x), std::max(box.bottom, q.y)};
        item.depth += view.depth(c) / 4;
    }
    if (!(box.right >= 0 && box.left <= kPreviewWidth && box.bottom >= area.top && box.top <= kPreviewHeight)) {
        placed = Placed::outside;
        return std::nullopt;
    }
    item.front = dot(layer.normal, view.camera().eye - layer.centre) > 0;
    item.label = fitLabel(item.corners, view(layer.centre), layer.name);
    return item;
}

// Layers and pieces of the surface's outline, far to near; the layers not drawn named.
void placeItems(PreviewContent& c, const std::vector<const PlacedLayer*>& layers, const Surface& surface) {
    for (const PlacedLayer* layer : layers) {
        Placed placed = Placed::drawn;
        if (std::optional<PreviewItem> item = itemOf(*layer, *c.view, c.area, placed)) {
            c.items.push_back(std::move(*item));
        } else {
            (placed == Placed::too_large ? c.left_out : c.outside).push_back(layer->name);
        }
    }
    for (const auto& [a, b] : outlinePieces(surface)) {
        PreviewItem piece;
        piece.depth = c.view->depth(0.5 * (a + b));
        piece.a = a;
        piece.b = b;
        c.items.push_back(piece);
    }
    std::stable_sort(c.items.begin(), c.items.end(),
                     [](const PreviewItem& a, const PreviewItem& b) { return a.depth > b.depth; });
}

void keepReadableLabels(std::vector<PreviewItem>& items) {
    std::vector<PaintedFace> faces;
    std::vector<std::size_t> at;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (const PreviewItem& item = items[i]; item.layer != nullptr) {
            faces.push_back({item.corners, item.layer->has_source, item.label ? &*item.label : nullptr});
            at.push_back(i);
        }
    }
    const std::vector<bool> kept = readableLabels(faces, kPreviewWidth, kPreviewHeight);
    for (std::size_t k = 0; k < at.size(); ++k) {
        if (!kept[k]) {
            items[at[k]].label.reset();
        }
    }
}

// Where thousands of faces crowd into a small part of the picture, outlines of a fixed width would
// cover their fills, and the dark outlines of front faces would read as back faces. Outlines get
// thinner until their ink is at most about a sixth of the area the faces span.
double outlineWidth(const std::vector<PreviewItem>& items) {
    constexpr double kInk = 1.0 / 6, kThinnest = 0.2;
    double perimeter = 0;
    Point2 low{1e300, 1e300}, high{-1e300, -1e300};
    for (const PreviewItem& item : items) {
        for (std::size_t k = 0; item.layer != nullptr && k < item.corners.size(); ++k) {
            const Point2 p = item.corners[k], q = item.corners[(k + 1) % item.corners.size()];
            perimeter += std::hypot(q.x - p.x, q.y - p.y);
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
    }
    const double span = std::clamp(high.x - low.x, 0.0, double{kPreviewWidth}) *
                        std::clamp(high.y - low.y, 0.0, double{kPreviewHeight});
    if (perimeter <= 0) {
        return kFaceOutline;
    }
    return std::clamp(kInk * span / perimeter, kThinnest, kFaceOutline);
}

// A guide line keeps this far from a name's box.
constexpr double kLineGap = 4;
// Half the length of a stroke of the centre's cross.
constexpr double kCross = 6;

// The caption is painted last over a band of the background: a name reaching into it would be cut.
void dropNamesUnderCaption(std::vector<PreviewItem>& items, double caption_bottom) {
    for (PreviewItem& item : items) {
        if (item.label && item.label->low.y < caption_bottom) {
            item.label.reset();
        }
    }
}

// Guide lines painted after a name leave a gap where it stands, so that no line crosses letters:
// the surface's outline pieces (painted among the layers, far to near) and the centre's cross
// (painted last).
void breakLinesAtNames(PreviewContent& c, const Surface& surface) {
    const View& view = *c.view;
    std::vector<Box> names;
    for (PreviewItem& item : c.items) {
        if (item.layer != nullptr) {
            if (item.label) {
                names.push_back(boxOf(*item.label));
            }
            continue;
        }
        const auto near = view.clipNear(item.a, item.b);
        if (const auto flat = near ? clipToArea(view(near->first), view(near->second), c.area) : std::nullopt) {
            item.pieces = outsideBoxes(flat->first, flat->second, names, kLineGap);
        }
    }
    if (!surface.known || !view.inFront(surface.centre) || !c.area.contains(view(surface.centre))) {
        return;
    }
    const Point2 m = view(surface.centre);
    for (const Segment2& stroke :
         {Segment2{{m.x - kCross, m.y}, {m.x + kCross, m.y}}, Segment2{{m.x, m.y - kCross}, {m.x, m.y + kCross}}}) {
        for (const Segment2& part : outsideBoxes(stroke.first, stroke.second, names, kLineGap)) {
            c.centre_cross.push_back(part);
        }
    }
}

}  // namespace

PreviewContent gatherPreview(const host::Project& project, const RunOutcome& outcome) {
    PreviewContent c;
    c.comp = outcome.comp != 0 ? project.comp(outcome.comp) : reportedComp(project);
    if (c.comp == nullptr) {
        return c;
    }
    c.placed = placeLayers(project, *c.comp, outcome.sourceless);
    std::vector<const PlacedLayer*> layers;
    for (const PlacedLayer& layer : c.placed) {
        if (drawable(layer)) {
            layers.push_back(&layer);
        } else {
            c.left_out.push_back(layer.name);
        }
    }
    // The caption's length decides how much room the scene gets, and the caption names what falls
    // outside the scene: frame first with the caption as it is without that list, and one line
    // more for the list, should there be one.
    CaptionFacts facts{c.comp, &outcome, {}, c.left_out};
    const std::size_t lines = captionLines(facts).size() + 1;
    c.area = Area{kMargin, kMargin + kCaptionLine * static_cast<double>(lines), kPreviewWidth - kMargin,
                  kPreviewHeight - kMargin};
    c.view = previewView(layers, outcome, *c.comp, c.area);
    placeItems(c, layers, outcome.surface);
    keepReadableLabels(c.items);
    c.outline = outlineWidth(c.items);
    facts.outside = c.outside;
    facts.left_out = c.left_out;
    c.caption = captionLines(facts);
    c.caption_bottom = kMargin + kCaptionLine * static_cast<double>(c.caption.size()) + 2;
    dropNamesUnderCaption(c.items, c.caption_bottom);
    breakLinesAtNames(c, outcome.surface);
    return c;
}

}  // namespace app
