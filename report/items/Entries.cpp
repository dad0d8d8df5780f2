#include "report/items/Entries.h"

#include "report/items/Anchors.h"
#include "report/items/Words.h"

namespace hierfit::report::items {

namespace {

class Lister {
  public:
    explicit Lister(std::vector<Entry>& entries) : fEntries(entries) {}

    void Add(const std::list<document::Item>& items, int depth) {
        for (const document::Item& item : items) {
            fEntries.push_back({&item, depth, item.fName.empty() ? fAnchors.Name(item) : item.fName});
            if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) Add(heading->fItems, depth + 1);
        }
    }

  private:
    std::vector<Entry>& fEntries;
    Anchors fAnchors;
};

std::string_view OrUntitled(std::string_view title) {
    return title.find_first_not_of(" \t\r\n") == std::string_view::npos ? Say(kUntitled) : title;
}

struct Title {
    std::string_view operator()(const document::Heading& heading) const { return heading.fTitle.fWords; }
    std::string_view operator()(const document::Table& table) const { return table.fTitle.fWords; }
    std::string_view operator()(const document::Chart& chart) const { return chart.fDescription; }
    std::string_view operator()(const document::Message& message) const { return message.fText.fWords; }
};

}  // namespace

std::vector<Entry> ListEntries(const document::Document& document) {
    std::vector<Entry> entries;
    Lister(entries).Add(document.fItems, 0);
    return entries;
}

std::size_t CountCells(const std::vector<Entry>& entries) {
    std::size_t cells = 0;
    for (const Entry& entry : entries) {
        const auto* table = std::get_if<document::Table>(&entry.fpItem->fContent);
        if (table) cells += table->fvCells.size();
    }
    return cells;
}

std::string_view KindOf(const document::Item& item) {
    static constexpr std::string_view kKinds[] = {"heading", "table", "chart", "message"};
    return kKinds[item.fContent.index()];
}

std::string_view TitleOf(const document::Item& item) { return OrUntitled(std::visit(Title{}, item.fContent)); }

std::string_view TitleOf(const document::Document& document) { return OrUntitled(document.fTitle); }

}  // namespace hierfit::report::items
