#include "host/chart/picture/Panels.h"

#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/MarkNumbers.h"

namespace hierfit::chart {

namespace {

using document::PanelPlace;

int AbreastOf(const Specification& specification) {
    if (!specification.fFaceting) return 0;
    const Faceting& faceting = *specification.fFaceting;
    if (!faceting.fvAlongColumns.empty() && !faceting.fvAlongColumns.front()) return 1;
    return std::max(faceting.fWrap, 0);
}

/// The facet variables that have values, at most two, the one that stands across first.
std::vector<const ShownVariable*> FacetVariables(const PictureContext& context, std::string_view source) {
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

/// Each with the variable's label, where the words do not say it already.
std::vector<std::string> Headings(const Levels& levels, const ShownVariable& variable) {
    std::vector<std::string> headings = levels.Texts();
    if (variable.HasPrefix() || variable.Name().empty()) return headings;
    for (std::string& heading : headings) heading.insert(0, variable.Name() + " = ");
    return headings;
}

std::string WordsUnderTitle(const Levels& levels, int level, const ShownVariable& variable) {
    const auto at = static_cast<std::size_t>(level);
    return std::string(variable.Label().empty() ? levels.Text(at) : levels.TextWithoutPrefix(at));
}

std::vector<std::string> ShowAlong(const ShownVariable* variable, const Levels& levels, int PanelPlace::*level,
                                   const std::vector<PanelPlace*>& places) {
    if (variable == nullptr) return {};
    std::vector<int*> numbers;
    numbers.reserve(places.size());
    for (PanelPlace* place : places) numbers.push_back(&(place->*level));
    return Pick(Headings(levels, *variable), NumberAnew(levels.Count(), numbers));
}

}  // namespace

Panels::Panels(const PictureContext& context, std::string_view source)
    : fAbreast(AbreastOf(context.fSpecification)), fAcross(nullptr), fDown(nullptr) {
    std::vector<const ShownVariable*> variables = FacetVariables(context, source);
    if (variables.empty()) return;
    fIsSwapped = variables.size() == 2 && GoesDownFirst(context.fSpecification);
    if (fIsSwapped) std::ranges::reverse(variables);
    fpAcross = variables.front();
    fAcross = Levels(fpAcross);
    if (variables.size() < 2) return;
    fpDown = variables.back();
    fDown = Levels(fpDown);
}

std::optional<PanelPlace> Panels::At(std::size_t row) const {
    PanelPlace place;
    if (fpAcross != nullptr) {
        const auto across = fAcross.At(row);
        if (!across) return std::nullopt;
        place.fAcross = static_cast<int>(*across);
    }
    if (fpDown != nullptr) {
        const auto down = fDown.At(row);
        if (!down) return std::nullopt;
        place.fDown = static_cast<int>(*down);
    }
    return place;
}

std::vector<std::string> Panels::Titles() const {
    std::vector<std::string> titles;
    for (const ShownVariable* variable : {fpAcross, fpDown}) {
        if (variable != nullptr) titles.push_back(TitleOr(variable->Label(), Translated("Panel")));
    }
    return titles;
}

std::vector<std::string> Panels::WordsUnderTitles(const PanelPlace& place) const {
    std::vector<std::string> words;
    if (fpAcross != nullptr) words.push_back(WordsUnderTitle(fAcross, place.fAcross, *fpAcross));
    if (fpDown != nullptr) words.push_back(WordsUnderTitle(fDown, place.fDown, *fpDown));
    return words;
}

document::PicturePanels Panels::Show(const std::vector<PanelPlace*>& places) const {
    document::PicturePanels panels;
    panels.fvAcross = ShowAlong(fpAcross, fAcross, &PanelPlace::fAcross, places);
    panels.fvDown = ShowAlong(fpDown, fDown, &PanelPlace::fDown, places);
    if (fpAcross != nullptr && fpDown == nullptr) panels.fAbreast = fAbreast;
    return panels;
}

}  // namespace hierfit::chart
