#include "host/session/Session.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/ExampleFile.h"

namespace hierfit::session {

namespace {

using test::ReadExample;
using test::Replaced;

Result RunTexts(std::string pmml, std::string statXml, const Settings& settings = {}) {
    return Run({"dir/model.pmml", std::move(pmml)}, {"dir/model.statxml", std::move(statXml)}, settings);
}

Result RunExample(const std::string& example, const Settings& settings = {}) {
    return RunTexts(ReadExample(example, "model.pmml"), ReadExample(example, "model.statxml"), settings);
}

const document::Table& FirstTable(const Result& result) {
    return std::get<document::Table>(result.fDocument.fItems.front().fContent);
}

TEST(Session, DescribesTheRun) {
    const Result result = RunExample("sleepstudy");
    ASSERT_EQ(result.fOutcome, Outcome::Issued);
    EXPECT_EQ(result.fDocument.fProducer, "hierfit 0.1.0");
    EXPECT_EQ(result.fDocument.fLanguage, "en");
    EXPECT_EQ(result.fDocument.fvSources, (std::vector<std::string>{"model.pmml", "model.statxml"}));
    EXPECT_EQ(FirstTable(result).fSubtype.fWords, "ModelSummary");
}

struct Message {
    const char* fWhat;
    const char* fElement;  ///< goes into the TrainingSummary of the example messages-only in place of its own message
    const char* fDiagnostic;  ///< in the language C
};

class SessionMessages : public testing::TestWithParam<Message> {};

TEST_P(SessionMessages, TellsWhatNobodyShows) {
    std::string statXml = ReadExample("messages-only", "model.statxml");
    const std::size_t begin = statXml.find("<Message>");
    const std::size_t end = statXml.find("</TrainingSummary>");
    statXml.replace(begin, end - begin, GetParam().fElement);
    Settings settings;
    settings.fLanguage = "C";
    const Result result = RunTexts(ReadExample("messages-only", "model.pmml"), statXml, settings);
    ASSERT_EQ(result.fOutcome, Outcome::Issued);
    std::string texts;
    for (const document::Diagnostic& diagnostic : result.fDocument.fvDiagnostics) {
        if (diagnostic.fPlace) texts += diagnostic.fText + "|";
    }
    EXPECT_EQ(texts, GetParam().fDiagnostic);
}

INSTANTIATE_TEST_SUITE_P(
    Messages, SessionMessages,
    testing::Values(
        Message{"a key alone", R"(<Message><PrintableList pattern="kGLMM_C22"/></Message>)", "kGLMM_C22|"},
        Message{"parameters without marks",
                R"(<Message><PrintableList pattern="kGLMM_C22"><PrintableValue storage="string" value="a"/>)"
                R"(<PrintableValue storage="string" value=""/><PrintableValue storage="real" value="2"/>)"
                R"(</PrintableList></Message>)",
                "kGLMM_C22 (a; 2)|"},
        Message{"two messages",
                R"(<Message><PrintableList pattern="x"/></Message><Message><PrintableList pattern="y"/></Message>)",
                "x|y|"},
        Message{"an empty pattern", R"(<Message><PrintableList pattern=""/></Message>)", ""}),
    [](const auto& test) {
        std::string name = test.param.fWhat;
        for (char& c : name) c = c == ' ' ? '_' : c;
        return name;
    });

TEST(Session, IsSilentAboutMessagesThatTheOutputShows) {
    // The subject field's message becomes the note of a table, or a message of its own, under another text.
    const Result result = RunExample("warpbreaks");
    for (const document::Diagnostic& diagnostic : result.fDocument.fvDiagnostics) {
        EXPECT_EQ(diagnostic.fText.find("ubject"), std::string::npos) << diagnostic.fText;
    }
}

TEST(Session, KnowsAMessageThatIsShownWithoutItsParameters) {
    const std::string refusal =
        R"(<Message><PrintableList pattern="kGLMM_C19_1"><PrintableValue storage="string" value="period"/>)"
        "</PrintableList></Message></DataGroup>";
    std::string statXml = ReadExample("cbpp", "model.statxml");
    statXml.replace(statXml.rfind("</DataGroup>"), 12, refusal);
    Settings settings;
    settings.fLanguage = "C";
    const Result result = RunTexts(ReadExample("cbpp", "model.pmml"), statXml, settings);
    ASSERT_EQ(result.fOutcome, Outcome::Issued);
    EXPECT_TRUE(result.fDocument.fvDiagnostics.empty());
}

TEST(Session, ListsAHundredWarningsAndSaysWhenThereAreMore) {
    std::string messages;
    for (int i = 0; i < 150; ++i) messages += R"(<Message><PrintableList pattern="x"/></Message>)";
    const std::string statXml =
        Replaced(ReadExample("sleepstudy", "model.statxml"), "</TrainingSummary>", messages + "</TrainingSummary>");
    const Result result = RunTexts(ReadExample("sleepstudy", "model.pmml"), statXml);
    ASSERT_EQ(result.fDocument.fvDiagnostics.size(), 101u);
    EXPECT_EQ(result.fDocument.fvDiagnostics.back().fText, "there are more warnings, which are not listed");
}

TEST(Session, TellsWhyThereIsNoOutput) {
    const std::string pmml = ReadExample("sleepstudy", "model.pmml");
    const std::string statXml = ReadExample("sleepstudy", "model.statxml");
    struct Case {
        std::string fPmml;
        std::string fStatXml;
        const char* fText;
        document::Place fPlace;
    };
    const Case cases[] = {
        {"", statXml, "no element found\n\n^", {0, 1, 1}},
        {Replaced(pmml, "MiningField name=\"Days\"", "MiningField name=\"Dayz\""),
         statXml,
         R"(PMML/GeneralRegressionModel/MiningSchema/MiningField[2]: "Dayz" is no field of the data dictionary)",
         {0, 52, 7}},
        {pmml, "", "the document is empty", {1, 1, 1}},
        {pmml, Replaced(statXml, "<TrainingSummary", "<Other"), "mismatched tag", {1, 0, 0}},
    };
    for (const Case& one : cases) {
        const Result result = RunTexts(one.fPmml, one.fStatXml);
        EXPECT_EQ(result.fOutcome, Outcome::Unreadable);
        ASSERT_FALSE(result.fDocument.fvDiagnostics.empty());
        const document::Diagnostic& last = result.fDocument.fvDiagnostics.back();
        EXPECT_EQ(last.fText.substr(0, std::string(one.fText).size()), one.fText);
        EXPECT_EQ(last.fLevel, 3);
        ASSERT_TRUE(last.fPlace);
        if (one.fPlace.fLine > 0) {
            EXPECT_EQ(*last.fPlace, one.fPlace);
        }
    }
}

TEST(Session, RefusesALanguageThatIsNotThere) {
    Settings settings;
    settings.fLanguage = "../en";
    EXPECT_EQ(RunExample("sleepstudy", settings).fOutcome, Outcome::NotSetUp);
}

TEST(Session, RunsSideBySideInThreads) {
    Settings plain;
    plain.fLanguage = "C";
    plain.fVariables = Labels::Name;
    const Settings english;
    const document::Document expectedPlain = RunExample("oats", plain).fDocument;
    const document::Document expectedEnglish = RunExample("oats", english).fDocument;
    ASSERT_NE(expectedPlain, expectedEnglish);
    const auto repeat = [](const Settings& settings, const document::Document& expected) {
        for (int i = 0; i < 20; ++i) EXPECT_EQ(RunExample("oats", settings).fDocument, expected);
    };
    std::thread other(repeat, plain, expectedPlain);
    repeat(english, expectedEnglish);
    other.join();
}

}  // namespace

}  // namespace hierfit::session
