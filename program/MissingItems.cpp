#include "MissingItems.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "ItemIndex.h"
#include "TableLookup.h"

namespace hierfit::program {

namespace {

using document::Chart;
using document::Table;
using document::Text;

constexpr double kSignificant = 0.05;
constexpr std::string_view kDiagram = "GLMMFixedCoefficients";

// ---- what kind of model it is

std::string_view DistributionOf(const ItemIndex& items) {
    const Table* summary = items.FindTable("ModelSummary");
    const document::Dimension* content = summary ? FindDimension(*summary, "Content") : nullptr;
    const auto row = content ? FindCategory(*content, "", "Probability Distribution") : std::nullopt;
    const Text* cell = row ? FindCell(*summary, *content, *row) : nullptr;
    return cell ? SourceOf(*cell) : std::string_view();
}

bool IsMultinomial(const ItemIndex& items) { return DistributionOf(items) == "Multinomial"; }

/// A target of categories, or of events: its predictions are classified.
bool HasClasses(const ItemIndex& items) { return IsMultinomial(items) || DistributionOf(items) == "Binomial"; }

bool NamesSubject(const Text& caption) {
    if (SourceOf(caption) != "Covariance Structure ^1 Subject Specification ^2 ...") return false;
    const Text* subject = ArgumentOf(caption, 1);
    return subject && SourceOf(*subject) != "(None)";
}

/// Whether the caption of a table of covariances names a subject.
bool HasSubjects(const ItemIndex& items) {
    for (const char* subtype : {"RandomEffects", "ResidualEffect", "CovarianceParameters"}) {
        for (const Table* table : items.TablesOf(subtype)) {
            if (std::ranges::any_of(table->fvCaptions, NamesSubject)) return true;
        }
    }
    return false;
}

// ---- the diagrams of effects and of coefficients, which are of one template

const document::ChartVariable* FindVariable(const Chart& chart, std::string_view source, std::string_view name) {
    for (const document::ChartSource& each : chart.fvData) {
        if (each.fName != source) continue;
        const auto found = std::ranges::find(each.fvVariables, name, &document::ChartVariable::fName);
        if (found != each.fvVariables.end()) return &*found;
    }
    return nullptr;
}

std::string_view WordsAt(const document::ChartVariable& variable, std::size_t row) {
    const auto* words = row < variable.fvValues.size() ? std::get_if<std::string>(&variable.fvValues[row]) : nullptr;
    return words ? std::string_view(*words) : std::string_view();
}

/// Lines have signs in the diagram of coefficients alone.
bool HasSigns(const Chart& chart) {
    const document::ChartVariable* signs = FindVariable(chart, "edgeSource", "Weight2");
    return signs && std::ranges::any_of(signs->fvValues, [](const document::ChartValue& value) {
               return std::holds_alternative<std::string>(value);
           });
}

const Chart* FindDiagram(const ItemIndex& items, bool ofCoefficients) {
    const auto found = std::ranges::find_if(items.Charts(), [&](const Chart* chart) {
        return chart->fTemplate.starts_with(kDiagram) && HasSigns(*chart) == ofCoefficients;
    });
    return found == items.Charts().end() ? nullptr : *found;
}

bool LacksHistogram(const Chart& chart) {
    const auto* network = std::get_if<document::NetworkPicture>(&chart.fPicture.fContent);
    return network && (!network->fHistogram || network->fHistogram->fvBins.empty());
}

double SignificanceOf(const Table& tests, std::string_view effect) {
    const document::Dimension* source = FindDimension(tests, "Source");
    const document::Dimension* statistics = FindDimension(tests, "Statistics");
    const auto row = source ? FindCategory(*source, "", effect) : std::nullopt;
    const auto column = statistics ? FindCategory(*statistics, "", "Sig.") : std::nullopt;
    if (!row || !column) return 1;
    for (const document::Cell& cell : tests.fvCells) {
        if (!std::ranges::equal(cell.fvAt, std::vector{*row, *column})) continue;
        const auto* number = std::get_if<document::NumberSource>(&cell.fContent.fFrom);
        return number && number->fNumber >= 0 ? number->fNumber : 1;
    }
    return 1;
}

/// Whether a test of an effect of one categorical field is significant.
bool HasSignificantFactor(const ItemIndex& items) {
    const Table* tests = items.FindTable("FixedEffects");
    const Chart* diagram = FindDiagram(items, false);
    const document::ChartVariable* types = diagram ? FindVariable(*diagram, "pointSource", "Type") : nullptr;
    const document::ChartVariable* names = diagram ? FindVariable(*diagram, "pointSource", "Nodes") : nullptr;
    if (!tests || !types || !names) return false;
    for (std::size_t row = 0; row < types->fvValues.size(); ++row) {
        const std::string_view type = WordsAt(*types, row);
        const bool isFactor = type == "categorical" || type == "ordinal";
        if (isFactor && SignificanceOf(*tests, WordsAt(*names, row)) < kSignificant) return true;
    }
    return false;
}

// ---- items that are missing

bool HasRowBeside(const Table* table, std::string_view dimension, std::string_view label) {
    const document::Dimension* rows = table ? FindDimension(*table, dimension) : nullptr;
    return rows && std::ranges::any_of(rows->fMembers, [&](const document::Member& member) {
               const auto* category = std::get_if<document::Category>(&member.fContent);
               return category && SourceOf(category->fLabel) != label;
           });
}

/// A model of thresholds alone has no effects to test.
bool HasTerms(const ItemIndex& items) {
    const Table* coefficients = items.FindTable("FixedCoefficients");
    return !coefficients || HasRowBeside(coefficients, "Model Term", "");
}

/// A figure of the summary of covariance parameters; nothing where it is unknown.
std::optional<double> CountIn(const ItemIndex& items, std::string_view group, std::string_view label) {
    const Table* summary = items.FindTable("CovarianceParametersSummary");
    const document::Dimension* content = summary ? FindDimension(*summary, "Content") : nullptr;
    const auto row = content ? FindCategory(*content, group, label) : std::nullopt;
    const Text* cell = row ? FindCell(*summary, *content, *row) : nullptr;
    const auto* number = cell && !IsUnknownNumber(*cell) ? std::get_if<document::NumberSource>(&cell->fFrom) : nullptr;
    return number ? std::optional(number->fNumber) : std::nullopt;
}

/// Crossed blocks have all records as their one common subject, and no first one to show.
bool HasFirstSubject(const ItemIndex& items) {
    return HasSubjects(items) && CountIn(items, "", "Common Subjects").value_or(2) > 1;
}

/// An item of a report, when it is missing, and what it is made from.
struct Rule {
    const char* fItem;
    bool (*fpIsMissing)(const ItemIndex& items);
    const char* fReason;
};

constexpr Rule kRules[] = {
    {"table \"Data Structure\"",
     [](const ItemIndex& items) { return !items.FindTable("DataStructure") && HasFirstSubject(items); },
     "ModelDiagnostics has no StructuredData \"firstSubjectRecordsForDataStructure\" with a FieldInfo"},
    {"table \"Classification\"",
     [](const ItemIndex& items) { return !items.FindTable("Classification") && HasClasses(items); },
     "the first Matrix of ModelDiagnostics is no \"classificationTable\""},
    {"chart \"Predicted by Observed\"",
     [](const ItemIndex& items) { return !items.HasChart("GLMMPredictedByObserved") && !HasClasses(items); },
     "ModelDiagnostics has no BivariateData \"observedByPredicted\""},
    {"table \"Fixed Effects\"",
     [](const ItemIndex& items) { return !items.FindTable("FixedEffects") && HasTerms(items); },
     "ModelDiagnostics has no ModelTestStats"},
    {"chart \"Fixed Effects\"",
     [](const ItemIndex& items) {
         return HasRowBeside(items.FindTable("FixedEffects"), "Source", "Corrected Model") &&
                !FindDiagram(items, false);
     },
     "no ModelTestStats \"fixedEffect\" has a testID below 10 and a sig from 0 to below 1"},
    {"the target's histogram in the charts \"Fixed Effects\" and \"Fixed Coefficients\"",
     [](const ItemIndex& items) {
         return DistributionOf(items) != "Binomial" &&
                std::ranges::any_of(items.Charts(), [](const Chart* chart) { return LacksHistogram(*chart); });
     },
     "ModelDiagnostics has no UnivariateData \"TargetDistribution\" with values"},
    {"table \"Fixed Coefficients\"", [](const ItemIndex& items) { return !items.FindTable("FixedCoefficients"); },
     "TrainingSummary has no ParameterEstimates \"fixed\""},
    {"chart \"Fixed Coefficients\"",
     [](const ItemIndex& items) { return items.FindTable("FixedCoefficients") && !FindDiagram(items, true); },
     "no ParameterStats is an intercept with a sig below 1, or not redundant with a Statistic \"fixedEffectIndex\" below "
     "10"},
    {"table \"Random Effect Covariances\"",
     [](const ItemIndex& items) {
         return items.TablesOf("RandomEffects").size() < items.TablesOf("CovarianceParameters").size();
     },
     "ModelDiagnostics has fewer StructuredData \"randomEffectCovariances\" than random effect blocks"},
    {"table \"Residual Effect\"", [](const ItemIndex& items) { return !items.FindTable("ResidualEffect"); },
     "TrainingSummary has no ParameterEstimates \"repeated\""},
    {"table \"Random Effect\"",
     [](const ItemIndex& items) {
         const std::size_t nTables = items.TablesOf("CovarianceParameters").size();
         return nTables < items.TablesOf("RandomEffects").size() ||
                (nTables == 0 && CountIn(items, "Covariance Parameters", "Random Effects").value_or(0) > 0);
     },
     "TrainingSummary has fewer ParameterEstimates \"random\" than random effect blocks"},
    {"chart \"Estimated Marginal Means for Top Significant Fixed Effects\"",
     [](const ItemIndex& items) {
         return !items.HasChart("GLMMEmMeans") && !IsMultinomial(items) && HasSignificantFactor(items);
     },
     "a categorical effect is significant, but ModelDiagnostics has no DataGroup \"Emmeans\""},
};

// ---- single figures

/// A figure of a table of one value for each label, and the statistic that it comes from.
struct Figure {
    const char* fSubtype;
    const char* fTable;
    const char* fDimension;
    const char* fGroup;  ///< empty for none
    const char* fLabel;
    const char* fStatistic;
};

constexpr const char* kCovariances = "Covariance Parameters Summary";
constexpr const char* kBounds = "^1% Confidence Interval";
constexpr Figure kCriteria[] = {
    {"ModelSummary", "Model Summary", "Content", "Information Criterion", "Akaike Corrected", "AICC"},
    {"ModelSummary", "Model Summary", "Content", "Information Criterion", "Bayesian", "BIC"},
};
constexpr Figure kFigures[] = {
    {"CovarianceParametersSummary", kCovariances, "Content", "Covariance Parameters", "Residual Effect",
     "numOfCovParamOfRepeated"},
    {"CovarianceParametersSummary", kCovariances, "Content", "Covariance Parameters", "Random Effects",
     "numOfCovParamOfRandom"},
    {"CovarianceParametersSummary", kCovariances, "Content", "Design Matrix Columns", "Fixed Effects",
     "numOfColsOfFixed"},
    {"CovarianceParametersSummary", kCovariances, "Content", "Design Matrix Columns", "Random Effects",
     "numOfColsOfRandom"},
    {"CovarianceParametersSummary", kCovariances, "Content", "", "Common Subjects", "numOfCommonSubjects"},
    {"GrandMeans", "Grand Mean", "Statistics", "", "Mean", "grandMean"},
    {"GrandMeans", "Grand Mean", "Statistics", "", "Std. Error", "grandMeanStdErr"},
    {"GrandMeans", "Grand Mean", "Statistics", kBounds, "Lower", "grandMeanCILower"},
    {"GrandMeans", "Grand Mean", "Statistics", kBounds, "Upper", "grandMeanCIUpper"},
};

bool IsUnknown(const ItemIndex& items, const Figure& figure) {
    const Table* table = items.FindTable(figure.fSubtype);
    const document::Dimension* dimension = table ? FindDimension(*table, figure.fDimension) : nullptr;
    const auto category = dimension ? FindCategory(*dimension, figure.fGroup, figure.fLabel) : std::nullopt;
    const Text* cell = category ? FindCell(*table, *dimension, *category) : nullptr;
    return cell && IsUnknownNumber(*cell);
}

/// Without subjects there is no count of common ones.
bool IsWanted(const ItemIndex& items, const Figure& figure) {
    return figure.fStatistic != std::string_view("numOfCommonSubjects") || HasSubjects(items);
}

/// A figure that stands in a table's caption or title.
bool IsUnknownIn(const Text* text) {
    const Text* number = text ? ArgumentOf(*text, 0) : nullptr;
    return number && IsUnknownNumber(*number);
}

// ---- blocks of estimated means

/// The request that a block's heading answers, counted from 1; 0 for another heading.
int RequestOf(const document::Heading& heading) {
    if (SourceOf(heading.fTitle) == "EMMEANS Effect ^1 ...") return 1;
    if (SourceOf(heading.fTitle) != "EMMEANS Effect ^1 block ^2 ...") return 0;
    const Text* block = ArgumentOf(heading.fTitle, 1);
    const auto* number = block ? std::get_if<document::NumberSource>(&block->fFrom) : nullptr;
    return number ? static_cast<int>(number->fNumber) : 0;
}

bool HasContrastChart(const ItemIndex& block) {
    return block.HasChart("GLMMPairwiseContrasts") || block.HasChart("GLMMSimpleContrasts");
}

constexpr Rule kBlockRules[] = {
    {"chart \"Estimated Means: Custom Effects\"",
     [](const ItemIndex& block) { return block.FindTable("Estimates") && !block.HasChart("GLMMCustomEffects"); },
     "its DataGroup has the message kGLMM_C20"},
    {"chart of contrasts",
     [](const ItemIndex& block) { return block.FindTable("Contrasts") && !HasContrastChart(block); },
     "its DataGroup has no ModelTestStats"},
    {"table \"Overall Test Results\"",
     [](const ItemIndex& block) { return block.FindTable("Contrasts") && !block.FindTable("OverallTestResults"); },
     "its DataGroup has no ModelTestStats"},
};

/// Puts the lines together.
class Describer {
  public:
    explicit Describer(const document::Document& document) : fDocument(document), fItems(document.fItems) {}

