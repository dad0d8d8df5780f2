#include <fmt/core.h>

#include <utility>

#include "report/json/JsonForms.h"

namespace hierfit::report {

using document::Category;
using document::Cell;
using document::Dimension;
using document::Group;
using document::kNoCategory;
using document::Member;
using document::Side;
using document::Table;
using document::Text;
using Layout = JsonOutput::Layout;

// Static rather than in an unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const Member& member);
static void Read(JsonReader& in, Member& member);

static void Write(JsonOutput& out, const Category& category) {
    out.BeginObject(Layout::Line);
    out.Key("kind");
    out.String("category");
    WriteMember(out, "id", category.fId);
    WriteMember(out, "label", category.fLabel);
    WriteList(out, "notes", category.fvNotes, Layout::Line);
    out.EndObject();
}

static void Write(JsonOutput& out, const Group& group) {
    out.BeginObject(Layout::Block);
    out.Key("kind");
    out.String("group");
    WriteMember(out, "label", group.fLabel);
    WriteMember(out, "flag", group.fFlag);
    WriteMember(out, "sort", group.fSort);
    WriteList(out, "members", group.fMembers, Layout::Block);
    out.EndObject();
}

static void Write(JsonOutput& out, const Member& member) {
    std::visit([&](const auto& content) { Write(out, content); }, member.fContent);
}

static void Write(JsonOutput& out, const Dimension& dimension) {
    out.BeginObject(Layout::Block);
    WriteMember(out, "name", dimension.fName);
    WriteMember(out, "sort", dimension.fSort);
    WriteMember(out, "positioned", dimension.fPositioned);
    WriteMember(out, "place", static_cast<int>(dimension.fSide));
    WriteMember(out, "index", dimension.fIndex);
    WriteList(out, "flags", std::array{dimension.fHideName, dimension.fHideLabels}, Layout::Line);
    WriteList(out, "members", dimension.fMembers, Layout::Block);
    out.EndObject();
}

static void Write(JsonOutput& out, const Cell& cell) {
    out.BeginObject(Layout::Line);
    out.Key("at");
    out.BeginList(Layout::Line);
    for (const int id : cell.fvAt) {
        if (id == kNoCategory) {
            out.Null();
        } else {
            out.Integer(id);
        }
    }
    out.EndList();
    WriteMember(out, "content", cell.fContent);
    WriteList(out, "notes", cell.fvNotes, Layout::Line);
    out.EndObject();
}

void WriteMembers(JsonOutput& out, const Table& table) {
    constexpr std::size_t kPerCell = 128;
    out.MakeRoom(kPerCell * table.fvCells.size());
    out.Key("kind");
    out.String("table");
    WriteMember(out, "subtype", table.fSubtype);
    WriteMember(out, "title", table.fTitle);
    WriteMember(out, "flag", table.fFlag);
    out.Key("minDataColumnWidth");
    if (table.fMinDataColumnWidth) {
        out.Integer(*table.fMinDataColumnWidth);
    } else {
        out.Null();
    }
    WriteList(out, "captions", table.fvCaptions, Layout::Block);
    WriteList(out, "notes", table.fvNotes, Layout::Block);
    WriteList(out, "dimensions", table.fvDimensions, Layout::Block);
    WriteList(out, "cells", table.fvCells, Layout::Block);
}

namespace {

constexpr int kMaxId = 10'000'000;

/// The id of a category, or null for none.
struct Id {
    int& fTarget;
};

/// Marks the ids of all categories below; false where one is marked already or beyond the marks.
bool MarkIds(const std::list<Member>& members, std::vector<bool>& isMarked) {
    for (const Member& member : members) {
        if (const auto* group = std::get_if<Group>(&member.fContent)) {
            if (!MarkIds(group->fMembers, isMarked)) return false;
        } else {
            const auto id = static_cast<std::size_t>(std::get<Category>(member.fContent).fId);
            if (id >= isMarked.size() || isMarked[id]) return false;
            isMarked[id] = true;
        }
    }
    return true;
}

int CountCategories(const std::list<Member>& members) {
    int count = 0;
    for (const Member& member : members) {
        const auto* group = std::get_if<Group>(&member.fContent);
        count += group ? CountCategories(group->fMembers) : 1;
    }
    return count;
}

void CheckCell(const JsonReader& in, const document::CellPlace& at, const std::vector<int>& counts, std::size_t cell) {
    if (at.size() != counts.size()) {
        in.Fail(fmt::format("{} numbers expected", counts.size()), fmt::format("/cells/{}/at", cell));
    }
    for (std::size_t i = 0; i < at.size(); ++i) {
        if (at[i] < counts[i]) continue;
        in.Fail(fmt::format("id of a category of dimension {} expected", i), fmt::format("/cells/{}/at/{}", cell, i));
    }
}

/// Every cell must stand at categories that there are.
void CheckCells(const JsonReader& in, const Table& table) {
    std::vector<int> counts;
    for (const Dimension& dimension : table.fvDimensions) counts.push_back(CountCategories(dimension.fMembers));
    for (std::size_t i = 0; i < table.fvCells.size(); ++i) CheckCell(in, table.fvCells[i].fvAt, counts, i);
}

}  // namespace

static void Read(JsonReader& in, Id& id) {
    if (in.GetTokens().Peek() == JsonTokens::Kind::Null) {
        in.GetTokens().TakeNull();
        id.fTarget = kNoCategory;
    } else {
        Bounded number{id.fTarget, 0, kMaxId};
        Read(in, number);
    }
}

static void Read(JsonReader& in, Category& category) {
    in.ReadObject(Field("id", Bounded{category.fId, 0, kMaxId}), Field("label", category.fLabel),
                  Field("notes", category.fvNotes));
}

static void Read(JsonReader& in, Group& group) {
    in.ReadObject(Field("label", group.fLabel), Field("flag", group.fFlag), Field("sort", Bounded{group.fSort, 0, 2}),
                  Field("members", group.fMembers));
}

static void Read(JsonReader& in, Member& member) {
    const std::string kind = in.FindKind();
    if (kind == "category") return Read(in, member.fContent.emplace<Category>());
    if (kind == "group") return Read(in, member.fContent.emplace<Group>());
    in.Fail("\"category\" or \"group\" expected", "/kind");
}

static void Read(JsonReader& in, Dimension& dimension) {
    int side = 0;
    std::array<bool, 2> flags{};
    in.ReadObject(Field("name", dimension.fName), Field("sort", Bounded{dimension.fSort, 0, 2}),
                  Field("positioned", dimension.fPositioned), Field("place", Bounded{side, 0, 1}),
                  Field("index", dimension.fIndex), Field("flags", flags), Field("members", dimension.fMembers));
    dimension.fSide = static_cast<Side>(side);
    dimension.fHideName = flags[0];
    dimension.fHideLabels = flags[1];
    std::vector<bool> isMarked(static_cast<std::size_t>(CountCategories(dimension.fMembers)));
    if (!MarkIds(dimension.fMembers, isMarked)) {
        in.Fail(fmt::format("ids from 0 to {}, each once, expected", isMarked.size() - 1), "/members");
    }
}

namespace {

/// Where a cell stands.
struct Place {
    document::CellPlace& fvAt;
};

}  // namespace

static void Read(JsonReader& in, Place& place) {
    in.ReadList([&](std::size_t) {
        int category = kNoCategory;
        Id id{category};
        Read(in, id);
        place.fvAt.push_back(category);
    });
}

static void Read(JsonReader& in, document::RareList<Text>& texts) {
    std::vector<Text> list;
    Read(in, list);
    texts = std::move(list);
}

static void Read(JsonReader& in, Cell& cell) {
    in.ReadObject(Field("at", Place{cell.fvAt}), Field("content", cell.fContent), Field("notes", cell.fvNotes));
}

void Read(JsonReader& in, Table& table) {
    in.ReadObject(Field("subtype", table.fSubtype), Field("title", table.fTitle), Field("flag", table.fFlag),
                  Field("minDataColumnWidth", table.fMinDataColumnWidth), Field("captions", table.fvCaptions),
                  Field("notes", table.fvNotes), Field("dimensions", table.fvDimensions),
                  Field("cells", table.fvCells));
    CheckCells(in, table);
}

}  // namespace hierfit::report
