#include <algorithm>

#include "host/plausible/figures/Columns.h"
#include "host/plausible/rules/Comparisons.h"
#include "host/plausible/rules/Rules.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::plausible {

namespace {

constexpr Node kNone = xml::Document::kNone;

/// The figures of the fit that stand in `Statistic` elements.
class FitStatistics {
  public:
    FitStatistics(const Model& model, Findings& findings) : fModel(model), fFindings(findings) {}

    void Judge() {
        const xml::Document& document = fModel.fDocument;
        for (const Node each : xml::NamedChildren(document, fModel.fDiagnostics, "Statistic")) {
            const std::string_view name = document.Attribute(each, "name").value_or("");
            const Named value{"value", FigureOf(document, each, "value")};
            if (!value.fFigure) continue;
            Remember(name, each, *value.fFigure);
            if (name.starts_with("numOf")) JudgeCount(fFindings, {each, name}, value);
            if (name == "classificationAccuracy") JudgeProbability(fFindings, {each, name}, value);
        }
        JudgeGrandMean();
    }

  private:
    void JudgeGrandMean() const {
        const Range range = fModel.Means();
        JudgeInterval(fFindings, {fMean.fNode, {}}, {fMean.fNamed, fLower.fNamed, fUpper.fNamed});
        JudgeError(fFindings, {fError.fNode, {}}, fError.fNamed);
        JudgeRange(fFindings, Kind::Mean, {fMean.fNode, {}}, fMean.fNamed, range);
        JudgeRange(fFindings, Kind::MeanBound, {fLower.fNode, {}}, fLower.fNamed, range);
        JudgeRange(fFindings, Kind::MeanBound, {fUpper.fNode, {}}, fUpper.fNamed, range);
    }

    struct Place {
        Named fNamed;
        Node fNode;
    };

    void Remember(std::string_view name, Node node, const Figure& value) {
        for (Place* const place : {&fMean, &fError, &fLower, &fUpper}) {
            if (name == place->fNamed.fName) *place = {{place->fNamed.fName, value}, node};
        }
    }

    const Model& fModel;
    Findings& fFindings;
    Place fMean{{"grandMean", std::nullopt}, 0};
    Place fError{{"grandMeanStdErr", std::nullopt}, 0};
    Place fLower{{"grandMeanCILower", std::nullopt}, 0};
    Place fUpper{{"grandMeanCIUpper", std::nullopt}, 0};
};

void JudgeTests(const Model& model, Findings& findings) {
    const xml::Document& document = model.fDocument;
    for (const Node each : xml::NamedChildren(document, model.fDiagnostics, "ModelTestStats")) {
        const std::string_view description = document.Attribute(each, "description").value_or("");
        const Node test = document.FirstChild(each, "FTest");
        const bool isShown = description == "correctedModel" || description == "fixedEffect";
        if (isShown && test != kNone) JudgeF(findings, document, {test, description}, test);
    }
}

void JudgeTotal(const Model& model, Findings& findings, Node data) {
    const Node counts = model.fDocument.FirstChild(data, "Counts");
    if (counts != kNone)
        JudgeCount(findings, {counts, {}}, {"totalFreq", FigureOf(model.fDocument, counts, "totalFreq")});
}

/// Each value of the columns of one feature.
void JudgeColumns(const Model& model, Findings& findings, Node data, std::string_view feature, const Range& range) {
    Column column;
    for (const Node each : xml::NamedChildren(model.fDocument, data, "Coordinates")) {
        if (model.fDocument.Attribute(each, "feature") != feature) continue;
        column.Read(model.fDocument, each);
        for (std::size_t row = 0; row < column.Size(); ++row)
            JudgeRange(findings, Kind::Plot, {each, {}, row}, {"value", column.At(row)}, range);
    }
}

/// The target's histogram and the parameters of its curve; 0 stands for one that does not apply.
void JudgeHistogram(const Model& model, Findings& findings, Node data) {
    const xml::Document& document = model.fDocument;
    JudgeTotal(model, findings, data);
    for (const Node each : xml::NamedChildren(document, data, "Statistic")) {
        const std::string_view name = document.Attribute(each, "name").value_or("");
        const Named value{"value", FigureOf(document, each, "value")};
        if (name == "stdDeviation" || name == "shape" || name == "rate" || name == "r")
            JudgeRange(findings, Kind::Parameter, {each, name}, value, {.fLeast = 0});
        if (name == "p") JudgeRange(findings, Kind::Parameter, {each, name}, value, {0, 1});
    }
    JudgeColumns(model, findings, data, "frequency", {.fLeast = 0});
}

void JudgePlot(const Model& model, Findings& findings, Node data) {
    JudgeTotal(model, findings, data);
    JudgeColumns(model, findings, data, "frequency", {.fLeast = 0});
    if (model.IsCategorical()) return;
    JudgeColumns(model, findings, data, "observed", model.ObservedValues());
    JudgeColumns(model, findings, data, "statistic", model.Means());
}

/// The first child of that name and description, or `kNone`.
Node FindDescribed(const Model& model, std::string_view name, std::string_view description) {
    for (const Node each : xml::NamedChildren(model.fDocument, model.fDiagnostics, name)) {
        if (model.fDocument.Attribute(each, "description") == description) return each;
    }
    return kNone;
}

}  // namespace

void JudgeSettings(const Model& model, Findings& findings) {
    const xml::Document& document = model.fDocument;
    for (const Node each : xml::NamedChildren(document, model.fSettings, "Parameter")) {
        const std::string_view name = document.Attribute(each, "name").value_or("");
        const Named value{"value", FigureOf(document, each, "value")};
        if (name == "CIn" && value.fFigure && !(value.fFigure->fValue > 0 && value.fFigure->fValue < 1))
            findings.Add(Kind::Level, {each, name}, "value " + Show(*value.fFigure) + " is not between 0 and 1");
        if (name == "TrialsValue" && model.fUseTrials && !model.fHasTrialsField)
            JudgeCount(findings, {each, name}, value);
    }
}

void JudgeFit(const Model& model, Findings& findings) {
    FitStatistics(model, findings).Judge();
    JudgeTests(model, findings);
    if (!findings.Wants(Kind::Plot)) return;
    const Node histogram = FindDescribed(model, "UnivariateData", "TargetDistribution");
    if (histogram != kNone) JudgeHistogram(model, findings, histogram);
    const Node plot = FindDescribed(model, "BivariateData", "observedByPredicted");
    if (plot != kNone) JudgePlot(model, findings, plot);
    const Node records = FindDescribed(model, "StructuredData", "firstSubjectRecordsForDataStructure");
    if (records != kNone) JudgeTotal(model, findings, records);
}

}  // namespace hierfit::plausible
