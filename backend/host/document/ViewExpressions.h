#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

/// What a chart's view may hold, for those who write views and those who read them back. A view runs nothing and
/// fetches nothing: its expressions are the few below, to the letter, and its keys draw. Whoever gives a view a new key
/// or expression adds it here.
namespace hierfit::document::expression {

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

/// All of them.
inline constexpr std::array kAll = {
    kXText,        kXLines,     kColorText, kFacetText, kSecondFacetText, kTypeText, kHasMean,  kHasBase,
    kLegendLayout, kWeightText, kSignText,  kIsLink,    kIsNode,          kSide,     kBaseline, kTurn,
};

}  // namespace hierfit::document::expression

namespace hierfit::document {

/// What a view may ask for at most, so that it can be drawn in bounded time and memory: pixels of a side, ticks of an axis.
inline constexpr int kMostPixels = 4'000'000;
inline constexpr int kMostTicks = 100'000;

/// The keys of a view whose texts are expressions.
inline constexpr std::array<std::string_view, 3> kExpressionKeys{"expr", "filter", "labelExpr"};

/// Keys outside rows of data, whose names are free; a blank before and behind each.
inline constexpr std::string_view kViewKeys =
    " $schema align anchor angle area aria ariaRole ariaRoleDescription autosize axes axis axisX axisY background "
    "bandPosition bandSize bar base baseline binSpacing bounds category center circle clamp clip clipHeight "
    "color column columnPadding columns concat condition config constant contains continuousBandSize "
    "cornerRadius cornerRadiusEnd data datum description detail dir direction discreteBandSize diverging domain "
    "domainColor domainDash domainMax domainMin domainOpacity domainWidth dx dy ellipsis encoding exponent expr "
    "facet field fill filled filter font fontSize fontStyle fontWeight format frame gradientLength grid "
    "gridAlign gridColor gridDash gridOpacity gridWidth hconcat header headerColumn headerFacet headerRow "
    "heatmap height independent interpolate invalid labelAlign labelAnchor labelAngle labelBaseline labelBound "
    "labelColor labelExpr labelFlush labelFont labelFontSize labelFontStyle labelFontWeight labelLimit "
    "labelLineHeight labelOffset labelOrient labelOverlap labelPadding labelSeparation layer layout legend "
    "legends limit line lineBreak lineHeight mark maxExtent minExtent name nice offset opacity order ordinal "
    "orient padding paddingInner paddingOuter params point position radius radius2 ramp range rangeMax rangeMin "
    "rect resize resolve reverse round row rowPadding rule scale shape shared size sort spacing spec square "
    "stack stroke strokeCap strokeDash strokeDashOffset strokeJoin strokeMiterLimit strokeOpacity strokeWidth "
    "style subtitle subtitleColor subtitleFont subtitleFontSize subtitleFontStyle subtitleFontWeight "
    "subtitleLineHeight subtitlePadding symbol symbolDash symbolDirection symbolFillColor symbolLimit "
    "symbolOffset symbolOpacity symbolSize symbolStrokeColor symbolStrokeWidth symbolType tension text theta "
    "theta2 thickness tick tickBand tickColor tickCount tickExtra tickMinStep tickOffset tickOpacity tickRound "
    "tickSize tickWidth ticks title titleAlign titleAnchor titleAngle titleBaseline titleColor titleFont "
    "titleFontSize titleFontStyle titleFontWeight titleLimit titleLineHeight titleOrient titlePadding titleX "
    "titleY tooltip trail transform translate type value values vconcat view width x x2 x2Offset xOffset y y2 "
    "yOffset zero zindex ";

/// The key where it stands in the list, which lives as long as the program; empty when it is not there.
inline std::string_view FindViewKey(std::string_view key) {
    if (key.find(' ') != std::string_view::npos) return {};
    const std::size_t at = kViewKeys.find(' ' + std::string(key) + ' ');
    return at == std::string_view::npos ? std::string_view() : kViewKeys.substr(at + 1, key.size());
}

inline bool IsExpressionKey(std::string_view key) {
    return std::ranges::find(kExpressionKeys, key) != kExpressionKeys.end();
}

inline bool IsViewExpression(std::string_view text) {
    return std::ranges::find(expression::kAll, text) != expression::kAll.end();
}

}  // namespace hierfit::document
