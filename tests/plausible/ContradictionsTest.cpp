#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>
#include <tuple>

#include "host/plausible/Plausible.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::plausible {

namespace {

using test::ReadExample;

std::vector<Finding> Find(const std::string& text, bool wantsAll = true) {
    const auto document = xml::Document::Parse(text);
    return FindContradictions(*std::get<0>(document), wantsAll);
}

std::vector<std::string> ListExamples() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(HIERFIT_EXAMPLES)) {
        if (exists(entry.path() / "model.statxml")) names.push_back(entry.path().filename().string());
    }
    return names;
}

/// Sets the next attribute of that name behind a text or, with a name such as "#2", the value of that number in the
/// next array.
std::string Set(std::string text, const std::string& behind, const std::string& name, const std::string& value) {
    std::size_t begin = text.find(behind);
    if (begin == std::string::npos) return "no " + behind;
    std::size_t end = 0;
    if (name[0] == '#') {
        begin = text.find('>', text.find("<Array", begin)) + 1;
        for (int left = std::stoi(name.substr(1)); left > 1; --left) begin = text.find(' ', begin) + 1;
        end = text.find_first_of(" <", begin);
    } else {
        begin = text.find(" " + name + "=\"", begin) + name.size() + 3;
        end = text.find('"', begin);
    }
    return text.replace(begin, end - begin, value);
}

struct Case {
    std::string fDocument;  ///< as the lines below tell it
    std::string fText;      ///< with the changes
    bool fMisleads = false;
    std::string fFinding = "";  ///< without its place; empty for none
};

/// An example's document with changes: "EXAMPLE: BEHIND > NAME=VALUE, NAME=VALUE; BEHIND > NAME=VALUE".
std::string Changed(const std::string& line) {
    const std::size_t colon = line.find(": ");
    std::string text = ReadExample(line.substr(0, colon), "model.statxml");
    std::string behind;
    const std::regex mark("[,;] ");
    const std::sregex_token_iterator changes(line.begin() + static_cast<std::ptrdiff_t>(colon) + 2, line.end(), mark,
                                             -1);
    std::for_each(changes, std::sregex_token_iterator(), [&](const std::string& change) {
        const std::size_t arrow = change.find(" > ");
        const std::size_t name = arrow == std::string::npos ? 0 : arrow + 3;
        if (name > 0) behind = change.substr(0, arrow);
        const std::size_t equals = change.find('=', name);
        text = Set(std::move(text), behind, change.substr(name, equals - name), change.substr(equals + 1));
    });
    return text;
}

/// Below each line of changes what is found: "!" stands before what a report tells, too, "?" before what is told only
/// when asked for all, "-" for nothing. Four blanks go on with a line.
std::vector<Case> ReadCases(const std::string& table) {
    std::vector<Case> cases;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (line.starts_with("    ")) {
            cases.back().fFinding += line.substr(3);
        } else if (line.starts_with("  ")) {
            cases.back().fMisleads = line[2] == '!';
            cases.back().fFinding = line[2] == '-' ? "" : line.substr(4);
        } else {
            cases.push_back({line, Changed(line)});
        }
    }
    return cases;
}

std::string TextsOf(const std::vector<Finding>& findings) {
    std::string texts;
    for (const Finding& finding : findings)
        texts += (texts.empty() ? "" : "\n") + finding.fText.substr(finding.fText.find(": ") + 2);
    return texts;
}

const char* const kCases = R"(
# Intervals, bounds and levels.
sleepstudy: "fixed" > estimate=275, tTest=
  ! estimate 275 is above confIntervalUpper 265.8037452679306
sleepstudy: "fixed" > confIntervalLower=270
  ! confIntervalLower 270 is above confIntervalUpper 265.8037452679306
sleepstudy: "fixed" > confIntervalLower=252, estimate=251.6, confIntervalUpper=266, tTest=
  ! estimate 251.6 is below confIntervalLower 252
sleepstudy: "random" > confIntervalUpper=600
  ! estimate 612.1001580247688 is above confIntervalUpper 600
