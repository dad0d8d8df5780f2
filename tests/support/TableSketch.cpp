#include "tests/support/TableSketch.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>

namespace hierfit::test {

namespace {

using document::Group;
using document::Text;
using Tokens = std::vector<std::string_view>;

/// The parts between marks, or those between blanks that are not empty.
Tokens Split(std::string_view text, char mark) {
    Tokens parts;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(mark, at), text.size());
        if (end > at || mark != ' ') parts.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

/// Reads the lines of one sketch.
class Sketcher {
  public:
    explicit Sketcher(std::string_view word) : fWord(word) {}

    document::Table Read(std::string_view sketch) {
        for (std::string_view line : Split(sketch, '\n')) {
            const Tokens tokens = Split(line, ' ');
            if (!tokens.empty()) ReadLine(tokens[0], {tokens.begin() + 1, tokens.end()});
        }
        return std::move(fTable);
    }

  private:
    using Members = std::list<document::Member>;

    /// The categories of a dimension.
    struct Categories {
        std::map<std::string, int, std::less<>> fIds;  ///< by label, with and without groups
        int fCount = 0;
        int fNext = 0;  ///< that the next cell in order stands at
    };

    void ReadLine(std::string_view key, const Tokens& operands) {
        if (key == "rows") return ReadDimension(document::Side::Rows, operands);
        if (key == "columns") return ReadDimension(document::Side::Columns, operands);
        if (key == "cells") {
            for (std::string_view cell : operands) ReadCell(cell);
            return;
        }
        const Text text = Spell(operands.at(0));
        if (key == "caption") return fTable.fvCaptions.push_back(text);
        if (key == "note") return fTable.fvNotes.push_back(text);
        if (key != "title") throw std::out_of_range(std::string(key));
        fTable.fSubtype = fTable.fTitle = text;
        std::erase(std::get<document::StringSource>(fTable.fSubtype.fFrom).fString, ' ');
    }

    void ReadDimension(document::Side side, const Tokens& tokens) {
        const auto colon = std::find(tokens.begin(), tokens.end(), ":");
        const auto has = [&](std::string_view mark) { return std::find(tokens.begin(), colon, mark) != colon; };
        const int index = std::stoi(std::string(tokens.at(0)));
        const int sort = has("<") ? 0 : has(">") ? 1 : 2;
        document::Dimension dimension{Spell(colon[-1]), sort, true, side, index, has("-name"), has("-labels"), {}};
        fvCategories.emplace_back();
        std::for_each(colon + 1, tokens.end(), [&](auto member) { AddMember(dimension.fMembers, member, member); });
        fTable.fvDimensions.push_back(std::move(dimension));
    }

    /// Adds a category with the groups around it, as far as they are not there yet.
    void AddMember(Members& members, std::string_view rest, std::string_view path) {
        const std::size_t colons = rest.find("::");
        if (colons == std::string_view::npos) return AddCategory(members, rest, path);
        const int sort = rest[colons - 1] == '<' ? 0 : rest[colons - 1] == '>' ? 1 : 2;
        const Text label = Spell(rest.substr(0, sort == 2 ? colons : colons - 1));
        auto* group = members.empty() ? nullptr : std::get_if<Group>(&members.back().fContent);
        if (!group || group->fLabel != label) members.push_back({Group{label, true, sort, {}}});
        AddMember(std::get<Group>(members.back().fContent).fMembers, rest.substr(colons + 2), path);
    }

    void AddCategory(Members& members, std::string_view token, std::string_view path) {
        if (token.empty()) return;
        Categories& categories = fvCategories.back();
        document::Category category{categories.fCount++, {}, {}};
        ReadNoted(token, category.fLabel, category.fvNotes);
        for (std::string_view name : {path, token}) categories.fIds.emplace(Split(name, '*')[0], category.fId);
        members.push_back({std::move(category)});
    }

    void ReadCell(std::string_view token) {
        document::Cell cell;
        const std::size_t equals = token.find('=');
        if (equals == std::string_view::npos) {
            cell.fvAt = TakePlace();
        } else {
            for (std::string_view name : Split(token.substr(0, equals), ',')) cell.fvAt.push_back(FindId(cell, name));
        }
        if (token == "~") return;
        std::vector<Text> notes;
        ReadNoted(token.substr(equals + 1), cell.fContent, notes);
        cell.fvNotes = std::move(notes);
        const bool isNumber = cell.fContent.fWords.find_first_of("0123456789.-<") == 0;
        if (isNumber) {
            const double number = std::strtod(cell.fContent.fWords.c_str(), nullptr);
            cell.fContent.fFrom = document::NumberSource{number, {document::FormatName::Coefficient}};
        }
        fTable.fvCells.push_back(std::move(cell));
    }

    int FindId(const document::Cell& cell, std::string_view name) const {
        if (name == "-") return document::kNoCategory;
        return fvCategories.at(cell.fvAt.size()).fIds.at(std::string(name));
    }

    document::CellPlace TakePlace() {
        document::CellPlace place;
        for (const Categories& categories : fvCategories) place.push_back(categories.fNext);
        const auto moves = [](Categories& categories) { return ++categories.fNext < categories.fCount; };
        const auto moved = std::find_if(fvCategories.rbegin(), fvCategories.rend(), moves);
        std::for_each(fvCategories.rbegin(), moved, [](Categories& categories) { categories.fNext = 0; });
        return place;
    }

    void ReadNoted(std::string_view token, Text& text, std::vector<Text>& notes) const {
        const Tokens parts = Split(token, '*');
        text = Spell(parts[0]);
        for (std::size_t note = 1; note < parts.size(); ++note) notes.push_back(Spell(parts[note]));
    }

    Text Spell(std::string_view token) const {
        if (token == "@") return MakeText(fWord);
        std::string words(token);
        std::replace(words.begin(), words.end(), '_', ' ');
        std::replace(words.begin(), words.end(), '|', '\n');
        return MakeText(words);
    }

    std::string_view fWord;
    document::Table fTable{};
    std::vector<Categories> fvCategories;
};

}  // namespace

document::Table SketchTable(std::string_view sketch, std::string_view word) { return Sketcher(word).Read(sketch); }

document::Text MakeText(std::string_view words) {
    return {std::string(words), document::StringSource{std::string(words), false}};
}

}  // namespace hierfit::test
