#include <gtest/gtest.h>

#include <limits>

#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {
namespace {

/// Reads a sample and tells what a probe finds in the store.
template <class Probe>
auto ReadSample(const Sample& sample, Probe probe) {
    ProcedureRun run(SamplePmml());
    HFITOutputStats stats;
    EXPECT_TRUE(run.Read(sample.Text(), stats)) << run.Diagnostics();
    return probe(stats);
}

template <class Probe>
auto ReadPart(std::string Sample::*part, const std::string& content, Probe probe) {
    Sample sample;
    sample.*part = content;
    return ReadSample(sample, probe);
}

TEST(Records, SettingsTakeTheirValuesFromTexts) {
    struct Case {
        const char* fName;
        const char* fText;
        int BuildSettings::*fpSetting;
        int fValue;
    };
    const Case cases[] = {
        {"DistributionOfTarget", "BINOMIAL", &BuildSettings::fDistribution, 0},
        {"DistributionOfTarget", "POISSON", &BuildSettings::fDistribution, 7},
        {"DistributionOfTarget", "normal", &BuildSettings::fDistribution, 8},
        {"LinkFunctionType", "CLOGLOG", &BuildSettings::fLink, 0},
        {"LinkFunctionType", "CAUCHIT", &BuildSettings::fLink, 8},
        {"LinkFunctionType", "", &BuildSettings::fLink, 9},
        {"ResidualCovarianceType", "VC", &BuildSettings::fResidualCovarianceType, 0},
        {"ResidualCovarianceType", "UNSTRUCTURED", &BuildSettings::fResidualCovarianceType, 7},
        {"ResidualCovarianceType", "UN", &BuildSettings::fResidualCovarianceType, 8},
        {"Other", "", &BuildSettings::fResidualCovarianceType, 8},
        {"ResidualCovarianceTBand", "", &BuildSettings::fResidualCovarianceTBand, 2},
        {"ResidualCovarianceTBand", "4", &BuildSettings::fResidualCovarianceTBand, 4},
        {"pAdjustment", "SEQSIDAK", &BuildSettings::fPAdjustment, 2},
        {"pAdjustment", "", &BuildSettings::fPAdjustment, 3},
        {"Other", "", &BuildSettings::fPAdjustment, 3},
        {"TrialsValue", "10.9", &BuildSettings::fTrialsValue, 10},
        {"TrialsValue", "-10.9", &BuildSettings::fTrialsValue, -10},
        {"TrialsValue", "", &BuildSettings::fTrialsValue, 0},
        {"TrialsValue", "ten", &BuildSettings::fTrialsValue, 0},
        {"TrialsValue", "nan", &BuildSettings::fTrialsValue, 0},
        {"TrialsValue", "1e300", &BuildSettings::fTrialsValue, std::numeric_limits<int>::max()},
        {"TrialsValue", "-1e300", &BuildSettings::fTrialsValue, std::numeric_limits<int>::min()},
        {"TrialsField", "n", &BuildSettings::fTrialsIndex, 1},
        {"Other", "", &BuildSettings::fTrialsIndex, -1},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.fName) + " " + one.fText);
        EXPECT_EQ(ReadPart(&Sample::fSettings, Parameter("TargetField", "y") + Parameter(one.fName, one.fText),
                           [&](const HFITOutputStats& stats) { return stats.GetBuildSettings()->*one.fpSetting; }),
                  one.fValue);
    }
}

TEST(Records, AnEmptyFigureIsMissing) {
    const auto figures = [](const HFITOutputStats& stats) {
        const ModelDiagnostics& read = *stats.GetModelDiagnostics();
        return std::make_tuple(read.fAICC, read.fBIC, read.fNumOfColsOfFixed, read.fNumOfColsOfRandom);
    };
    const std::string statistics =
        "<Statistic name='AICC' value=''/><Statistic name='numOfColsOfFixed' value=''/>"
        "<Statistic name='BIC' value='2'/>";
    EXPECT_EQ(ReadPart(&Sample::fStatistics, statistics, figures),
              std::make_tuple(kSystemMissing, 2.0, std::numeric_limits<int>::min(), -1));
}

TEST(Records, TheFirstCompleteDistributionCounts) {
    const auto element = [](const std::string& description, const std::string& mean, const std::string& columns) {
        return "<UnivariateData description='" + description + "'><Statistic name='mean' value='" + mean +
               "'/><Statistic name='shape' value=''/>" + columns + "</UnivariateData>";
    };
    const std::string column = Column("feature='observed'", "1 __MISSING__ 3") + Column("feature='other'", "x");
    const auto distribution = [](const HFITOutputStats& stats) {
        const TargetDistribution& read = stats.GetModelDiagnostics()->fTargetDistribution;
        return std::make_tuple(read.fMean, read.fShape, read.fvObserved, read.fvFrequency.size());
    };
    EXPECT_EQ(ReadPart(&Sample::fDiagnostics,
                       element("other", "1", column) + element("TargetDistribution", "2", column) +
                           element("TargetDistribution", "3", column),
                       distribution),
              std::make_tuple(2.0, 0.0, std::vector<double>{1, kSystemMissing, 3}, std::size_t{0}));
}

