#pragma once

#include <array>
#include <string_view>

namespace hierfit::chart::expression {

/// Names of the arrays that hold the words of levels.
inline constexpr std::string_view kXNames = "x_text";
inline constexpr std::string_view kColorNames = "color_text";
inline constexpr std::string_view kFacetNames = "facet_text";
inline constexpr std::string_view kSecondFacetNames = "facet2_text";
inline constexpr std::string_view kTypeNames = "type_text";
inline constexpr std::string_view kWeightNames = "weight_text";
inline constexpr std::string_view kSignNames = "sign_text";

/// All expressions that a view may hold. Labels are data and never part of one.
inline constexpr std::string_view kXText = "x_text[datum.value]";
inline constexpr std::string_view kXLines = "split(x_text[datum.value], '\\n')";
inline constexpr std::string_view kColorText = "color_text[datum.value]";
inline constexpr std::string_view kFacetText = "facet_text[datum.value]";
inline constexpr std::string_view kSecondFacetText = "facet2_text[datum.value]";
inline constexpr std::string_view kTypeText = "type_text[datum.value]";
inline constexpr std::string_view kWeightText = "weight_text[datum.value]";
inline constexpr std::string_view kSignText = "sign_text[datum.value]";
inline constexpr std::string_view kIsLink = "isValid(datum.x2)";
inline constexpr std::string_view kIsNode = "isValid(datum.lx)";
inline constexpr std::string_view kSide = "datum.side";
inline constexpr std::string_view kBaseline = "datum.base";
inline constexpr std::string_view kTurn = "datum.turn";
inline constexpr std::string_view kHasMean = "isValid(datum.m)";
inline constexpr std::string_view kHasBase = "isValid(datum.base)";
inline constexpr std::string_view kLegendLayout =
    "{bottom: {anchor: 'start', direction: 'vertical', margin: 10}, "
    "top: {anchor: 'start', direction: 'vertical', margin: 8}}";

/// The list that a view is checked against.
inline constexpr std::array kAll = {
    kXText,        kXLines,     kColorText, kFacetText, kSecondFacetText, kTypeText, kHasMean,  kHasBase,
    kLegendLayout, kWeightText, kSignText,  kIsLink,    kIsNode,          kSide,     kBaseline, kTurn,
};

}  // namespace hierfit::chart::expression
