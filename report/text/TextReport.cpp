#include "report/text/TextReport.h"

#include <algorithm>

#include "host/document/SpellPlace.h"
#include "report/items/Words.h"
#include "report/text/ChartText.h"
#include "report/text/Sink.h"
#include "report/text/TableText.h"
#include "report/text/VisibleText.h"

namespace hierfit::report {

namespace {

constexpr std::string_view kDoubleRule = "\xE2\x95\x90";
constexpr std::string_view kHeavyRule = "\xE2\x94\x81";

Role RoleOf(int level) {
    constexpr Role kRoles[] = {Role::Information, Role::Warning, Role::Error};
    return kRoles[std::clamp(level, 1, 3) - 1];
}

std::string LeadOf(int level) { return std::string(items::WordOfLevel(level)) + ": "; }

/// Writes the items of a document one after the other.
class Writer {
  public:
    Writer(const document::Document& document, const TextOptions& options)
        : fDocument(document),
          fWidth(std::max(options.fWidth, 0)),
          fHasChartValues(options.fHasChartValues),
          fSink(options.fColor) {}

    std::string Write() {
        if (!fDocument.fTitle.empty()) WriteTitle(fDocument.fTitle, kDoubleRule);
        WriteItems(fDocument.fItems);
        if (!fDocument.fvDiagnostics.empty()) WriteDiagnostics();
        return fSink.Take();
    }

  private:
    void WriteItems(const std::list<document::Item>& items) {
        for (const document::Item& item : items) {
            fSink.PartItems();
            std::visit([this](const auto& content) { WriteItem(content); }, item.fContent);
        }
    }

    void WriteItem(const document::Heading& heading) {
        WriteTitle(heading.fTitle.fWords, kHeavyRule);
        WriteItems(heading.fItems);
    }

    void WriteItem(const document::Table& table) { WriteTable(table, fWidth, fSink); }

    void WriteItem(const document::Chart& chart) { WriteChart(chart, fWidth, fHasChartValues, fSink); }

    void WriteItem(const document::Message& message) {
        fSink.WriteParagraph(RoleOf(message.fLevel), LeadOf(message.fLevel), MakeVisible(message.fText.fWords), fWidth);
    }

    void WriteTitle(std::string_view words, std::string_view rule) {
        const std::string title = MakeVisible(words);
        fSink.WriteParagraph(Role::Heading, "", title, fWidth);
        int width = 0;
        for (const std::string& line : WrapLines(title, fWidth)) width = std::max(width, MeasureWidth(line));
        fSink.PutRule(0, width, rule);
        fSink.EndLine();
    }

    void WriteDiagnostics() {
        fSink.PartItems();
        WriteTitle(items::kDiagnostics, kHeavyRule);
        for (const document::Diagnostic& diagnostic : fDocument.fvDiagnostics) {
            const std::string text = MakeVisible(diagnostic.fText + document::SpellPlaceBehind(fDocument, diagnostic));
            fSink.WriteParagraph(RoleOf(diagnostic.fLevel), LeadOf(diagnostic.fLevel), text, fWidth);
        }
    }

    const document::Document& fDocument;
    int fWidth;
    bool fHasChartValues;
    Sink fSink;
};

}  // namespace

std::string MakeTextReport(const document::Document& document, const TextOptions& options) {
    return Writer(document, options).Write();
}

}  // namespace hierfit::report
