#pragma once

#include <string_view>

namespace hierfit::report::html {

/// A file that the library carries in itself and every page in turn. It lives as long as the library.
struct Asset {
    std::string_view fText;
    std::string_view fHash;  ///< as a content security policy names it: `sha256-` and base64
};

Asset StyleSheet();
Asset Script();

}  // namespace hierfit::report::html
