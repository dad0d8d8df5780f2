#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

/// What becomes of a sample of which one part is another: a document that lacks what it must hold fails, and the user
/// learns the place, from the reader or from the look-up that failed last.
struct Outcome {
    std::string fContent;
    bool fIsRead;
    std::string fDiagnostics = "";  ///< the reader's, a line each
};
constexpr bool kRead = true;
constexpr bool kFails = false;

const std::string kModel = "StatXML/PMMLModel/ModelDiagnostics/";
const std::string kRecords = kModel + "StructuredData/SegmentData/";
const std::string kParameters = "StatXML/PMMLModel/TrainingSummary/ParameterEstimates";
const std::string kSettingsPath = "StatXML/BuildSettings/Parameter";

const std::string kIntercept = R"(<RegressionParameter isIntercept="true" name="I"/>)";
const std::string kLabel = "<Label><PrintableList pattern='P1' mapId='1'/></Label>";
const std::string kSegment = Tag("SegmentData", "<SegmentInfo/>" + Matrix("nbRows='1'", "1"));
const std::string kIndex = "<Statistic name='EMMEANSIndex' value=''/>";
const std::string kTable = Tag("MultivariateData description='estimates'", Column("statistic='mean'", "1"));

std::string Distribution(const std::string& columns) {
    return Tag("UnivariateData description='TargetDistribution'", "<Statistic/>" + columns);
}

std::string Classified(const std::string& attributes, const std::string& array) {
    return Matrix("description='classificationTable' nbRows=" + attributes, array);
}

std::string Means(const std::string& content) { return Tag("DataGroup description='customEmmeans'", content); }

/// A first subject with a column in a group.
std::string Subject(const std::string& group, const std::string& field, const std::string& value) {
    return FirstSubject("1", Segment({}), Group(group, Column("field='" + field + "'", value)));
}

std::string Fixed(const std::string& children) { return Estimates("fixed", Estimate("p", {"1"}, children)); }

std::string Term(const std::string& parts) {
    return Fixed(Tag("RegressionParameter isIntercept='false' name=''", parts));
}

const Outcome kDiagnostics[] = {
    // The last column or element of a kind decides.
    {Distribution(Column("feature='observed'", "1") + "<Coordinates feature='frequency'/>"), kFails},
    {Distribution("<Coordinates feature='frequency'/>" + Column("feature='observed'", "1")), kRead},
    {"<UnivariateData/><UnivariateData description='other'/>", kRead},
    {Covariances("<Label/>" + kLabel, kSegment), kRead},
    {Covariances(kLabel + "<Label/>", kSegment), kFails},
    // Any column decides.
    {Tag("BivariateData description='observedByPredicted'",
         "<Coordinates feature='observed'/>" + Column("feature='statistic'", "1")),
     kFails},
    // Structured data.
    {FirstSubject("1", Segment({"out", "1"}), ""), kFails,
     kRecords + "SegmentInfo/FieldInfo: the field \"out\" is no categorical variable of the model\n"},
    {FirstSubject("1", Segment({"x", "1"}), ""), kFails,
     kRecords + "SegmentInfo/FieldInfo: the field \"x\" is no categorical variable of the model\n"},
    {FirstSubject("1", Segment({"a", "one"}), ""), kFails},
    {Subject("other", "y", "1"), kFails,
     kRecords + "MultivariateData/CoordinatesGroup: a group of columns is described \"other\", not "
                "\"repeatedMeasures\" or \"target\"\n"},
    {Subject("target", "b", "lo"), kFails},
    {Subject("repeatedMeasures", "out", "1"), kRead,
     kRecords + "MultivariateData/CoordinatesGroup/Coordinates: the field \"out\" is no variable of the model, so its "
                "levels are not known\n"},
    {Subject("repeatedMeasures", "z", "1"), kFails},
    // Matrices.
    {Classified("'2'", "1 2 3"), kFails, kModel + "Matrix: the matrix has 3 numbers, not 4\n"},
    {Classified("'2' kind='diagonal'", "1 2 3 4"), kFails, kModel + "Matrix: the matrix has 4 numbers, not 2\n"},
    {Classified("'-1' nbCols='1'", "1"), kFails, kModel + "Matrix: the matrix has a negative size\n"},
    {Classified("'2147483647' kind='symmetric'", "1"), kFails,
     kModel + "Matrix: the matrix has 1 numbers, not 2305843008139952128\n"},
    {Classified("'1'", "\"1"), kFails},
    // Means.
    {Means(kIndex), kFails},
    {Means("<Label><PrintableList><PrintableList pattern='x'/></PrintableList></Label>" + kTable), kFails},
    {Means("<Label><PrintableList><PrintableList pattern='x'/></PrintableList></Label>" + kIndex + kTable), kRead,
     kModel + "DataGroup: a continuous predictor cannot be read, and those behind it are left out\n"},
    {Means(kTable + Message("")), kRead},
};