TEST(Records, TheAxisSpansObservedAndPredictedValues) {
    const auto bounds = [](const std::string& observed, const std::string& predicted) {
        return ReadPart(&Sample::fDiagnostics,
                        "<BivariateData description='observedByPredicted'>" + Column("feature='observed'", observed) +
                            Column("feature='statistic'", predicted) + "</BivariateData>",
                        [](const HFITOutputStats& stats) {
                            const PredByObserved& read = stats.GetModelDiagnostics()->fPredByObserved;
                            return std::make_pair(read.fAxisMin, read.fAxisMax);
                        });
    };
    EXPECT_EQ(bounds("2 5 3", "4 9"), std::make_pair(2.0, 9.0));
    EXPECT_EQ(bounds("2 5", "1 3"), std::make_pair(1.0, 5.0));
    EXPECT_EQ(bounds("2 5", ""), std::make_pair(2.0, 5.0));
    EXPECT_EQ(bounds("", "2 5"), std::make_pair(0.0, 5.0));
    EXPECT_EQ(bounds("2 __MISSING__", ""), std::make_pair(kSystemMissing, 2.0));
}

TEST(Records, MatricesAreUnpackedToFullRows) {
    struct Case {
        const char* fAttributes;
        const char* fArray;
        std::vector<std::vector<double>> fvRows;
        std::vector<double> fvTotals;
    };
    const Case cases[] = {
        {"nbRows='2'", "1 2 3 4", {{1, 2}, {3, 4}}, {3, 7}},
        {"nbRows='2' nbCols='3'", "1 2 3 4 5 6", {{1, 2, 3}, {4, 5, 6}}, {6, 15}},
        {"nbRows='3' kind='diagonal'", "1 2 3", {{1, 0, 0}, {0, 2, 0}, {0, 0, 3}}, {1, 2, 3}},
        {"nbRows='3' kind='symmetric'", "1 2 3 4 5 6", {{1, 2, 4}, {2, 3, 5}, {4, 5, 6}}, {7, 10, 15}},
        {"nbRows='1' kind='other'", "__MISSING__", {{kSystemMissing}}, {kSystemMissing}},
        {"nbRows='0'", "", {}, {}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.fAttributes);
        const auto rows = ReadPart(&Sample::fDiagnostics,
                                   std::string("<Matrix description='classificationTable' ") + one.fAttributes +
                                       "><Array>" + one.fArray + "</Array></Matrix>",
                                   [](const HFITOutputStats& stats) { return stats.GetClassifMatrixData()->fvRows; });
        std::vector<std::vector<double>> values;
        std::vector<double> totals;
        for (const MatrixRow& row : rows) {
            values.push_back(row.fvValues);
            totals.push_back(row.fRowTotal);
        }
        EXPECT_EQ(values, one.fvRows);
        EXPECT_EQ(totals, one.fvTotals);
    }
}

TEST(Records, MatricesOfEventsOutOfTrialsReadNoLabels) {
    Sample sample;
    sample.fDiagnostics =
        "<Matrix description='classificationTable' nbRows='1'><MatrixLabels><RowColLabels><Label label='3'/>"
        "</RowColLabels></MatrixLabels><Array>1</Array></Matrix>";
    const auto count = [](const HFITOutputStats& stats) { return stats.GetClassifMatrixData()->fvLabels.size(); };
    EXPECT_EQ(ReadSample(sample, count), 1U);
    sample.fSettings += Parameter("UseTrials", "true");
    EXPECT_EQ(ReadSample(sample, count), 0U);
}

TEST(Records, ARandomBlockFillsTheGapBelowIt) {
    Sample sample;
    const std::string block = RandomBlock("", true, Effect({"a"}));
    sample.fSettings += ParameterOf("RandomSpecs", List(block + block + block));
    sample.fTraining = Estimates("parameterType='random' block='2'", "", {{"p", {}}});
    const auto blocks = ReadSample(sample, [](const HFITOutputStats& stats) {
        std::string text;
        for (const RandomParamBlock& one : stats.GetParamCollect()->fvRandomParamEstim) {
            text += std::to_string(one.fBlock) + ":" + std::to_string(one.fvGroups.size()) + " ";
        }
        return text;
    });
    EXPECT_EQ(blocks, "2:0 2:0 2:1 ");
}

TEST(Records, ColumnsOfMeansKeepTheLastOfAStatistic) {
    const std::string table = Column("feature='statistic' statistic='mean'", "1") + Column("statistic='other'", "2") +
                              Column("feature='fields' statistic='mean'", "__MISSING__ 'a b'");
    const auto columns = [](const HFITOutputStats& stats) {
        const EstimateData& read = stats.GetEmmeansEstimates()->front();
        return std::make_tuple(read.fMean.fFeature, read.fMean.fvValues.front(), read.fStdErr.fvValues.size());
    };
    EXPECT_EQ(
        ReadPart(&Sample::fDiagnostics,
                 "<DataGroup description='Emmeans'><MultivariateData>" + table + "</MultivariateData></DataGroup>",
                 columns),
        std::make_tuple(3, std::string("__MISSING__"), std::size_t{0}));
}

}  // namespace
}  // namespace hierfit::test
