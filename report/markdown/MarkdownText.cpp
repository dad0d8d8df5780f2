#include "report/markdown/MarkdownText.h"

#include "report/text/VisibleText.h"

namespace hierfit::report::markdown {

namespace {

constexpr std::string_view kMarkup = "\\`*_[]<>|~$&";

/// What would begin a list, a rule or a heading at the beginning of a line: a sign there, or digits before one.
std::size_t FindLineMark(std::string_view text) {
    const std::size_t digits = text.find_first_not_of("0123456789");
    if (digits == std::string_view::npos) return digits;
    const std::string_view signs = digits == 0 ? "+-=:#" : ".)";
    return signs.find(text[digits]) == std::string_view::npos ? std::string_view::npos : digits;
}

}  // namespace

void AppendText(std::string& out, std::string_view text) {
    for (const char byte : MakeVisible(text)) {
        if (byte == '\n') {
            out += "<br>";
            continue;
        }
        if (kMarkup.find(byte) != std::string_view::npos) out += '\\';
        out += byte;
    }
}

void AppendParagraph(std::string& out, std::string_view text) {
    const std::size_t mark = FindLineMark(text);
    if (mark != std::string_view::npos) {
        out.append(text.substr(0, mark)).append("\\");
        out += text[mark];
        text.remove_prefix(mark + 1);
    }
    AppendText(out, text);
}

}  // namespace hierfit::report::markdown
