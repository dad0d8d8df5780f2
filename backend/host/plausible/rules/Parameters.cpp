#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <utility>

#include "host/plausible/rules/Comparisons.h"
#include "host/plausible/rules/Rules.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::plausible {

namespace {

constexpr Node kNone = xml::Document::kNone;

/// Row and column of a parameter of an unstructured matrix, from 1.
using Place = std::pair<int, int>;

bool IsVariance(std::string_view pattern) {
    return pattern.starts_with("Variance") || pattern == "VarOfEffect" || pattern == "CS diagonal offset" ||
           (pattern.ends_with(" diagonal"));
}

bool IsCorrelation(std::string_view pattern) { return pattern.ends_with(" rho") || pattern.ends_with(" phi"); }

/// A set of parameters, read one after the other.
class Set {
  public:
    Set(const Model& model, Findings& findings, std::string_view type)
        : fModel(model), fDocument(model.fDocument), fFindings(findings), fType(type) {}

    void Judge(Node parameters) {
        for (const Node each : xml::NamedChildren(fDocument, parameters, "ParameterStats")) {
            fNode = each;
            if (fType == "fixed")
                JudgeCoefficient();
            else
                JudgeCovariance();
        }
        for (const auto& [place, node] : fOffDiagonal) JudgeCovarianceOf(place, node);
    }

  private:
    Named Get(const char* attribute) const { return {attribute, FigureOf(fDocument, fNode, attribute)}; }

    bool IsRedundant() const { return fDocument.Attribute(fNode, "isRedundant") == "true"; }

    Item ItemOf(Node node) const { return {node, fDocument.Attribute(node, "paramLabel").value_or("")}; }

    Interval GetInterval() const { return {Get("estimate"), Get("confIntervalLower"), Get("confIntervalUpper")}; }

    /// What all parameters have.
    void JudgeCommon(const Item& item, const Named& error) const {
        JudgeInterval(fFindings, item, GetInterval());
        JudgeError(fFindings, item, error);
        JudgeProbability(fFindings, item, Get("sig"));
        JudgeDf(fFindings, item, Get("df"));
    }

    /// A coefficient that is set to zero shows nothing else.
    void JudgeCoefficient() const {
        if (IsRedundant()) return;
        const Item item = ItemOf(fNode);
        const Named estimate = Get("estimate");
        const Named error = Get("stdError");
        const Named t = Get("tTest");
        JudgeCommon(item, error);
        JudgeWidth(fFindings, item, GetInterval(), error, Get("df"), fModel.fLevel);
        JudgeRatio(fFindings, item, t, estimate, error);
        JudgeT(fFindings, item, Get("sig"), t, Get("df").fFigure, Relation::Equal);
        JudgeExponents(item, estimate);
    }

    void JudgeExponents(const Item& item, const Named& estimate) const {
        const Named exponent = Get("expEstimate");
        if (!exponent.fFigure) return;
        const Named lower = Get("expCILower");
        const Named upper = Get("expCIUpper");
        JudgeInterval(fFindings, item, {exponent, lower, upper});
        JudgeExponent(item, exponent, estimate);
        JudgeExponent(item, lower, Get("confIntervalLower"));
        JudgeExponent(item, upper, Get("confIntervalUpper"));
    }

    void JudgeExponent(const Item& item, const Named& exponent, const Named& of) const {
        if (!exponent.fFigure || !of.fFigure) return;
        const double value = exponent.fFigure->fValue;
        const double expected = std::exp(of.fFigure->fValue);
        if (std::abs(value - expected) <= 1e-6 * expected) return;
        const double rounding = RoundingBeside(*of.fFigure, {*exponent.fFigure});
        const double ofValue = RoundingBeside(*exponent.fFigure, {*of.fFigure}) + 1e-6 * expected;
        if (value + ofValue >= expected * std::exp(-rounding) && value - ofValue <= expected * std::exp(rounding))
            return;
        fFindings.Add(Kind::Exponent, item,
                      fmt::format("{} {} contradicts {} {}, whose exp is {:.4g}", exponent.fName,
                                  Show(*exponent.fFigure), of.fName, Show(*of.fFigure), expected));
    }

