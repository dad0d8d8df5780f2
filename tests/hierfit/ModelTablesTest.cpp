#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"

namespace hierfit::test {
namespace {

const std::string kTrials = Parameter("UseTrials", "true") + Parameter("TrialsField", "y");  // the first field
const std::string kFixedTrials = Parameter("UseTrials", "true") + Parameter("TrialsValue", "20");
const std::string kNominal = Parameter("TargetField", "r") + Parameter("DistributionOfTarget", "NOMINAL");

const TableCase kSummaries[] = {
    // Trials in a field and a parameter that the link does not take.
    {{.fSettings = kNominal + kTrials + Parameter("LinkFunctionType", "LOGIT") + Parameter("LinkFunctionParam", "1.5")},
     R"(
table Model Summary flag false width 150
caption Information Criteria, log likelhood ^1 ...(.G)
rows 1 -name Content: Target{Events, Trials}, Measurement Level, Probability Distribution, Link Function, Information Criterion{Akaike Corrected, Bayesian}
Target/Events: <r/2>
Target/Trials: <y/2>
Measurement Level: Nominal
Probability Distribution: Multinomial
Link Function: (1.5D)
Information Criterion/Akaike Corrected: 1.5G
Information Criterion/Bayesian: .G
)"},
    // Fixed trials, a power link and no target.
    {{.fSettings = Parameter("DistributionOfTarget", "GAMMA") + kFixedTrials + Parameter("LinkFunctionType", "POWER") +
                   Parameter("LinkFunctionParam", "-0.5"),
      .fStatistics = "<Statistic name='minus2LogLikelihood' value='7.25'/>"},
     R"(
table Model Summary flag false width 150
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

TEST(ModelSummary, IsIssued) { CheckTables("ModelSummary", "table \"Model Summary\"", kSummaries); }

std::string Target(const std::string& columns) { return Group("target", columns); }

const std::string kEstimates = Sample().fTraining;
const std::string kUnused = Message("kGLMM_C26");

const std::string kManyFields =
    Tag("SegmentInfo", Join(Strings(2001, "<FieldInfo fieldName='a' fieldValue='1'/>"), "", ""));
const std::string kManyRecords = Target(Column("field='y'", Join(Strings(2000, "1 "), "", "")));

const TableCase kStructures[] = {
    {{.fDiagnostics = FirstSubject("2", Segment({}), "")}, ""},
    {{.fDiagnostics = FirstSubject("2", kManyFields, kManyRecords)},
     R"(table "Data Structure" is left out: too many subject fields for so many records)"},
    // Fixed trials, eleven records and an unused field.
    {{.fSettings = kSettings + kFixedTrials,
      .fDiagnostics = FirstSubject("11", Segment({"a", "2"}), Target(Column("field='y'", "3"))),
      .fTraining = kEstimates + kUnused},
     R"(
table Data Structure
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
    // Ten records, a repeated measure, and a trials field that does not count, with too few values.
    {{.fSettings = kSettings + Parameter("TargetField", "x") + Parameter("TrialsField", "y"),
      .fDiagnostics = FirstSubject("10", Segment({"a", "2"}),
                                   Group("repeatedMeasures", Column("field='t'", "1") + Column("field='a'", "1 2")) +
                                       Target(Column("field='x'", "3 4") + Column("field='y'", "9")))},
     R"(
table Data Structure
note Target ^1(<x/1>)
rows 1 -name -labels 'Record': 0N, 1N, 'Levels'
rows 2 -name 'Data': Data for First Subject, Total Number of Levels
columns 1 -name 'Variables': Subjects{<a/2>}, Repeated Measures{<t/2>, <a/2>}, Target{<x/2>, <y/2>}
0N | Data for First Subject: <a=2/0> <t=1/0> <a=1/0> <x=3/2> <y=9/2>
1N | Data for First Subject: <a=2/0> _ <a=2/0> <x=4/2> _
'Levels' | Total Number of Levels: 3N 2N 3N _ _
table "Data Structure": "t" has 1 values for 2 records, and the other cells stay empty
table "Data Structure": "y" has 1 values for 2 records, and the other cells stay empty
)"},
};

TEST(DataStructure, IsIssued) {
    CheckTables("DataStructure", "table \"Data Structure\"", kStructures);
    const TableCase unused{{.fTraining = kEstimates + kUnused}, R"(
message 2 2 DATA_STRUCTURE:^1(Subject field not used ...)
heading Covariance Parameters
)"};
    CheckTables("", "table \"Data Structure\"", {&unused, 1});
}

const std::string kAccuracy = "<Statistic name='classificationAccuracy' value='0.625'/>";
const std::string kLabels = "<Label label='no'/><Label label='yes'/>";

std::string Classified(const std::string& attributes, const std::string& labels, const std::string& array) {
    return Tag("Matrix description='classificationTable' " + attributes,
               (labels.empty() ? "" : Tag("MatrixLabels", Tag("RowColLabels", labels))) + Tag("Array", array));
}

const TableCase kClassifications[] = {
    // Events out of trials, without any event. Labels do not matter.
    {{.fSettings = kSettings + Parameter("TargetField", "x") + kTrials,
      .fStatistics = kAccuracy,
      .fDiagnostics = Classified("nbRows='2'", "<Label/>", "3 1 0 0")},
     R"(
table Classification, overall ^1 ...(62.5P)
note Target ^1/^2(<x/1>; <y/1>)
rows 2 Observed: Non-Event, Event
rows 1 -name 'Statistics': E60868, % within Observed
columns 1 Predicted: Non-Event, Event
Non-Event | E60868: 3N 1N
Non-Event | % within Observed: 75P 25P
Event | E60868: 0N 0N
Event | % within Observed: 0P 0P
)"},
    {{.fSettings = kNominal, .fDiagnostics = Classified("nbRows='2' nbCols='1'", kLabels, "1 2")},
     R"(table "Classification" is left out: the matrix is not square)"},
    {{.fSettings = kSettings + kTrials, .fDiagnostics = Classified("nbRows='3' kind='diagonal'", "", "1 2 3")},
     R"(table "Classification" is left out: there are more than two categories of events out of trials)"},
};

TEST(Classification, IsIssued) { CheckTables("Classification", "table \"Classification\"", kClassifications); }

}  // namespace
}  // namespace hierfit::test
