#pragma once

#include <list>
#include <string_view>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::program {

/// The items of a list and of the headings in it, by what they are. The list must outlive it.
class ItemIndex {
  public:
    explicit ItemIndex(const std::list<document::Item>& items) { Visit(items); }

    const std::vector<const document::Heading*>& Headings() const { return fvHeadings; }
    const std::vector<const document::Chart*>& Charts() const { return fvCharts; }
    const std::vector<const document::Message*>& Messages() const { return fvMessages; }
    bool HasTables() const { return !fvTables.empty(); }

    /// The first table of a subtype, null when there is none.
    const document::Table* FindTable(std::string_view subtype) const;
    std::vector<const document::Table*> TablesOf(std::string_view subtype) const;

    /// Whether there is a chart of a template, told by how its name begins.
    bool HasChart(std::string_view templateName) const;

  private:
    void Visit(const std::list<document::Item>& items);

    std::vector<const document::Heading*> fvHeadings;
    std::vector<const document::Table*> fvTables;
    std::vector<const document::Chart*> fvCharts;
    std::vector<const document::Message*> fvMessages;
};

}  // namespace hierfit::program
