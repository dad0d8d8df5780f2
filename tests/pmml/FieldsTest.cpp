#include "host/pmml/Dictionary.h"

#include <fmt/format.h>

#include <sstream>

#include "host/MCPMMLParser.h"
#include "host/data/PrintFormat.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::pmml {
namespace {

/// The fields, a line each: name "label" type, level, format, categories; then the indices of the variables. Or the
/// error with its place.
std::string Outcome(const std::string& text) {
    const auto result = Dictionary::Read(text);
    if (const auto* error = std::get_if<ReadError>(&result)) {
        return fmt::format("{}:{} {}", error->fLine, error->fColumn, error->fText);
    }
    const auto& dictionary = std::get<Dictionary>(result);
    std::string outcome;
    for (const Field& field : dictionary.GetFields()) {
        outcome += fmt::format("{} \"{}\" t{} l{} {}", field.fName, field.fLabel, field.fType, field.fMeasurementLevel,
                               data::PrintFormatText(field.fFormat));
        for (const auto& [value, label] : field.fvCategories) outcome += fmt::format(" {}={}", value, label);
        outcome += '\n';
    }
    for (int index : dictionary.GetVariables()) outcome += std::to_string(index);
    return outcome;
}

std::string OneField(const std::string& attributes, const std::string& children = "") {
    return "<PMML><DataDictionary><DataField name='x' " + attributes + ">" + children +
           "</DataField></DataDictionary></PMML>";
}

std::string Format(const std::string& format) { return "<Extension name='format' value='" + format + "'/>"; }

const std::string kNumber = "optype='continuous' dataType='double'";
const std::string kString = "optype='categorical' dataType='string'";

TEST(Dictionary, ReadsOneField) {
    const std::pair<std::string, std::string> cases[] = {
        {OneField(kNumber), "x \"\" t2 l3 F8.2"},
        {OneField("optype='categorical' dataType='integer' displayName='The x'"), "x \"The x\" t1 l1 F8.0"},
        {OneField("optype='ordinal' dataType='float'"), "x \"\" t2 l2 F8.2"},
        {OneField("optype='odd' dataType='date'"), "x \"\" t0 l1 A8"},
        {OneField(kString, "<Value value='a' displayValue='A'/><Value value='l\xC3\xA4nger'/>"),
         "x \"\" t0 l1 A6 a=A l\xC3\xA4nger="},
        {OneField(kNumber,
                  "<Value value='1' property='valid'/><Value value='2' property='missing'/>"
                  "<Value value='3' property='invalid'/><Value/><Value value='4'/>"),
         "x \"\" t2 l3 F8.2 1= 4="},
        {OneField(kNumber, "<Extension name='other' value='F1.0'/>" + Format("F5.1")), "x \"\" t2 l3 F5.1"},
        {OneField(kNumber, Format("F40.16")), "x \"\" t2 l3 F40.16"},
    };
    for (const auto& [text, field] : cases) EXPECT_EQ(Outcome(text), field + "\n0") << text;
}

TEST(Dictionary, IgnoresFormatsThatAreMalformedOrOfAnotherType) {
    for (const char* format : {"", "F", "8.2", "F.2", "F8.", "f8.2", "F8.2 ", " F8.2", "F8.2.1", "F8,2", "F-8.2",
                               "F8.-2", "F2.2", "F0.0", "F256.2", "F40.17", "F99999999999.2", "E8.2", "A8"}) {
        EXPECT_EQ(Outcome(OneField(kNumber, Format(format))), "x \"\" t2 l3 F8.2\n0") << format;
    }
    for (const char* format : {"A", "A0", "A8.0", "A-1", "A256", "F8.2"}) {
        EXPECT_EQ(Outcome(OneField(kString, Format(format))), "x \"\" t0 l1 A8\n0") << format;
    }
}

/// A document of the fields a, b and c, with more elements behind the dictionary.
std::string WithModel(const std::string& elements) {
    return "<p:PMML xmlns:p='u'><p:DataDictionary><p:DataField name='a'/><p:DataField name='b'/><p:DataField name='c'/>"
           "</p:DataDictionary>\n" +
           elements + "</p:PMML>";
}

TEST(Dictionary, TakesTheVariablesFromTheFirstMiningSchema) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "012"},
        {"<M><MiningSchema/></M>", ""},
        {"<M><MiningSchema><MiningField name='c'/><MiningField name='a' usageType='target'/></MiningSchema></M>", "20"},
        {"<M><MiningSchema><MiningField name='b'/><MiningField name='b'/></MiningSchema></M>", "1"},
        {"<M><S><MiningSchema><MiningField name='b'/></MiningSchema></S><MiningSchema/></M>", "1"},
        {"<Extension><MiningSchema/></Extension><MiningBuildTask><MiningSchema/></MiningBuildTask><M><MiningSchema>"
         "<MiningField name='c'/></MiningSchema></M>",
         "2"},
    };
    for (const auto& [elements, variables] : cases) {
        const std::string outcome = Outcome(WithModel(elements));
        EXPECT_EQ(outcome.substr(outcome.rfind('\n') + 1), variables) << elements;
    }
}

