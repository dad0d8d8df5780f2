#pragma once

#include <map>
#include <vector>

#include "report/xlsx/Book.h"
#include "report/xlsx/NumberCodes.h"

namespace hierfit::report::xlsx {

/// The looks of a book's cells, each added once.
class Looks {
  public:
    explicit Looks(Book& book) : fBook(book) {}

    int Of(const Look& look);

    /// That of a figure: a number format by index, and the rule below it.
    int OfNumber(int code, Rule below);

    NumberCodes& GetCodes() { return fCodes; }

  private:
    Book& fBook;
    NumberCodes fCodes;
    std::map<Look, int> fLooks;
    std::vector<int> fvNumbers;       ///< by number format; -1 where there is none yet
    std::vector<int> fvRuledNumbers;  ///< the same with a rule below
};

}  // namespace hierfit::report::xlsx