cbpp: statistic="mean" > #2=0.3
  ! mean 0.3 is above confIntervalUpper 0.14511530663319455
cbpp: name="grandMeanCILower" > value=0.0893
  ! grandMean 0.08921038971221142 is below grandMeanCILower 0.0893
cbpp: "fixed" > expEstimate=0.2, estimate=
  ! expEstimate 0.2 is above expCIUpper 0.11943945673110717
cbpp: "fixed" > expEstimate=0.0523
  ! expEstimate 0.0523 contradicts estimate -2.978108912055764, whose exp is 0.05089
cbpp: "fixed" > expEstimate=0.051, expCILower=0.02
  -
cbpp: "fixed" > expCIUpper=-0.1, expEstimate=, confIntervalUpper=
  -
cbpp: [period=3] > confIntervalUpper=1.2, confIntervalLower=-0.3, expCIUpper=, expCILower=
  ? confIntervalLower -0.3 to confIntervalUpper 1.2 are bounds at level 0.8773 by stdError 0.477951578222582 with df
    52, not 0.95
cbpp: "CIn" > value=95
  ! value 95 is not between 0 and 1
cbpp: "adjustedSigLevel" > value=5
  ! adjustedSigLevel 5 is not between 0 and 1
# p values and what they belong to.
cbpp: "fixed" > sig=0.02
  ! sig 0.02 contradicts tTest -7.004536140963409 with df 52, which gives 4.87e-09
cbpp: "fixed" > sig=1.02
  ! sig 1.02 is outside of 0 to 1
cbpp: "fixed" > sig=0
  -
cbpp: "fixed" > tTest=-7.0, sig=0.000
  -
cbpp: [period=1] > tTest=3.74, sig=0.0005
  -
cbpp: [period=1] > tTest=3.74, sig=0.0006
  ! sig 0.0006 contradicts tTest 3.74 with df 52, which gives 0.00046
cbpp: [period=2] > df=2, confIntervalUpper=
  ! sig 0.21094859894587326 contradicts tTest 1.266582984054322 with df 2, which gives 0.333
cbpp: "fixed" > df=
  -
cbpp: "fixed" > df=, sig=0.2
  ! sig 0.2 contradicts tTest -7.004536140963409 with any df from 1 on, which gives 2.48e-12 to 0.0903
cbpp: "fixed" > df=-52
  ! df -52 is below 0
cbpp: "random" > sig=0.03517697883638615
  -
cbpp: "random" > sig=0.05
  ! sig 0.05 contradicts zTest 1.8096250170975552, which gives 0.0704
oats: fixedEffect > fStatistic=-37.685703943465654
  ! fStatistic -37.685703943465654 is below 0
oats: fixedEffect > df2=
  -
oats: fixedEffect > df2=, sig=0.9
  ! sig 0.9 contradicts fStatistic 37.685703943465654 with df1 3 and any df2, which gives 2.41e-24 to 0.119
oats: fixedEffect > df1=-3
  ! df1 -3 is below 0
oats: fixedEffect > sig=-0.1
  ! sig -0.1 is outside of 0 to 1
oats: testID="0"> > sig=0.5
  ! sig 0.5 contradicts fStatistic 37.68570394346551 with df1 3 and df2 44.999999999999964, which gives 2.46e-12
esoph: statistic="adjustedSig" > #2=0.9
  ! adjustedSig 0.9 contradicts tTest 5.104577180843921 with df 76, which gives 2.38e-06
cbpp: statistic="adjustedSig" > #3=0.00005
  ! adjustedSig 0.00005 is below 0.000138, the unadjusted p value of tTest 4.115886920826843 with df 52
cbpp: statistic="adjustedSig" > #3=0.01
  ? adjustedSig 0.01 is above 6 times 0.000138, the unadjusted p value of tTest 4.115886920826843 with df 52
cbpp: "pAdjustment" > value=; statistic="adjustedSig" > #3=0.01
  -
