#include <gtest/gtest.h>

#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"
#include "tests/hierfit/TableCase.h"

namespace hierfit::test {
namespace {

std::string Settings(const std::string& more) { return Sample().fSettings + more; }

const std::string kTrials = Parameter("UseTrials", "true") + Parameter("TrialsField", "n");
const std::string kFixedTrials = Parameter("UseTrials", "true") + Parameter("TrialsValue", "20");

const TableCase kSummaries[] = {
    {"a nominal target with trials in a field and a parameter that its link does not take",
     {.fSettings = Settings(kTrials + Parameter("DistributionOfTarget", "NOMINAL") +
                            Parameter("LinkFunctionType", "LOGIT") + Parameter("LinkFunctionParam", "1.5"))},
     "ModelSummary",
     R"(
table 'ModelSummary' Model Summary flag false width 150
caption Information Criteria, log likelhood ^1 ...(.G)
rows 1 -name Content: Target{Events, Trials}, Measurement Level, Probability Distribution, Link Function, Information Criterion{Akaike Corrected, Bayesian}
Target/Events: <y/2>
Target/Trials: <n/2>
Measurement Level: Nominal
Probability Distribution: Multinomial
Link Function: (1.5D)
Information Criterion/Akaike Corrected: 1.5G
Information Criterion/Bayesian: .G
)"},
    {"fixed trials, a power link and no target",
     {.fSettings = Parameter("DistributionOfTarget", "GAMMA") + kFixedTrials + Parameter("LinkFunctionType", "POWER") +
                   Parameter("LinkFunctionParam", "-0.5"),
      .fStatistics = "<Statistic name='minus2LogLikelihood' value='7.25'/>"},
     "ModelSummary",
     R"(
table 'ModelSummary' Model Summary flag false width 150
caption Information Criteria, log likelhood ^1 ...(7.25G)
rows 1 -name Content: Target{Events, Trials}, Probability Distribution, Link Function, Information Criterion{Akaike Corrected, Bayesian}
Target/Events: </2>
Target/Trials: 20D
Probability Distribution: Gamma
Link Function: Power(^1)(-0.5D)
Information Criterion/Akaike Corrected: .G
Information Criterion/Bayesian: .G
)"},
};

TEST(ModelSummary, IsIssued) { CheckTables(kSummaries); }

std::string FirstSubject(const std::string& freq, const std::string& segment, const std::string& columns) {
    return "<StructuredData description='firstSubjectRecordsForDataStructure'><Counts totalFreq='" + freq +
           "'/><SegmentData>" + segment + "<MultivariateData>" + columns +
           "</MultivariateData></SegmentData></StructuredData>";
}

std::string Group(const std::string& description, const std::string& columns) {
    return "<CoordinatesGroup description='" + description + "'>" + columns + "</CoordinatesGroup>";
}

const std::string kEstimates = Sample().fTraining;
const std::string kUnused = Message("kGLMM_C26");

const TableCase kStructures[] = {
    {"no subjects", {.fDiagnostics = FirstSubject("2", Segment({}), "")}, "DataStructure", ""},
    {"no subjects, since a field is unused", {.fTraining = kEstimates + kUnused}, "", R"(
message 2 2 DATA_STRUCTURE:^1(Subject field not used ...)
heading Covariance Parameters
)"},
    {"two subject fields, a repeated measure and ten records",
     {.fDiagnostics = FirstSubject(
          "10", Segment({"a", "2", "b", "hi"}),
          Group("repeatedMeasures", Column("field='t'", "1 2")) + Group("target", Column("field='y'", "0.5 7")))},
     "DataStructure",
     R"(
table 'DataStructure' Data Structure
note Target ^1(<y/1>)
rows 1 -name -labels 'Record': 0N, 1N, 'Levels'
rows 2 -name 'Data': Data for First Subject, Total Number of Levels
columns 1 -name 'Variables': Subjects{<a/2>, <b/2>}, Repeated Measures{<t/2>}, Target{<y/2>}
0N | Data for First Subject: <a=2/0> <b=hi/0> <t=1/0> <y=0.5/2>
1N | Data for First Subject: <a=2/0> <b=hi/0> <t=2/0> <y=7/2>
'Levels' | Total Number of Levels: 3N 2N 2N _
)"},
    {"fixed trials, eleven records and an unused field",
     {.fSettings = Settings(kFixedTrials),
      .fDiagnostics = FirstSubject("11", Segment({"a", "2"}), Group("target", Column("field='y'", "3"))),
      .fTraining = kEstimates + kUnused},
     "DataStructure",
     R"(
table 'DataStructure' Data Structure
caption Only the first ^1 records are displayed.(10N)
note Target ^1/^2(<y/1>; 20N)
note [%1:
^1:]1([Target ^1/^2(<y/1>; 20N); Subject field not used ...])
rows 1 -name -labels 'Record': 0N, 'Levels'
rows 2 -name 'Data': Data for First Subject, Total Number of Levels
columns 1 -name 'Variables': Subjects{<a/2>}, Target{<y/2> * Number of Trials = ^1(20N)}
0N | Data for First Subject: <a=2/0> <y=3/2>
'Levels' | Total Number of Levels: 3N _
)"},
    {"a trials field that does not count, with too few values",
     {.fSettings = Settings(Parameter("TrialsField", "n")),
      .fDiagnostics = FirstSubject("2", Segment({"a", "2"}),
                                   Group("target", Column("field='y'", "3 4") + Column("field='n'", "9")))},
     "DataStructure",
     R"(
table 'DataStructure' Data Structure
note Target ^1(<y/1>)
rows 1 -name -labels 'Record': 0N, 1N, 'Levels'
rows 2 -name 'Data': Data for First Subject, Total Number of Levels
columns 1 -name 'Variables': Subjects{<a/2>}, Target{<y/2>, <n/2>}
0N | Data for First Subject: <a=2/0> <y=3/2> <n=9/2>
1N | Data for First Subject: <a=2/0> <y=4/2> _
'Levels' | Total Number of Levels: 3N _ _
)",
     "table \"Data Structure\": \"n\" has 1 values for 2 records, and the other cells stay empty\n"},
};

TEST(DataStructure, IsIssued) { CheckTables(kStructures); }

std::string Matrix(const std::string& attributes, const std::string& labels, const std::string& array) {
    return "<Matrix description='classificationTable' " + attributes + ">" + labels + "<Array>" + array +
           "</Array></Matrix>";
}

std::string Labels(const Strings& labels) {
    std::string text;
    for (const std::string& label : labels) text += "<Label label='" + label + "'/>";
    return "<MatrixLabels><RowColLabels>" + text + "</RowColLabels></MatrixLabels>";
}

const std::string kNominal = Parameter("TargetField", "r") + Parameter("DistributionOfTarget", "NOMINAL");
const std::string kAccuracy = "<Statistic name='classificationAccuracy' value='0.625'/>";

const TableCase kClassifications[] = {
    {"events out of trials",
     {.fSettings = Settings(kTrials), .fStatistics = kAccuracy, .fDiagnostics = Matrix("nbRows='2'", "", "3 1 0 0")},
     "Classification",
     R"(
table 'Classification' Classification, overall ^1 ...(62.5P)
note Target ^1/^2(<y/1>; <n/1>)
rows 2 Observed: Non-Event, Event
rows 1 -name 'Statistics': E60868, % within Observed
columns 1 Predicted: Non-Event, Event
Non-Event | E60868: 3N 1N
Non-Event | % within Observed: 75P 25P
Event | E60868: 0N 0N
Event | % within Observed: 0P 0P
)"},
    {"fewer labels than rows",
     {.fSettings = kNominal, .fDiagnostics = Matrix("nbRows='2'", Labels({"no"}), "1 2 3 4")},
     "Classification",
     "",
     "table \"Classification\" is left out: there are fewer labels than rows\n"},
    {"a matrix that is not square",
     {.fSettings = kNominal, .fDiagnostics = Matrix("nbRows='2' nbCols='1'", Labels({"no", "yes"}), "1 2")},
     "Classification",
     "",
     "table \"Classification\" is left out: the matrix is not square\n"},
    {"three categories of trials",
     {.fSettings = Settings(kTrials), .fDiagnostics = Matrix("nbRows='3' kind='diagonal'", "", "1 2 3")},
     "Classification",
     "",
     "table \"Classification\" is left out: there are more than two categories of events out of trials\n"},
};

TEST(Classification, IsIssued) { CheckTables(kClassifications); }

}  // namespace
}  // namespace hierfit::test
