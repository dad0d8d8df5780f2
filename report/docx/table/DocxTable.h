#pragma once

#include <string>
#include <string_view>

#include "host/document/Table.h"
#include "report/docx/table/TablePlan.h"
#include "report/layout/Grid.h"

namespace hierfit::report::docx {

/// A table with its caption above and its notes below. It points into the document's.
class DocxTable {
  public:
    explicit DocxTable(const document::Table& table);
    DocxTable(const DocxTable&) = delete;
    DocxTable& operator=(const DocxTable&) = delete;

    /// The kind of page that it stands on.
    Page GetPage() const { return fPlan.GetPage(); }

    /// `number` counts the tables of the file from 1.
    void Append(std::string& out, std::string_view title, int number) const;

  private:
    void AppendParts(std::string& out, int number) const;
    void AppendStart(std::string& out, const TablePart& part) const;
    void AppendBelow(std::string& out) const;
    std::size_t CountNotes() const;

    Grid fGrid;
    TablePlan fPlan;
};

}  // namespace hierfit::report::docx