cbpp: statistic="df" > #2=-1
  ! df -1 is below 0
# Estimates, errors, statistics.
cbpp: statistic="stdErr" > #4=-0.1
  ! stdErr -0.1 is a negative standard error
cbpp: "fixed" > stdError=-0.4251686124709113
  ! stdError -0.4251686124709113 is a negative standard error
cbpp: "fixed" > tTest=7.004536140963409
  ! tTest 7.004536140963409 contradicts estimate -2.978108912055764 / stdError 0.4251686124709113, which is -7.005
cbpp: [period=1] > stdError=0.4, confIntervalUpper=
  -
cbpp: [period=1] > stdError=0.31, confIntervalUpper=
  ! tTest 3.7430643492710667 contradicts estimate 1.5797726589340697 / stdError 0.31, which is 5.096
cbpp: [period=1] > stdError=0
  ! tTest 3.7430643492710667 contradicts estimate 1.5797726589340697 / stdError 0, which is inf
cbpp: statistic="tTest" > #4=0.47; statistic="adjustedSig" > #4=__MISSING__
  ! tTest 0.47 contradicts contrastEstimate 0.009899633935980728 / stdErr 0.027275573230726734, which is 0.3629
cbpp: statistic="contrastEstimate" > #1=0.2; statistic="tTest" > #1=__MISSING__
  ? contrastEstimate 0.2 is not the difference of the means 0.1980802556838297 and 0.0839177968042662, which is 0.1142
# Variances, covariances, correlations.
cbpp: "random" > estimate=-0.4, confIntervalLower=, zTest=
  ! estimate -0.4 is a negative variance
orchard: "random" > estimate=-0.4
  -
sleepstudy: UN (2,1) > estimate=150, confIntervalUpper=, zTest=
  ! covariance 150 is too large for the variances 35.07171445093885 and 612.1001580247688
orthodont: AR1 rho > estimate=1.01, confIntervalUpper=, zTest=
  ! correlation 1.01 is outside of -1 to 1
ovary: ARMA11 diagonal > estimate=-21, confIntervalLower=, zTest=
  ! estimate -21 is a negative variance
sleepstudy: "randomEffectCovariances" > #1=-612
  ! row 1: -612 is a negative variance
sleepstudy: "randomEffectCovariances" > #2=-150
  ! covariance -150 is too large for the variances 35.07171445093885 and 612.1001580247688
sleepstudy: "randomEffectCovariances" > kind=, #2=9.604408951157756 9.7
  ! row 2, column 1 is 9.7, and the other way round 9.604408951157756
# Means, counts and data behind charts.
epil: name="grandMean" > value=-4; name="grandMeanCILower" > value=
  ! grandMean -4 is below 0, the least that there can be
cbpp: statistic="confIntervalUpper" > #1=1.03
  ? confIntervalUpper 1.03 is above 1, the most that there can be
cbpp: "numOfCommonSubjects" > value=15.5
  ? value 15.5 is a count that is not whole
cbpp: <Counts > totalFreq=4.5
  ? totalFreq 4.5 is a count that is not whole
cbpp: "classificationTable" > #4=-743
  ! count -743 is a negative count
cbpp: "classificationTable" > #1=743.5; "classificationAccuracy" > value=
  ? count 743.5 is a count that is not whole
cbpp: "classificationAccuracy" > value=0.91
  ! classificationAccuracy 0.91 contradicts the counts, of which 0.8824 are on the diagonal
cbpp: "classificationAccuracy" > value=0.88
  -
cbpp: "classificationAccuracy" > value=88.24; "classificationTable" > #1=
  ! value 88.24 is outside of 0 to 1
epil: name="stdDeviation" > value=-1
  ? value -1 is below 0, the least that there can be
epil: name="p" > value=1.5
  ? value 1.5 is above 1, the most that there can be
epil: feature="frequency" > #2=-1
  ? value -1 is below 0, the least that there can be
epil: statistic="predicted" > #2=-1
  ? value -1 is below 0, the least that there can be
)";

