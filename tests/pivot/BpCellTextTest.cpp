#include "host/BpCellText.h"

#include <gtest/gtest.h>

#include "host/document/Document.h"
#include "tests/pivot/PivotRun.h"

namespace hierfit {
namespace {

using context::Labels;
using document::PatternSource;
using document::StringSource;
using document::ValueSource;

const KEST_ValueLabels kLabels{{{1, "low"}, {2, ""}}, {{"f", "female"}}};

class CellText : public test::PivotRun {
  protected:
    const KEST_Variable fDose{{"dose", "Dose given", {8, KEST_FormatType::Numeric, 2}, 3, kLabels}};
    const KEST_Variable fSex{{"sex", std::nullopt, {1, KEST_FormatType::String, 0}, 1, kLabels}};
};

TEST_F(CellText, KeepsWordsAndSource) {
    const OBS female(std::string("f"));
    const document::Format significance{document::FormatName::Significance};
    const std::pair<document::Text, document::Text> cases[] = {
        {*BpString("word", true).GetText(), {"Wort", StringSource{"word", true}}},
        {*BpString("word", false).GetText(), {"word", StringSource{"word", false}}},
        {*BpNumber(0.0312, BpProcedure::Significance()).GetText(),
         {".031", document::NumberSource{0.0312, significance}}},
        {*BpVariable(&fDose, BpShow::InText).GetText(), {"Dose given", document::VariableSource{"dose", 1}}},
        {*BpVariable(nullptr, BpShow::InText).GetText(), {"", document::VariableSource{"", 1}}},
        {*BpDataValue(&fSex, &female, BpPreference::AsHeader).GetText(), {"female", ValueSource{"f", "sex", 2}}},
        {*BpDataValue(&fDose, nullptr, BpPreference::Plain).GetText(), {".", ValueSource{kSystemMissing, "dose", 0}}},
        {*BpDataValue(nullptr, 2.5, BpPreference::Plain).GetText(), {"2.5", ValueSource{2.5, "", 0}}},
        {*BpDataValue(nullptr, nullptr, BpPreference::Plain).GetText(), {".", ValueSource{kSystemMissing, "", 0}}},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(text, expected) << text.fWords;
}

TEST_F(CellText, ShowsVariablesAndValuesAsTheUserWants) {
    const std::pair<Labels, std::string> cases[] = {
        {Labels::Label, "Dose given|sex|low|2.00|3.50|female|m|"},
        {Labels::Name, "dose|sex|1.00|2.00|3.50|f|m|"},
        {Labels::Both, "dose (Dose given)|sex|1.00 (low)|2.00|3.50|f (female)|m|"},
    };
    const OBS female("f");
    const OBS male("m");
    for (const auto& [wanted, expected] : cases) {
        context::Settings settings;
        settings.fVariables = settings.fValues = wanted;
        context::RunContext run(settings, nullptr, "");
        const context::RunContext::Activation activation(run);
        std::string words;
        for (const auto& text :
             {BpVariable(&fDose, BpShow::InList).GetText(), BpVariable(&fSex, BpShow::InList).GetText(),
              BpDataValue(&fDose, 1.0, BpPreference::Plain).GetText(),
              BpDataValue(&fDose, 2.0, BpPreference::Plain).GetText(),
              BpDataValue(&fDose, 3.5, BpPreference::Plain).GetText(),
              BpDataValue(&fSex, &female, BpPreference::Plain).GetText(),
              BpDataValue(&fSex, &male, BpPreference::Plain).GetText()}) {
            words += text->fWords + "|";
        }
        EXPECT_EQ(words, expected);
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
    const document::Text a{"a", StringSource{"a", false}};
    const document::Text word{"Wort", StringSource{"word", true}};
    const document::Text wordA{"Wort vor a", PatternSource{"A ^1 ^2", true, {{false, {a}}, {false, {word}}}}};
    EXPECT_EQ(*turned.GetText(), wordA);
    const document::Text sex{"sex", document::VariableSource{"sex", 2}};
    const document::Text notShown{"not shown", StringSource{"not shown", false}};
    const document::Text expected{"sex = Wort vor a",
                                  PatternSource{"EffectVar1", true, {{true, {sex, wordA}}, {false, {notShown}}}}};
    EXPECT_EQ(*list.GetText(), expected);
    EXPECT_EQ(*BpAnnotation(list).GetText().Replicate()->GetText(), expected);
}

TEST_F(CellText, TakesCallsOutOfOrder) {
    BpComposite unfinished("^1", false);
    EXPECT_EQ(unfinished.GetText()->fWords, "");
    unfinished.EndSublist();
    unfinished.Add(Fixed("a"));
    unfinished.Finish();
    unfinished.Add(Fixed("b"));
    EXPECT_EQ(unfinished.GetText()->fWords, "a");
}

}  // namespace
}  // namespace hierfit
