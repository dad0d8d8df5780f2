#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::html {

/// The lettered notes of one table: the marks in its cells and the lines below it, linked both ways.
class NoteMarks {
  public:
    /// The prefix is the table's own on its page.
    NoteMarks(std::string prefix, const std::vector<Note>& notes);

    /// Appends the marks of one cell, by index of the notes.
    void AppendMarks(std::string& out, const std::vector<int>& notes);

    /// Appends the notes themselves. A line leads back to the first mark that was appended for it. One whose marks all
    /// stand in rows that may be folded is folded with them.
    void AppendLines(std::string& out, const std::vector<bool>& folded) const;

  private:
    void AppendMark(std::string& out, std::size_t note);

    std::string fPrefix;
    const std::vector<Note>& fvNotes;
    std::vector<bool> fvMarked;
};

}  // namespace hierfit::report::html
