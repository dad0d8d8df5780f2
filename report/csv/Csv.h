#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"
#include "report/layout/Grid.h"

namespace hierfit::report {

/// A table as comma-separated values (RFC 4180, with line feeds), UTF-8: a header, then a record for each row. It has a
/// field for each level of row headers and one for each column. Numbers have all their digits, a missing one is an
/// empty field, what is no number "NaN", "Inf" or "-Inf".
std::string MakeCsvTable(const document::Table& table);

/// The names of a table's fields, those of row levels first, and none of them twice.
std::vector<std::string> NameFields(const Grid& grid);

/// The items of a document: name, kind, title, and of a table its file.
std::string MakeCsvIndex(const document::Document& document);

/// The file of a table of that name.
std::string NameCsvFile(const std::string& name);

}  // namespace hierfit::report
