#include "host/chart/view/parts/Panels.h"

#include <algorithm>

#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/ViewExpressions.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostAbreast = 3;
constexpr TextStyle kHeadingStyle{12, true};
constexpr double kLeastForTurned = 120;  ///< pixels
constexpr double kUprightWidth = 200;

std::size_t WrapOf(const Specification& specification) {
    if (!specification.fFaceting) return kMostAbreast;
    const Faceting& faceting = *specification.fFaceting;
    if (!faceting.fvAlongColumns.empty() && !faceting.fvAlongColumns.front()) return 1;
    return faceting.fWrap < 1 ? kMostAbreast : std::min(static_cast<std::size_t>(faceting.fWrap), kMostAbreast);
}

/// The facet variables that have values, at most two, the one that stands across first.
std::vector<const ShownVariable*> FacetVariables(const ViewContext& context, std::string_view source) {
    std::vector<const ShownVariable*> variables;
    if (!context.fSpecification.fFaceting) return variables;
    for (const std::string& name : context.fSpecification.fFaceting->fvVariables) {
        const ShownVariable* variable = context.fData.Find(source, name);
        if (variable != nullptr && variables.size() < 2) variables.push_back(variable);
    }
    return variables;
}

bool GoesDownFirst(const Specification& specification) {
    if (!specification.fFaceting) return false;
    const std::vector<bool>& along = specification.fFaceting->fvAlongColumns;
    return along.size() > 1 && !along[0] && along[1];
}

Json Heading(std::string_view field, std::string_view expression) {
    return {{"field", field},
            {"type", "ordinal"},
            {"sort", nullptr},
            {"title", nullptr},
            {"header", {{"labelExpr", expression}, {"labelAnchor", "start"}}}};
}

/// Beside the rows of panels: turned, or upright where a panel is too low for a turned one.
Json SideHeading(bool isTurned) {
    Json heading = Heading("q", expression::kSecondFacetText);
    heading["header"].update(
        {{"labelOrient", "right"}, {"labelAngle", isTurned ? -90 : 0}, {"labelAnchor", "middle"}, {"labelLimit", 0}});
    return heading;
}

bool IsTurned(double panelHeight) { return panelHeight >= kLeastForTurned; }

/// Each with the variable's label, where the words do not say it already.
std::vector<std::string> CutHeadings(const Levels& levels, const ShownVariable& variable, double width) {
    const bool isNamed = variable.HasPrefix() || variable.Name().empty();
    std::vector<std::string> texts;
    for (const std::string& text : levels.Texts()) {
        const std::string heading = isNamed ? text : variable.Name() + " = " + text;
        texts.push_back(CutText(KeepBlanks(heading), width, kHeadingStyle));
    }
    return texts;
}

std::string WordsUnderTitle(const Levels& levels, std::size_t level, const ShownVariable& variable) {
    return std::string(variable.Label().empty() ? levels.Text(level) : levels.TextWithoutPrefix(level));
}

}  // namespace

Panels::Panels(const ViewContext& context, std::string_view source)
    : fWrap(WrapOf(context.fSpecification)), fAcross(nullptr), fDown(nullptr) {
    std::vector<const ShownVariable*> variables = FacetVariables(context, source);
    if (variables.empty()) return;
    fIsSwapped = variables.size() == 2 && GoesDownFirst(context.fSpecification);
    if (fIsSwapped) std::reverse(variables.begin(), variables.end());
    fpAcross = variables.front();
    fAcross = Levels(fpAcross);
    if (variables.size() < 2) return;
    fpDown = variables.back();
    fDown = Levels(fpDown);
}

std::size_t Panels::Columns() const {
    const std::size_t count = std::max<std::size_t>(fAcross.Count(), 1);
    return HasTwoVariables() ? count : std::min(count, fWrap);
}

std::size_t Panels::Rows() const {
    if (HasTwoVariables()) return std::max<std::size_t>(fDown.Count(), 1);
    return (std::max<std::size_t>(fAcross.Count(), 1) + Columns() - 1) / Columns();
}

std::optional<Panels::Place> Panels::At(std::size_t row) const {
    Place place;
    if (fpAcross != nullptr) {
        const auto across = fAcross.At(row);
        if (!across) return std::nullopt;
        place.fAcross = *across;
    }
    if (fpDown != nullptr) {
        const auto down = fDown.At(row);
        if (!down) return std::nullopt;
        place.fDown = *down;
    }
    return place;
}

void Panels::Mark(const Place& place, Json& item) const {
    if (fpAcross != nullptr) item["p"] = place.fAcross;
    if (fpDown != nullptr) item["q"] = place.fDown;
}

Json Panels::Arrange(Json panel, Json values, double panelHeight) const {
    Json view = Json::object();
    view["data"]["values"] = std::move(values);
    if (!HasHeadings()) {
        MoveMembers(view, std::move(panel));
        return view;
    }
    const Json across = Heading("p", expression::kFacetText);
    if (HasTwoVariables()) {
        view["facet"] = {{"column", across}, {"row", SideHeading(IsTurned(panelHeight))}};
    } else {
        view["columns"] = Columns();
        view["facet"] = across;
    }
    view["spec"] = std::move(panel);
    const bool hasOwnAxes = !HasTwoVariables() && (Rows() == 1 || fAcross.Count() % Columns() != 0);
    if (hasOwnAxes) view["resolve"] = {{"axis", {{"x", "independent"}}}};
    return view;
}

std::vector<std::string> Panels::Titles() const {
    std::vector<std::string> titles;
    for (const ShownVariable* variable : {fpAcross, fpDown}) {
        if (variable != nullptr) titles.push_back(TitleOr(variable->Label(), Translated("Panel")));
    }
    return titles;
}

std::vector<std::string> Panels::WordsUnderTitles(const Place& place) const {
    std::vector<std::string> words;
    if (fpAcross != nullptr) words.push_back(WordsUnderTitle(fAcross, place.fAcross, *fpAcross));
    if (fpDown != nullptr) words.push_back(WordsUnderTitle(fDown, place.fDown, *fpDown));
    return words;
}

void Panels::AddTexts(std::vector<LevelTexts>& texts, double panelWidth, double panelHeight) const {
    if (fpAcross != nullptr) texts.push_back({expression::kFacetNames, CutHeadings(fAcross, *fpAcross, panelWidth)});
    if (fpDown == nullptr) return;
    const double width = IsTurned(panelHeight) ? panelHeight : kUprightWidth;
    texts.push_back({expression::kSecondFacetNames, CutHeadings(fDown, *fpDown, width)});
}

}  // namespace hierfit::chart
