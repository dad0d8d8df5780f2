#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "host/chart/specification/ElementRules.h"

namespace hierfit::chart {

namespace {

constexpr int kMostMarks = 1'000;
constexpr int kMostGuides = 10'000;

bool ReadPlot(const ChartElement& element, Specification& specification) {
    constexpr int kWidestMargin = 999;
    Plot& plot = specification.fPlot;
    plot.fId = element.Text("id");
    plot.fArrange = static_cast<Plot::Arrange>(element.Choice("arrange", {"free", "levels", "circle"}));
    plot.fPairs = element.Choice("rows", {"all", "pairs"}) == 1;
    plot.fWidthPercent = element.Count("width", 1, 100, "%");
    plot.fMarginBottom = element.Count("margin-bottom", 0, kWidestMargin, "px").value_or(0);
    plot.fSquare = element.Flag("square", false);
    return true;
}

bool ReadSpan(const ChartElement& element, Specification& specification) {
    const int axis = element.Choice("of", {"x", "y", "x y"});
    const Span span{element.Number("min"), element.Number("max")};
    if (axis != 1) specification.fPlot.fX = span;
    if (axis != 0) specification.fPlot.fY = span;
    return true;
}

bool ReadColor(const ChartElement& element, Specification& specification) {
    specification.fPlot.fColor = element.Text("of");
    return true;
}

struct MarkKind {
    std::string_view fName;
    Mark::Kind fKind;
    std::string_view fNeeds;      ///< attributes without which there is no place for it
    std::string_view fElseNeeds;  ///< or these; empty for no other way
};

constexpr std::array<MarkKind, 6> kMarkKinds{{
    {"points", Mark::Kind::Points, "x y", "node"},
    {"links", Mark::Kind::Links, "x y x2 y2", "from to"},
    {"names", Mark::Kind::Names, "x y text", "node text"},
    {"anchor", Mark::Kind::Anchor, "x y text", ""},
    {"ranges", Mark::Kind::Ranges, "x of", ""},
    {"stems", Mark::Kind::Stems, "x y", ""},
}};

constexpr std::array<std::pair<std::string_view, std::string Mark::*>, 17> kMarkReferences{{
    {"source", &Mark::fSource},
    {"x", &Mark::fX},
    {"y", &Mark::fY},
    {"x2", &Mark::fX2},
    {"y2", &Mark::fY2},
    {"of", &Mark::fOf},
    {"node", &Mark::fNode},
    {"from", &Mark::fFrom},
    {"to", &Mark::fTo},
    {"shape", &Mark::fShape},
    {"opacity", &Mark::fOpacity},
    {"weight", &Mark::fWeight},
    {"sign", &Mark::fSign},
    {"mark", &Mark::fMark},
    {"text", &Mark::fText},
    {"beside", &Mark::fBeside},
    {"tip", &Mark::fTip},
}};

bool HasAll(const ChartElement& element, std::string_view attributes) {
    while (!attributes.empty()) {
        const std::string_view first = attributes.substr(0, attributes.find(' '));
        if (!element.Has(first)) return false;
        attributes.remove_prefix(std::min(first.size() + 1, attributes.size()));
    }
    return true;
}

bool ReadMark(const ChartElement& element, Specification& specification) {
    const auto* kind = kMarkKinds.data();
    while (kind->fName != element.Name()) ++kind;
    const bool isPlaced =
        HasAll(element, kind->fNeeds) || (!kind->fElseNeeds.empty() && HasAll(element, kind->fElseNeeds));
    if (!isPlaced) {
        element.Remark(std::string(kind->fName) + " without " + std::string(kind->fNeeds) + " is left out");
        return false;
    }
    Mark& mark = specification.fPlot.fvMarks.emplace_back();
    mark.fKind = kind->fKind;
    for (const auto& [name, reference] : kMarkReferences) mark.*reference = element.Text(name);
    return true;
}

bool ReadBars(const ChartElement& element, Specification& specification) {
    specification.fPlot.fBars = {element.Text("source"), element.Text("x"), element.Text("y"), {}};
    return true;
}

bool ReadBinStatistic(const ChartElement& element, Specification& specification) {
    constexpr int kMostBins = 1'000'000'000;
    specification.fPlot.fBars->fBinCount = element.Count("binCount", 0, kMostBins);
    return true;
}

bool ReadNothing(const ChartElement&, Specification&) { return true; }

bool ReadDistribution(const ChartElement& element, Specification& specification) {
    const int known =
        element.Choice("distribution", {"", "normal", "gamma", "gaussianinverse", "binomialnegative", "poisson"});
    if (known == 0) return false;
    specification.fPlot.fCurve = {element.Text("distribution"), element.Number("parameter"),
                                  element.Number("secondaryParameter")};
    return true;
}

bool ReadDiagonal(const ChartElement&, Specification& specification) {
    specification.fPlot.fHasDiagonal = true;
    return true;
}

bool ReadLineGuide(const ChartElement& element, Specification& specification) {
    const auto y = element.Number("y");
    if (y) specification.fPlot.fvLineGuides.push_back({*y, {}});
    return y.has_value();
}

bool ReadUnless(const ChartElement& element, Specification& specification) {
    specification.fPlot.fvLineGuides.back().fUnless = element.Content();
    return true;
}

constexpr std::array<ElementRule, 16> kRules{{
    {"plot", "chart", 1, "id arrange rows width margin-bottom square", ReadPlot},
    {"span", "plot", 3, "of min max", ReadSpan},
    {"color", "plot", 1, "of", ReadColor},
    {"points", "plot", kMostMarks, "source x y node shape opacity mark tip", ReadMark},
    {"links", "plot", kMostMarks, "source x y x2 y2 from to weight sign mark tip", ReadMark},
    {"names", "plot", kMostMarks, "source x y node text beside tip", ReadMark},
    {"anchor", "plot", kMostMarks, "source x y text tip", ReadMark},
    {"ranges", "plot", kMostMarks, "source x of mark tip", ReadMark},
    {"stems", "plot", kMostMarks, "source x y mark tip", ReadMark},
    {"bars", "plot", 1, "source x y tip", ReadBars},
    {"binStatistic", "bars", 1, "binCount", ReadBinStatistic},
    {"curve", "plot", 1, "", ReadNothing},
    {"distributionStatistic", "curve", 1, "distribution parameter secondaryParameter", ReadDistribution},
    {"diagonal", "plot", 1, "", ReadDiagonal},
    {"lineGuide", "plot", kMostGuides, "y", ReadLineGuide},
    {"unless", "lineGuide", kMostGuides, "", ReadUnless},
}};

}  // namespace

std::span<const ElementRule> PlotRules() { return kRules; }

}  // namespace hierfit::chart
