#include "report/style/FigureKind.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace hierfit::report::style {

namespace {

using document::Dimension;
using document::Side;
using Kinds = std::unordered_map<int, FigureKind>;

constexpr std::string_view kFigureTables[] = {
    "FixedEffects", "FixedCoefficients", "ResidualEffect", "CovarianceParameters", "RandomEffect",
    "GrandMeans",   "Estimates",         "Contrasts",      "OverallTestResults"};

constexpr std::string_view kMatrices[] = {"RandomEffects"};

struct LabelKind {
    std::string_view fLabel;
    FigureKind fKind;
};

constexpr LabelKind kColumns[] = {
    {"Sig.", FigureKind::PValue},
    {"Adj. Sig.", FigureKind::PValue},
    {"F", FigureKind::Statistic},
    {"t", FigureKind::Statistic},
    {"Z", FigureKind::Statistic},
    {"df", FigureKind::DegreesOfFreedom},
    {"df1", FigureKind::DegreesOfFreedom},
    {"df2", FigureKind::DegreesOfFreedom},
    {"Coefficient", FigureKind::Estimate},
    {"Exp(Coefficient)", FigureKind::Estimate},
    {"Estimate", FigureKind::Estimate},
    {"Mean", FigureKind::Estimate},
    {"Contrast Estimate", FigureKind::Estimate},
    {"Std. Error", FigureKind::Estimate},
    {"Lower", FigureKind::Estimate},
    {"Upper", FigureKind::Estimate},
};

/// What the labels of parameters that are correlations begin with.
constexpr std::string_view kCorrelations[] = {"AR1 rho", "ARMA11 rho", "ARMA11 phi", "TP rho"};

template <typename List>
bool Contains(const List& list, std::string_view text) {
    return std::ranges::find(list, text) != std::end(list);
}

/// The text or pattern that a label was made of; empty for one of the data.
std::string_view SourceTextOf(const document::Text& text) {
    if (const auto* string = std::get_if<document::StringSource>(&text.fFrom)) return string->fString;
    const auto* pattern = std::get_if<document::PatternSource>(&text.fFrom);
    return pattern ? std::string_view(pattern->fPattern.Get()) : std::string_view();
}

FigureKind KindOfColumn(const document::Text& label) {
    const auto* const found = std::ranges::find(kColumns, SourceTextOf(label), &LabelKind::fLabel);
    return found == std::end(kColumns) ? FigureKind::Other : found->fKind;
}

FigureKind KindOfRow(const document::Text& label) {
    const std::string_view text = SourceTextOf(label);
    const auto isOne = [text](std::string_view begin) { return text.starts_with(begin); };
    return std::ranges::any_of(kCorrelations, isOne) ? FigureKind::Correlation : FigureKind::Other;
}

/// The kinds of all categories that are of some kind.
void Collect(const std::list<document::Member>& members, FigureKind (*kindOf)(const document::Text&), Kinds& kinds) {
    for (const document::Member& member : members) {
        if (const auto* group = std::get_if<document::Group>(&member.fContent)) {
            Collect(group->fMembers, kindOf, kinds);
            continue;
        }
        const auto& category = std::get<document::Category>(member.fContent);
        const FigureKind kind = kindOf(category.fLabel);
        if (kind != FigureKind::Other) kinds.emplace(category.fId, kind);
    }
}

std::optional<std::size_t> FindInnermost(const document::Table& table, Side side) {
    std::optional<std::size_t> innermost;
    for (std::size_t at = 0; at < table.fvDimensions.size(); ++at) {
        if (table.fvDimensions[at].fSide != side) continue;
        if (!innermost || table.fvDimensions[at].fIndex < table.fvDimensions[*innermost].fIndex) innermost = at;
    }
    return innermost;
}

FigureKind Find(const Kinds& kinds, const std::optional<std::size_t>& dimension, const document::Cell& cell) {
    if (!dimension || *dimension >= cell.fvAt.size()) return FigureKind::Other;
    const auto found = kinds.find(cell.fvAt[*dimension]);
    return found == kinds.end() ? FigureKind::Other : found->second;
}

}  // namespace

FigureKinds::FigureKinds(const document::Table& table) {
    const std::string_view subtype = SourceTextOf(table.fSubtype);
    if (Contains(kMatrices, subtype)) fOfAll = FigureKind::Estimate;
    if (!Contains(kFigureTables, subtype)) return;
    fColumns = FindInnermost(table, Side::Columns);
    if (fColumns) Collect(table.fvDimensions[*fColumns].fMembers, &KindOfColumn, fOfColumns);
    fRows = FindInnermost(table, Side::Rows);
    if (fRows) Collect(table.fvDimensions[*fRows].fMembers, &KindOfRow, fOfRows);
}

FigureKind FigureKinds::Of(const document::Cell& cell) const {
    const auto* number = std::get_if<document::NumberSource>(&cell.fContent.fFrom);
    if (!number || number->fFormat.fName == document::FormatName::Count) return FigureKind::Other;
    if (fOfAll != FigureKind::Other) return fOfAll;
    const FigureKind kind = Find(fOfColumns, fColumns, cell);
    return kind == FigureKind::Estimate && Find(fOfRows, fRows, cell) == FigureKind::Correlation
               ? FigureKind::Correlation
               : kind;
}

}  // namespace hierfit::report::style
