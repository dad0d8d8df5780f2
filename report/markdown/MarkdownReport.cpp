#include "report/markdown/MarkdownReport.h"

#include <algorithm>

#include "host/document/SpellPlace.h"
#include "report/items/Entries.h"
#include "report/items/Words.h"
#include "report/markdown/MarkdownTable.h"
#include "report/markdown/MarkdownText.h"

namespace hierfit::report {

namespace {

using markdown::AppendText;

constexpr int kDeepestHeading = 6;

/// Writes items one after the other, with an empty line between them.
class Writer {
  public:
    Writer(std::string& out, const MarkdownSettings& settings) : fOut(out), fSettings(settings) {}

    void Append(const items::Entry& entry) {
        const bool isChart = std::holds_alternative<document::Chart>(entry.fpItem->fContent);
        if (isChart && fSettings.fChartFolder.empty()) return;
        fOut += '\n';
        fpEntry = &entry;
        std::visit(*this, entry.fpItem->fContent);
    }

    void operator()(const document::Heading&) {
        fOut.append(static_cast<std::size_t>(std::min(fpEntry->fDepth + 2, kDeepestHeading)), '#').append(" ");
        AppendText(fOut, items::TitleOf(*fpEntry->fpItem));
        fOut += '\n';
    }

    void operator()(const document::Table& table) {
        AppendTitle();
        markdown::AppendTable(fOut, table);
    }

    void operator()(const document::Chart& chart) {
        AppendTitle();
        fOut += "![";
        AppendText(fOut, chart.fPicture.fSentence);
        fOut += "](<";
        AppendText(fOut, fSettings.fChartFolder);
        fOut.append("/").append(fpEntry->fAnchor).append(".svg>)\n");
    }

    void operator()(const document::Message& message) {
        fOut.append("> **").append(items::WordOfLevel(message.fLevel)).append(":** ");
        AppendText(fOut, message.fText.fWords);
        fOut += '\n';
    }

  private:
    void AppendTitle() {
        fOut += "**";
        AppendText(fOut, items::TitleOf(*fpEntry->fpItem));
        fOut += "**\n\n";
    }

    std::string& fOut;
    const MarkdownSettings& fSettings;
    const items::Entry* fpEntry = nullptr;
};

void AppendDiagnostics(std::string& out, const document::Document& document) {
    if (document.fvDiagnostics.empty()) return;
    out.append("\n## ").append(items::kDiagnostics).append("\n\n");
    for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
        out.append("- **").append(items::WordOfLevel(diagnostic.fLevel)).append(":** ");
        AppendText(out, diagnostic.fText + document::SpellPlaceBehind(document, diagnostic));
        out += '\n';
    }
}

}  // namespace

std::string MakeMarkdownReport(const document::Document& document, const MarkdownSettings& settings) {
    std::string out = "# ";
    AppendText(out, settings.fTitle.empty() ? items::TitleOf(document) : settings.fTitle);
    out += '\n';
    if (!settings.fAuthor.empty()) {
        out += '\n';
        markdown::AppendParagraph(out, settings.fAuthor);
        out += '\n';
    }
    Writer writer(out, settings);
    for (const items::Entry& entry : items::ListEntries(document)) writer.Append(entry);
    AppendDiagnostics(out, document);
    return out;
}

}  // namespace hierfit::report
