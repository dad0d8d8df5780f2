#include "tests/support/TableSketch.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <stdexcept>
#include <string>

namespace hierfit::test {

namespace {

std::vector<std::string_view> Split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(mark, at), text.size());
        if (end > at || mark != ' ') parts.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

// "#1.5" is a number shown as 1.5.
document::Text MakeContent(std::string_view words) {
    if (!words.starts_with('#')) return MakeText(words);
    return {std::string(words.substr(1)), document::NumberSource{0, {document::FormatName::Coefficient}}};
}

std::string Spell(std::string_view token) {
    std::string words(token);
    std::replace(words.begin(), words.end(), '_', ' ');
    std::replace(words.begin(), words.end(), '|', '\n');
    return words;
}

int ReadInteger(std::string_view token) {
    int number = 0;
    std::from_chars(token.data(), token.data() + token.size(), number);
    return number;
}

/// Reads the lines of one sketch.
class Sketcher {
  public:
    document::Table Read(std::string_view sketch) {
        for (std::string_view line : Split(sketch, '\n')) ReadLine(line);
        return std::move(fTable);
    }

  private:
    using Notes = std::vector<document::Text>;

    void ReadLine(std::string_view line) {
        const std::vector<std::string_view> tokens = Split(line, ' ');
        if (tokens.empty()) return;
        const std::string_view key = tokens[0];
        if (key == "title")
            fTable.fTitle = MakeText(Spell(tokens.at(1)));
        else if (key == "caption")
            fTable.fvCaptions.push_back(MakeText(Spell(tokens.at(1))));
        else if (key == "note")
            fTable.fvNotes.push_back(MakeText(Spell(tokens.at(1))));
        else if (key == "width")
            fTable.fMinDataColumnWidth = ReadInteger(tokens.at(1));
        else if (key == "rows" || key == "columns")
            ReadDimension(tokens);
        else if (key == "cells")
            std::for_each(tokens.begin() + 1, tokens.end(), [this](auto cell) { ReadCell(cell); });
        else
            throw std::invalid_argument(std::string(line));
    }

    void ReadDimension(const std::vector<std::string_view>& tokens) {
        document::Dimension dimension{};
        dimension.fSort = 2;
        dimension.fPositioned = true;
        dimension.fSide = tokens[0] == "rows" ? document::Side::Rows : document::Side::Columns;
        dimension.fIndex = ReadInteger(tokens.at(1));
        fIds.emplace_back();
        std::size_t at = 2;
        for (; at < tokens.size() && tokens[at] != ":"; ++at) {
            if (tokens[at] == "-name")
                dimension.fHideName = true;
            else if (tokens[at] == "-labels")
                dimension.fHideLabels = true;
            else if (tokens[at] == "<")
                dimension.fSort = 0;
            else if (tokens[at] == ">")
                dimension.fSort = 1;
            else
                dimension.fName = MakeText(Spell(tokens[at]));
        }
        int nextId = 0;
        for (++at; at < tokens.size(); ++at) {
            std::string_view member = tokens[at];
            ReadMembers(member, "", nextId, dimension.fMembers);
        }
        fTable.fvDimensions.push_back(std::move(dimension));
    }

    // Members of a group are parted by blanks elsewhere and by "+" in here: g(c+h(d)).
    void ReadMembers(std::string_view& rest, const std::string& path, int& nextId,
                     std::list<document::Member>& members) {
        while (!rest.empty() && rest[0] != ')') {
            const std::string_view token = rest.substr(0, rest.find_first_of("()+"));
            rest.remove_prefix(token.size());
            if (!rest.empty() && rest[0] == '(') {
                rest.remove_prefix(1);
                ReadGroup(token, rest, path, nextId, members);
                if (!rest.empty()) rest.remove_prefix(1);
            } else {
                AddCategory(token, path, nextId, members);
            }
            if (!rest.empty() && rest[0] == '+') rest.remove_prefix(1);
        }
    }

    void ReadGroup(std::string_view token, std::string_view& rest, const std::string& path, int& nextId,
                   std::list<document::Member>& members) {
        document::Group group{{}, true, 2, {}};
        if (token.ends_with('<')) group.fSort = 0;
        if (token.ends_with('>')) group.fSort = 1;
        if (group.fSort != 2) token.remove_suffix(1);
        group.fLabel = MakeText(Spell(token));
        ReadMembers(rest, path + std::string(token) + "/", nextId, group.fMembers);
        members.push_back({std::move(group)});
    }

    void AddCategory(std::string_view token, const std::string& path, int& nextId,
                     std::list<document::Member>& members) {
        Notes notes;
        const std::string label = ReadNoted(token, notes);
        const std::string words(token.substr(0, token.find('*')));
        fIds.back().emplace(path + words, nextId);
        fIds.back().emplace(words, nextId);
        members.push_back({document::Category{nextId++, MakeText(label), std::move(notes)}});
    }

    void ReadCell(std::string_view token) {
        document::Cell cell;
        const std::size_t equals = token.find('=');
        std::size_t dimension = 0;
        for (std::string_view category : Split(token.substr(0, equals), ',')) {
            if (category.empty()) continue;
            cell.fvAt.push_back(FindId(dimension, category));
            ++dimension;
        }
        cell.fContent = MakeContent(ReadNoted(token.substr(equals + 1), cell.fvNotes));
        fTable.fvCells.push_back(std::move(cell));
    }

    int FindId(std::size_t dimension, std::string_view category) const {
        if (category == "-") return document::kNoCategory;
        if (category.starts_with('#')) return ReadInteger(category.substr(1));
        return fIds.at(dimension).at(std::string(category));
    }

    static std::string ReadNoted(std::string_view token, Notes& notes) {
        const std::vector<std::string_view> parts = Split(token, '*');
        for (std::size_t note = 1; note < parts.size(); ++note) notes.push_back(MakeText(Spell(parts[note])));
        return Spell(parts[0]);
    }

    document::Table fTable{};
    std::vector<std::map<std::string, int, std::less<>>> fIds;
};

}  // namespace

document::Table SketchTable(std::string_view sketch) { return Sketcher().Read(sketch); }

document::Text MakeText(std::string_view words) {
    return {std::string(words), document::StringSource{std::string(words), false}};
}

}  // namespace hierfit::test
