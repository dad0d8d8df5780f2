#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

/// What a document must hold, and what it need not: the walk's outcome for samples of which one part differs.
const std::string kModel = "StatXML/PMMLModel/ModelDiagnostics/";
const std::string kParameters = "StatXML/PMMLModel/TrainingSummary/ParameterEstimates";

struct Outcome {
    const char* fName;
    std::string fContent;
    bool fIsRead;
    std::string fDiagnostics = "";  ///< all of them, a line each
};

const std::string kIntercept = R"(<RegressionParameter isIntercept="true" name="I"/>)";
const std::string kMatrix = R"(<Matrix description="classificationTable" nbRows=")";

std::string SettingsWith(const std::string& parameter) { return Sample().fSettings + parameter; }

std::string SettingList(const std::string& name, const std::string& items) {
    return SettingsWith(ParameterOf(name, List(items)));
}

std::string FixedWith(const std::string& children) {
    return Estimates("parameterType='fixed'", "", {{"p", {"1"}, "", false, children}});
}

std::string Term(const std::string& parts) {
    return FixedWith("<RegressionParameter isIntercept='false' name=''>" + parts + "</RegressionParameter>");
}

std::string Structured(const std::string& description, const std::string& content) {
    return "<StructuredData description='" + description + "'>" + content + "</StructuredData>";
}

std::string FirstSubject(const std::string& segment, const std::string& groups) {
    return Structured("firstSubjectRecordsForDataStructure", "<Counts totalFreq='1'/><SegmentData>" + segment +
                                                                 "<MultivariateData>" + groups +
                                                                 "</MultivariateData></SegmentData>");
}

std::string Group(const std::string& description, const std::string& columns) {
    return "<CoordinatesGroup description='" + description + "'>" + columns + "</CoordinatesGroup>";
}

std::string Covariances(const std::string& labels) {
    return Structured("randomEffectCovariances", "<Statistic name='s'/><MatrixLabels><RowColLabels>" + labels +
                                                     "</RowColLabels></MatrixLabels><SegmentData><SegmentInfo/><Matrix "
                                                     "nbRows='1'><Array>1</Array></Matrix></SegmentData>");
}

std::string Means(const std::string& content) {
    return "<DataGroup description='customEmmeans'>" + content + "</DataGroup>";
}

const std::string kTable =
    "<MultivariateData description='estimates'>" + Column("statistic='mean'", "1") + "</MultivariateData>";

const std::string kLabel = "<Label><PrintableList pattern='P1' mapId='1'/></Label>";

