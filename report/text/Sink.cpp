#include "report/text/Sink.h"

#include <algorithm>

#include "report/text/VisibleText.h"

namespace hierfit::report {

namespace {

// Select Graphic Rendition parameters of each role; empty for the terminal's own.
constexpr std::string_view kRenditions[] = {"", "1", "1;36", "1", "2", "36", "33", "1;31"};

// A paragraph is not squeezed to less behind its lead.
constexpr int kLeastRoom = 20;

std::string_view RenditionOf(Role role) { return kRenditions[static_cast<std::size_t>(role)]; }

}  // namespace

void Sink::PutAt(int column, Role role, std::string_view text) {
    if (text.find_first_not_of(' ') == std::string_view::npos) return;
    if (column > fWidth) fText.append(static_cast<std::size_t>(column - fWidth), ' ');
    fWidth = (column > fWidth ? column : fWidth) + MeasureWidth(text);
    const std::string_view rendition = fColor ? RenditionOf(role) : std::string_view();
    if (rendition.empty()) {
        fText += text;
        return;
    }
    fText.append("\x1B[").append(rendition).append("m").append(text).append("\x1B[0m");
}

void Sink::EndLine() {
    fText += '\n';
    fWidth = 0;
}

void Sink::PutRule(int column, int width, std::string_view character) {
    std::string rule;
    for (int i = 0; i < width; ++i) rule += character;
    PutAt(column, Role::Rule, rule);
}

void Sink::WriteParagraph(Role role, std::string_view lead, std::string_view text, int width) {
    const int indent = MeasureWidth(lead);
    const int room = width > 0 ? std::max(width - indent, kLeastRoom) : 0;
    Put(role, lead);
    for (const std::string& line : WrapLines(text, room)) {
        PutAt(indent, lead.empty() ? role : Role::Plain, line);
        EndLine();
    }
}

void Sink::PartItems() {
    if (!fText.empty() && !fText.ends_with("\n\n")) fText += '\n';
}

}  // namespace hierfit::report
