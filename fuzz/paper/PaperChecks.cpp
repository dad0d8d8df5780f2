#include "fuzz/paper/PaperChecks.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/Checks.h"

namespace hierfit::fuzz {

namespace {

/// Goes through the fields of a CSV file.
class CsvScan {
  public:
    explicit CsvScan(std::string_view text) : fText(text) {}

    bool IsAtEnd() const { return fAt == fText.size(); }

    std::size_t CountFields() {
        std::size_t count = 0;
        do {
            TakeField();
            ++count;
        } while (TakeIf(','));
        if (!TakeIf('\n')) Fail("something stands behind a field in quotes, or the last line is open");
        return count;
    }

  private:
    bool TakeIf(char sought) {
        const bool isThere = !IsAtEnd() && fText[fAt] == sought;
        if (isThere) ++fAt;
        return isThere;
    }

    void TakeField() {
        if (!TakeIf('"')) {
            fAt = std::min(fText.find_first_of(",\n\"\r", fAt), fText.size());
            return;
        }
        do {
            fAt = fText.find('"', fAt);
            if (fAt == std::string_view::npos) Fail("a field's quotes are not closed");
            ++fAt;
        } while (TakeIf('"'));
    }

    std::string_view fText;
    std::size_t fAt = 0;
};

/// How often a byte stands without a backslash of its own before it.
std::size_t CountPlain(std::string_view text, char sought) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == sought) ++count;
        if (text[at] == '\\') ++at;
    }
    return count;
}

/// The environment's name in braces behind a command, if that is the command here.
std::optional<std::string_view> NameBehind(std::string_view text, std::string_view command) {
    if (!text.starts_with(command)) return {};
    return text.substr(command.size(), text.find('}') - command.size());
}

}  // namespace

void CheckCsv(std::string_view csv) {
    CsvScan scan(csv);
    std::optional<std::size_t> fields;
    while (!scan.IsAtEnd()) {
        const std::size_t count = scan.CountFields();
        if (count != fields.value_or(count)) Fail("records of a CSV file have unequal numbers of fields");
        fields = count;
    }
}

void CheckMarkdown(std::string_view markdown) {
    std::size_t pipes = 0;  // of the lines of a table
    while (!markdown.empty()) {
        const std::size_t end = std::min(markdown.find('\n'), markdown.size());
        const std::string_view line = markdown.substr(0, end);
        markdown.remove_prefix(std::min(end + 1, markdown.size()));
        const std::size_t count = line.starts_with('|') ? CountPlain(line, '|') : 0;
        if (pipes > 0 && count > 0 && count != pipes)
            Fail("a table's line has more or fewer pipes:\n" + std::string(line));
        pipes = count;
    }
}

void CheckLatex(std::string_view latex) {
    std::vector<std::string_view> open;  // environments, and "{" for a brace
    const auto close = [&](std::string_view what) {
        if (open.empty() || open.back() != what) Fail("LaTeX closes what is not open: " + std::string(what));
        open.pop_back();
    };
    for (std::size_t at = 0; at < latex.size(); ++at) {
        const std::string_view rest = latex.substr(at);
        if (const auto begun = NameBehind(rest, "\\begin{")) {
            open.push_back(*begun);
            at += begun->size() + 7;
        } else if (const auto ended = NameBehind(rest, "\\end{")) {
            close(*ended);
            at += ended->size() + 5;
        } else if (latex[at] == '\\') {
            ++at;
        } else if (latex[at] == '%') {
            at = std::min(latex.find('\n', at), latex.size());
        } else if (latex[at] == '{') {
            open.emplace_back("{");
        } else if (latex[at] == '}') {
            close("{");
        }
    }
    if (!open.empty()) Fail("LaTeX leaves something open: " + std::string(open.back()));
}

}  // namespace hierfit::fuzz
