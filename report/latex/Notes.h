#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/latex/LatexText.h"
#include "report/layout/Grid.h"

namespace hierfit::report::latex {

/// What stands below a table: its captions and notes, the lettered notes that it marks, and behind it the texts that
/// are too long to stand in it, which numbers mark.
class Notes {
  public:
    Notes(const Grid& grid, Scripts& scripts) : fGrid(grid), fScripts(scripts), fvAreMarked(grid.fvNotes.size()) {}

    /// Begins a part of the table: its own marks alone are explained below it.
    void BeginPart();

    /// Appends words as they are shown in a cell or a title, and a mark where they are shown in part.
    void AppendShown(std::string& out, std::string_view words, const TextPlace& place);

    /// The marks of a cell as markup.
    std::string MarkUp(const std::vector<int>& notes);

    /// The items of `tablenotes`; none if empty. Captions and notes of the whole table stand below its last part.
    std::string MakeItems(bool isLast);

    /// Appends what follows the table.
    void AppendLongTexts(std::string& out) const;

  private:
    void AppendItem(std::string& out, std::string_view option, std::string_view words);
    std::string MarkLongText(std::string_view words);

    const Grid& fGrid;
    Scripts& fScripts;
    std::vector<bool> fvAreMarked;              ///< for each lettered note whether this part marks it
    std::vector<int> fvMarked;                  ///< those that it marks
    std::vector<std::string_view> fvLongTexts;  ///< by number, from 1
    std::unordered_map<const char*, std::size_t> fNumbers;
};

}  // namespace hierfit::report::latex
