#include "app/svg_writer.h"

#include "platform/driver.h"

#include <cstdio>

namespace app {

namespace {

std::string coordinate(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.1f", value);
    return buffer;
}

using platform::escapeXml;

}  // namespace

SvgWriter::SvgWriter(int width, int height, std::string_view background)
{
    out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
         << "\" viewBox=\"0 0 " << width << " " << height << "\">\n"
         << "<rect x=\"0\" y=\"0\" width=\"" << width << "\" height=\"" << height << "\" fill=\""
         << escapeXml(background) << "\"/>\n";
}

void SvgWriter::points(const std::vector<Point2>& points)
{
    out_ << " points=\"";
    for (std::size_t i = 0; i < points.size(); ++i) {
        out_ << (i == 0 ? "" : " ") << coordinate(points[i].x) << "," << coordinate(points[i].y);
    }
    out_ << "\"";
}

void SvgWriter::style(const Style& style)
{
    out_ << " fill=\"" << escapeXml(style.fill) << "\" stroke=\"" << escapeXml(style.stroke) << "\"";
    if (style.stroke != "none") {
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

void SvgWriter::polygon(const std::vector<Point2>& pts, const Style& s, std::string_view data)
{
    out_ << "<polygon";
    if (!data.empty()) {
        out_ << " data-face=\"" << escapeXml(data) << "\"";
    }
    points(pts);
    style(s);
    out_ << " stroke-linejoin=\"round\"/>\n";
}

void SvgWriter::polyline(const std::vector<Point2>& pts, const Style& s)
{
    out_ << "<polyline";
    points(pts);
    style(s);
    out_ << "/>\n";
}

void SvgWriter::text(Point2 at, std::string_view text, double size, std::string_view fill, std::string_view anchor)
{
    out_ << "<text x=\"" << coordinate(at.x) << "\" y=\"" << coordinate(at.y)
         << "\" font-family=\"sans-serif\" font-size=\"" << coordinate(size) << "\" fill=\"" << escapeXml(fill)
         << "\" text-anchor=\"" << escapeXml(anchor) << "\">" << escapeXml(text) << "</text>\n";
}

void SvgWriter::beginGroup(std::string_view data)
{
    out_ << "<g data-layer=\"" << escapeXml(data) << "\">\n";
}

void SvgWriter::endGroup() { out_ << "</g>\n"; }

std::string SvgWriter::finish()
{
    out_ << "</svg>\n";
    return out_.str();
}

}  // namespace app
