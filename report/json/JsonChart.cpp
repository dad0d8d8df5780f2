#include <fmt/core.h>

#include <utility>

#include "report/json/JsonForms.h"

namespace hierfit::report {

using document::Chart;
using document::ChartCall;
using document::ChartSetting;
using document::ChartSource;
using document::ChartValue;
using document::ChartVariable;
using Layout = JsonOutput::Layout;
using PrintFormat = std::array<int, 3>;

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const ChartValue& value) {
    if (const double* number = std::get_if<double>(&value)) {
        out.Number(*number);
    } else if (const std::string* text = std::get_if<std::string>(&value)) {
        out.TextOrNumber(*text);
    } else {
        out.Null();
    }
}

static void Write(JsonOutput& out, const ChartVariable& variable) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "name", variable.fName);
    WriteList(out, "values", variable.fvValues, Layout::Line);
    out.EndObject();
}

static void Write(JsonOutput& out, const ChartSource& source) {
    out.BeginObject(Layout::Block);
    WriteMember(out, "source", source.fName);
    WriteMember(out, "rows", source.fRows);
    WriteList(out, "variables", source.fvVariables, Layout::Block);
    out.EndObject();
}

static void Write(JsonOutput& out, const PrintFormat& format) {
    out.BeginList(Layout::Line);
    for (const int number : format) out.Integer(number);
    out.EndList();
}

static void Write(JsonOutput& out, const ChartCall& call) {
    out.BeginList(Layout::Line);
    out.String(call.fName);
    for (const ChartCall::Argument& argument : call.fvArguments) {
        std::visit([&](const auto& content) { Write(out, content); }, argument);
    }
    out.EndList();
}

static void Write(JsonOutput& out, const ChartSetting& setting) {
    out.BeginObject(Layout::Block);
    WriteMember(out, "name", setting.fName);
    WriteMember(out, "index", setting.fIndex);
    WriteList(out, "calls", setting.fvCalls, Layout::Block);
    out.EndObject();
}

void WriteMembers(JsonOutput& out, const Chart& chart) {
    out.Key("kind");
    out.String("chart");
    WriteMember(out, "description", chart.fDescription);
    WriteList(out, "sendArguments", chart.fSendArguments, Layout::Line);
    WriteMember(out, "editor", chart.fEditor);
    WriteMember(out, "template", chart.fTemplate);
    WriteMember(out, "xml", chart.fXml);
    WriteList(out, "data", chart.fvData, Layout::Block);
    WriteList(out, "variables", chart.fvSettings, Layout::Block);
    WriteMember(out, "picture", chart.fPicture);
}

static void Read(JsonReader& in, ChartValue& value) {
    JsonTokens& tokens = in.GetTokens();
    switch (tokens.Peek()) {
        case JsonTokens::Kind::Null:
            return tokens.TakeNull();
        case JsonTokens::Kind::Number:
            return Read(in, value.emplace<double>());
        case JsonTokens::Kind::String: {
            const std::string_view text = tokens.TakeString();
            const auto number = tokens.WasEscaped() ? std::nullopt : FindNamedNumber(text);
            if (number) {
                value = *number;
            } else {
                value.emplace<std::string>(text);
            }
            return;
        }
        default:
            in.Fail("number, text or null expected");
    }
}

static void Read(JsonReader& in, ChartVariable& variable) {
    in.ReadObject(Field("name", variable.fName), Field("values", variable.fvValues));
}

static void Read(JsonReader& in, ChartSource& source) {
    in.ReadObject(Field("source", source.fName), Field("rows", source.fRows), Field("variables", source.fvVariables));
    for (std::size_t i = 1; i < source.fvVariables.size(); ++i) {
        const std::size_t size = source.fvVariables.front().fvValues.size();
        if (source.fvVariables[i].fvValues.size() == size) continue;
        in.Fail(fmt::format("{} values expected, as in the variable before", size),
                fmt::format("/variables/{}/values", i));
    }
}

static void Read(JsonReader& in, ChartCall::Argument& argument) {
    switch (in.GetTokens().Peek()) {
        case JsonTokens::Kind::Boolean:
            return Read(in, argument.emplace<bool>());
        case JsonTokens::Kind::String:
            return Read(in, argument.emplace<std::string>());
        case JsonTokens::Kind::List:
            return Read(in, argument.emplace<PrintFormat>());
        default:
            in.Fail("text, true, false or list of 3 expected");
    }
}

static void Read(JsonReader& in, ChartCall& call) {
    const std::size_t count = in.ReadList([&](std::size_t index) {
        if (index == 0) {
            Read(in, call.fName);
        } else {
            Read(in, call.fvArguments.emplace_back());
        }
    });
    if (count == 0) in.Fail("name of a call expected");
}

static void Read(JsonReader& in, ChartSetting& setting) {
    in.ReadObject(Field("name", setting.fName), Field("index", setting.fIndex), Field("calls", setting.fvCalls));
}

void Read(JsonReader& in, Chart& chart) {
    in.ReadObject(Field("description", chart.fDescription), Field("sendArguments", chart.fSendArguments),
                  Field("editor", chart.fEditor), Field("template", chart.fTemplate), Field("xml", chart.fXml),
                  Field("data", chart.fvData), Field("variables", chart.fvSettings), Field("picture", chart.fPicture));
}

}  // namespace hierfit::report