    std::vector<std::string> Describe() {
        for (const Rule& rule : kRules) Judge(rule, fItems, rule.fItem);
        JudgeLikelihood();
        for (const Figure& figure : kFigures) {
            if (IsUnknown(fItems, figure) && IsWanted(fItems, figure)) AddFigure(figure);
        }
        const Table* classification = fItems.FindTable("Classification");
        if (classification && IsUnknownIn(&classification->fTitle))
            AddFigure("Classification", "Overall percent correct", "classificationAccuracy");
        for (const document::Heading* heading : fItems.Headings()) {
            if (const int request = RequestOf(*heading)) JudgeBlock(*heading, request);
        }
        return std::move(fvLines);
    }

  private:
    void Judge(const Rule& rule, const ItemIndex& items, const std::string& item) {
        if (rule.fpIsMissing(items) && !IsTold(item)) fvLines.push_back(item + " is missing: " + rule.fReason);
    }

    /// No setting tells whether a fit has a likelihood; one without it lacks all of these figures.
    void JudgeLikelihood() {
        const auto isUnknown = [this](const Figure& figure) { return IsUnknown(fItems, figure); };
        const Table* summary = fItems.FindTable("ModelSummary");
        const bool lacksLikelihood =
            summary && !summary->fvCaptions.empty() && IsUnknownIn(&summary->fvCaptions.front());
        if (lacksLikelihood && std::ranges::all_of(kCriteria, isUnknown)) {
            fvLines.emplace_back(
                "-2 log likelihood and information criteria in table \"Model Summary\" are missing: ModelDiagnostics "
                "has no value of Statistic \"minus2LogLikelihood\", \"AICC\" and \"BIC\"; that is right for a fit by "
                "quasi-likelihood or GEE, which has none");
            return;
        }
        for (const Figure& figure : kCriteria) {
            if (isUnknown(figure)) AddFigure(figure);
        }
        if (lacksLikelihood) AddFigure("Model Summary", "-2 log likelihood", "minus2LogLikelihood");
    }

