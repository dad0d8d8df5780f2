#include "report/json/JsonDocument.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "host/document/SpellPlace.h"
#include "host/unicode/Utf8.h"
#include "report/json/JsonForms.h"

namespace hierfit::report {

using document::Chart;
using document::Diagnostic;
using document::Document;
using document::Heading;
using document::Item;
using document::Message;
using document::Place;
using document::Table;
using Layout = JsonOutput::Layout;

namespace {

constexpr std::string_view kFormat = "hierfit-output";
constexpr int kVersion = 2;

/// The text that must stand there.
struct Constant {
    std::string_view fText;
};

struct Version {};

}  // namespace

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const Item& item);
static void Read(JsonReader& in, Item& item);

static void WriteMembers(JsonOutput& out, const Heading& heading) {
    out.Key("kind");
    out.String("heading");
    WriteMember(out, "title", heading.fTitle);
    WriteList(out, "items", heading.fItems, Layout::Block);
}

static void WriteMembers(JsonOutput& out, const Message& message) {
    out.Key("kind");
    out.String("message");
    WriteMember(out, "text", message.fText);
    WriteMember(out, "show", message.fShow);
    WriteMember(out, "level", message.fLevel);
}

static void Write(JsonOutput& out, const Item& item) {
    out.BeginObject(Layout::Block);
    std::visit([&](const auto& content) { WriteMembers(out, content); }, item.fContent);
    out.EndObject();
}

static void Read(JsonReader& in, Constant& constant) {
    std::string text;
    Read(in, text);
    if (text != constant.fText) in.Fail(fmt::format("\"{}\" expected", constant.fText));
}

static void Read(JsonReader& in, Version&) {
    int version = 0;
    Read(in, version);
    if (version == kVersion) return;
    if (version < 1 || version > kVersion) in.Fail(fmt::format("{} expected", kVersion));
    in.Fail(
        "the document was saved by an earlier version of hierfit; write it anew from the model's two documents with "
        "\"hierfit report -f json\"");
}

static void Read(JsonReader& in, Heading& heading) {
    in.ReadObject(Field("title", heading.fTitle), Field("items", heading.fItems));
}

static void Read(JsonReader& in, Message& message) {
    in.ReadObject(Field("text", message.fText), Field("show", message.fShow),
                  Field("level", Bounded{message.fLevel, 1, 3}));
}

static void Read(JsonReader& in, Item& item) {
    const std::string kind = in.FindKind();
    if (kind == "heading") return Read(in, item.fContent.emplace<Heading>());
    if (kind == "table") return Read(in, item.fContent.emplace<Table>());
    if (kind == "chart") return Read(in, item.fContent.emplace<Chart>());
    if (kind == "message") return Read(in, item.fContent.emplace<Message>());
    in.Fail("\"heading\", \"table\", \"chart\" or \"message\" expected", "/kind");
}

namespace {

/// A diagnostic whose place still names its source: the sources may stand behind it.
struct UnplacedDiagnostic {
    Diagnostic fDiagnostic;
    std::optional<std::string> fPlace;
};

using SourceIndices = std::unordered_map<std::string_view, int>;

/// Takes the number behind the last colon away from a place.
std::optional<int> TakeNumber(std::string_view& place) {
    const std::size_t colon = place.rfind(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const std::string_view digits = place.substr(colon + 1);
    place = place.substr(0, colon);
    int number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size() || number < 0) return std::nullopt;
    return number;
}

/// Reads "SOURCE:LINE:COLUMN".
std::optional<Place> ParsePlace(std::string_view text, const SourceIndices& sources) {
    const std::optional<int> column = TakeNumber(text);
    const std::optional<int> line = TakeNumber(text);
    const auto source = sources.find(text);
    if (!column || !line || source == sources.end()) return std::nullopt;
    return Place{source->second, *line, *column};
}

void PlaceDiagnostics(const JsonReader& in, std::vector<UnplacedDiagnostic>& unplaced, Document& document) {
    SourceIndices sources;
    for (int index = 0; const std::string& name : document.fvSources) sources.try_emplace(name, index++);
    for (UnplacedDiagnostic& diagnostic : unplaced) {
        if (diagnostic.fPlace) {
            diagnostic.fDiagnostic.fPlace = ParsePlace(*diagnostic.fPlace, sources);
            if (!diagnostic.fDiagnostic.fPlace) {
                in.Fail("\"SOURCE:LINE:COLUMN\" with one of the sources expected",
                        fmt::format("/diagnostics/{}/place", document.fvDiagnostics.size()));
            }
        }
        document.fvDiagnostics.push_back(std::move(diagnostic.fDiagnostic));
    }
}

/// The place of a byte of the text. Columns count characters.
void SetPlace(JsonError& error, std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    error.fLine = 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
    error.fColumn = 1 + static_cast<int>(unicode::CountCharacters(line));
}

void WritePlace(JsonOutput& out, const Document& document, const std::optional<Place>& place) {
    const bool isKnown = place && static_cast<std::size_t>(place->fSource) < document.fvSources.size();
    isKnown ? out.String(document::SpellPlace(document, *place)) : out.Null();
}

void WriteDiagnostic(JsonOutput& out, const Document& document, const Diagnostic& diagnostic) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "level", diagnostic.fLevel);
    WriteMember(out, "text", diagnostic.fText);
    out.Key("place");
    WritePlace(out, document, diagnostic.fPlace);
    out.EndObject();
}

}  // namespace

static void Read(JsonReader& in, UnplacedDiagnostic& diagnostic) {
    Diagnostic& placed = diagnostic.fDiagnostic;
    in.ReadObject(Field("level", Bounded{placed.fLevel, 1, 3}), Field("text", placed.fText),
                  Field("place", diagnostic.fPlace));
}

static void Read(JsonReader& in, Document& document) {
    std::vector<UnplacedDiagnostic> diagnostics;
    in.ReadObject(Field("format", Constant{kFormat}), Field("version", Version{}),
                  Field("producer", document.fProducer), Field("language", document.fLanguage),
                  Field("title", document.fTitle), Field("sources", document.fvSources),
                  Field("items", document.fItems), Field("diagnostics", diagnostics));
    PlaceDiagnostics(in, diagnostics, document);
}

std::string WriteJson(const Document& document) {
    JsonOutput out;
    out.BeginObject(Layout::Block);
    out.Key("format");
    out.String(kFormat);
    WriteMember(out, "version", kVersion);
    WriteMember(out, "producer", document.fProducer);
    WriteMember(out, "language", document.fLanguage);
    WriteMember(out, "title", document.fTitle);
    WriteList(out, "sources", document.fvSources, Layout::Line);
    WriteList(out, "items", document.fItems, Layout::Block);
    out.Key("diagnostics");
    out.BeginList(Layout::Block);
    for (const Diagnostic& diagnostic : document.fvDiagnostics) WriteDiagnostic(out, document, diagnostic);
    out.EndList();
    out.EndObject();
    return out.Take();
}

std::variant<Document, JsonError> ReadJson(std::string_view text) {
    JsonReader in(text);
    try {
        Document document;
        Read(in, document);
        in.GetTokens().Finish();
        return document;
    } catch (const JsonFailure& failure) {
        JsonError error{failure.fText, in.GetPath() + failure.fPath};
        if (failure.fOffset != JsonFailure::kNoOffset) SetPlace(error, text, failure.fOffset);
        return error;
    }
}

}  // namespace hierfit::report
