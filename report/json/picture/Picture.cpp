#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::ChartTable;
using document::CirclePicture;
using document::HistogramPicture;
using document::LevelsPicture;
using document::NetworkPicture;
using document::Picture;
using document::ScatterPicture;
using Layout = JsonOutput::Layout;

namespace {

/// In the order of `Picture::fContent`.
constexpr std::array<std::string_view, 5> kKinds = {"levels", "circle", "network", "scatter", "histogram"};

void CheckTable(const JsonReader& in, const ChartTable& table) {
    const std::size_t columns = table.fvColumns.size();
    if (columns == 0) in.Fail("one column at least expected", "/columns");
    if (table.fKeys < 0 || static_cast<std::size_t>(table.fKeys) >= columns) {
        in.Fail(fmt::format("whole number from 0 to {} expected", columns - 1), "/keys");
    }
    const auto wrong = std::ranges::find_if(table.fvRows, [&](const auto& row) { return row.size() != columns; });
    if (wrong == table.fvRows.end()) return;
    in.Fail(fmt::format("{} cells expected, one for each column", columns),
            fmt::format("/rows/{}", wrong - table.fvRows.begin()));
}

}  // namespace

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const std::vector<std::string>& row) {
    out.BeginList(Layout::Line);
    for (const std::string& text : row) out.String(text);
    out.EndList();
}

static void Write(JsonOutput& out, const ChartTable& table) {
    out.BeginObject(Layout::Line);
    WriteList(out, "columns", table.fvColumns, Layout::Line);
    WriteUnless(out, "keys", table.fKeys);
    WriteList(out, "rows", table.fvRows, Layout::Line);
    out.EndObject();
}

void Read(JsonReader& in, ChartTable& table) {
    in.ReadObject(Field("columns", table.fvColumns), Optional("keys", table.fKeys), Field("rows", table.fvRows));
    CheckTable(in, table);
}

void Write(JsonOutput& out, const Picture& picture) {
    out.BeginObject(Layout::Block);
    out.Key("kind");
    out.String(kKinds[picture.fContent.index()]);
    WriteUnless(out, "title", picture.fTitle);
    WriteUnless(out, "subtitle", picture.fSubtitle);
    WriteUnless(out, "caption", picture.fCaption);
    WriteUnless(out, "footnote", picture.fFootnote);
    WriteUnlessEmpty(out, "notes", picture.fvNotes, Layout::Block);
    std::visit([&](const auto& content) { WriteMembers(out, content); }, picture.fContent);
    WriteUnless(out, "sentence", picture.fSentence);
    WriteUnlessEmpty(out, "tables", picture.fvTables, Layout::Block);
    out.EndObject();
}

void Read(JsonReader& in, Picture& picture) {
    const std::string kind = in.FindKind();
    auto& content = picture.fContent;
    if (kind == "levels") return ReadAs(in, picture, content.emplace<LevelsPicture>());
    if (kind == "circle") return ReadAs(in, picture, content.emplace<CirclePicture>());
    if (kind == "network") return ReadAs(in, picture, content.emplace<NetworkPicture>());
    if (kind == "scatter") return ReadAs(in, picture, content.emplace<ScatterPicture>());
    if (kind == "histogram") return ReadAs(in, picture, content.emplace<HistogramPicture>());
    in.Fail("\"levels\", \"circle\", \"network\", \"scatter\" or \"histogram\" expected", "/kind");
}

}  // namespace hierfit::report
