#include "report/html/HtmlItems.h"

#include <algorithm>

#include "host/document/SpellPlace.h"
#include "report/html/ChartFigure.h"
#include "report/html/Repeats.h"
#include "report/html/Words.h"
#include "report/html/table/HtmlTable.h"
#include "report/layout/ShownTable.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

namespace {

// The page's title is an h1, and there is no h7.
int HeadingLevel(int depth) { return std::min(depth + 2, 6); }

class ItemWriter {
  public:
    ItemWriter(std::string& out, FullValues values) : fOut(out), fValues(values) {}

    void Append(const items::Entry& entry, const Repeat& repeat) {
        CloseSections(entry.fDepth);
        fpEntry = &entry;
        fRepeat = repeat;
        std::visit(*this, entry.fpItem->fContent);
    }

    void CloseSections(int depth) {
        for (; fDepth > depth; --fDepth) fOut += "</details>\n</section>\n";
    }

    void operator()(const document::Heading&) {
        const std::string level = std::to_string(HeadingLevel(fDepth));
        fOut.append("<section id=\"").append(fpEntry->fAnchor).append("\">\n<a class=\"skip\" href=\"#");
        fOut.append(kContentsAnchor).append("\">").append(words::kContents).append("</a>\n");
        fOut.append("<details open class=\"fold\"><summary><h").append(level).append(">");
        AppendText(fOut, items::TitleOf(*fpEntry->fpItem));
        fOut.append("</h").append(level).append("></summary>\n");
        ++fDepth;
    }

    void operator()(const document::Table& table) {
        if (fRepeat.fpFirst) BeginRepeat();
        AppendTable(fOut, table, items::TitleOf(*fpEntry->fpItem), fpEntry->fAnchor, ++fTables, fValues);
        if (fRepeat.fpFirst) fOut += "</details>\n";
    }

    void operator()(const document::Chart& chart) {
        AppendChart(fOut, chart, {items::TitleOf(*fpEntry->fpItem), fpEntry->fAnchor, fTables + 1});
        fTables += static_cast<int>(FindShownTables(chart.fPicture).size());
    }

    void operator()(const document::Message& message) {
        const words::Level& level = words::LevelOf(message.fLevel);
        fOut.append("<p class=\"message ").append(level.fClass).append("\" id=\"").append(fpEntry->fAnchor);
        fOut.append("\"><strong>").append(level.fWord).append("</strong> ");
        AppendText(fOut, message.fText.fWords);
        fOut += "</p>\n";
    }

  private:
    /// Says where the table stood, and folds it.
    void BeginRepeat() {
        fOut += "<p class=\"repeat\">";
        AppendText(fOut, items::TitleOf(*fpEntry->fpItem));
        fOut.append(words::kSameTable).append("<a href=\"#").append(fRepeat.fpFirst->fAnchor).append("\">");
        AppendText(fOut, items::TitleOf(*(fRepeat.fpHeading ? fRepeat.fpHeading : fRepeat.fpFirst)->fpItem));
        fOut.append("</a>.</p>\n<details class=\"repeat\"><summary>").append(words::kShowHere).append("</summary>\n");
    }

    std::string& fOut;
    FullValues fValues;
    const items::Entry* fpEntry = nullptr;
    Repeat fRepeat;
    int fDepth = 0;  ///< open sections
    int fTables = 0;
};

void AppendDiagnostic(std::string& out, const document::Document& document, const document::Diagnostic& diagnostic) {
    const words::Level& level = words::LevelOf(diagnostic.fLevel);
    out.append("<li class=\"").append(level.fClass).append("\"><strong>").append(level.fWord).append("</strong> ");
    AppendText(out, diagnostic.fText);
    if (diagnostic.fPlace) {
        out += " <span class=\"place\">";
        AppendText(out, document::SpellPlace(document, *diagnostic.fPlace));
        out += "</span>";
    }
    out += "</li>\n";
}

}  // namespace

void AppendItems(std::string& out, const std::vector<items::Entry>& entries, FullValues values) {
    ItemWriter writer(out, values);
    const std::vector<Repeat> repeats = FindRepeats(entries);
    for (std::size_t at = 0; at < entries.size(); ++at) writer.Append(entries[at], repeats[at]);
    writer.CloseSections(0);
}

void AppendDiagnostics(std::string& out, const document::Document& document) {
    if (document.fvDiagnostics.empty()) return;
    out.append("<section class=\"diagnostics\" id=\"").append(kDiagnosticsAnchor).append("\">\n<h2>");
    out.append(items::kDiagnostics).append("</h2>\n<ul>\n");
    for (const document::Diagnostic& diagnostic : document.fvDiagnostics) AppendDiagnostic(out, document, diagnostic);
    out += "</ul>\n</section>\n";
}

}  // namespace hierfit::report::html
