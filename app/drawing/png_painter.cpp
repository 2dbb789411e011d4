#include "app/drawing/png_painter.h"

#include "app/drawing/hidden_shapes.h"

#include "app/run/app_error.h"

#include <cairo.h>
#include <pango/pangocairo.h>

#include <charconv>
#include <memory>
#include <sstream>

namespace app {

namespace {

struct Colour {
    double r = 0, g = 0, b = 0;
    bool none = true;
};

// "#rrggbb", or none for "none" and anything else.
Colour colour(const std::string& text) {
    unsigned value = 0;
    if (text.size() != 7 || text[0] != '#' ||
        std::from_chars(text.data() + 1, text.data() + 7, value, 16).ptr != text.data() + 7) {
        return {};
    }
    return {((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0, (value & 0xFF) / 255.0, false};
}

std::vector<double> dashes(const std::string& text) {
    std::vector<double> out;
    std::istringstream in(text);
    for (double d = 0; in >> d;) {
        out.push_back(d);
    }
    return out;
}

void source(cairo_t* cr, const Colour& c, double alpha) { cairo_set_source_rgba(cr, c.r, c.g, c.b, alpha); }

void path(cairo_t* cr, std::span<const Point2> points, bool closed) {
    cairo_new_path(cr);
    for (const Point2& p : points) {
        cairo_line_to(cr, p.x, p.y);
    }
    if (closed) {
        cairo_close_path(cr);
    }
}

// Fill, then stroke, of the current path; with both and an opacity the two are one layer, as in SVG.
void paintPath(cairo_t* cr, const Style& style, bool round_joins) {
    const Colour fill = colour(style.fill), stroke = colour(style.stroke);
    const bool grouped = style.opacity < 1 && !fill.none && !stroke.none;
    const double alpha = grouped ? 1 : style.opacity;
    if (grouped) {
        cairo_push_group(cr);
    }
    if (!fill.none) {
        source(cr, fill, alpha);
        cairo_fill_preserve(cr);
    }
    if (!stroke.none && style.stroke_width > 0) {
        const std::vector<double> dash = dashes(style.dash);
        cairo_set_dash(cr, dash.data(), static_cast<int>(dash.size()), 0);
        cairo_set_line_width(cr, style.stroke_width);
        cairo_set_line_join(cr, round_joins ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
        source(cr, stroke, alpha);
        cairo_stroke_preserve(cr);
    }
    cairo_new_path(cr);
    if (grouped) {
        cairo_pop_group_to_source(cr);
        cairo_paint_with_alpha(cr, style.opacity);
    }
}

struct Text {
    PangoLayout* layout;
    std::vector<PangoFontDescription*> fonts;  // by text style
};

void paintText(cairo_t* cr, Text& t, Point2 at, std::string_view text, std::uint32_t index, const TextStyle& s) {
    if (t.fonts.size() <= index) {
        t.fonts.resize(index + 1, nullptr);
    }
    if (t.fonts[index] == nullptr) {
        t.fonts[index] = pango_font_description_from_string("sans-serif");
        pango_font_description_set_absolute_size(t.fonts[index], s.size * PANGO_SCALE);
    }
    pango_layout_set_font_description(t.layout, t.fonts[index]);
    pango_layout_set_text(t.layout, text.data(), static_cast<int>(text.size()));
    PangoRectangle logical;
    pango_layout_get_extents(t.layout, nullptr, &logical);
    const double width = static_cast<double>(logical.width) / PANGO_SCALE;
    const double shift = s.anchor == "middle" ? width / 2 : s.anchor == "end" ? width : 0;
    const double baseline = static_cast<double>(pango_layout_get_baseline(t.layout)) / PANGO_SCALE;
    cairo_new_path(cr);
    cairo_move_to(cr, at.x - shift, at.y - baseline);
    pango_cairo_layout_path(cr, t.layout);
    if (const Colour halo = colour(s.halo); !halo.none) {
        cairo_set_dash(cr, nullptr, 0, 0);
        cairo_set_line_width(cr, 3);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
        source(cr, halo, 1);
        cairo_stroke_preserve(cr);
    }
    source(cr, colour(s.fill), 1);
    cairo_fill(cr);
}

// Letters as an SVG renderer sets them: outlines unhinted, placed at their exact advances, grey
// edges, so that a name takes the width the label was fitted to at any size.
PangoLayout* unhintedLayout(cairo_t* cr) {
    PangoLayout* layout = pango_cairo_create_layout(cr);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    PangoContext* context = pango_layout_get_context(layout);
    pango_cairo_context_set_font_options(context, options);
    pango_layout_context_changed(layout);
    cairo_font_options_destroy(options);
    return layout;
}

void paintShapes(cairo_t* cr, const Drawing& d) {
    Text text{unhintedLayout(cr), {}};
    const std::vector<bool> hidden = hiddenShapes(d);
    for (std::size_t i = 0; i < d.shapes().size(); ++i) {
        const Drawing::Shape& s = d.shapes()[i];
        if (hidden[i]) {
            continue;
        }
        switch (s.kind) {
            case Drawing::Kind::polygon:
            case Drawing::Kind::polyline:
                path(cr, d.pointsOf(s), s.kind == Drawing::Kind::polygon);
                paintPath(cr, d.styles()[s.style], s.kind == Drawing::Kind::polygon);
                break;
            case Drawing::Kind::band: {
                const auto corners = d.pointsOf(s);
                cairo_rectangle(cr, 0, corners[0].y, corners[1].x, corners[1].y - corners[0].y);
                paintPath(cr, d.styles()[s.style], false);
                break;
            }
            case Drawing::Kind::text:
                paintText(cr, text, d.pointsOf(s)[0], d.textOf(s), s.style, d.textStyles()[s.style]);
                break;
            default:  // groups and titles hold no pixels
                break;
        }
    }
    for (PangoFontDescription* font : text.fonts) {
        if (font != nullptr) {
            pango_font_description_free(font);
        }
    }
    g_object_unref(text.layout);
}

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

struct SurfaceFree {
    void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
struct CairoFree {
    void operator()(cairo_t* c) const { cairo_destroy(c); }
};

}  // namespace

std::string paintPng(const Drawing& d) {
    std::unique_ptr<cairo_surface_t, SurfaceFree> surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, d.width(), d.height()));
    std::unique_ptr<cairo_t, CairoFree> cr(cairo_create(surface.get()));
    const Colour background = colour(d.background());
    if (!background.none) {
        source(cr.get(), background, 1);
        cairo_paint(cr.get());
    }
    paintShapes(cr.get(), d);
    std::string png;
    if (cairo_status(cr.get()) != CAIRO_STATUS_SUCCESS ||
        cairo_surface_write_to_png_stream(surface.get(), appendBytes, &png) != CAIRO_STATUS_SUCCESS) {
        throw AppError("cannot paint the picture as PNG: " +
                       std::string(cairo_status_to_string(cairo_status(cr.get()))));
    }
    return png;
}

}  // namespace app
