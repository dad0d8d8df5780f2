#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/Text.h"
#include "report/xlsx/cells/Looks.h"

namespace hierfit::report::xlsx {

/// What a workbook shares among its sheets, and says of itself on the first one.
struct BookParts {
    Book& fBook;
    Looks& fLooks;
    std::vector<std::string> fvRemarks;
};

/// Puts texts and numbers on one sheet: whatever a text holds it stands in its cell as a text, and one that is too long
/// is cut with a remark.
class SheetWriter {
  public:
    SheetWriter(BookParts& parts, Sheet& sheet, std::string name)
        : fParts(parts), fSheet(sheet), fName(std::move(name)) {}

    Sheet& GetSheet() { return fSheet; }

    void PutBlanks(int row, int firstColumn, int lastColumn, const Look& look);
    void PutWords(int row, int column, std::string_view words, const Look& look);

    /// One cell over several columns.
    void PutWide(int row, int firstColumn, int lastColumn, std::string_view words, const Look& look);

    /// A number or a text, whichever it is, with marks of notes behind it. A missing number is no cell.
    void PutText(int row, int column, const document::Text& text, const std::string& marks, const Look& look);

    /// A paragraph over the columns from the first on, and the height that it takes in their common width.
    void PutParagraph(int row, int lastColumn, double width, std::string_view words, const Look& look);

  private:
    std::string Fit(int row, int column, std::string_view words);

    BookParts& fParts;
    Sheet& fSheet;
    std::string fName;
};

/// The number that a text shows, if it shows one: not finite where it is missing. Numbers that are too large for
/// spreadsheets are texts.
std::optional<double> NumberOf(const document::Text& text);

}  // namespace hierfit::report::xlsx
