#include "report/html/Contents.h"

#include "report/html/Words.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

using items::Entry;

namespace {

void AppendLink(std::string& out, std::string_view anchor, std::string_view before, std::string_view title,
                std::string_view after = {}) {
    out += "<a href=\"#";
    out += anchor;
    out += "\">";
    out += before;
    AppendText(out, title);
    out += after;
    out += "</a>";
}

void AppendEntry(std::string& out, const Entry& entry) {
    std::string level;
    if (const auto* message = std::get_if<document::Message>(&entry.fpItem->fContent)) {
        level = words::LevelOf(message->fLevel).fWord;
        level += ": ";
    }
    // Tables and their charts have the same titles.
    const bool isChart = std::holds_alternative<document::Chart>(entry.fpItem->fContent);
    AppendLink(out, entry.fAnchor, level, items::TitleOf(*entry.fpItem), isChart ? words::kIsChart : "");
}

// From an entry to one at another depth; an entry goes at most one deeper than the one before.
void AppendStep(std::string& out, int from, int to) {
    if (to > from) {
        out += "\n<ol>\n<li>";
        return;
    }
    for (; from > to; --from) out += "</li>\n</ol>\n";
    out += "</li>\n<li>";
}

}  // namespace

void AppendContents(std::string& out, const std::vector<Entry>& entries, bool hasDiagnostics) {
    if (entries.empty() && !hasDiagnostics) return;
    out.append("<nav id=\"").append(kContentsAnchor).append("\" aria-label=\"").append(words::kContents);
    out += "\">\n<details open>\n<summary>";
    out += words::kContents;
    out += "</summary>";
    int depth = -1;
    for (const Entry& entry : entries) {
        AppendStep(out, depth, entry.fDepth);
        AppendEntry(out, entry);
        depth = entry.fDepth;
    }
    if (hasDiagnostics) {
        AppendStep(out, depth, 0);
        AppendLink(out, kDiagnosticsAnchor, {}, items::kDiagnostics);
        depth = 0;
    }
    for (; depth >= 0; --depth) out += "</li>\n</ol>\n";
    out += "</details>\n</nav>\n";
}

}  // namespace hierfit::report::html
