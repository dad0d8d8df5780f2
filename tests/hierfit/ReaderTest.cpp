#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

/// What a document must hold, and what it need not: the walk's outcome for samples of which one part differs.
struct Outcome {
    const char* fName;
    std::string Sample::*fpPart;
    std::string fContent;
    bool fIsRead;
    std::string fDiagnostics = "";  ///< all of them, a line each
};

const std::string kIntercept = R"(<RegressionParameter isIntercept="true" name="I"/>)";
const std::string kMatrix = R"(<Matrix description="classificationTable" nbRows=")";

std::string SettingsWith(const std::string& parameter) { return Sample().fSettings + parameter; }

std::string FixedWith(const std::string& children) {
    return Estimates("parameterType='fixed'", "", {{"p", {"1"}, "", false, children}});
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
    return Structured("randomEffectCovariances",
                      "<Statistic name='s'/><MatrixLabels><RowColLabels>" + labels +
                          "</RowColLabels></MatrixLabels><SegmentData><SegmentInfo/><Matrix nbRows='1'><Array>1</Array>"
                          "</Matrix></SegmentData>");
}

std::string Means(const std::string& content) {
    return "<DataGroup description='customEmmeans'>" + content + "</DataGroup>";
}

const std::string kTable =
    "<MultivariateData description='estimates'>" + Column("statistic='mean'", "1") + "</MultivariateData>";

const std::string kLabel = "<Label><PrintableList pattern='P1' mapId='1'/></Label>";

