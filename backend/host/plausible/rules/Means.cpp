#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/plausible/figures/Columns.h"
#include "host/plausible/rules/Comparisons.h"
#include "host/plausible/rules/Rules.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::plausible {

namespace {

constexpr Node kNone = xml::Document::kNone;

/// The columns of figures in a table, by statistic; of two of one name the later one counts.
class Table {
  public:
    Table(const xml::Document& document, Node node) : fNode(node) {
        for (const Node each : xml::NamedChildren(document, node, "Coordinates")) {
            Column& column = fColumns[document.Attribute(each, "statistic").value_or("")];
            column.Read(document, each);
            fRows = std::max(fRows, column.Size());
        }
    }

    std::size_t Rows() const { return fRows; }

    Named At(const char* statistic, std::size_t row) const {
        const auto column = fColumns.find(statistic);
        return {statistic, column == fColumns.end() ? std::nullopt : column->second.At(row)};
    }

    Item ItemOf(std::size_t row) const { return {fNode, {}, row}; }

  private:
    Node fNode;
    std::map<std::string_view, Column> fColumns;
    std::size_t fRows = 0;
};

void JudgeEstimates(const Model& model, Findings& findings, Node node) {
    const Table table(model.fDocument, node);
    const Range range = model.Means();
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        const Item item = table.ItemOf(row);
        const Named mean = table.At("mean", row);
        const Named lower = table.At("confIntervalLower", row);
        const Named upper = table.At("confIntervalUpper", row);
        JudgeInterval(findings, item, {mean, lower, upper});
        JudgeError(findings, item, table.At("stdErr", row));
        JudgeRange(findings, Kind::Mean, item, mean, range);
        JudgeRange(findings, Kind::MeanBound, item, lower, range);
        JudgeRange(findings, Kind::MeanBound, item, upper, range);
    }
}

Relation RelationOf(const Model& model) {
    if (model.fAdjustment == "LSD") return Relation::Equal;
    return model.fAdjustment.starts_with("SEQ") ? Relation::Multiple : Relation::NotBelow;
}

void JudgeContrasts(const Model& model, Findings& findings, Node node) {
    const Table table(model.fDocument, node);
    const Relation relation = RelationOf(model);
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        const Item item = table.ItemOf(row);
        const Named estimate = table.At("contrastEstimate", row);
        const Named error = table.At("stdErr", row);
        const Named t = table.At("tTest", row);
        const Named df = table.At("df", row);
        const Named significance = table.At("adjustedSig", row);
        const Interval interval{estimate, table.At("confIntervalLower", row), table.At("confIntervalUpper", row)};
        JudgeInterval(findings, item, interval);
        if (relation == Relation::Equal) JudgeWidth(findings, item, interval, error, df, model.fLevel);
        JudgeError(findings, item, error);
        JudgeProbability(findings, item, significance);
        JudgeDf(findings, item, df);
        JudgeRatio(findings, item, t, estimate, error);
        JudgeT(findings, item, significance, t, df.fFigure, relation, table.Rows());
    }
    const Node level = model.fDocument.FirstChild(node, "Statistic");
    if (level == kNone || model.fDocument.Attribute(level, "name") != "adjustedSigLevel") return;
    const MaybeFigure value = FigureOf(model.fDocument, level, "value");
    if (value && !(value->fValue > 0 && value->fValue < 1))
        findings.Add(Kind::Level, {level, {}}, "adjustedSigLevel " + Show(*value) + " is not between 0 and 1");
}

/// Factor columns of a table, by field in their order.
struct Factors {
    Factors(const xml::Document& document, Node table) {
        const Node group = document.FirstChild(table, "CoordinatesGroup");
        if (group == kNone) return;
        fDescription = document.Attribute(group, "description").value_or("");
        for (const Node each : xml::NamedChildren(document, group, "Coordinates")) {
            fvFields.push_back(document.Attribute(each, "field").value_or(""));
            fvColumns.emplace_back().Read(document, each);
        }
    }

