#include "host/chart/picture/levels/LineGuides.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <set>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostOfPanel = 8;
constexpr std::string_view kQuote = "&quot;";

/// `name!=&quot;value&quot;`, joined with `||` where two variables make panels.
std::string Condition(const std::vector<std::string>& names, const std::vector<std::string>& values) {
    std::string condition;
    for (std::size_t i = 0; i < values.size(); ++i) {
        condition += fmt::format("{}{}!={}{}{}", i == 0 ? "" : "||", names[i], kQuote, values[i], kQuote);
    }
    return condition;
}

/// The shortest text of a number that the whole text stands for; any other text as it is.
std::string ShortestNumber(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc() && end == text.data() + text.size() && std::isfinite(number);
    return isNumber ? fmt::format("{}", number) : std::string(text);
}

std::string RawText(const document::ChartValue& value) {
    if (const double* number = std::get_if<double>(&value)) return fmt::format("{}", *number);
    const std::string* text = std::get_if<std::string>(&value);
    return text == nullptr ? std::string() : *text;
}

/// The values that a condition names, as far as it has the form of one.
std::vector<std::string> ValuesOf(std::string_view condition, const std::vector<std::string>& names) {
    std::vector<std::string> values;
    for (const std::string& name : names) {
        const std::string start = fmt::format("{}{}!={}", values.empty() ? "" : "||", name, kQuote);
        const std::size_t end = condition.find(kQuote, start.size());
        if (!condition.starts_with(start) || end == std::string_view::npos) break;
        values.push_back(ShortestNumber(condition.substr(start.size(), end - start.size())));
        condition.remove_prefix(end + kQuote.size());
    }
    return condition.empty() ? values : std::vector<std::string>();
}

/// Quotes as they are written in the conditions of panels.
std::string WithQuoteNames(const std::string& text) {
    std::string named;
    for (const char character : text) {
        if (character == '"')
            named.append(kQuote);
        else
            named.push_back(character);
    }
    return named;
}

void Append(std::vector<double>& heights, const std::vector<double>& more) {
    for (const double height : more) {
        if (heights.size() < kMostOfPanel) heights.push_back(height);
    }
}

}  // namespace

LineGuides::LineGuides(const Specification& specification) {
    if (specification.fFaceting) fvNames = specification.fFaceting->fvVariables;
    for (const LineGuide& guide : specification.fPlot.fvLineGuides) {
        if (Placeable(guide.fY)) Add(guide);
    }
}

void LineGuides::Add(const LineGuide& guide) {
    if (guide.fUnless.empty() || guide.fUnless == "false") {
        fvEverywhere.push_back(guide.fY);
        return;
    }
    const std::string condition = WithQuoteNames(guide.fUnless);
    fOfConditions[condition].push_back(guide.fY);
    const std::vector<std::string> values = ValuesOf(condition, fvNames);
    if (!values.empty()) fOfNumbers[Condition(fvNames, values)].push_back(guide.fY);
}

std::vector<double> LineGuides::In(const Panels& panels, const document::PanelPlace& place) const {
    std::vector<double> heights;
    Append(heights, fvEverywhere);
    std::vector<std::string> values;
    if (panels.HasHeadings()) values.push_back(RawText(panels.Across().Value(static_cast<std::size_t>(place.fAcross))));
    if (panels.HasTwoVariables()) values.push_back(RawText(panels.Down().Value(static_cast<std::size_t>(place.fDown))));
    if (panels.IsSwapped()) std::swap(values.front(), values.back());
    if (values.empty() || values.size() > fvNames.size()) return heights;
    if (const auto exact = fOfConditions.find(WithQuoteNames(Condition(fvNames, values)));
        exact != fOfConditions.end()) {
        Append(heights, exact->second);
        return heights;
    }
    for (std::string& value : values) value = ShortestNumber(value);
    if (const auto number = fOfNumbers.find(Condition(fvNames, values)); number != fOfNumbers.end()) {
        Append(heights, number->second);
    }
    return heights;
}

std::vector<document::LevelGuide> GuidesOf(const Specification& specification, const Means& means) {
    const LineGuides lines(specification);
    std::vector<document::LevelGuide> guides;
    std::set<std::pair<int, int>> seen;
    for (const document::LevelMark& mark : means.fvMarks) {
        if (!seen.emplace(mark.fPanel.fAcross, mark.fPanel.fDown).second) continue;
        for (const double height : lines.In(means.fPanels, mark.fPanel)) {
            const std::string figure = means.fVariables.fpMean->Figure(height);
            guides.push_back({mark.fPanel, height, Translated("^1: ^2", {Translated("Reference"), figure})});
        }
    }
    return guides;
}

}  // namespace hierfit::chart
