#pragma once

#include <cstddef>

/// What the module that turns SVG into other formats offers. It is loaded only when one of them is asked for, since it
/// brings large libraries along. The same bytes come out for the same input on machines with the same fonts.
extern "C" {

/// What became of an image.
enum HierfitRasterResult {
    kHierfitMade,
    kHierfitRefused,  ///< it is none, or larger than images can be
    kHierfitShort,    ///< memory is
};

/// Takes a part of the result; `context` is the caller's. It throws nothing.
using HierfitTakeBytes = void (*)(void* context, const unsigned char* bytes, std::size_t size);

struct HierfitRasterFunctions {
    /// Writes an SVG image as PNG, `scale` pixels to each of its own. Where it is not made, nothing or a part is
    /// taken.
    HierfitRasterResult (*fpWritePng)(const char* svg, std::size_t size, double scale, HierfitTakeBytes take,
                                      void* context);

    /// The same as a PDF document of one page of the image's size, in vectors, 3/4 point to each of its pixels.
    HierfitRasterResult (*fpWritePdf)(const char* svg, std::size_t size, HierfitTakeBytes take, void* context);
};

/// The module's one export.
using HierfitGetRasterFunctions = const HierfitRasterFunctions* (*)();
}

inline constexpr const char* kHierfitGetRasterFunctions = "GetHierfitRasterFunctions";