const Outcome kDiagnostics[] = {
    {"the smallest document", "", true},
    {"a distribution whose last column has no array",
     "<UnivariateData description='TargetDistribution'><Statistic/>" + Column("feature='observed'", "1") +
         "<Coordinates feature='frequency'/></UnivariateData>",
     false},
    {"a distribution whose first column has no array",
     "<UnivariateData description='TargetDistribution'><Statistic/><Coordinates feature='frequency'/>" +
         Column("feature='observed'", "1") + "</UnivariateData>",
     true},
    {"a distribution without description", "<UnivariateData/>", false},
    {"a distribution without description before another one", "<UnivariateData/><UnivariateData description='other'/>",
     true},
    {"predictions whose first column has no array",
     "<BivariateData description='observedByPredicted'><Coordinates feature='observed'/>" +
         Column("feature='statistic'", "1") + "</BivariateData>",
     false},
    {"predictions of another kind", "<BivariateData description='other'/>", true},
    {"structured data without description", "<StructuredData/>", false},
    {"structured data of another kind", "<StructuredData description='other'/>", true},
    {"a first subject without columns", FirstSubject(Segment({"a", "1"}), ""), true},
    {"a subject field that the model does not use", FirstSubject(Segment({"out", "1"}), ""), false,
     kModel + "StructuredData/SegmentData/SegmentInfo/FieldInfo: the field \"out\" is no categorical variable of the "
              "model\n"},
    {"a continuous subject field", FirstSubject(Segment({"x", "1"}), ""), false,
     kModel +
         "StructuredData/SegmentData/SegmentInfo/FieldInfo: the field \"x\" is no categorical variable of the model\n"},
    {"a subject's value that is no number", FirstSubject(Segment({"a", "one"}), ""), false},
    {"columns of another kind", FirstSubject(Segment({}), Group("other", Column("field='y'", "1"))), false,
     kModel + "StructuredData/SegmentData/MultivariateData/CoordinatesGroup: a group of columns is described "
              "\"other\", not \"repeatedMeasures\" or \"target\"\n"},
    {"a column of neither target nor trials", FirstSubject(Segment({}), Group("target", Column("field='x'", "1"))),
     true},
    {"a column of neither target nor trials that is no number",
     FirstSubject(Segment({}), Group("target", Column("field='b'", "lo"))), false},
    {"a repeated measure that the model does not use",
     FirstSubject(Segment({}), Group("repeatedMeasures", Column("field='out'", "1"))), true,
     kModel + "StructuredData/SegmentData/MultivariateData/CoordinatesGroup/Coordinates: the field \"out\" is no "
              "variable of the model, so its levels are not known\n"},
    {"a repeated measure that the data lacks",
     FirstSubject(Segment({}), Group("repeatedMeasures", Column("field='z'", "1"))), false},
    {"a label without text before another", Covariances("<Label/>" + kLabel), true},
    {"a last label without text", Covariances(kLabel + "<Label/>"), false},
    {"a matrix of another kind", "<Matrix/>", true},
    {"a matrix without rows", "<Matrix description='classificationTable'><Array/></Matrix>", false},
    {"an empty matrix", kMatrix + "0\"><Array/></Matrix>", true},
    {"a matrix of the wrong size", kMatrix + "2\"><Array>1 2 3</Array></Matrix>", false,
     kModel + "Matrix: the matrix has 3 numbers, not 4\n"},
    {"a full matrix for a diagonal", kMatrix + "2\" kind=\"diagonal\"><Array>1 2 3 4</Array></Matrix>", false,
     kModel + "Matrix: the matrix has 4 numbers, not 2\n"},
    {"a matrix of a negative size", kMatrix + "-1\"><Array>1</Array></Matrix>", false,
     kModel + "Matrix: the matrix has a negative size\n"},
    {"a matrix of a huge size", kMatrix + "2147483647\" kind=\"symmetric\"><Array>1</Array></Matrix>", false,
     kModel + "Matrix: the matrix has 1 numbers, not 2305843008139952128\n"},
    {"a matrix with quotes that do not close", kMatrix + "1\"><Array>\"1</Array></Matrix>", false},
    {"means without tables", Means("<Statistic name='EMMEANSIndex' value=''/>"), false},
    {"means with a table", Means("<Statistic name='EMMEANSIndex' value=''/>" + kTable), true},
    {"means with an index without value", Means("<Statistic name='EMMEANSIndex'/>" + kTable), false},
    {"means with a table without description", Means("<MultivariateData/>"), false},
    {"a predictor without value and no statistic",
     Means("<Label><PrintableList><PrintableList pattern='x'/></PrintableList></Label>" + kTable), false},
    {"a predictor without value, and a statistic",
     Means("<Label><PrintableList><PrintableList pattern='x'/></PrintableList></Label><Statistic name='' value=''/>" +
           kTable),
     true, kModel + "DataGroup: a continuous predictor cannot be read, and those behind it are left out\n"},
    {"a test without all its figures",
     Means(kTable + "<ModelTestStats><FTest fStatistic='1' sig='' df1='1'/></ModelTestStats>"), false},
    {"a test without figures at all", Means(kTable + "<ModelTestStats/>"), false},
    {"a message of means with an empty key", Means(kTable + Message("")), true},
    {"data groups of other kinds", "<DataGroup/><DataGroup description='emmeans'/>", true},
};

const Outcome kAlgorithm[] = {
    {"no algorithm", "", false},
    {"no name of an algorithm", "<PredictiveSummary/>", false},
    {"another algorithm", "<PredictiveSummary algorithmName='glmm'/>", false,
     "StatXML/PMMLModel/PredictiveSummary: the algorithm is \"glmm\", not \"GLMM\"\n"},
};

