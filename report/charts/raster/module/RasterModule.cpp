#include "report/charts/raster/RasterModule.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <cmath>
#include <memory>

namespace {

constexpr double kPointsToAPixel = 0.75;
constexpr double kLongestSide = 32767;   // the libraries' limit, in pixels
constexpr double kMostPixels = 1 << 28;  // they take four bytes each

// A page made today is the same as one made tomorrow.
constexpr const char* kDate = "2000-01-01T00:00:00Z";

struct Release {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
using Handle = std::unique_ptr<RsvgHandle, Release>;
using Surface = std::unique_ptr<cairo_surface_t, Release>;
using Cairo = std::unique_ptr<cairo_t, Release>;

struct Taker {
    HierfitTakeBytes fpTake;
    void* fpContext;
};

cairo_status_t Take(void* closure, const unsigned char* bytes, unsigned int size) {
    const Taker& taker = *static_cast<Taker*>(closure);
    taker.fpTake(taker.fpContext, bytes, size);
    return CAIRO_STATUS_SUCCESS;
}

struct Image {
    Handle fHandle;
    double fWidth = 0;
    double fHeight = 0;
};

Image Read(const char* svg, std::size_t size) {
    Image image;
    image.fHandle.reset(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg), size, nullptr));
    if (!image.fHandle) return image;
    const bool hasSize = rsvg_handle_get_intrinsic_size_in_pixels(image.fHandle.get(), &image.fWidth, &image.fHeight);
    if (!hasSize || !(image.fWidth > 0) || !(image.fHeight > 0)) image.fHandle.reset();
    return image;
}

bool Render(const Image& image, cairo_surface_t* surface, double scale) {
    const Cairo cairo(cairo_create(surface));
    cairo_scale(cairo.get(), scale, scale);
    const RsvgRectangle all{0, 0, image.fWidth, image.fHeight};
    return rsvg_handle_render_document(image.fHandle.get(), cairo.get(), &all, nullptr) &&
           cairo_status(cairo.get()) == CAIRO_STATUS_SUCCESS;
}

HierfitRasterResult WritePng(const char* svg, std::size_t size, double scale, HierfitTakeBytes take, void* context) {
    const Image image = Read(svg, size);
    if (!image.fHandle) return kHierfitRefused;
    const double width = std::ceil(image.fWidth * scale);
    const double height = std::ceil(image.fHeight * scale);
    const bool isPossible = width >= 1 && width <= kLongestSide && height >= 1 && height <= kLongestSide;
    if (!isPossible || width * height > kMostPixels) return kHierfitRefused;
    const Surface surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
    if (!Render(image, surface.get(), scale)) return kHierfitShort;
    Taker taker{take, context};
    const bool isWritten = cairo_surface_write_to_png_stream(surface.get(), &Take, &taker) == CAIRO_STATUS_SUCCESS;
    return isWritten ? kHierfitMade : kHierfitShort;
}

HierfitRasterResult WritePdf(const char* svg, std::size_t size, HierfitTakeBytes take, void* context) {
    const Image image = Read(svg, size);
    if (!image.fHandle) return kHierfitRefused;
    Taker taker{take, context};
    const Surface surface(cairo_pdf_surface_create_for_stream(&Take, &taker, image.fWidth * kPointsToAPixel,
                                                              image.fHeight * kPointsToAPixel));
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, kDate);
    if (!Render(image, surface.get(), kPointsToAPixel)) return kHierfitShort;
    cairo_surface_finish(surface.get());
    return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? kHierfitMade : kHierfitShort;
}

constexpr HierfitRasterFunctions kFunctions{&WritePng, &WritePdf};

}  // namespace

extern "C" __attribute__((visibility("default"))) const HierfitRasterFunctions* GetHierfitRasterFunctions() {
    return &kFunctions;
}
