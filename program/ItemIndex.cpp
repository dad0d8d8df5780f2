#include "ItemIndex.h"

#include <algorithm>
#include <variant>

#include "TableLookup.h"

namespace hierfit::program {

const document::Table* ItemIndex::FindTable(std::string_view subtype) const {
    const auto found = std::ranges::find_if(
        fvTables, [&](const document::Table* table) { return SourceOf(table->fSubtype) == subtype; });
    return found == fvTables.end() ? nullptr : *found;
}

std::vector<const document::Table*> ItemIndex::TablesOf(std::string_view subtype) const {
    std::vector<const document::Table*> tables;
    for (const document::Table* table : fvTables) {
        if (SourceOf(table->fSubtype) == subtype) tables.push_back(table);
    }
    return tables;
}

bool ItemIndex::HasChart(std::string_view templateName) const {
    return std::ranges::any_of(
        fvCharts, [&](const document::Chart* chart) { return chart->fTemplate.starts_with(templateName); });
}

void ItemIndex::Visit(const std::list<document::Item>& items) {
    for (const document::Item& item : items) {
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) {
            fvHeadings.push_back(heading);
            Visit(heading->fItems);
        } else if (const auto* table = std::get_if<document::Table>(&item.fContent)) {
            fvTables.push_back(table);
        } else if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) {
            fvCharts.push_back(chart);
        } else {
            fvMessages.push_back(&std::get<document::Message>(item.fContent));
        }
    }
}

}  // namespace hierfit::program
