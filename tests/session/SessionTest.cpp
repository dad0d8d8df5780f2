#include "host/session/Session.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/ExampleFile.h"

namespace hierfit::session {

namespace {

using test::ReadExample;
using test::Replaced;

const Settings kPlain{"C", Labels::Name, Labels::Label, ""};

Result RunTexts(std::string pmml, std::string statXml, const Settings& settings = {}) {
    return Run({"dir/model.pmml", std::move(pmml)}, {"dir/model.statxml", std::move(statXml)}, settings);
}

std::string Message(const std::string& key, const std::string& values = "") {
    return "<Message><PrintableList pattern='" + key + "'>" + values + "</PrintableList></Message>";
}

TEST(Session, TellsMessagesThatNobodyShows) {
    const std::string values = "<PrintableValue value='a'/><PrintableValue value=''/><PrintableValue value='2'/>";
    const std::string summary = "</TrainingSummary>";
    // An example, what the messages stand before, the messages, what is told of them.
    const std::tuple<const char*, std::string, std::string, std::string> cases[] = {
        {"sleepstudy", summary, Message("kGLMM_C22", values), "kGLMM_C22 (a; 2)|"},
        {"sleepstudy", summary, Message("") + Message("x"), "x|"},
        {"sleepstudy", summary, test::Repeated(Message("x"), 150),
         test::Repeated("x|", 100) + "there are more warnings, which are not listed|"},
        // Titles of a heading and a table, a cell, two categories and a group show these.
        {"sleepstudy", summary,
         Message("Covariance Parameters") + Message("Model Summary") + Message("Normal") + Message("Link Function") +
             Message("Bayesian") + Message("Information Criterion"),
         ""},
        // A table's message shows this one without its parameter.
        {"cbpp", "</DataGroup>\n    </ModelDiagnostics>", Message("kGLMM_C19_1", "<PrintableValue value='a'/>"), ""},
        // One about a block of means says which.
        {"cbpp", "</DataGroup>\n    </ModelDiagnostics>", Message("x"), "EMMEANS Effect Period block 1 ...: x|"},
    };
    for (const auto& [example, before, messages, told] : cases) {
        const std::string statXml = Replaced(ReadExample(example, "model.statxml"), before, messages + before);
        const Result result = RunTexts(ReadExample(example, "model.pmml"), statXml, kPlain);
        ASSERT_EQ(result.fOutcome, Outcome::Issued);
        std::string texts;
        for (const document::Diagnostic& diagnostic : result.fDocument.fvDiagnostics) texts += diagnostic.fText + "|";
        EXPECT_EQ(texts, told);
    }
}

TEST(Session, TellsContradictionsBeforeMessages) {
    const std::string statXml = Replaced(Replaced(Replaced(ReadExample("sleepstudy", "model.statxml"),
                                                           "confIntervalLower=\"237", "confIntervalLower=\"252"),
                                                  "totalFreq=\"10\"", "totalFreq=\"10.5\""),
                                         "</TrainingSummary>", Message("x") + "</TrainingSummary>");
    for (const bool tellsAll : {false, true}) {
        Settings settings = kPlain;
        settings.fTellsAll = tellsAll;
        const Result result = RunTexts(ReadExample("sleepstudy", "model.pmml"), statXml, settings);
        const auto& diagnostics = result.fDocument.fvDiagnostics;
        ASSERT_EQ(diagnostics.size(), tellsAll ? 3U : 2U);
        EXPECT_EQ(diagnostics[0].fText,
                  "StatXML/PMMLModel/TrainingSummary/ParameterEstimates[1]/ParameterStats[1] \"Intercept\": estimate "
                  "251.40510484848497 is below confIntervalLower 252.00646442903934");
        EXPECT_EQ(diagnostics[0].fPlace, (document::Place{1, 190, 9}));
        EXPECT_EQ(diagnostics[0].fLevel, 2);
        EXPECT_EQ(diagnostics.back().fText, "x");
        EXPECT_EQ(result.fUnseenMessages, 1U);
    }
}

TEST(Session, TellsWhyThereIsNoOutput) {
    const std::string pmml = ReadExample("sleepstudy", "model.pmml");
    const std::string statXml = ReadExample("sleepstudy", "model.statxml");
    const std::tuple<std::string, std::string, std::string, document::Place> cases[] = {
        {"", statXml, "no element found\n\n^", {0, 1, 1}},
        {Replaced(pmml, "MiningField name=\"Days\"", "MiningField name=\"Dayz\""),
         statXml,
         R"(PMML/GeneralRegressionModel/MiningSchema/MiningField[2]: "Dayz" is no field of the data dictionary)",
         {0, 52, 7}},
        {pmml, "", "the document is empty", {1, 1, 1}},
        {pmml,
         Replaced(statXml, "algorithmName", "other"),
         "StatXML/PMMLModel/PredictiveSummary: attribute \"algorithmName\" expected",
         {1, 91, 5}},
    };
    for (const auto& [fields, results, text, place] : cases) {
        const Result result = RunTexts(fields, results);
        EXPECT_EQ(result.fOutcome, Outcome::Unreadable);
        ASSERT_FALSE(result.fDocument.fvDiagnostics.empty());
        const document::Diagnostic& last = result.fDocument.fvDiagnostics.back();
        EXPECT_TRUE(last.fText.starts_with(text)) << last.fText;
        EXPECT_EQ(last.fLevel, 3);
        EXPECT_EQ(last.fPlace, place);
    }
}

TEST(Session, RefusesALanguageThatIsNotThere) {
    Settings settings;
    settings.fLanguage = "../en";
    EXPECT_EQ(RunTexts("", "", settings).fOutcome, Outcome::NotSetUp);
}

}  // namespace

}  // namespace hierfit::session
