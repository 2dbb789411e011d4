#include "app/drawing/svg_writer.h"

#include "platform/driver.h"

#include <cmath>
#include <cstdio>

namespace app {

namespace {

std::string coordinate(double value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.1f", value);
    return buffer;
}

bool finite(double value) { return std::isfinite(value); }

using platform::escapeXml;

}  // namespace

std::string exactNumber(double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", std::isfinite(value) ? value : 0.0);
    return buffer;
}

SvgWriter::SvgWriter(int width, int height, std::string_view background) {
    out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
         << "\" viewBox=\"0 0 " << width << " " << height << "\">\n"
         << "<rect x=\"0\" y=\"0\" width=\"" << width << "\" height=\"" << height << "\" fill=\""
         << escapeXml(background) << "\"/>\n";
}

bool SvgWriter::finite(const std::vector<Point2>& pts) {
    for (const Point2& p : pts) {
        if (!app::finite(p.x) || !app::finite(p.y)) {
            ++left_out_;
            return false;
        }
    }
    return true;
}

void SvgWriter::points(const std::vector<Point2>& points) {
    out_ << " points=\"";
    for (std::size_t i = 0; i < points.size(); ++i) {
        out_ << (i == 0 ? "" : " ") << coordinate(points[i].x) << "," << coordinate(points[i].y);
    }
    out_ << "\"";
}

void SvgWriter::style(const Style& style) {
    out_ << " fill=\"" << escapeXml(style.fill) << "\" stroke=\"" << escapeXml(style.stroke) << "\"";
    if (style.stroke != "none" && app::finite(style.stroke_width)) {
        out_ << " stroke-width=\"" << coordinate(style.stroke_width) << "\"";
    }
    if (style.opacity < 1) {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "%.2f", style.opacity);
        out_ << " opacity=\"" << buffer << "\"";
    }
    if (!style.dash.empty()) {
        out_ << " stroke-dasharray=\"" << escapeXml(style.dash) << "\"";
    }
}

void SvgWriter::polygon(const std::vector<Point2>& pts, const Style& s, std::string_view data) {
    if (!finite(pts)) {
        return;
    }
    out_ << "<polygon";
    if (!data.empty()) {
        out_ << " data-face=\"" << escapeXml(data) << "\"";
    }
    points(pts);
    style(s);
    out_ << " stroke-linejoin=\"round\"/>\n";
}

void SvgWriter::polyline(const std::vector<Point2>& pts, const Style& s) {
    if (!finite(pts)) {
        return;
    }
    out_ << "<polyline";
    points(pts);
    style(s);
    out_ << "/>\n";
}

void SvgWriter::text(Point2 at, std::string_view text, double size, std::string_view fill, std::string_view anchor) {
    this->text(at, text, TextStyle{size, std::string(fill), std::string(anchor), ""});
}

void SvgWriter::text(Point2 at, std::string_view text, const TextStyle& s) {
    if (!finite({at}) || !app::finite(s.size)) {
        return;
    }
    out_ << "<text x=\"" << coordinate(at.x) << "\" y=\"" << coordinate(at.y)
         << "\" font-family=\"sans-serif\" font-size=\"" << coordinate(s.size) << "\" fill=\"" << escapeXml(s.fill)
         << "\" text-anchor=\"" << escapeXml(s.anchor) << "\"";
    if (!s.halo.empty()) {
        out_ << " stroke=\"" << escapeXml(s.halo) << "\" stroke-width=\"3\" paint-order=\"stroke\"";
    }
    out_ << ">" << escapeXml(text) << "</text>\n";
}

void SvgWriter::title(std::string_view text) { out_ << "<title>" << escapeXml(text) << "</title>\n"; }

void SvgWriter::beginGroup(std::string_view data, std::string_view attributes) {
    out_ << "<g data-layer=\"" << escapeXml(data) << "\"";
    if (!attributes.empty()) {
        out_ << " " << attributes;
    }
    out_ << ">\n";
}

void SvgWriter::endGroup() { out_ << "</g>\n"; }

std::string SvgWriter::finish() {
    out_ << "</svg>\n";
    return out_.str();
}

}  // namespace app
