#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

#include "host/SystemMissing.h"
#include "report/json/JsonForms.h"

namespace hierfit::report {

using document::Argument;
using document::Format;
using document::FormatName;
using document::NumberSource;
using document::PatternSource;
using document::Source;
using document::StringSource;
using document::Text;
using document::ValueSource;
using document::VariableSource;
using Layout = JsonOutput::Layout;

namespace {

/// In the order of `FormatName`.
constexpr std::array<std::string_view, 7> kFormatNames = {"Coefficient", "CoefficientSE", "Significance", "GeneralStat",
                                                          "Count",       "Percent",       "SigDigit"};

void WriteMissable(JsonOutput& out, double number) {
    if (number == kSystemMissing) return out.Null();
    out.Number(number);
}

}  // namespace

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const Format& format) {
    out.BeginObject(Layout::Line);
    out.Key("name");
    out.String(kFormatNames[static_cast<std::size_t>(format.fName)]);
    if (format.fName == FormatName::SigDigit) WriteMember(out, "argument", format.fArgument);
    out.EndObject();
}

static void WriteMembers(JsonOutput& out, const StringSource& source) {
    WriteMember(out, "string", source.fString);
    WriteMember(out, "translate", source.fTranslate);
}

static void WriteMembers(JsonOutput& out, const NumberSource& source) {
    out.Key("number");
    WriteMissable(out, source.fNumber);
    WriteMember(out, "format", source.fFormat);
}

static void WriteMembers(JsonOutput& out, const VariableSource& source) {
    WriteMember(out, "variable", source.fVariable);
    WriteMember(out, "show", source.fShow);
}

static void WriteMembers(JsonOutput& out, const ValueSource& source) {
    out.Key("value");
    if (const double* number = std::get_if<double>(&source.fValue)) {
        WriteMissable(out, *number);
    } else {
        out.TextOrNumber(std::get<document::SharedText>(source.fValue).Get());
    }
    WriteMember(out, "variable", source.fVariable.Get());
    WriteMember(out, "preference", source.fPreference);
}

static void Write(JsonOutput& out, const Argument& argument) {
    if (!argument.fIsSublist) return Write(out, argument.fvTexts.front());
    out.BeginObject(Layout::Line);
    WriteList(out, "sublist", argument.fvTexts, Layout::Line);
    out.EndObject();
}

static void WriteMembers(JsonOutput& out, const PatternSource& source) {
    WriteMember(out, "pattern", source.fPattern.Get());
    WriteMember(out, "translate", source.fTranslate);
    WriteList(out, "arguments", source.fvArguments, Layout::Line);
}

static void Read(JsonReader& in, document::SharedText& shared) {
    std::string text;
    Read(in, text);
    shared = text;
}

static void Read(JsonReader& in, FormatName& name) {
    std::string text;
    Read(in, text);
    const auto at = std::find(kFormatNames.begin(), kFormatNames.end(), text);
    if (at == kFormatNames.end()) in.Fail("name of a number format expected");
    name = static_cast<FormatName>(at - kFormatNames.begin());
}

static void Read(JsonReader& in, Format& format) {
    double argument = 0;
    Field nameField("name", format.fName);
    Field argumentField("argument", argument);
    in.ReadFields(nameField, argumentField);
    in.Require(nameField);
    if (format.fName != FormatName::SigDigit) return;
    in.Require(argumentField);
    format.fArgument = argument;
}

using Value = decltype(ValueSource::fValue);

static void Read(JsonReader& in, Value& value) {
    JsonTokens& tokens = in.GetTokens();
    if (tokens.Peek() == JsonTokens::Kind::String) {
        const std::string_view text = tokens.TakeString();
        value = document::SharedText(text);
        const auto number = FindNamedNumber(text);
        if (number && !tokens.WasEscaped()) value = *number;
    } else {
        Missable number{value.emplace<double>()};
        if (tokens.Peek() != JsonTokens::Kind::Null)
            in.Expect(JsonTokens::Kind::Number, "number, text or null expected");
        Read(in, number);
    }
}

static void Read(JsonReader& in, Argument& argument) {
    Text text;
    Field words("text", text.fWords);
    Field from("from", text.fFrom);
    Field sublist("sublist", argument.fvTexts);
    in.ReadFields(words, from, sublist);
    argument.fIsSublist = sublist.fIsSeen;
    if (argument.fIsSublist) return;
    in.Require(words);
    in.Require(from);
    argument.fvTexts.push_back(std::move(text));
}

namespace {

/// The keys of all kinds of source: which of them are there tells the kind.
struct SourceReader {
    explicit SourceReader(JsonReader& reader) : in(reader) {
        in.ReadFields(fString, fNumber, fPattern, fValue, fVariable, fTranslate, fFormat, fShow, fPreference,
                      fArguments);
    }

    Source Get();

    template <typename... Target>
    void Require(const Field<Target>&... fields) const {
        (in.Require(fields), ...);
    }

    JsonReader& in;
    bool fIsTranslated = false;
    StringSource fStringSource{};
    NumberSource fNumberSource{};
    VariableSource fVariableSource{};
    ValueSource fValueSource{};
    PatternSource fPatternSource{};

    Field<std::string&> fString{"string", fStringSource.fString};
    Field<Missable> fNumber{"number", Missable{fNumberSource.fNumber}};
    Field<document::SharedText&> fPattern{"pattern", fPatternSource.fPattern};
    Field<Value&> fValue{"value", fValueSource.fValue};
    Field<std::string&> fVariable{"variable", fVariableSource.fVariable};
    Field<bool&> fTranslate{"translate", fIsTranslated};
    Field<Format&> fFormat{"format", fNumberSource.fFormat};
    Field<int&> fShow{"show", fVariableSource.fShow};
    Field<int&> fPreference{"preference", fValueSource.fPreference};
    Field<std::vector<Argument>&> fArguments{"arguments", fPatternSource.fvArguments};
};

Source SourceReader::Get() {
    const int kinds = fString.fIsSeen + fNumber.fIsSeen + fPattern.fIsSeen + (fValue.fIsSeen || fVariable.fIsSeen);
    if (kinds != 1) in.Fail("one key of \"string\", \"number\", \"variable\", \"value\" and \"pattern\" expected");
    if (fString.fIsSeen) {
        Require(fTranslate);
        fStringSource.fTranslate = fIsTranslated;
        return std::move(fStringSource);
    }
    if (fNumber.fIsSeen) {
        Require(fFormat);
        return fNumberSource;
    }
    if (fPattern.fIsSeen) {
        Require(fTranslate, fArguments);
        fPatternSource.fTranslate = fIsTranslated;
        return std::move(fPatternSource);
    }
    Require(fVariable);
    if (fValue.fIsSeen) {
        Require(fPreference);
        fValueSource.fVariable = fVariableSource.fVariable;
        return std::move(fValueSource);
    }
    Require(fShow);
    return std::move(fVariableSource);
}

}  // namespace

static void Read(JsonReader& in, Source& source) { source = SourceReader(in).Get(); }

void Write(JsonOutput& out, const Text& text) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "text", text.fWords);
    out.Key("from");
    out.BeginObject(Layout::Line);
    std::visit([&](const auto& source) { WriteMembers(out, source); }, text.fFrom);
    out.EndObject();
    out.EndObject();
}

void Read(JsonReader& in, Text& text) { in.ReadObject(Field("text", text.fWords), Field("from", text.fFrom)); }

}  // namespace hierfit::report