    /// A redundant covariance parameter shows its estimate and nothing else.
    void JudgeCovariance() {
        const Item item = ItemOf(fNode);
        const Named estimate = Get("estimate");
        if (estimate.fFigure) JudgeKind(item, *estimate.fFigure);
        if (IsRedundant()) return;
        const Named error = Get("stdError");
        const Named z = Get("zTest");
        JudgeCommon(item, error);
        JudgeRatio(fFindings, item, z, estimate, error);
        JudgeZ(fFindings, item, Get("sig"), z, Sides::OneOrTwo);
    }

    /// Variance, covariance or correlation, by the pattern of the label.
    void JudgeKind(const Item& item, const Figure& estimate) {
        const Node list = fDocument.FirstChild(fNode, "PrintableList");
        if (list == kNone) return;
        const std::string_view pattern = fDocument.Attribute(list, "pattern").value_or("");
        const Place place = pattern == "UN (^1,^2)" ? ReadPlace(list) : Place{};
        if (place.first > 0 && place.first == place.second)
            fVariances.emplace(place.first, estimate);
        else if (place.first > 0)
            fOffDiagonal.emplace_back(place, fNode);
        const bool isVariance = IsVariance(pattern) || (place.first > 0 && place.first == place.second);
        if (isVariance && estimate.fValue < 0)
            fFindings.Add(Kind::Variance, item, fmt::format("estimate {} is a negative variance", Show(estimate)));
        if ((IsCorrelation(pattern) || pattern.starts_with("TP rho")) && std::abs(estimate.fValue) > 1 + 1e-9)
            fFindings.Add(Kind::Correlation, item, fmt::format("correlation {} is outside of -1 to 1", Show(estimate)));
    }

    /// Zeros where the arguments are no row and column.
    Place ReadPlace(Node list) const {
        Place place{};
        int* const ends[] = {&place.first, &place.second};
        std::size_t count = 0;
        for (const Node each : xml::NamedChildren(fDocument, list, "PrintableList")) {
            if (count == std::size(ends)) break;
            const std::string_view text = fDocument.Attribute(each, "pattern").value_or("");
            std::from_chars(text.data(), text.data() + text.size(), *ends[count++]);
        }
        return place.first > 0 && place.second > 0 ? place : Place{};
    }

    void JudgeCovarianceOf(const Place& place, Node node) const {
        const auto row = fVariances.find(place.first);
        const auto column = fVariances.find(place.second);
        const MaybeFigure covariance = FigureOf(fDocument, node, "estimate");
        if (row == fVariances.end() || column == fVariances.end() || !covariance) return;
        JudgeCovarianceAmong(fFindings, ItemOf(node), *covariance, row->second, column->second);
    }

    const Model& fModel;
    const xml::Document& fDocument;
    Findings& fFindings;
    std::string_view fType;
    Node fNode = kNone;
    std::map<int, Figure> fVariances;
    std::vector<std::pair<Place, Node>> fOffDiagonal;
};

/// Whether the report shows other figures in place of those of the documents, as it does where all variances of random
/// effects are zero.
bool IsOverridden(const Model& model, std::string_view type) {
    const auto isOneOf = [&](std::initializer_list<std::string_view> names) {
        return std::ranges::find(names, model.fDistribution) != names.end();
    };
    if (type == "fixed") return false;
    if (HasMessage(model.fDocument, model.fSummary, "kGLMM_C9"))
        return isOneOf({"BINOMIAL", "NOMINAL", "NEGBIN", "POISSON"});
    return type == "random" && HasMessage(model.fDocument, model.fSummary, "kGLMM_C8") &&
           isOneOf({"GAMMA", "IGAUSS", "NORMAL"});
}

}  // namespace

void JudgeParameters(const Model& model, Findings& findings) {
    for (const Node each : xml::NamedChildren(model.fDocument, model.fSummary, "ParameterEstimates")) {
        const std::string_view type = model.fDocument.Attribute(each, "parameterType").value_or("");
        if (!IsOverridden(model, type)) Set(model, findings, type).Judge(each);
    }
}

}  // namespace hierfit::plausible
