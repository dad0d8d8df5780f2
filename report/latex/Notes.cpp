#include "report/latex/Notes.h"

#include <algorithm>

#include "report/latex/TablePlan.h"

namespace hierfit::report::latex {

void Notes::BeginPart() {
    for (const int note : fvMarked) fvAreMarked[static_cast<std::size_t>(note)] = false;
    fvMarked.clear();
}

void Notes::AppendShown(std::string& out, std::string_view words, const TextPlace& place) {
    if (words.size() <= kMostOfCell) return AppendText(out, words, place, fScripts);
    AppendText(out, ShownInCell(words), place, fScripts);
    out += MarkLongText(words);
}

// The same text has one number, so that the parts of a table mark it alike.
std::string Notes::MarkLongText(std::string_view words) {
    const auto [place, isNew] = fNumbers.emplace(words.data(), fvLongTexts.size() + 1);
    if (isNew) fvLongTexts.push_back(words);
    return "\\textsuperscript{" + std::to_string(place->second) + "}";
}

std::string Notes::MarkUp(const std::vector<int>& notes) {
    if (notes.empty()) return {};
    for (const int note : notes) {
        if (!fvAreMarked[static_cast<std::size_t>(note)]) fvMarked.push_back(note);
        fvAreMarked[static_cast<std::size_t>(note)] = true;
    }
    return "\\tnote{" + SpellMarks(notes, fGrid) + "}";
}

void Notes::AppendItem(std::string& out, std::string_view option, std::string_view words) {
    out.append("\\item").append(option).append(option == "[]" ? " " : "\\,");
    AppendShown(out, words, kProse);
    out += '\n';
}

std::string Notes::MakeItems(bool isLast) {
    std::string items;
    if (isLast) {
        for (const document::Text& caption : fGrid.fpTable->fvCaptions) AppendItem(items, "[]", caption.fWords);
        for (const document::Text& note : fGrid.fpTable->fvNotes) AppendItem(items, "[]", note.fWords);
    }
    std::ranges::sort(fvMarked);
    for (const int marked : fvMarked) {
        const Note& note = fGrid.fvNotes[static_cast<std::size_t>(marked)];
        AppendItem(items, "[" + note.fLetter + "]", note.fpText->fWords);
    }
    return items;
}

void Notes::AppendLongTexts(std::string& out) const {
    for (std::size_t at = 0; at < fvLongTexts.size(); ++at) {
        out.append("\n\\noindent\\textsuperscript{").append(std::to_string(at + 1)).append("}~");
        AppendText(out, fvLongTexts[at], kProse, fScripts);
        out += '\n';
    }
}

}  // namespace hierfit::report::latex
