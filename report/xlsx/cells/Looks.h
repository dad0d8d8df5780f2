#pragma once

#include <array>
#include <map>
#include <vector>

#include "report/xlsx/book/Book.h"
#include "report/xlsx/cells/NumberCodes.h"

namespace hierfit::report::xlsx {

/// The looks of a book's cells, each added once.
class Looks {
  public:
    explicit Looks(Book& book) : fBook(book) {}

    int Of(const Look& look);

    /// That of a figure: a number format by index, and the look of its row.
    int OfNumber(int code, const Look& row);

    NumberCodes& GetCodes() { return fCodes; }

  private:
    Book& fBook;
    NumberCodes fCodes;
    std::map<Look, int> fLooks;
    std::array<std::vector<int>, 8> fNumbers;  ///< by look of the row, then number format; -1: none yet
};

}  // namespace hierfit::report::xlsx
