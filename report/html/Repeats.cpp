#include "report/html/Repeats.h"

#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>

namespace hierfit::report::html {

namespace {

using document::Table;

constexpr std::size_t kFewestCells = 16;

class Hash {
  public:
    void Add(std::string_view words) { AddNumber(std::hash<std::string_view>()(words)); }
    void AddNumber(std::size_t number) { fValue = (fValue ^ number) * 0x9E3779B97F4A7C15u; }

    void Add(const std::list<document::Member>& members) {
        for (const document::Member& member : members) {
            if (const auto* group = std::get_if<document::Group>(&member.fContent)) {
                Add(group->fLabel.fWords);
                Add(group->fMembers);
            } else {
                Add(std::get<document::Category>(member.fContent).fLabel.fWords);
            }
        }
    }

    std::size_t Get() const { return fValue; }

  private:
    std::size_t fValue = 0;
};

/// By what is at hand at once.
std::size_t RoughHashOf(const Table& table) {
    Hash hash;
    hash.Add(table.fTitle.fWords);
    hash.AddNumber(table.fvCells.size());
    return hash.Get();
}

/// By all words but notes.
std::size_t HashOf(const Table& table) {
    Hash hash;
    hash.Add(table.fTitle.fWords);
    for (const document::Dimension& dimension : table.fvDimensions) {
        hash.Add(dimension.fName.fWords);
        hash.Add(dimension.fMembers);
    }
    for (const document::Cell& cell : table.fvCells) hash.Add(cell.fContent.fWords);
    return hash.Get();
}

const Table* TableIn(const items::Entry& entry) {
    const auto* table = std::get_if<Table>(&entry.fpItem->fContent);
    return table && table->fvCells.size() >= kFewestCells ? table : nullptr;
}

/// For each entry its nearest heading.
std::vector<const items::Entry*> FindHeadings(const std::vector<items::Entry>& entries) {
    std::vector<const items::Entry*> headings;
    std::vector<const items::Entry*> open;
    for (const items::Entry& entry : entries) {
        open.resize(static_cast<std::size_t>(entry.fDepth));
        headings.push_back(open.empty() ? nullptr : open.back());
        if (std::holds_alternative<document::Heading>(entry.fpItem->fContent)) open.push_back(&entry);
    }
    return headings;
}

}  // namespace

std::vector<Repeat> FindRepeats(const std::vector<items::Entry>& entries) {
    const std::vector<const items::Entry*> headings = FindHeadings(entries);
    std::unordered_map<std::size_t, int> counts;
    for (const items::Entry& entry : entries) {
        if (const Table* table = TableIn(entry)) ++counts[RoughHashOf(*table)];
    }
    std::unordered_map<std::size_t, Repeat> firsts;
    std::vector<Repeat> repeats(entries.size());
    for (std::size_t at = 0; at < entries.size(); ++at) {
        const Table* table = TableIn(entries[at]);
        if (!table || counts[RoughHashOf(*table)] < 2) continue;
        const auto [place, isFirst] = firsts.try_emplace(HashOf(*table), Repeat{&entries[at], headings[at]});
        if (!isFirst && *TableIn(*place->second.fpFirst) == *table) repeats[at] = place->second;
    }
    return repeats;
}

}  // namespace hierfit::report::html
