#pragma once

#include <cstddef>

/// What the module that draws static pictures offers. It is loaded only when pictures are asked for, since it brings a
/// script engine with it. All texts are UTF-8 and end in a zero
/// byte.
extern "C" {

struct HierfitPictures;

struct HierfitPictureFunctions {
    /// Starts an engine on the script that draws charts; null when it does not start.
    HierfitPictures* (*fpOpen)(const char* script);

    /// Draws a view, given as JSON, as SVG of `size` bytes; null when it cannot be drawn. The text is good until the
    /// next call, and may hold zero bytes where the view's texts do.
    const char* (*fpDraw)(HierfitPictures* pictures, const char* view, std::size_t* size);

    void (*fpClose)(HierfitPictures* pictures);
};

/// The module's one export.
using HierfitGetPictureFunctions = const HierfitPictureFunctions* (*)();
}

inline constexpr const char* kHierfitGetPictureFunctions = "GetHierfitPictureFunctions";
