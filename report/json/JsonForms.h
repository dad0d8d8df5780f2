#pragma once

#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/Document.h"
#include "report/json/JsonOutput.h"
#include "report/json/JsonReader.h"

/// How each part of a document stands in JSON. Writing and reading of a form stand together.
namespace hierfit::report {

void Write(JsonOutput& out, const document::Text& text);
void Read(JsonReader& in, document::Text& text);

/// The lines of a table from "kind" on; its object is begun and ended by the caller.
void WriteMembers(JsonOutput& out, const document::Table& table);
void Read(JsonReader& in, document::Table& table);

/// The same for a chart.
void WriteMembers(JsonOutput& out, const document::Chart& chart);
void Read(JsonReader& in, document::Chart& chart);

/// The picture of a chart, of whatever kind.
void Write(JsonOutput& out, const document::Picture& picture);
void Read(JsonReader& in, document::Picture& picture);

inline void Write(JsonOutput& out, bool value) { out.Boolean(value); }
inline void Write(JsonOutput& out, int value) { out.Integer(value); }
inline void Write(JsonOutput& out, double value) { out.Number(value); }
inline void Write(JsonOutput& out, const std::string& value) { out.String(value); }

template <typename Value>
void WriteMember(JsonOutput& out, std::string_view key, const Value& value) {
    out.Key(key);
    Write(out, value);
}

template <typename Container>
void WriteList(JsonOutput& out, std::string_view key, const Container& values, JsonOutput::Layout layout) {
    out.Key(key);
    out.BeginList(layout);
    for (const auto& value : values) Write(out, value);
    out.EndList();
}

}  // namespace hierfit::report
