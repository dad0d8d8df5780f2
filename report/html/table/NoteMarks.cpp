#include "report/html/table/NoteMarks.h"

#include "report/markup/Escape.h"

namespace hierfit::report::html {

NoteMarks::NoteMarks(std::string prefix, const std::vector<Note>& notes)
    : fPrefix(std::move(prefix)), fvNotes(notes), fvMarked(notes.size()) {}

void NoteMarks::AppendMarks(std::string& out, const std::vector<int>& notes) {
    if (notes.empty()) return;
    out += "<sup>";
    for (const int note : notes) {
        if (note != notes.front()) out += ", ";
        AppendMark(out, static_cast<std::size_t>(note));
    }
    out += "</sup>";
}

void NoteMarks::AppendMark(std::string& out, std::size_t note) {
    const std::string& letter = fvNotes[note].fLetter;
    out.append("<a href=\"#").append(fPrefix).append("n").append(letter);
    if (!fvMarked[note]) out.append("\" id=\"").append(fPrefix).append("m").append(letter);
    out.append("\" role=\"doc-noteref\">").append(letter).append("</a>");
    fvMarked[note] = true;
}

void NoteMarks::AppendLines(std::string& out, const std::vector<bool>& folded) const {
    for (std::size_t note = 0; note < fvNotes.size(); ++note) {
        const std::string& letter = fvNotes[note].fLetter;
        out.append("<p class=\"note")
            .append(folded[note] ? " z" : "")
            .append("\" id=\"")
            .append(fPrefix)
            .append("n")
            .append(letter)
            .append("\"><sup>");
        if (fvMarked[note]) {
            out.append("<a href=\"#").append(fPrefix).append("m").append(letter);
            out.append("\" role=\"doc-backlink\">").append(letter).append("</a>");
        } else {
            out += letter;
        }
        out += "</sup> ";
        AppendText(out, fvNotes[note].fpText->fWords);
        out += "</p>\n";
    }
}

}  // namespace hierfit::report::html
