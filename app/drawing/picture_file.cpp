#include "app/drawing/picture_file.h"

#include "app/output/file_ending.h"

#include "app/run/app_error.h"

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <memory>

namespace app {

namespace {

struct HandleFree {
    void operator()(RsvgHandle* h) const { g_object_unref(h); }
};
struct SurfaceFree {
    void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
struct CairoFree {
    void operator()(cairo_t* c) const { cairo_destroy(c); }
};

std::string takeMessage(GError* error) {
    std::string text = error != nullptr && error->message != nullptr ? error->message : "unknown error";
    if (error != nullptr) {
        g_error_free(error);
    }
    return text;
}

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::optional<PictureFormat> pictureFormat(std::string_view path) {
    if (endsWith(path, ".svg")) {
        return PictureFormat::svg;
    }
    if (endsWith(path, ".png")) {
        return PictureFormat::png;
    }
    return std::nullopt;
}

std::string pictureNameProblem(std::string_view option, std::string_view path) {
    if (pictureFormat(path)) {
        return {};
    }
    return std::string(option) + " " + std::string(path) +
           ": the picture's file name must end in .svg or .png, which choose its format";
}

std::string renderPng(const std::string& svg) {
    GError* error = nullptr;
    std::unique_ptr<RsvgHandle, HandleFree> handle(
        rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), &error));
    if (!handle) {
        throw AppError("cannot render the picture as PNG: " + takeMessage(error));
    }
    double width = 0;
    double height = 0;
    if (!rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height) || !(width >= 1 && height >= 1) ||
        width > 32767 || height > 32767) {
        throw AppError("cannot render the picture as PNG: it has no usable size in pixels");
    }
    const int w = static_cast<int>(std::ceil(width));
    const int h = static_cast<int>(std::ceil(height));
    std::unique_ptr<cairo_surface_t, SurfaceFree> surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h));
    std::unique_ptr<cairo_t, CairoFree> cr(cairo_create(surface.get()));
    const RsvgRectangle viewport{0, 0, width, height};
    if (!rsvg_handle_render_document(handle.get(), cr.get(), &viewport, &error)) {
        throw AppError("cannot render the picture as PNG: " + takeMessage(error));
    }
    std::string png;
    if (cairo_surface_write_to_png_stream(surface.get(), appendBytes, &png) != CAIRO_STATUS_SUCCESS) {
        throw AppError("cannot encode the picture as PNG");
    }
    return png;
}

std::string pictureBytes(const std::string& svg, PictureFormat format) {
    return format == PictureFormat::png ? renderPng(svg) : svg;
}

}  // namespace app