TEST(Contradictions, AreNotInTheExamples) {
    for (const std::string& example : ListExamples())
        EXPECT_EQ(TextsOf(Find(ReadExample(example, "model.statxml"))), "") << example;
}

TEST(Contradictions, AreToldOneByOne) {
    for (const Case& one : ReadCases(kCases)) {
        EXPECT_EQ(TextsOf(Find(one.fText)), one.fFinding) << one.fDocument;
        EXPECT_EQ(TextsOf(Find(one.fText, false)), one.fMisleads ? one.fFinding : "") << one.fDocument;
    }
}

constexpr std::size_t kKinds = static_cast<std::size_t>(Kind::Plot) + 1;

/// Every number of an example set to the same text.
TEST(Contradictions, AreBoundedWhateverTheFiguresAre) {
    const std::regex attribute("=\"-?[0-9][^\" ]*\"");
    const std::regex token("([> ])-?[0-9][^< \"]*(?=[< ])");
    const std::string values[] = {"NaN", "-inf", std::string(400, '9'), "-1e308", "4.9e-324", "0", "1e-999999999999"};
    for (const std::string& value : values) {
        for (const char* example : {"sleepstudy", "cbpp", "epil"}) {
            std::string text = ReadExample(example, "model.statxml");
            text.erase(0, text.find("<StatXML"));
            const std::string attributes = std::regex_replace(text, attribute, "=\"" + value + "\"");
            const std::string all = std::regex_replace(attributes, token, "$01" + value);
            EXPECT_LE(Find(attributes).size(), 6U * kKinds) << example << " " << value;
            EXPECT_LE(Find(all).size(), 6U * kKinds) << example << " " << value;
        }
    }
}

TEST(Contradictions, HaveAPlace) {
    const std::tuple<const char*, std::string, int> cases[] = {
        {"[period=1] > sig=2", R"(TrainingSummary/ParameterEstimates[1]/ParameterStats[2] "[period=1]")", 240},
        {"correctedModel > sig=2", R"(ModelDiagnostics/ModelTestStats[1]/FTest "correctedModel")", 114},
        {"\"adjustedSig\" > #3=2", "ModelDiagnostics/DataGroup[2]/MultivariateData[2] row 3 (1, 4)", 198},
        {"\"grandMean\" > value=2", "ModelDiagnostics/Statistic[10]", 109},
    };
    for (const auto& [change, place, line] : cases) {
        const std::vector<Finding> findings = Find(Changed(std::string("cbpp: ") + change));
        ASSERT_FALSE(findings.empty()) << place;
        EXPECT_EQ(findings[0].fText.substr(0, findings[0].fText.find(": ")), "StatXML/PMMLModel/" + place);
        EXPECT_EQ(findings[0].fPosition.fLine, line);
    }
}

TEST(Contradictions, OfAKindAreCounted) {
    const std::string text = ReadExample("many-means", "model.statxml");
    const std::vector<Finding> findings = Find(std::regex_replace(text, std::regex(" sig=\"[^\"]*\""), " sig=\"2\""));
    ASSERT_EQ(findings.size(), 6U);
    EXPECT_EQ(findings[5].fText.rfind("and ", 0), 0U) << findings[5].fText;
    EXPECT_GT(findings[5].fPosition.fLine, findings[4].fPosition.fLine);
}

/// A document that is no StatXML, and one without what the rules look for.
TEST(Contradictions, NeedNoElement) {
    for (const char* text :
         {"<a/>", "<StatXML><BuildSettings/><PMMLModel/></StatXML>",
          "<S><PMMLModel><ModelDiagnostics><DataGroup description='Emmeans'/><Matrix/><ModelTestStats "
          "description='fixedEffect'/><StructuredData/></ModelDiagnostics><TrainingSummary>"
          "<ParameterEstimates/></TrainingSummary></PMMLModel></S>"})
        EXPECT_TRUE(Find(text).empty()) << text;
}

}  // namespace

}  // namespace hierfit::plausible
