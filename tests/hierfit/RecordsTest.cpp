#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {
namespace {

/// Reads a sample and tells what a probe finds in the store.
template <class Probe>
auto ReadSample(const Sample& sample, Probe probe) {
    ProcedureRun run;
    HFITOutputStats stats;
    EXPECT_TRUE(run.Read(sample.Text(), stats)) << run.Diagnostics();
    return probe(stats);
}

template <class Probe>
auto ReadDiagnostics(const std::string& content, Probe probe) {
    Sample sample;
    sample.fDiagnostics = content;
    return ReadSample(sample, probe);
}

TEST(Records, SettingsTakeTheirValuesFromTexts) {
    using Settings = BuildSettings;
    const std::tuple<const char*, const char*, int Settings::*, int> cases[] = {
        {"DistributionOfTarget", "BINOMIAL", &Settings::fDistribution, 0},
        {"DistributionOfTarget", "normal", &Settings::fDistribution, 8},
        {"LinkFunctionType", "CLOGLOG", &Settings::fLink, 0},
        {"ResidualCovarianceType", "UN", &Settings::fResidualCovarianceType, 8},
        {"Other", "", &Settings::fResidualCovarianceType, 8},
        {"ResidualCovarianceTBand", "", &Settings::fResidualCovarianceTBand, 2},
        {"pAdjustment", "SEQSIDAK", &Settings::fPAdjustment, 2},
        {"TrialsValue", "10.9", &Settings::fTrialsValue, 10},
        {"TrialsValue", "nan", &Settings::fTrialsValue, 0},
        {"TrialsValue", "1e300", &Settings::fTrialsValue, std::numeric_limits<int>::max()},
        {"TrialsValue", "-1e300", &Settings::fTrialsValue, std::numeric_limits<int>::min()},
        {"TrialsField", "n", &Settings::fTrialsIndex, 1},
        {"Other", "", &Settings::fTrialsIndex, -1},
    };
    for (const auto& [name, text, setting, value] : cases) {
        const Sample sample{.fSettings = Parameter("TargetField", "y") + Parameter(name, text)};
        EXPECT_EQ(ReadSample(sample, [](const HFITOutputStats& stats) { return *stats.GetBuildSettings(); }).*setting,
                  value)
            << name << " " << text;
    }
}

TEST(Records, AnEmptyFigureIsMissing) {
    const Sample sample{.fStatistics =
                            "<Statistic name='AICC' value=''/><Statistic name='numOfColsOfFixed' value=''/>"
                            "<Statistic name='BIC' value='2'/>"};
    const auto figures = ReadSample(sample, [](const HFITOutputStats& stats) {
        const ModelDiagnostics& read = *stats.GetModelDiagnostics();
        return std::make_tuple(read.fAICC, read.fBIC, read.fNumOfColsOfFixed, read.fNumOfColsOfRandom);
    });
    EXPECT_EQ(figures, std::make_tuple(kSystemMissing, 2.0, std::numeric_limits<int>::min(), -1));
}

TEST(Records, TheFirstCompleteDistributionCounts) {
    const auto element = [](const std::string& description, const std::string& mean) {
        return Tag("UnivariateData description='" + description + "'",
                   "<Statistic name='mean' value='" + mean + "'/><Statistic name='shape' value=''/>" +
                       Column("feature='observed'", "1 __MISSING__ 3") + Column("feature='other'", "x"));
    };
    const std::string distributions =
        element("other", "1") + element("TargetDistribution", "2") + element("TargetDistribution", "3");
    const auto distribution = ReadDiagnostics(distributions, [](const HFITOutputStats& stats) {
        const TargetDistribution& read = stats.GetModelDiagnostics()->fTargetDistribution;
        return std::make_tuple(read.fMean, read.fShape, read.fvObserved, read.fvFrequency.size());
    });
    EXPECT_EQ(distribution, std::make_tuple(2.0, 0.0, std::vector<double>{1, kSystemMissing, 3}, std::size_t{0}));
}

TEST(Records, TheAxisSpansObservedAndPredictedValues) {
    const std::tuple<const char*, const char*, std::pair<double, double>> cases[] = {
        {"2 5 3", "4 9", {2, 9}},
        {"2 5", "1 3", {1, 5}},
        {"", "2 5", {0, 5}},
        {"2 __MISSING__", "", {kSystemMissing, 2}},
    };
    for (const auto& [observed, predicted, bounds] : cases) {
        const std::string columns = Column("feature='observed'", observed) + Column("feature='statistic'", predicted);
        const auto read =
            ReadDiagnostics(Tag("BivariateData description='observedByPredicted'", columns),
                            [](const HFITOutputStats& stats) { return stats.GetModelDiagnostics()->fPredByObserved; });
        EXPECT_EQ(std::make_pair(read.fAxisMin, read.fAxisMax), bounds);
    }
}

TEST(Records, MatricesAreUnpackedToFullRows) {
    const std::tuple<const char*, const char*, std::vector<std::vector<double>>, std::vector<double>> cases[] = {
        {"nbRows='2'", "1 2 3 4", {{1, 2}, {3, 4}}, {3, 7}},
        {"nbRows='2' nbCols='3'", "1 2 3 4 5 6", {{1, 2, 3}, {4, 5, 6}}, {6, 15}},
        {"nbRows='3' kind='diagonal'", "1 2 3", {{1, 0, 0}, {0, 2, 0}, {0, 0, 3}}, {1, 2, 3}},
        {"nbRows='3' kind='symmetric'", "1 2 3 4 5 6", {{1, 2, 4}, {2, 3, 5}, {4, 5, 6}}, {7, 10, 15}},
        {"nbRows='0'", "", {}, {}},
    };
    for (const auto& [attributes, array, expected, expectedTotals] : cases) {
        const std::string matrix = Matrix(std::string("description='classificationTable' ") + attributes, array);
        std::vector<std::vector<double>> rows;
        std::vector<double> totals;
        for (const MatrixRow& row : ReadDiagnostics(
                 matrix, [](const HFITOutputStats& stats) { return stats.GetClassifMatrixData()->fvRows; })) {
            rows.push_back(row.fvValues);
            totals.push_back(row.fRowTotal);
        }
        EXPECT_EQ(rows, expected) << attributes;
        EXPECT_EQ(totals, expectedTotals) << attributes;
    }
}

}  // namespace
}  // namespace hierfit::test