const Outcome kSettings[] = {
    {"no parameters", "", false},
    {"a parameter without name", "<Parameter value='1'/>", false},
    {"a parameter of another name", SettingsWith(Parameter("Other", "1")), true},
    {"a parameter without value", SettingsWith("<Parameter name='CIn'/>"), true},
    {"a target that the data lacks", Parameter("TargetField", "z"), true,
     "StatXML/BuildSettings/Parameter: the field \"z\" is not in the data, and its name is left blank\n"},
    {"trials that the data lacks", Parameter("TrialsField", "z"), true,
     "StatXML/BuildSettings/Parameter: the field \"z\" is not in the data, and "
     "the fixed number of trials stands in its place\n"},
    {"subject and groups without content",
     SettingsWith("<Parameter name='ResidualSubjectSpec'/><Parameter name='ResidualGroupSpec'/>"), true},
    {"an effect without attributes", SettingList("FixedEffectList", "<StructuredValue/>"), false},
    {"an effect of no field", SettingList("FixedEffectList", Effect({})), true},
    {"a field that the data lacks, in the last attribute",
     SettingsWith(
         ParameterOf("ResidualSubjectSpec",
                     "<StructuredValue>" + Attribute("Fields", List("<Value value='z'/>")) + "</StructuredValue>")),
     false},
    {"a field that the data lacks, before nesting levels", SettingList("FixedEffectList", Effect({"z"})), true},
    {"an attribute without list behind the others",
     SettingsWith(ParameterOf("ResidualSubjectSpec", "<StructuredValue>" +
                                                         Attribute("Fields", List("<Value value='a'/>")) +
                                                         "<Attribute name='Other'/></StructuredValue>")),
     false},
    {"fewer nesting levels than fields", SettingList("FixedEffectList", Effect({"a", "b"})), true,
     "StatXML/BuildSettings/Parameter[5]/ListValue/StructuredValue: the effect has fewer nesting levels than fields, "
     "and the others are taken as crossed\n"},
    {"no random block in a list of them", SettingList("RandomSpecs", ""), false},
    {"a random block of no attribute", SettingList("RandomSpecs", "<StructuredValue/>"), true},
    {"means of no factors", SettingList("EMMEANS", "<StructuredValue><Attribute name='Factors'/></StructuredValue>"),
     false},
};

const Outcome kStringMaps[] = {
    {"no string map", "", false},
    {"a last string map without entries", Sample().fStringMaps + "<StringMap mapId='2'/>", false},
    {"a string map without entries before another", "<StringMap mapId='2'/>" + Sample().fStringMaps, true},
    {"an entry without a term before another",
     "<StringMap><MapEntry name='a'/><MapEntry name='b'><Label>" + kIntercept + "</Label></MapEntry></StringMap>",
     true},
    {"a last entry without a term",
     "<StringMap><MapEntry name='b'><Label>" + kIntercept + "</Label></MapEntry><MapEntry name='a'/></StringMap>",
     false},
};

const Outcome kStatistics[] = {
    {"no fit statistics", "", false},
    {"a fit statistic without value", "<Statistic name='AICC'/>", false},
    {"another fit statistic", "<Statistic name='other' value=''/>", true},
};

const Outcome kTraining[] = {
    {"neither estimates nor messages", "", false},
    {"messages alone", Message("k"), true},
    {"a message without key", "<Message><PrintableList/></Message>", false},
    {"a message whose last parameter has no value",
     "<Message><PrintableList pattern='k'><PrintableValue value='1'/><PrintableValue/></PrintableList></Message>",
     false},
    {"estimates of another type", Estimates("parameterType='other'", "", {{"p", {}}}), true},
    {"estimates without type", Estimates("", "", {{"p", {}}}), false},
    {"no estimate in estimates", Estimates("parameterType='other'", "", {}), false},
    {"broken estimates with a message", Estimates("parameterType='fixed'", "", {}) + Message("k"), true,
     "StatXML/PMMLModel/TrainingSummary: the parameter estimates could not be read and are left out\n"},
    {"an intercept with a statistic", FixedWith(kIntercept + "<Statistic name='i' value='0'/>"), false,
     kParameters + "/ParameterStats/Statistic: an intercept belongs to no effect and carries no statistic\n"},
    {"a statistic without value", FixedWith("<Statistic name='i'/>"), false},
    {"a covariate without power", Term("<Covariate field='x'/>"), false},
    {"a covariate of an empty power", Term("<Covariate field='x' power=''/>"), true},
    {"a covariate of a power too high", Term("<Covariate field='x' power='999999999'/>"), false,
     kParameters + "/ParameterStats/RegressionParameter/Covariate: a power of 999999999 is above 100\n"},
    {"a factor that the data lacks", Term("<Factor field='z' value='1'/>"), false},
    {"a printable value without storage",
     FixedWith("<PrintableList><PrintableList><PrintableValue value='1'/></PrintableList></PrintableList>"), false},
    {"a target category that is no number", Estimates("parameterType='fixed'", Segment({"y", "yes"}), {{"p", {}}}),
     false},
    {"a random block that is not there", Estimates("parameterType='random' block='1000'", "", {{"p", {}}}), false,
     kParameters + ": the random effect block 1000 is not between 0 and 999\n"},
    {"a random block below 0", Estimates("parameterType='random' block='-1'", "", {{"p", {}}}), false,
     kParameters + ": the random effect block -1 is not between 0 and 999\n"},
    {"a block that does not matter", Estimates("parameterType='fixed' block='-1'", "", {{"p", {}}}), true},
};