    /// The levels of a row in columns of those numbers, as one key.
    std::string KeyOf(std::size_t row, const std::vector<std::size_t>& columns) const {
        std::string key;
        for (const std::size_t column : columns) (key += fvColumns[column].TextAt(row)) += '\0';
        return key;
    }

    std::string_view fDescription;
    std::vector<std::string_view> fvFields;
    std::vector<Column> fvColumns;
};

/// Pairwise and simple contrasts against the means of their block.
void JudgeDifferences(const Model& model, Findings& findings, Node estimates, Node contrasts) {
    const Factors ofMeans(model.fDocument, estimates);
    const Factors ofContrasts(model.fDocument, contrasts);
    const std::size_t nFactors = ofMeans.fvFields.size();
    const bool isDifference =
        ofContrasts.fDescription == "pairwiseContrast" || ofContrasts.fDescription == "simpleContrast";
    if (!isDifference || nFactors == 0 || ofContrasts.fvFields.size() != nFactors + 1) return;

    // Where the contrasts have the factors of the means, for either of the two means of a row.
    std::vector<std::size_t> all(nFactors);
    std::vector<std::size_t> first(nFactors);
    for (std::size_t i = 0; i < nFactors; ++i) {
        const auto found = std::ranges::find(ofContrasts.fvFields, ofMeans.fvFields[i]);
        if (found == ofContrasts.fvFields.end()) return;
        all[i] = i;
        first[i] = static_cast<std::size_t>(found - ofContrasts.fvFields.begin());
    }
    std::vector<std::size_t> second = first;
    std::ranges::replace(second, nFactors - 1, nFactors);

    const Table means(model.fDocument, estimates);
    std::unordered_map<std::string, std::size_t> rows;
    for (std::size_t row = 0; row < means.Rows(); ++row) rows.emplace(ofMeans.KeyOf(row, all), row);
    const Table table(model.fDocument, contrasts);
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        const auto a = rows.find(ofContrasts.KeyOf(row, first));
        const auto b = rows.find(ofContrasts.KeyOf(row, second));
        if (a == rows.end() || b == rows.end()) continue;
        JudgeDifference(findings, table.ItemOf(row), table.At("contrastEstimate", row), means.At("mean", a->second),
                        means.At("mean", b->second));
    }
}

/// A block that answers a request. What its messages refuse is not shown.
void JudgeBlock(const Model& model, Findings& findings, Node block) {
    const xml::Document& document = model.fDocument;
    if (HasMessage(document, block, "kGLMM_C25")) return;
    const bool hasContrasts = !HasMessage(document, block, "kGLMM_C19_1");
    Node estimates = kNone;
    Node contrasts = kNone;
    for (const Node each : xml::NamedChildren(document, block, "MultivariateData")) {
        const std::string_view description = document.Attribute(each, "description").value_or("");
        if (description == "estimates") JudgeEstimates(model, findings, estimates = each);
        if (description == "contrasts" && hasContrasts) JudgeContrasts(model, findings, contrasts = each);
    }
    if (estimates != kNone && contrasts != kNone && findings.Wants(Kind::Difference))
        JudgeDifferences(model, findings, estimates, contrasts);
    for (const Node each : xml::NamedChildren(document, block, "ModelTestStats")) {
        const Node test = document.FirstChild(each, "FTest");
        if (test != kNone) JudgeF(findings, document, {test, {}}, test);
    }
}

}  // namespace

void JudgeMeans(const Model& model, Findings& findings) {
    const xml::Document& document = model.fDocument;
    for (const Node each : xml::NamedChildren(document, model.fDiagnostics, "DataGroup")) {
        const std::string_view description = document.Attribute(each, "description").value_or("");
        if (description == "customEmmeans") JudgeBlock(model, findings, each);
        const Node table = document.FirstChild(each, "MultivariateData");
        if (description == "Emmeans" && table != kNone) JudgeEstimates(model, findings, table);
    }
}

}  // namespace hierfit::plausible
