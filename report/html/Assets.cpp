#include "report/html/Assets.h"

// The build writes these symbols; see cmake/EmbedAsset.cmake.
extern "C" {
extern const char hierfit_asset_style_begin[];
extern const char hierfit_asset_style_end[];
extern const char hierfit_asset_style_hash[];
extern const char hierfit_asset_script_begin[];
extern const char hierfit_asset_script_end[];
extern const char hierfit_asset_script_hash[];
}

namespace hierfit::report::html {

namespace {

std::string_view Between(const char* begin, const char* end) { return {begin, static_cast<std::size_t>(end - begin)}; }

}  // namespace

Asset StyleSheet() { return {Between(hierfit_asset_style_begin, hierfit_asset_style_end), hierfit_asset_style_hash}; }

Asset Script() { return {Between(hierfit_asset_script_begin, hierfit_asset_script_end), hierfit_asset_script_hash}; }

}  // namespace hierfit::report::html