    void AddFigure(const Figure& figure) { AddFigure(figure.fTable, figure.fLabel, figure.fStatistic); }

    void AddFigure(const char* table, const char* label, const char* statistic) {
        fvLines.push_back(
            fmt::format("\"{}\" in table \"{}\" is missing: ModelDiagnostics has no value of Statistic \"{}\"", label,
                        table, statistic));
    }

    void JudgeBlock(const document::Heading& heading, int request) {
        const ItemIndex block(heading.fItems);
        const std::string of = fmt::format(" of request {} for means", request);
        for (const Rule& rule : kBlockRules) Judge(rule, block, rule.fItem + of);
        for (const document::Message* message : block.Messages()) {
            const char* what = block.HasTables() ? "table \"Contrasts\"" : "all";
            fvLines.push_back(what + of + " is missing: " + message->fText.fWords);
        }
    }

    /// Whether the run itself told why it left the item out.
    bool IsTold(const std::string& item) const {
        return std::ranges::any_of(fDocument.fvDiagnostics, [&](const document::Diagnostic& diagnostic) {
            return diagnostic.fText.starts_with(item) && diagnostic.fText.find("left out") != std::string::npos;
        });
    }

    const document::Document& fDocument;
    ItemIndex fItems;
    std::vector<std::string> fvLines;
};

}  // namespace

std::vector<std::string> DescribeMissingItems(const document::Document& document) {
    return Describer(document).Describe();
}

}  // namespace hierfit::program