TEST(Dictionary, TellsWhatItCannotRead) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "1:1 no element found\n\n^"},
        {"<PMML>\n</PNML>", "2:3 mismatched tag\n</PNML>\n  ^"},
        {"\n<PMML/>", "2:1 PMML: element \"DataDictionary\" expected"},
        {"<PMML><DataDictionary><DataField name=''/></DataDictionary></PMML>",
         "1:23 PMML/DataDictionary/DataField: attribute \"name\" expected"},
        {"<PMML><DataDictionary><DataField name='a'/><DataField name='a'/></DataDictionary></PMML>",
         "1:44 PMML/DataDictionary/DataField[2]: another field is named \"a\""},
        {WithModel("<M><MiningSchema><MiningField name='a'/><MiningField name='zz'/></MiningSchema></M>"),
         "2:41 PMML/M/MiningSchema/MiningField[2]: \"zz\" is no field of the data dictionary"},
    };
    for (const auto& [text, error] : cases) EXPECT_EQ(Outcome(text), error) << text;
}

TEST(Dictionary, MakesDataSourceAndMetaData) {
    const std::string values =
        "<Value value='1' displayValue='one'/><Value value='x' displayValue='no number'/>"
        "<Value value='2' displayValue='two'/><Value value='02'/>";
    const auto result = Dictionary::Read(
        "<PMML><DataDictionary><DataField name='n' displayName='Number' optype='ordinal' dataType='double'>" + values +
        "</DataField><DataField name='s' dataType='string'>" + values +
        "</DataField><DataField name='i' dataType='integer'/></DataDictionary></PMML>");
    const auto source = MakeDataSource(std::get<Dictionary>(result));
    const auto metaData = MakeMetaData(std::get<Dictionary>(result));
    std::string fields;
    for (int i = 0; i < metaData->FieldCount(); ++i) {
        const KEST_Variable& variable = *source->GetVariable(i);
        EXPECT_EQ(metaData->GetFieldIndex(variable.GetName()), i);
        fields += fmt::format("{} l{} {} {}+{}, ", metaData->GetField(i)->GetType(), variable.GetMeasurementLevel(),
                              variable.GetLabel() ? variable.GetLabel() : "-",
                              variable.GetValueLabels().fOfNumbers.size(), variable.GetValueLabels().fOfTexts.size());
    }
    EXPECT_EQ(fields, "2 l2 Number 2+0, 0 l1 - 1+3, 1 l3 - 0+0, ");
    EXPECT_EQ(metaData->GetFieldIndex("N"), -1);
    EXPECT_EQ(metaData->GetField(3), nullptr);
}

/// The variables that a list holds, such as "dose:2/3", or "error".
std::string Variables(const std::string& text, const std::vector<std::string>& names = {}) {
    MCPMMLParser parser;
    std::istringstream stream(text);
    MCVarList list;
    if (parser.ParseToDOM(stream).IsError()) return "error";
    if (parser.FillVarList(&list, names, false).IsError()) return list.Size() == 0 ? "unknown" : "unknown, but filled";
    std::string variables;
    for (int i = 0; i < list.Size(); ++i) {
        std::string name;
        list.GetVarAt(i)->GetName(name);
        variables += (i > 0 ? " " : "") + name + ':' + std::to_string(list.GetVarAt(i)->GetKind()) + '/' +
                     std::to_string(list.GetVarAt(i)->GetCategoryCount());
    }
    return variables;
}

TEST(PmmlParser, ListsTheVariablesOfTheModel) {
    const std::string oats = test::ReadExample("oats", "model.pmml");
    EXPECT_EQ(Variables(oats), "yield:1/0 nitro:3/4 Variety:2/3 Block:2/6");
    EXPECT_EQ(Variables(oats, {"Block", "yield"}), "Block:2/6 yield:1/0");
    EXPECT_EQ(Variables(oats, {"Block", "plot"}), "unknown");
    EXPECT_EQ(Variables(test::Replaced(oats, "name=\"yield\"", "name=\"yeild\"")), "error");
}

TEST(PmmlParser, FailsWithoutADocument) {
    MCPMMLParser parser;
    MCVarList list;
    EXPECT_TRUE(parser.FillVarList(&list, {}, false).IsError());
    std::istringstream good(test::ReadExample("oats", "model.pmml"));
    EXPECT_FALSE(parser.ParseToDOM(good).IsError());
    EXPECT_TRUE(parser.FillVarList(nullptr, {}, false).IsError());
    std::istringstream bad("<PMML/>");
    EXPECT_TRUE(parser.ParseToDOM(bad).IsError());
    EXPECT_TRUE(parser.FillVarList(&list, {}, false).IsError());
}

}  // namespace
}  // namespace hierfit::pmml