const Outcome kAlgorithm[] = {
    {"<PredictiveSummary algorithmName='glmm'/>", kFails,
     "StatXML/PMMLModel/PredictiveSummary: the algorithm is \"glmm\", not \"GLMM\"\n"},
};

const Outcome kOtherSettings[] = {
    {kSettings + Parameter("Other", "1") + "<Parameter name='CIn'/>", kRead},
    {Parameter("TargetField", "z"), kRead,
     kSettingsPath + ": the field \"z\" is not in the data, and its name is left blank\n"},
    {Parameter("TrialsField", "z"), kRead,
     kSettingsPath + ": the field \"z\" is not in the data, and the fixed number of trials stands in its place\n"},
    // Subject and groups without content.
    {kSettings + "<Parameter name='ResidualSubjectSpec'/><Parameter name='ResidualGroupSpec'/>", kRead},
    // The last attribute of an effect decides.
    {List("FixedEffectList", "<StructuredValue/>"), kFails},
    {List("FixedEffectList", Effect({})), kRead},
    {List("FixedEffectList", Tag("StructuredValue", Values("Fields", {"z"}))), kFails},
    {List("FixedEffectList", Effect({"z"})), kRead},
    {List("FixedEffectList", Tag("StructuredValue", Values("Fields", {"a"}) + "<Attribute name='Other'/>")), kFails},
    {List("FixedEffectList", Effect({"a"}, {})), kRead},
    {List("FixedEffectList", Effect({"a", "b"})), kRead,
     kSettingsPath + "/ListValue/StructuredValue: the effect has fewer nesting levels than fields, and the others are "
                     "taken as crossed\n"},
    {List("RandomSpecs", ""), kFails},
    {List("RandomSpecs", "<StructuredValue/>"), kRead},
    {List("EMMEANS", "<StructuredValue><Attribute name='Factors'/></StructuredValue>"), kFails},
};

const Outcome kStringMaps[] = {
    // The last entry decides.
    {"", kFails},
    {Sample().fStringMaps + "<StringMap mapId='2'/>", kFails},
    {"<StringMap mapId='2'/>" + Sample().fStringMaps, kRead},
    {Tag("StringMap", "<MapEntry name='a'/>" + Tag("MapEntry name='b'", Tag("Label", kIntercept))), kRead},
    {Tag("StringMap", Tag("MapEntry name='b'", Tag("Label", kIntercept)) + "<MapEntry name='a'/>"), kFails},
};

const Outcome kTraining[] = {
    // Messages stand in for estimates.
    {"", kFails},
    {Message("k"), kRead},
    {Tag("Message", Tag("PrintableList pattern='k'", "<PrintableValue value='1'/><PrintableValue/>")), kFails},
    {Estimates("fixed", "") + Message("k"), kRead,
     "StatXML/PMMLModel/TrainingSummary: the parameter estimates could not be read and are left out\n"},
    {Estimates("other", Estimate("p", {})), kRead},
    {Estimates("other", ""), kFails},
    // Terms.
    {Fixed(kIntercept + "<Statistic name='i' value='0'/>"), kFails,
     kParameters + "/ParameterStats/Statistic: an intercept belongs to no effect and carries no statistic\n"},
    {Term("<Covariate field='x' power=''/>"), kRead},
    {Term("<Covariate field='x' power='2147483647'/>"), kRead},
    {Term("<Factor field='z' value='1'/>"), kFails},
    {Fixed("<PrintableList><PrintableList><PrintableValue value='1'/></PrintableList></PrintableList>"), kFails},
    // Blocks.
    {Estimates("random' block='1000", Estimate("p", {})), kFails,
     kParameters + ": the random effect block 1000 is not between 0 and 999\n"},
    {Estimates("fixed' block='-1", Estimate("p", {})), kRead},
};

