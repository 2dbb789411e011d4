// Pictures of windows and views as SVG, drawn from what the window system holds.
#include "platform/driver.h"
#include "platform/metrics.h"
#include "platform/svg_controls.h"

#include <sstream>

namespace platform {

using namespace detail;

std::string escapeXml(std::string_view text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\'':
                out += "&apos;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

namespace {

constexpr int kTitleBar = 22;
constexpr Colour kThemeBackground{0xec, 0xec, 0xec};

void header(std::ostringstream& out, int width, int height) {
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
        << "\" viewBox=\"0 0 " << width << " " << height << "\">\n";
}

void filledRect(std::ostringstream& out, double x, double y, double width, double height, Colour fill,
                CGFloat alpha = 1) {
    out << "<rect x=\"" << x << "\" y=\"" << y << "\" width=\"" << width << "\" height=\"" << height << "\" fill=\""
        << hexOf(fill) << "\"";
    if (alpha < 1)
        out << " fill-opacity=\"" << alpha << "\"";
    out << "/>\n";
}

}  // namespace

std::string windowToSvg(WindowRef window) {
    auto w = liveWindow(window);
    if (!w)
        return std::string();
    int width = w->content.right - w->content.left;
    int height = w->content.bottom - w->content.top;
    std::ostringstream out;
    header(out, width, height + kTitleBar);
    out << "<rect x=\"0\" y=\"0\" width=\"" << width << "\" height=\"" << kTitleBar
        << "\" fill=\"#d8d8d8\" stroke=\"#8a8a8a\"/>\n";
    const FaceMetrics& m = metricsOf(Face::small);
    out << "<text class=\"title\" x=\"" << width / 2 << "\" y=\"" << (kTitleBar - m.lineHeight) / 2 + m.ascent
        << "\" font-family=\"" << kSansFamily << "\" font-size=\"" << m.pointSize
        << "\" fill=\"#000000\" text-anchor=\"middle\">" << escapeXml(toUtf8(w->title)) << "</text>\n";
    filledRect(out, 0, kTitleBar, width, height, kThemeBackground);
    if (w->root && w->root->visible) {
        paintSubviews(out, *w->root, w->root->bounds.left, kTitleBar + w->root->bounds.top, w->root->enabled,
                      Backdrop(kThemeBackground));
    }
    out << "</svg>\n";
    return out.str();
}

std::string viewToSvg(ControlRef view) {
    std::shared_ptr<OpaqueControlRef> v = sharedControl(view);
    if (!v)
        return std::string();
    int width = v->bounds.right - v->bounds.left;
    int height = v->bounds.bottom - v->bounds.top;
    std::ostringstream out;
    header(out, width, height);
    // The view paints its own background when its handlers draw; the theme's lies beneath.
    DrawRecord drawn = drawView(view);
    if (v->dead)
        return std::string();  // a draw handler disposed it
    filledRect(out, 0, 0, width, height, kThemeBackground);
    Backdrop backdrop(kThemeBackground);
    for (const FillRecord& fill : drawn.fills) {
        Colour colour = fromUnit(fill.red, fill.green, fill.blue);
        filledRect(out, fill.rect.origin.x, fill.rect.origin.y, fill.rect.size.width, fill.rect.size.height, colour,
                   fill.alpha);
        backdrop.paint(fill.rect, colour, fill.alpha);
    }
    if (v->visible)
        paintSubviews(out, *v, 0, 0, v->enabled, backdrop);
    out << "</svg>\n";
    return out.str();
}

}  // namespace platform
