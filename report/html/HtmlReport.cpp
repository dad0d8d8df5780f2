#include "report/html/HtmlReport.h"

#include <algorithm>

#include "report/html/Assets.h"
#include "report/html/Contents.h"
#include "report/html/HtmlItems.h"
#include "report/html/Words.h"
#include "report/markup/Escape.h"

namespace hierfit::report {

namespace {

bool IsLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

// The language as HTML names it. "C", the language of source texts, and what is no language tag are English.
std::string LanguageTag(std::string tag) {
    constexpr std::size_t kLongest = 35;
    std::replace(tag.begin(), tag.end(), '_', '-');
    const auto isTagCharacter = [](char byte) { return IsLetter(byte) || (byte >= '0' && byte <= '9') || byte == '-'; };
    const auto letters = std::find_if_not(tag.begin(), tag.end(), IsLetter) - tag.begin();
    const bool isTag = letters >= 2 && letters <= 3 && tag.size() <= kLongest && tag.back() != '-' &&
                       std::all_of(tag.begin(), tag.end(), isTagCharacter);
    return isTag ? tag : std::string(html::words::kLanguage);
}

std::string_view TitleOf(const document::Document& document) {
    return document.fTitle.empty() ? html::words::kUntitled : std::string_view(document.fTitle);
}

// Nothing is fetched, and no script or style counts but our own.
void AppendPolicy(std::string& out, Scripts scripts) {
    out += "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src '";
    out += html::StyleSheet().fHash;
    if (scripts == Scripts::Yes) out.append("'; script-src '").append(html::Script().fHash);
    out += "'; img-src data:; base-uri 'none'; form-action 'none'\">\n";
}

void AppendHead(std::string& out, const document::Document& document, Scripts scripts) {
    out += "<head>\n<meta charset=\"utf-8\">\n";
    AppendPolicy(out, scripts);
    out += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
    out += "<meta name=\"color-scheme\" content=\"light dark\">\n<meta name=\"generator\" content=\"";
    AppendCharacters(out, document.fProducer);
    out += "\">\n<title>";
    AppendCharacters(out, TitleOf(document));
    for (const std::string& source : document.fvSources) {
        out += &source == &document.fvSources.front() ? " – " : ", ";
        AppendCharacters(out, source);
    }
    out += "</title>\n<link rel=\"icon\" href=\"data:,\">\n<style>";
    out += html::StyleSheet().fText;
    out += "</style>\n</head>\n";
}

// The script finds its words at the body, so that all words of the page come from one place.
void AppendBodyTag(std::string& out, Scripts scripts) {
    if (scripts == Scripts::No) {
        out += "<body>\n";
        return;
    }
    out.append("<body data-copy=\"").append(html::words::kCopy);
    out.append("\" data-copied=\"").append(html::words::kCopied);
    out.append("\" data-not-copied=\"").append(html::words::kNotCopied);
    out.append("\" data-save=\"").append(html::words::kSave).append("\">\n");
}

void AppendHeader(std::string& out, const document::Document& document) {
    out.append("<a class=\"skip\" href=\"#main\">").append(html::words::kSkip).append("</a>\n<header>\n<h1>");
    AppendText(out, TitleOf(document));
    out += "</h1>\n";
    if (!document.fvSources.empty()) out += "<ul class=\"sources\">\n";
    for (const std::string& source : document.fvSources) {
        out += "<li>";
        AppendText(out, source);
        out += "</li>\n";
    }
    if (!document.fvSources.empty()) out += "</ul>\n";
    out += "</header>\n";
}

void AppendFooter(std::string& out, const document::Document& document) {
    if (document.fProducer.empty()) return;
    out += "<footer>";
    AppendText(out, document.fProducer);
    out += "</footer>\n";
}

}  // namespace

std::string MakeHtmlReport(const document::Document& document, Scripts scripts) {
    const std::vector<html::Entry> entries = html::ListEntries(document);
    std::string out = "<!DOCTYPE html>\n<html lang=\"";
    out.append(LanguageTag(document.fLanguage)).append("\">\n");
    AppendHead(out, document, scripts);
    AppendBodyTag(out, scripts);
    AppendHeader(out, document);
    html::AppendContents(out, entries, !document.fvDiagnostics.empty());
    out += "<main id=\"main\">\n";
    html::AppendItems(out, entries);
    html::AppendDiagnostics(out, document);
    out += "</main>\n";
    AppendFooter(out, document);
    if (scripts == Scripts::Yes) out.append("<script>").append(html::Script().fText).append("</script>\n");
    out += "</body>\n</html>\n";
    return out;
}

}  // namespace hierfit::report
