#include "host/plausible/Model.h"

#include <algorithm>

#include "host/xml/NamedChildren.h"

namespace hierfit::plausible {

namespace {

constexpr Node kNone = xml::Document::kNone;

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, word) != words.end();
}

}  // namespace

Node FindPath(const xml::Document& document, Node node, std::initializer_list<std::string_view> path) {
    for (const std::string_view name : path) {
        if (node == kNone) break;
        node = document.FirstChild(node, name);
    }
    return node;
}

MaybeFigure FigureOf(const xml::Document& document, Node node, std::string_view attribute) {
    if (node == kNone) return std::nullopt;
    return ReadFigure(document.Attribute(node, attribute).value_or(""));
}

bool HasMessage(const xml::Document& document, Node node, std::string_view key) {
    for (const Node message : xml::NamedChildren(document, node, "Message")) {
        const Node list = document.FirstChild(message, "PrintableList");
        if (list != kNone && document.Attribute(list, "pattern") == key) return true;
    }
    return false;
}

Model::Model(const xml::Document& document)
    : fDocument(document),
      fSettings(document.FirstChild(0, "BuildSettings")),
      fDiagnostics(FindPath(document, 0, {"PMMLModel", "ModelDiagnostics"})),
      fSummary(FindPath(document, 0, {"PMMLModel", "TrainingSummary"})) {
    for (const Node each : xml::NamedChildren(document, fSettings, "Parameter")) {
        const std::string_view name = document.Attribute(each, "name").value_or("");
        const std::string_view value = document.Attribute(each, "value").value_or("");
        if (name == "DistributionOfTarget") fDistribution = value;
        if (name == "LinkFunctionType") fLink = value;
        if (name == "pAdjustment") fAdjustment = value;
        if (name == "CIn") fLevel = ReadFigure(value);
        if (name == "UseTrials") fUseTrials = value == "true";
        if (name == "TrialsField") fHasTrialsField = !value.empty();
    }
}

bool Model::IsCategorical() const { return IsOneOf(fDistribution, {"BINOMIAL", "NOMINAL", "ORDINAL"}); }

Range Model::ObservedValues() const {
    if (IsOneOf(fDistribution, {"POISSON", "NEGBIN", "GAMMA", "IGAUSS"})) return {.fLeast = 0};
    return {};
}

Range Model::Means() const {
    if (IsCategorical()) return {0, 1};
    if (fDistribution != "NORMAL") return ObservedValues();
    if (fLink == "LOG") return {.fLeast = 0};
    if (fLink == "LOGC") return {.fMost = 1};
    if (IsOneOf(fLink, {"LOGIT", "PROBIT", "CLOGLOG", "NLOGLOG", "CAUCHIT"})) return {0, 1};
    return {};
}

}  // namespace hierfit::plausible
