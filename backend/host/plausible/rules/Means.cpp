#include <algorithm>
#include <map>

#include "host/plausible/figures/Columns.h"
#include "host/plausible/rules/Comparisons.h"
#include "host/plausible/rules/Rules.h"

namespace hierfit::plausible {

namespace {

constexpr Node kNone = xml::Document::kNone;

/// The columns of figures in a table, by statistic; of two of one name the later one counts.
class Table {
  public:
    Table(const xml::Document& document, Node node) : fNode(node) {
        for (Node each = document.FirstChild(node, "Coordinates"); each != kNone; each = document.NextOfName(each)) {
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
        JudgeInterval(findings, item, mean, lower, upper);
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
        JudgeInterval(findings, item, estimate, table.At("confIntervalLower", row), table.At("confIntervalUpper", row));
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

/// A block that answers a request. What its messages refuse is not shown.
void JudgeBlock(const Model& model, Findings& findings, Node block) {
    const xml::Document& document = model.fDocument;
    if (HasMessage(document, block, "kGLMM_C25")) return;
    const bool hasContrasts = !HasMessage(document, block, "kGLMM_C19_1");
    for (Node each = document.FirstChild(block, "MultivariateData"); each != kNone; each = document.NextOfName(each)) {
        const std::string_view description = document.Attribute(each, "description").value_or("");
        if (description == "estimates") JudgeEstimates(model, findings, each);
        if (description == "contrasts" && hasContrasts) JudgeContrasts(model, findings, each);
    }
    for (Node each = document.FirstChild(block, "ModelTestStats"); each != kNone; each = document.NextOfName(each)) {
        const Node test = document.FirstChild(each, "FTest");
        if (test != kNone) JudgeF(findings, document, {test, {}}, test);
    }
}

}  // namespace

void JudgeMeans(const Model& model, Findings& findings) {
    if (model.fDiagnostics == kNone) return;
    const xml::Document& document = model.fDocument;
    for (Node each = document.FirstChild(model.fDiagnostics, "DataGroup"); each != kNone;
         each = document.NextOfName(each)) {
        const std::string_view description = document.Attribute(each, "description").value_or("");
        if (description == "customEmmeans") JudgeBlock(model, findings, each);
        const Node table = document.FirstChild(each, "MultivariateData");
        if (description == "Emmeans" && table != kNone) JudgeEstimates(model, findings, table);
    }
}

}  // namespace hierfit::plausible
