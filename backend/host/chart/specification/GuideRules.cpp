#include <array>

#include "host/chart/specification/ElementRules.h"

namespace hierfit::chart {

namespace {

constexpr int kMostFacets = 8;
constexpr int kMostLegends = 100;
constexpr int kMostEntries = 10'000;

Faceting& FacetingOf(Specification& specification) {
    auto& faceting = specification.fFaceting;
    return faceting ? *faceting : faceting.emplace();
}

bool ReadFaceting(const ChartElement&, Specification& specification) {
    FacetingOf(specification);
    return true;
}

bool ReadVariableReference(const ChartElement& element, Specification& specification) {
    FacetingOf(specification).fvVariables.push_back(element.Text("name"));
    return true;
}

bool ReadFacetLayout(const ChartElement& element, Specification& specification) {
    constexpr int kMostAbreast = 100;
    FacetingOf(specification).fWrap = element.Count("wrap", 1, kMostAbreast).value_or(0);
    return true;
}

bool ReadFacetLevel(const ChartElement& element, Specification& specification) {
    const auto depth = static_cast<std::size_t>(element.Count("depth", 1, kMostFacets).value_or(1));
    auto& along = FacetingOf(specification).fvAlongColumns;
    if (along.size() < depth) along.resize(depth, true);
    along[depth - 1] = element.Choice("along", {"columns", "rows"}) == 0;
    return true;
}

bool ReadLegend(const ChartElement& element, Specification& specification) {
    Legend& legend = specification.fvLegends.emplace_back();
    legend.fId = element.Text("id");
    legend.fIsVisible = element.Flag("visible", true);
    return true;
}

bool ReadShows(const ChartElement& element, Specification& specification) {
    Legend& legend = specification.fvLegends.back();
    legend.fOf = element.Text("of");
    legend.fHigh = element.Number("high");
    legend.fLow = element.Number("low");
    return true;
}

bool ReadHeading(const ChartElement& element, Specification& specification) {
    specification.fvLegends.back().fHeading = element.ReadWords();
    return true;
}

bool ReadEntry(const ChartElement& element, Specification& specification) {
    specification.fvLegends.back().fvEntries.push_back({element.Text("value"), element.ReadWords()});
    return true;
}

constexpr std::array<ElementRule, 8> kRules{{
    {"faceting", "chart", 1, "", ReadFaceting},
    {"variableReference", "faceting", kMostFacets, "name", ReadVariableReference},
    {"facetLayout", "chart", 1, "wrap", ReadFacetLayout},
    {"facetLevel", "facetLayout", kMostFacets, "depth along", ReadFacetLevel},
    {"legend", "chart", kMostLegends, "id visible", ReadLegend},
    {"shows", "legend", kMostLegends, "of high low", ReadShows},
    {"heading", "legend", kMostLegends, "lookup", ReadHeading},
    {"entry", "legend", kMostEntries, "value lookup", ReadEntry},
}};

}  // namespace

std::span<const ElementRule> GuideRules() { return kRules; }

}  // namespace hierfit::chart