const Outcome kOutcomes[] = {
    {"the smallest document", &Sample::fDiagnostics, "", true},

    {"no algorithm", &Sample::fAlgorithm, "", false},
    {"no name of an algorithm", &Sample::fAlgorithm, "<PredictiveSummary/>", false},
    {"another algorithm", &Sample::fAlgorithm, "<PredictiveSummary algorithmName='glmm'/>", false,
     "StatXML/PMMLModel/PredictiveSummary: the algorithm is \"glmm\", not \"GLMM\"\n"},

    {"no parameters", &Sample::fSettings, "", false},
    {"a parameter without name", &Sample::fSettings, "<Parameter value='1'/>", false},
    {"a parameter of another name", &Sample::fSettings, SettingsWith(Parameter("Other", "1")), true},
    {"a parameter without value", &Sample::fSettings, SettingsWith("<Parameter name='CIn'/>"), true},
    {"a target that the data lacks", &Sample::fSettings, Parameter("TargetField", "z"), true,
     "StatXML/BuildSettings/Parameter: the field \"z\" is not in the data, and its name is left blank\n"},
    {"subject and groups without content", &Sample::fSettings,
     SettingsWith("<Parameter name='ResidualSubjectSpec'/><Parameter name='ResidualGroupSpec'/>"), true},
    {"an effect without attributes", &Sample::fSettings,
     SettingsWith(ParameterOf("FixedEffectList", List("<StructuredValue/>"))), false},
    {"an effect of no field", &Sample::fSettings, SettingsWith(ParameterOf("FixedEffectList", List(Effect({})))), true},
    {"a field that the data lacks, in the last attribute", &Sample::fSettings,
     SettingsWith(
         ParameterOf("ResidualSubjectSpec",
                     "<StructuredValue>" + Attribute("Fields", List("<Value value='z'/>")) + "</StructuredValue>")),
     false},
    {"a field that the data lacks, before nesting levels", &Sample::fSettings,
     SettingsWith(ParameterOf("FixedEffectList", List(Effect({"z"})))), true},
    {"an attribute without list behind the others", &Sample::fSettings,
     SettingsWith(ParameterOf("ResidualSubjectSpec", "<StructuredValue>" +
                                                         Attribute("Fields", List("<Value value='a'/>")) +
                                                         "<Attribute name='Other'/></StructuredValue>")),
     false},
    {"fewer nesting levels than fields", &Sample::fSettings,
     SettingsWith(ParameterOf("FixedEffectList", List(Effect({"a", "b"})))), true,
     "StatXML/BuildSettings/Parameter[5]/ListValue/StructuredValue: the effect has fewer nesting levels than fields, "
     "and the others are taken as crossed\n"},
    {"no random block in a list of them", &Sample::fSettings, SettingsWith(ParameterOf("RandomSpecs", List(""))),
     false},
    {"a random block of no attribute", &Sample::fSettings,
     SettingsWith(ParameterOf("RandomSpecs", List("<StructuredValue/>"))), true},
    {"means of no factors", &Sample::fSettings,
     SettingsWith(ParameterOf("EMMEANS", List("<StructuredValue><Attribute name='Factors'/></StructuredValue>"))),
     false},

    {"no string map", &Sample::fStringMaps, "", false},
    {"a last string map without entries", &Sample::fStringMaps, Sample().fStringMaps + "<StringMap mapId='2'/>", false},
    {"a string map without entries before another", &Sample::fStringMaps,
     "<StringMap mapId='2'/>" + Sample().fStringMaps, true},
    {"an entry without a term before another", &Sample::fStringMaps,
     "<StringMap><MapEntry name='a'/><MapEntry name='b'><Label>" + kIntercept + "</Label></MapEntry></StringMap>",
     true},
    {"a last entry without a term", &Sample::fStringMaps,
     "<StringMap><MapEntry name='b'><Label>" + kIntercept + "</Label></MapEntry><MapEntry name='a'/></StringMap>",
     false},

    {"no fit statistics", &Sample::fStatistics, "", false},
    {"a fit statistic without value", &Sample::fStatistics, "<Statistic name='AICC'/>", false},
    {"another fit statistic", &Sample::fStatistics, "<Statistic name='other' value=''/>", true},
    {"a distribution whose last column has no array", &Sample::fDiagnostics,
     "<UnivariateData description='TargetDistribution'><Statistic/>" + Column("feature='observed'", "1") +
         "<Coordinates feature='frequency'/></UnivariateData>",
     false},
    {"a distribution whose first column has no array", &Sample::fDiagnostics,
     "<UnivariateData description='TargetDistribution'><Statistic/><Coordinates feature='frequency'/>" +
         Column("feature='observed'", "1") + "</UnivariateData>",
     true},
    {"a distribution without description", &Sample::fDiagnostics, "<UnivariateData/>", false},
    {"a distribution without description before another one", &Sample::fDiagnostics,
     "<UnivariateData/><UnivariateData description='other'/>", true},
    {"predictions whose first column has no array", &Sample::fDiagnostics,
     "<BivariateData description='observedByPredicted'><Coordinates feature='observed'/>" +
         Column("feature='statistic'", "1") + "</BivariateData>",
     false},
    {"predictions of another kind", &Sample::fDiagnostics, "<BivariateData description='other'/>", true},

    {"structured data without description", &Sample::fDiagnostics, "<StructuredData/>", false},
    {"structured data of another kind", &Sample::fDiagnostics, "<StructuredData description='other'/>", true},
    {"a first subject without columns", &Sample::fDiagnostics, FirstSubject(Segment({"a", "1"}), ""), true},
    {"a subject field that the model does not use", &Sample::fDiagnostics, FirstSubject(Segment({"out", "1"}), ""),
     false,
     "StatXML/PMMLModel/ModelDiagnostics/StructuredData/SegmentData/SegmentInfo/FieldInfo: the field \"out\" is no "
     "categorical variable of the model\n"},
    {"a continuous subject field", &Sample::fDiagnostics, FirstSubject(Segment({"x", "1"}), ""), false,
     "StatXML/PMMLModel/ModelDiagnostics/StructuredData/SegmentData/SegmentInfo/FieldInfo: the field \"x\" is no "
     "categorical variable of the model\n"},
    {"a subject's value that is no number", &Sample::fDiagnostics, FirstSubject(Segment({"a", "one"}), ""), false},
    {"columns of another kind", &Sample::fDiagnostics,
     FirstSubject(Segment({}), Group("other", Column("field='y'", "1"))), false,
     "StatXML/PMMLModel/ModelDiagnostics/StructuredData/SegmentData/MultivariateData/CoordinatesGroup: a group of "
     "columns "
     "is described \"other\", not \"repeatedMeasures\" or \"target\"\n"},
    {"a column of neither target nor trials", &Sample::fDiagnostics,
     FirstSubject(Segment({}), Group("target", Column("field='x'", "1"))), true},
    {"a column of neither target nor trials that is no number", &Sample::fDiagnostics,
     FirstSubject(Segment({}), Group("target", Column("field='b'", "lo"))), false},
    {"a repeated measure that the model does not use", &Sample::fDiagnostics,
     FirstSubject(Segment({}), Group("repeatedMeasures", Column("field='out'", "1"))), true,
     "StatXML/PMMLModel/ModelDiagnostics/StructuredData/SegmentData/MultivariateData/CoordinatesGroup/Coordinates: the "
     "field \"out\" is no variable of the model, so its levels are not known\n"},
    {"a repeated measure that the data lacks", &Sample::fDiagnostics,
     FirstSubject(Segment({}), Group("repeatedMeasures", Column("field='z'", "1"))), false},
    {"a label without text before another", &Sample::fDiagnostics, Covariances("<Label/>" + kLabel), true},
    {"a last label without text", &Sample::fDiagnostics, Covariances(kLabel + "<Label/>"), false},

    {"a matrix of another kind", &Sample::fDiagnostics, "<Matrix/>", true},
    {"a matrix without rows", &Sample::fDiagnostics, "<Matrix description='classificationTable'><Array/></Matrix>",
     false},
    {"an empty matrix", &Sample::fDiagnostics, kMatrix + "0\"><Array/></Matrix>", true},
    {"a matrix of the wrong size", &Sample::fDiagnostics, kMatrix + "2\"><Array>1 2 3</Array></Matrix>", false,
     "StatXML/PMMLModel/ModelDiagnostics/Matrix: the matrix has 3 numbers, not 4\n"},
    {"a full matrix for a diagonal", &Sample::fDiagnostics,
     kMatrix + "2\" kind=\"diagonal\"><Array>1 2 3 4</Array></Matrix>", false,
     "StatXML/PMMLModel/ModelDiagnostics/Matrix: the matrix has 4 numbers, not 2\n"},
    {"a matrix of a negative size", &Sample::fDiagnostics, kMatrix + "-1\"><Array>1</Array></Matrix>", false,
     "StatXML/PMMLModel/ModelDiagnostics/Matrix: the matrix has a negative size\n"},
    {"a matrix of a huge size", &Sample::fDiagnostics,
     kMatrix + "2147483647\" kind=\"symmetric\"><Array>1</Array></Matrix>", false,
     "StatXML/PMMLModel/ModelDiagnostics/Matrix: the matrix has 1 numbers, not 2305843008139952128\n"},
    {"a matrix with quotes that do not close", &Sample::fDiagnostics, kMatrix + "1\"><Array>\"1</Array></Matrix>",
     false},

    {"means without tables", &Sample::fDiagnostics, Means("<Statistic name='EMMEANSIndex' value=''/>"), false},
    {"means with a table", &Sample::fDiagnostics, Means("<Statistic name='EMMEANSIndex' value=''/>" + kTable), true},
    {"means with an index without value", &Sample::fDiagnostics, Means("<Statistic name='EMMEANSIndex'/>" + kTable),
     false},
    {"means with a table without description", &Sample::fDiagnostics, Means("<MultivariateData/>"), false},
    {"a predictor without value and no statistic", &Sample::fDiagnostics,
     Means("<Label><PrintableList><PrintableList pattern='x'/></PrintableList></Label>" + kTable), false},
    {"a predictor without value, and a statistic", &Sample::fDiagnostics,
     Means("<Label><PrintableList><PrintableList pattern='x'/></PrintableList></Label><Statistic name='' value=''/>" +
           kTable),
     true},
    {"a test without all its figures", &Sample::fDiagnostics,
     Means(kTable + "<ModelTestStats><FTest fStatistic='1' sig='' df1='1'/></ModelTestStats>"), false},
    {"a test without figures at all", &Sample::fDiagnostics, Means(kTable + "<ModelTestStats/>"), false},
    {"a message of means with an empty key", &Sample::fDiagnostics, Means(kTable + Message("")), true},
    {"data groups of other kinds", &Sample::fDiagnostics, "<DataGroup/><DataGroup description='emmeans'/>", true},

    {"neither estimates nor messages", &Sample::fTraining, "", false},
    {"messages alone", &Sample::fTraining, Message("k"), true},
    {"a message without key", &Sample::fTraining, "<Message><PrintableList/></Message>", false},
    {"a message whose last parameter has no value", &Sample::fTraining,
     "<Message><PrintableList pattern='k'><PrintableValue value='1'/><PrintableValue/></PrintableList></Message>",
     false},
    {"estimates of another type", &Sample::fTraining, Estimates("parameterType='other'", "", {{"p", {}}}), true},
    {"estimates without type", &Sample::fTraining, Estimates("", "", {{"p", {}}}), false},
    {"no estimate in estimates", &Sample::fTraining, Estimates("parameterType='other'", "", {}), false},
    {"broken estimates with a message", &Sample::fTraining, Estimates("parameterType='fixed'", "", {}) + Message("k"),
     true, "StatXML/PMMLModel/TrainingSummary: the parameter estimates could not be read and are left out\n"},
    {"an intercept with a statistic", &Sample::fTraining, FixedWith(kIntercept + "<Statistic name='i' value='0'/>"),
     false,
     "StatXML/PMMLModel/TrainingSummary/ParameterEstimates/ParameterStats/Statistic: an intercept belongs to no effect "
     "and carries no statistic\n"},
    {"a statistic without value", &Sample::fTraining, FixedWith("<Statistic name='i'/>"), false},
    {"a covariate without power", &Sample::fTraining,
     FixedWith("<RegressionParameter isIntercept='false' name=''><Covariate field='x'/></RegressionParameter>"), false},
    {"a covariate of an empty power", &Sample::fTraining,
     FixedWith(
         "<RegressionParameter isIntercept='false' name=''><Covariate field='x' power=''/></RegressionParameter>"),
     true},
    {"a covariate of a power too high", &Sample::fTraining,
     FixedWith("<RegressionParameter isIntercept='false' name=''><Covariate field='x' power='999999999'/>"
               "</RegressionParameter>"),
     false,
     "StatXML/PMMLModel/TrainingSummary/ParameterEstimates/ParameterStats/RegressionParameter/Covariate: a power of "
     "999999999 is above 100\n"},
    {"a factor that the data lacks", &Sample::fTraining,
     FixedWith("<RegressionParameter isIntercept='false' name=''><Factor field='z' value='1'/></RegressionParameter>"),
     false},
    {"a printable value without storage", &Sample::fTraining,
     FixedWith("<PrintableList><PrintableList><PrintableValue value='1'/></PrintableList></PrintableList>"), false},
    {"a target category that is no number", &Sample::fTraining,
     Estimates("parameterType='fixed'", Segment({"y", "yes"}), {{"p", {}}}), false},
    {"a random block that is not there", &Sample::fTraining,
     Estimates("parameterType='random' block='1000'", "", {{"p", {}}}), false,
     "StatXML/PMMLModel/TrainingSummary/ParameterEstimates: the random effect block 1000 is not between 0 and 999\n"},
    {"a random block below 0", &Sample::fTraining, Estimates("parameterType='random' block='-1'", "", {{"p", {}}}),
     false,
     "StatXML/PMMLModel/TrainingSummary/ParameterEstimates: the random effect block -1 is not between 0 and 999\n"},
    {"a block that does not matter", &Sample::fTraining, Estimates("parameterType='fixed' block='-1'", "", {{"p", {}}}),
     true},
};

TEST(Reader, ReadsWhatHoldsAndReportsWhatDoesNot) {
    for (const Outcome& outcome : kOutcomes) {
        SCOPED_TRACE(outcome.fName);
        Sample sample;
        sample.*outcome.fpPart = outcome.fContent;
        ProcedureRun run(SamplePmml());
        const bool isRead = run.Run(sample.Text());
        EXPECT_EQ(isRead, outcome.fIsRead);
        const std::string items = DrawItems(run.GetDocument().fItems);
        if (isRead) {
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