void CheckOutcome(const Outcome& outcome, std::string Sample::*part) {
    SCOPED_TRACE(outcome.fName);
    Sample sample;
    sample.*part = outcome.fContent;
    ProcedureRun run(SamplePmml());
    ASSERT_EQ(run.Run(sample.Text()), outcome.fIsRead);
    const std::string items = DrawItems(run.GetDocument().fItems);
    if (outcome.fIsRead) {
        EXPECT_EQ(items.find("message"), std::string::npos);
        EXPECT_EQ(items.find("table 'ModelSummary'"), 0U);
        // What the tables have to say comes behind what the reader says.
        EXPECT_EQ(run.Diagnostics().substr(0, outcome.fDiagnostics.size()), outcome.fDiagnostics);
    } else {
        EXPECT_EQ(items, "message 2 3 StatXML parsing error ...\n");
        EXPECT_EQ(run.Diagnostics(), outcome.fDiagnostics);
        // The user learns the place, from the reader or from the look-up that failed last.
        EXPECT_EQ(run.HasMiss(), outcome.fDiagnostics.empty());
    }
}

TEST(Reader, ReadsWhatHoldsAndReportsWhatDoesNot) {
    for (const Outcome& one : kDiagnostics) CheckOutcome(one, &Sample::fDiagnostics);
    for (const Outcome& one : kAlgorithm) CheckOutcome(one, &Sample::fAlgorithm);
    for (const Outcome& one : kSettings) CheckOutcome(one, &Sample::fSettings);
    for (const Outcome& one : kStringMaps) CheckOutcome(one, &Sample::fStringMaps);
    for (const Outcome& one : kStatistics) CheckOutcome(one, &Sample::fStatistics);
    for (const Outcome& one : kTraining) CheckOutcome(one, &Sample::fTraining);
}

TEST(Reader, FailsOnTextThatIsNoDocument) {
    ProcedureRun run(SamplePmml());
    EXPECT_FALSE(run.Run(""));
    EXPECT_EQ(DrawItems(run.GetDocument().fItems), "");
    EXPECT_FALSE(run.Run("GLMM"));
    EXPECT_EQ(DrawItems(run.GetDocument().fItems), "message 2 3 StatXML parsing error ...\n");
}

TEST(Reader, FillsDiagonalMatricesUpToALimit) {
    std::string array;
    for (int i = 0; i < 3000; ++i) array += "1 ";
    const std::string labels =
        "<Statistic name='s'/><MatrixLabels><RowColLabels>" + kLabel + "</RowColLabels></MatrixLabels>";
    const std::string segment = "<SegmentData><SegmentInfo/><Matrix nbRows='3000' kind='diagonal'><Array>" + array +
                                "</Array></Matrix></SegmentData>";
    for (const int nMatrices : {1, 2}) {
        std::string segments;
        for (int i = 0; i < nMatrices; ++i) segments += segment;
        Sample sample;
        sample.fDiagnostics = Structured("randomEffectCovariances", labels + segments);
        ProcedureRun run(SamplePmml());
        HFITOutputStats stats;
        EXPECT_EQ(run.Read(sample.Text(), stats), nMatrices == 1);
    }
}

TEST(Reader, TakesEachDocumentOnce) {
    ProcedureRun run(SamplePmml());
    HFITOutputStats stats;
    const std::string pmml = SamplePmml();
    const std::string statXml = Sample().Text();
    HFITParseOutXML reader(run.GetDataSource(), &stats, pmml, statXml);
    EXPECT_TRUE(reader.Parse());
    const BuildSettings* settings = stats.GetBuildSettings();
    EXPECT_TRUE(reader.ParsePMML("no document"));
    EXPECT_TRUE(reader.ParseStatXML("no document"));
    EXPECT_EQ(stats.GetBuildSettings(), settings);
}

TEST(Reader, RemovesSettingsAndEstimatesThatItCouldNotRead) {
    ProcedureRun run(SamplePmml());
    HFITOutputStats stats;
    EXPECT_FALSE(run.Read(Replaced(Sample().Text(), "stdError=", "other="), stats));
    EXPECT_NE(stats.GetBuildSettings(), nullptr);
    EXPECT_EQ(stats.GetParamCollect(), nullptr);
    EXPECT_FALSE(run.Read(Replaced(Sample().Text(), "<Parameter name=", "<Parameter other="), stats));
    EXPECT_EQ(stats.GetBuildSettings(), nullptr);
}

}  // namespace
}  // namespace hierfit::test
