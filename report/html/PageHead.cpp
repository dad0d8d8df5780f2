#include "report/html/PageHead.h"

#include "host/document/NumberFormat.h"
#include "host/unicode/Excerpt.h"
#include "report/html/HeadElement.h"
#include "report/html/Words.h"
#include "report/items/Words.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

namespace {

constexpr std::size_t kMostOfTarget = 100;
constexpr std::size_t kMostAlerts = 12;

// What tells this page from others comes first, since a browser shows no more of a title than its beginning.
std::string MakeTitle(const document::Document& document, const Facts& facts, const HtmlSettings& settings) {
    std::vector<std::string> parts;
    if (!settings.fTitle.empty()) parts.push_back(settings.fTitle);
    if (!facts.fTarget.empty()) parts.push_back(unicode::Excerpt(facts.fTarget, kMostOfTarget));
    parts.emplace_back(items::TitleOf(document));
    if (parts.size() == 1) parts.insert(parts.end(), document.fvSources.begin(), document.fvSources.end());
    std::string title;
    for (const std::string& part : parts) title += (&part == &parts.front() ? "" : " – ") + part;
    return title;
}

void AppendFacts(std::string& out, const document::Document& document, const Facts& facts) {
    if (facts.fTarget.empty() && !facts.fRecords && document.fvSources.empty()) return;
    const std::string target = SpellTarget(facts);
    out += "<dl class=\"facts\">\n";
    if (!target.empty()) AppendFact(out, words::Spell(words::kTarget), {target});
    if (facts.fRecords) {
        AppendFact(out, words::Spell(words::kRecords),
                   {document::FormatNumber(*facts.fRecords, {document::FormatName::Count})});
    }
    AppendFact(out, words::Spell(words::kSources), document.fvSources);
    out += "</dl>\n";
}

/// The list of what went wrong; as long as there are no more than can be read at a glance, one by one.
class AlertList {
  public:
    explicit AlertList(std::string& out) : fOut(out) {}

    void Add(int level, std::string_view text, std::string_view anchor) {
        ++fCount;
        if (fCount > kMostAlerts) return;
        if (fCount == 1) fOut += "<ul class=\"alerts\">\n";
        const words::Level& name = words::LevelOf(level);
        fOut.append("<li class=\"").append(name.fClass).append("\"><strong>").append(words::Spell(name.fWord));
        fOut.append("</strong> <a href=\"#").append(anchor).append("\">");
        AppendText(fOut, unicode::Excerpt(text));
        fOut += "</a></li>\n";
    }

    void End() {
        if (fCount > kMostAlerts) {
            fOut.append("<li>")
                .append(std::to_string(fCount - kMostAlerts))
                .append(" ")
                .append(words::Spell(words::kMore))
                .append("</li>\n");
        }
        if (fCount > 0) fOut += "</ul>\n";
    }

  private:
    std::string& fOut;
    std::size_t fCount = 0;
};

void AppendAlerts(std::string& out, const document::Document& document, const std::vector<items::Entry>& entries) {
    AlertList alerts(out);
    for (const items::Entry& entry : entries) {
        const auto* message = std::get_if<document::Message>(&entry.fpItem->fContent);
        if (message) alerts.Add(message->fLevel, items::TitleOf(*entry.fpItem), entry.fAnchor);
    }
    for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
        alerts.Add(diagnostic.fLevel,
                   diagnostic.fText.empty() ? std::string(items::Say(items::kUntitled)) : diagnostic.fText,
                   kDiagnosticsAnchor);
    }
    alerts.End();
}

void AppendByline(std::string& out, const document::Document& document, const HtmlSettings& settings) {
    if (!settings.fTitle.empty()) {
        out += "<p class=\"kind\">";
        AppendText(out, items::TitleOf(document));
        out += "</p>\n";
    }
    if (settings.fAuthor.empty()) return;
    out += "<p class=\"author\">";
    AppendText(out, settings.fAuthor);
    out += "</p>\n";
}

}  // namespace

void AppendHead(std::string& out, const document::Document& document, const Facts& facts,
                const HtmlSettings& settings) {
    AppendHeadElement(out, MakeTitle(document, facts, settings), document.fProducer, settings);
}

void AppendHeader(std::string& out, const document::Document& document, const std::vector<items::Entry>& entries,
                  const Facts& facts, const HtmlSettings& settings) {
    out.append("<a class=\"skip\" href=\"#main\">").append(words::Spell(words::kSkip)).append("</a>\n<header>\n<h1>");
    AppendText(out, settings.fTitle.empty() ? items::TitleOf(document) : settings.fTitle);
    out += "</h1>\n";
    AppendByline(out, document, settings);
    AppendFacts(out, document, facts);
    AppendAlerts(out, document, entries);
    out += "</header>\n";
}

std::string RunningTitle(const document::Document& document, const Facts& facts, const HtmlSettings& settings) {
    const std::string title = settings.fTitle.empty() ? facts.fTarget : settings.fTitle;
    return unicode::Excerpt(title.empty() ? std::string(items::TitleOf(document)) : title, kMostOfTarget);
}

}  // namespace hierfit::report::html