void CheckOutcomes(std::span<const Outcome> outcomes, std::string Sample::*part) {
    for (const Outcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.fContent);
        Sample sample;
        sample.*part = outcome.fContent;
        ProcedureRun run;
        EXPECT_EQ(run.Run(sample.Text()), outcome.fIsRead);
        const std::string drawn = Draw(run.GetItems());
        if (outcome.fIsRead) {
            EXPECT_EQ(drawn.find("message"), std::string::npos);
            EXPECT_NE(Draw(run.GetItems(), "ModelSummary"), "");
        } else {
            EXPECT_EQ(drawn, "message 2 3 StatXML parsing error ...\n");
            EXPECT_EQ(run.HasMiss(), outcome.fDiagnostics.empty());
        }
        EXPECT_EQ(run.Diagnostics("StatXML/"), outcome.fDiagnostics);
    }
}

TEST(Reader, ReadsWhatHoldsAndReportsWhatDoesNot) {
    CheckOutcomes(kDiagnostics, &Sample::fDiagnostics);
    CheckOutcomes(kAlgorithm, &Sample::fAlgorithm);
    CheckOutcomes(kOtherSettings, &Sample::fSettings);
    CheckOutcomes(kStringMaps, &Sample::fStringMaps);
    CheckOutcomes(kTraining, &Sample::fTraining);
}

TEST(Reader, FailsOnTextThatIsNoDocument) {
    ProcedureRun run;
    EXPECT_FALSE(run.Run(""));
    EXPECT_EQ(Draw(run.GetItems()), "");
    EXPECT_FALSE(run.Run("GLMM"));
    EXPECT_EQ(Draw(run.GetItems()), "message 2 3 StatXML parsing error ...\n");
}

TEST(Reader, FillsDiagonalMatricesUpToALimit) {
    const std::string array = Join(Strings(3000, "1 "), "", "");
    const std::string segment = Tag("SegmentData", "<SegmentInfo/>" + Matrix("nbRows='3000' kind='diagonal'", array));
    for (const std::size_t nMatrices : {1U, 2U}) {
        const Sample sample{.fDiagnostics = Covariances(kLabel, Join(Strings(nMatrices, segment), "", ""))};
        ProcedureRun run;
        EXPECT_EQ(run.Run(sample.Text()), nMatrices == 1);
        EXPECT_EQ(run.Diagnostics("StatXML/").ends_with("matrices are too large to be filled up\n"), nMatrices == 2);
    }
}

TEST(Reader, TakesEachDocumentOnce) {
    ProcedureRun run;
    HFITOutputStats stats;
    const std::string statXml = Sample().Text();
    HFITParseOutXML reader(run.GetDataSource(), &stats, kSamplePmml, statXml);
    EXPECT_TRUE(reader.Parse());
    const BuildSettings* settings = stats.GetBuildSettings();
    EXPECT_TRUE(reader.ParsePMML("no document"));
    EXPECT_TRUE(reader.ParseStatXML("no document"));
    EXPECT_EQ(stats.GetBuildSettings(), settings);
}

TEST(Reader, RemovesSettingsAndEstimatesThatItCouldNotRead) {
    ProcedureRun run;
    HFITOutputStats stats;
    EXPECT_FALSE(run.Read(Replaced(Sample().Text(), "stdError=", "other="), stats));
    EXPECT_NE(stats.GetBuildSettings(), nullptr);
    EXPECT_EQ(stats.GetParamCollect(), nullptr);
    EXPECT_FALSE(run.Read(Replaced(Sample().Text(), "<Parameter name=", "<Parameter other="), stats));
    EXPECT_EQ(stats.GetBuildSettings(), nullptr);
}

}  // namespace
}  // namespace hierfit::test
