#include "report/html/Facts.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_set>

#include "host/SystemMissing.h"
#include "report/html/Words.h"

namespace hierfit::report::html {

namespace {

using document::Dimension;
using document::Member;
using document::Table;
using Ids = std::unordered_set<int>;

constexpr std::string_view kSummary = "ModelSummary";
constexpr std::string_view kTarget = "Target";
constexpr std::string_view kAkaike = "Akaike Corrected";
constexpr std::string_view kBayesian = "Bayesian";
constexpr std::string_view kClassification = "Classification";
constexpr std::string_view kCount = "E60868";
constexpr std::string_view kScatter = "GLMMPredictedByObserved";
constexpr std::string_view kFrequency = "Frequency";

bool IsString(const document::Text& text, std::string_view string) {
    const auto* source = std::get_if<document::StringSource>(&text.fFrom);
    return source && source->fString == string;
}

/// The categories of a label, or those in a group of it.
void Collect(const std::list<Member>& members, std::string_view label, bool isInside, Ids& ids) {
    for (const Member& member : members) {
        if (const auto* group = std::get_if<document::Group>(&member.fContent)) {
            Collect(group->fMembers, label, isInside || IsString(group->fLabel, label), ids);
            continue;
        }
        const auto& category = std::get<document::Category>(member.fContent);
        if (isInside || IsString(category.fLabel, label)) ids.insert(category.fId);
    }
}

/// The cells under a label in the dimension that has it, in their order.
std::vector<const document::Cell*> FindCells(const Table& table, std::string_view label) {
    std::vector<const document::Cell*> cells;
    for (std::size_t at = 0; at < table.fvDimensions.size() && cells.empty(); ++at) {
        Ids ids;
        Collect(table.fvDimensions[at].fMembers, label, false, ids);
        for (const document::Cell& cell : table.fvCells) {
            if (at < cell.fvAt.size() && ids.contains(cell.fvAt[at])) cells.push_back(&cell);
        }
    }
    return cells;
}

/// The one number under a label.
std::optional<double> FindNumber(const Table& table, std::string_view label) {
    const std::vector<const document::Cell*> cells = FindCells(table, label);
    const auto* number =
        cells.size() == 1 ? std::get_if<document::NumberSource>(&cells.front()->fContent.fFrom) : nullptr;
    if (!number || !std::isfinite(number->fNumber) || number->fNumber == kSystemMissing) return {};
    return number->fNumber;
}

void ReadSummary(Facts& facts, const Table& summary) {
    facts.fAkaike = FindNumber(summary, kAkaike);
    facts.fBayesian = FindNumber(summary, kBayesian);
    const std::vector<const document::Cell*> cells = FindCells(summary, kTarget);
    if (cells.empty() || cells.size() > 2) return;
    facts.fTarget = cells.front()->fContent.fWords;
    if (cells.size() == 2) facts.fTrials = cells.back()->fContent.fWords;
}

/// A sum that can be a number of records.
std::optional<double> AsRecords(double sum) {
    constexpr double kMost = 1e15;
    if (sum >= 1 && sum <= kMost && sum == std::floor(sum)) return sum;
    return {};
}

std::optional<double> CountClassified(const Table& classification) {
    double sum = 0;
    for (const document::Cell* cell : FindCells(classification, kCount)) {
        const auto* number = std::get_if<document::NumberSource>(&cell->fContent.fFrom);
        if (number) sum += number->fNumber;
    }
    return AsRecords(sum);
}

std::optional<double> CountPoints(const document::Chart& chart) {
    if (chart.fTemplate != kScatter || chart.fvData.empty()) return {};
    const std::vector<document::ChartVariable>& variables = chart.fvData.front().fvVariables;
    const auto frequency = std::ranges::find(variables, kFrequency, &document::ChartVariable::fName);
    if (frequency == variables.end()) return {};
    double sum = 0;
    for (const document::ChartValue& value : frequency->fvValues) {
        if (const auto* number = std::get_if<double>(&value)) sum += *number;
    }
    return AsRecords(sum);
}

}  // namespace

Facts FindFacts(const std::vector<items::Entry>& entries) {
    Facts facts;
    std::optional<double> classified;
    for (const items::Entry& entry : entries) {
        if (const auto* chart = std::get_if<document::Chart>(&entry.fpItem->fContent)) {
            if (!facts.fRecords) facts.fRecords = CountPoints(*chart);
        }
        const auto* table = std::get_if<Table>(&entry.fpItem->fContent);
        if (!table) continue;
        if (facts.fTarget.empty() && IsString(table->fSubtype, kSummary)) ReadSummary(facts, *table);
        if (!classified && IsString(table->fSubtype, kClassification)) classified = CountClassified(*table);
    }
    if (!facts.fRecords && !facts.fTarget.empty() && facts.fTrials.empty()) facts.fRecords = classified;
    return facts;
}

std::string SpellTarget(const Facts& facts) {
    return facts.fTrials.empty() ? facts.fTarget : items::Say(words::kOutOf, {facts.fTarget, facts.fTrials});
}

}  // namespace hierfit::report::html
