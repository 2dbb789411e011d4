#include "app/drawing/svg_writer.h"

#include "platform/driver.h"

#include <cmath>
#include <cstdio>
#include <sstream>

namespace app {

namespace {

using platform::escapeXml;

// Tenths of a pixel: finer steps do not show, and a tenth keeps the file small.
void coordinate(std::ostream& out, double value) {
    char buffer[32];
    const int n = std::snprintf(buffer, sizeof buffer, "%.1f", value);
    out.write(buffer, n);
}

void points(std::ostream& out, std::span<const Point2> points) {
    out << " points=\"";
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i != 0) {
            out << ' ';
        }
        coordinate(out, points[i].x);
        out << ',';
        coordinate(out, points[i].y);
    }
    out << '"';
}

void style(std::ostream& out, const Style& style) {
    out << " fill=\"" << escapeXml(style.fill) << "\" stroke=\"" << escapeXml(style.stroke) << "\"";
    if (style.stroke != "none" && std::isfinite(style.stroke_width)) {
        out << " stroke-width=\"";
        coordinate(out, style.stroke_width);
        out << "\"";
    }
    if (style.opacity < 1) {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "%.2f", style.opacity);
        out << " opacity=\"" << buffer << "\"";
    }
    if (!style.dash.empty()) {
        out << " stroke-dasharray=\"" << escapeXml(style.dash) << "\"";
    }
}

void text(std::ostream& out, Point2 at, std::string_view text, const TextStyle& s) {
    out << "<text x=\"";
    coordinate(out, at.x);
    out << "\" y=\"";
    coordinate(out, at.y);
    out << "\" font-family=\"sans-serif\" font-size=\"";
    coordinate(out, s.size);
    out << "\" fill=\"" << escapeXml(s.fill) << "\" text-anchor=\"" << escapeXml(s.anchor) << "\"";
    if (!s.halo.empty()) {
        out << " stroke=\"" << escapeXml(s.halo) << "\" stroke-width=\"3\" paint-order=\"stroke\"";
    }
    out << ">" << escapeXml(text) << "</text>\n";
}

void band(std::ostream& out, std::span<const Point2> corners, const Style& s) {
    out << "<rect x=\"0\" y=\"";
    coordinate(out, corners[0].y);
    out << "\" width=\"" << corners[1].x << "\" height=\"";
    coordinate(out, corners[1].y - corners[0].y);
    out << "\" fill=\"" << escapeXml(s.fill) << "\"/>\n";
}

void shape(std::ostream& out, const Drawing& d, const Drawing::Shape& s) {
    switch (s.kind) {
        case Drawing::Kind::group:
            out << "<g data-layer=\"" << escapeXml(d.textOf(s)) << "\"";
            if (s.style != 0) {
                out << " " << d.attributes()[s.style];
            }
            out << ">\n";
            break;
        case Drawing::Kind::group_end:
            out << "</g>\n";
            break;
        case Drawing::Kind::title:
            out << "<title>" << escapeXml(d.textOf(s)) << "</title>\n";
            break;
        case Drawing::Kind::polygon:
            out << "<polygon";
            if (s.text_size != 0) {
                out << " data-face=\"" << escapeXml(d.textOf(s)) << "\"";
            }
            points(out, d.pointsOf(s));
            style(out, d.styles()[s.style]);
            out << " stroke-linejoin=\"round\"/>\n";
            break;
        case Drawing::Kind::polyline:
            out << "<polyline";
            points(out, d.pointsOf(s));
            style(out, d.styles()[s.style]);
            out << "/>\n";
            break;
        case Drawing::Kind::text:
            text(out, d.pointsOf(s)[0], d.textOf(s), d.textStyles()[s.style]);
            break;
        case Drawing::Kind::band:
            band(out, d.pointsOf(s), d.styles()[s.style]);
            break;
    }
}

}  // namespace

std::string exactNumber(double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", std::isfinite(value) ? value : 0.0);
    return buffer;
}

void writeSvg(const Drawing& d, std::ostream& out) {
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << d.width() << "\" height=\"" << d.height()
        << "\" viewBox=\"0 0 " << d.width() << " " << d.height() << "\">\n"
        << "<rect x=\"0\" y=\"0\" width=\"" << d.width() << "\" height=\"" << d.height() << "\" fill=\""
        << escapeXml(d.background()) << "\"/>\n";
    for (const Drawing::Shape& s : d.shapes()) {
        shape(out, d, s);
    }
    out << "</svg>\n";
}

std::string svgText(const Drawing& drawing) {
    std::ostringstream out;
    writeSvg(drawing, out);
    return std::move(out).str();
}

}  // namespace app
