#pragma once

#include <string>
#include <vector>

#include "report/docx/DocxFile.h"

namespace hierfit::test {

/// One table of a file's text.
struct DrawnTable {
    int fColumns = 0;
    long fWidth = 0;  ///< in twentieths of a point
    /// Rows as texts parted by " | ": ">" and a number stand behind what spans columns, "^" is merged with the cell
    /// above, "#" before a row that is repeated as header; what is superscript stands in braces.
    std::vector<std::string> fvRows;
};

std::vector<DrawnTable> DrawTables(const std::string& text);

/// The paragraphs outside of tables, as "Style: words".
std::vector<std::string> DrawParagraphs(const std::string& text);

/// The runs of a text, in order, with "<" before those that are written from right to left.
std::vector<std::string> DrawRuns(const std::string& text);

/// The kinds of the text's sections: "upright" or "turned".
std::vector<std::string> DrawSections(const std::string& text);

/// The text of the file that a document of these items becomes; pictures in pixels are "PNG" and their scale.
std::vector<report::ArchiveFile> MakeFiles(std::list<document::Item> items, double mostScale = 20);
std::string MakeText(std::list<document::Item> items);

}  // namespace hierfit::test
