#include "report/layout/NoteLetters.h"

#include <algorithm>

namespace hierfit::report {

namespace {

// a, b, ..., z, aa, ab, ...
std::string MakeLetter(std::size_t index) {
    std::string letter;
    for (std::size_t rest = index + 1; rest > 0; rest = (rest - 1) / 26) {
        letter.insert(letter.begin(), static_cast<char>('a' + (rest - 1) % 26));
    }
    return letter;
}

}  // namespace

std::vector<int> NoteLetters::Add(const std::vector<document::Text>& notes) {
    std::vector<int> indices;
    for (const document::Text& note : notes) {
        const int index = AddOne(note);
        if (std::find(indices.begin(), indices.end(), index) == indices.end()) indices.push_back(index);
    }
    return indices;
}

int NoteLetters::AddOne(const document::Text& note) {
    const auto [place, isNew] = fIndices.emplace(note.fWords, static_cast<int>(fvNotes.size()));
    if (isNew) fvNotes.push_back({MakeLetter(fvNotes.size()), &note});
    return place->second;
}

}  // namespace hierfit::report
