#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/layout/GridParts.h"

namespace hierfit::report {

/// Gives notes their letters in the order in which they are met. The same words have one letter. It points into the
/// texts, which must outlive it.
class NoteLetters {
  public:
    /// Indices of the notes in the list of all notes, each once.
    std::vector<int> Add(const std::vector<document::Text>& notes);

    std::vector<Note> TakeNotes() { return std::move(fvNotes); }

  private:
    int AddOne(const document::Text& note);

    std::vector<Note> fvNotes;
    std::unordered_map<std::string_view, int> fIndices;
};

}  // namespace hierfit::report
