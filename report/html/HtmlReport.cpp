#include "report/html/HtmlReport.h"

#include <utility>
#include <variant>

#include "report/html/Assets.h"
#include "report/html/Contents.h"
#include "report/html/HtmlItems.h"
#include "report/html/PageHead.h"
#include "report/html/Words.h"
#include "report/markup/Escape.h"
#include "report/markup/LanguageTag.h"

namespace hierfit::report {

namespace {

// A page of more items is laid out as its parts come into view.
constexpr std::size_t kMany = 60;

// The script finds its words at the body, so that all words of the page come from one place.
constexpr std::pair<std::string_view, std::string_view> kScriptWords[] = {
    {"copy", html::words::kCopy},
    {"copied", html::words::kCopied},
    {"not-copied", html::words::kNotCopied},
    {"save", html::words::kSave},
    {"not-saved", html::words::kNotSaved},
    {"more", html::words::kMoreWays},
    {"as-table", html::words::kAsTable},
    {"as-markdown", html::words::kAsMarkdown},
    {"as-latex", html::words::kAsLatex},
    {"as-csv", html::words::kAsCsv},
    {"csv", html::words::kSaveCsv},
    {"svg", html::words::kSaveSvg},
    {"png", html::words::kSavePng},
    {"values", html::words::kCopyValues},
    {"way", html::words::kWay},
};

void AppendBodyTag(std::string& out, Scripts scripts) {
    out += "<body";
    if (scripts == Scripts::Yes) {
        for (const auto& [name, word] : kScriptWords) {
            out.append(" data-").append(name).append("=\"").append(word).append("\"");
        }
    }
    out += ">\n";
}

void AppendFooter(std::string& out, const document::Document& document) {
    if (document.fProducer.empty()) return;
    out += "<footer>";
    AppendText(out, document.fProducer);
    out += "</footer>\n";
}

/// Room for the page, so that it need not move as it grows: tables are most of a large one. What is not used takes no
/// memory.
std::size_t RoomFor(const std::vector<items::Entry>& entries) {
    constexpr std::size_t kPerItem = 40'000;
    constexpr std::size_t kPerCell = 128;
    return kPerItem * (entries.size() + 10) + kPerCell * items::CountCells(entries);
}

}  // namespace

std::string MakeHtmlReport(const document::Document& document, const HtmlSettings& settings) {
    const std::vector<items::Entry> entries = items::ListEntries(document);
    const html::Facts facts = html::FindFacts(entries);
    std::string out;
    out.reserve(RoomFor(entries));
    out.append("<!DOCTYPE html>\n<html lang=\"")
        .append(MakeLanguageTag(document.fLanguage))
        .append("\" data-running=\"");
    AppendCharacters(out, html::RunningTitle(document, facts, settings));
    out += "\" data-producer=\"";
    AppendCharacters(out, document.fProducer);
    out += "\">\n";
    html::AppendHead(out, document, facts, settings);
    AppendBodyTag(out, settings.fScripts);
    html::AppendHeader(out, document, entries, facts, settings);
    html::AppendContents(out, entries, !document.fvDiagnostics.empty());
    out += entries.size() > kMany ? "<main id=\"main\" class=\"many\">\n" : "<main id=\"main\">\n";
    html::AppendItems(out, entries, settings.fValues);
    html::AppendDiagnostics(out, document);
    out += "</main>\n";
    AppendFooter(out, document);
    if (settings.fScripts == Scripts::Yes) out.append("<script>").append(html::Script().fText).append("</script>\n");
    out += "</body>\n</html>\n";
    return out;
}

}  // namespace hierfit::report
