#include "Documents.h"

namespace hierfit::test {

namespace {

using document::Dimension;
using document::Member;

// Adds a path of groups and a label, "a|b|label", to members.
void AddPath(std::list<Member>& members, const std::string& path, int id) {
    const std::size_t bar = path.find('|');
    if (bar == std::string::npos) {
        members.push_back({document::Category{id, Words(path), {}}});
        return;
    }
    const std::string label = path.substr(0, bar);
    auto* last = members.empty() ? nullptr : std::get_if<document::Group>(&members.back().fContent);
    if (!last || last->fLabel.fWords != label) {
        members.push_back({document::Group{Words(label), true, 2, {}}});
        last = &std::get<document::Group>(members.back().fContent);
    }
    AddPath(last->fMembers, path.substr(bar + 1), id);
}

int CountCategories(const std::list<Member>& members) {
    int count = 0;
    for (const Member& member : members) {
        const auto* group = std::get_if<document::Group>(&member.fContent);
        count += group ? CountCategories(group->fMembers) : 1;
    }
    return count;
}

}  // namespace

document::Text Words(std::string words) {
    document::StringSource source{words, true};
    return {std::move(words), std::move(source)};
}

document::Text Number(std::string words) {
    return {std::move(words), document::NumberSource{0, {document::FormatName::GeneralStat}}};
}

document::Text Data(std::string words) {
    const bool isNumber = !words.empty() && std::string("0123456789.-<").find(words.front()) != std::string::npos;
    return isNumber ? Number(std::move(words)) : Words(std::move(words));
}

Dimension MakeDimension(const std::string& name, document::Side side, int index,
                        const std::vector<std::string>& labels) {
    Dimension dimension{Words(name), 2, true, side, index, name.empty(), false, {}};
    int id = 0;
    for (const std::string& label : labels) AddPath(dimension.fMembers, label, id++);
    return dimension;
}

document::Table MakeTable(const std::string& title, std::vector<Dimension> dimensions,
                          const std::vector<std::string>& cells) {
    document::Table table{Words(title), Words(title), true, {}, {}, {}, std::move(dimensions), {}};
    std::erase(std::get<document::StringSource>(table.fSubtype.fFrom).fString, ' ');
    std::vector<int> counts;
    for (const Dimension& dimension : table.fvDimensions) counts.push_back(CountCategories(dimension.fMembers));
    std::vector<int> at(counts.size());
    for (const std::string& words : cells) {
        if (!words.empty()) table.fvCells.push_back({at, Data(words), {}});
        for (std::size_t dimension = at.size(); dimension-- > 0;) {
            if (++at[dimension] < counts[dimension]) break;
            at[dimension] = 0;
        }
    }
    return table;
}

document::Document MakeDocument(const std::string& title, std::list<document::Item> items) {
    return {"hierfit 0.1.0", "en", title, {"model.pmml", "model.statxml"}, std::move(items), {}};
}

}  // namespace hierfit::test
