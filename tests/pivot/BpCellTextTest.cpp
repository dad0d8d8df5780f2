#include "host/BpCellText.h"

#include <gtest/gtest.h>

#include "host/document/Document.h"
#include "tests/pivot/PivotRun.h"

namespace hierfit {
namespace {

using context::Labels;

KEST_Variable MakeVariable(const char* name, std::optional<std::string> label, KEST_Format format) {
    KEST_VariableDefinition definition;
    definition.fName = name;
    definition.fLabel = std::move(label);
    definition.fFormat = format;
    definition.fValueLabels.fOfNumbers = {{1, "low"}, {2, ""}};
    definition.fValueLabels.fOfTexts = {{"f", "female"}};
    return KEST_Variable(std::move(definition));
}

class CellText : public test::PivotRun {
  protected:
    const KEST_Variable fDose = MakeVariable("dose", "Dose given", {8, KEST_FormatType::Numeric, 2});
    const KEST_Variable fSex = MakeVariable("sex", std::nullopt, {1, KEST_FormatType::String, 0});
};

TEST_F(CellText, KeepsWordsAndSource) {
    const document::Text translated{"Wort", document::StringSource{"word", true}};
    const document::Text unknown{"other", document::StringSource{"other", true}};
    const document::Text fixed{"word", document::StringSource{"word", false}};
    EXPECT_EQ(*BpString("word", true).GetText(), translated);
    EXPECT_EQ(*BpString("other", true).GetText(), unknown);
    EXPECT_EQ(*BpString("word", false).GetText(), fixed);
    const document::Text number{".031", document::NumberSource{0.0312, {document::FormatName::Significance}}};
    EXPECT_EQ(*BpNumber(0.0312, BpProcedure::Significance()).GetText(), number);
    const document::Text variable{"Dose given", document::VariableSource{"dose", 1}};
    EXPECT_EQ(*BpVariable(&fDose, BpShow::InText).GetText(), variable);
    const OBS female(std::string("f"));
    const document::Text value{"female", document::ValueSource{"f", "sex", 2}};
    EXPECT_EQ(*BpDataValue(&fSex, &female, BpPreference::AsHeader).GetText(), value);
    const document::Text missing{".", document::ValueSource{kSystemMissing, "dose", 0}};
    EXPECT_EQ(*BpDataValue(&fDose, nullptr, BpPreference::Plain).GetText(), missing);
}

TEST_F(CellText, NeedsNoVariable) {
    const OBS text(std::string("f"));
    EXPECT_EQ(BpVariable(nullptr, BpShow::InText).GetText()->fWords, "");
    EXPECT_EQ(BpDataValue(nullptr, 2.5, BpPreference::Plain).GetText()->fWords, "2.5");
    EXPECT_EQ(BpDataValue(nullptr, &text, BpPreference::Plain).GetText()->fWords, "f");
    EXPECT_EQ(BpDataValue(nullptr, nullptr, BpPreference::Plain).GetText()->fWords, ".");
}

TEST_F(CellText, ShowsVariablesAndValuesAsTheUserWants) {
    struct Case {
        Labels fWanted;
        const char* fWords;
    };
    const Case cases[] = {
        {Labels::Label, "Dose given|sex|low|2.00|3.50|female|m"},
        {Labels::Name, "dose|sex|1.00|2.00|3.50|f|m"},
        {Labels::Both, "dose (Dose given)|sex|1.00 (low)|2.00|3.50|f (female)|m"},
    };
    for (const Case& test : cases) {
        context::Settings settings;
        settings.fVariables = settings.fValues = test.fWanted;
        context::RunContext run(settings, nullptr, "");
        const context::RunContext::Activation activation(run);
        std::string words;
        for (const KEST_Variable* variable : {&fDose, &fSex}) {
            words += BpVariable(variable, BpShow::InList).GetText()->fWords + "|";
        }
        for (const double value : {1.0, 2.0, 3.5}) {
            words += BpDataValue(&fDose, value, BpPreference::Plain).GetText()->fWords + "|";
        }
        for (const char* value : {"f", "m"}) {
            const OBS observed{std::string(value)};
            words += BpDataValue(&fSex, &observed, BpPreference::Plain).GetText()->fWords + "|";
        }
        words.pop_back();
        EXPECT_EQ(words, test.fWords);
    }
}

TEST_F(CellText, PutsCompositesTogether) {
    BpComposite turned("A ^1 ^2", true);
    turned.Add(Fixed("a"));
    turned.Add(BpString("word", true));
    turned.Finish();
    BpComposite list("EffectVar1", true);
    list.Sublist();
    list.Add(BpVariable(&fSex, BpShow::AsHeader));
    list.Add(turned);
    list.EndSublist();
    list.Add(Fixed("not shown"));
    list.Finish();
    const document::Text a{"a", document::StringSource{"a", false}};
    const document::Text word{"Wort", document::StringSource{"word", true}};
    const document::Text expectedTurned{"Wort vor a",
                                        document::PatternSource{"A ^1 ^2", true, {{false, {a}}, {false, {word}}}}};
    EXPECT_EQ(*turned.GetText(), expectedTurned);
    const document::Text sex{"sex", document::VariableSource{"sex", 2}};
    const document::Text notShown{"not shown", document::StringSource{"not shown", false}};
    const document::Text expected{
        "sex = Wort vor a",
        document::PatternSource{"EffectVar1", true, {{true, {sex, expectedTurned}}, {false, {notShown}}}}};
    EXPECT_EQ(*list.GetText(), expected);
    EXPECT_EQ(*BpAnnotation(list).GetText().GetText(), expected);
}

TEST_F(CellText, TakesCallsOutOfOrder) {
    BpComposite unfinished("^1", false);
    EXPECT_EQ(unfinished.GetText()->fWords, "");
    unfinished.EndSublist();
    unfinished.Add(Fixed("a"));
    unfinished.Finish();
    unfinished.Add(Fixed("b"));
    unfinished.Sublist();
    unfinished.EndSublist();
    unfinished.Finish();
    EXPECT_EQ(unfinished.GetText()->fWords, "a");
}

}  // namespace
}  // namespace hierfit
