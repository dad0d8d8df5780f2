#include "report/html/HeadElement.h"

#include "report/html/Assets.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

namespace {

// Nothing is fetched, and no script or style counts but our own.
void AppendPolicy(std::string& out, Scripts scripts) {
    out += "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src '";
    out += StyleSheet().fHash;
    if (scripts == Scripts::Yes) out.append("'; script-src '").append(Script().fHash);
    out += "'; img-src data:; base-uri 'none'; form-action 'none'\">\n";
}

void AppendMeta(std::string& out, std::string_view name, std::string_view content) {
    out.append("<meta name=\"").append(name).append("\" content=\"");
    AppendCharacters(out, content);
    out += "\">\n";
}

}  // namespace

void AppendHeadElement(std::string& out, std::string_view title, std::string_view producer,
                       const HtmlSettings& settings) {
    out += "<head>\n<meta charset=\"utf-8\">\n";
    AppendPolicy(out, settings.fScripts);
    out += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
    out += "<meta name=\"color-scheme\" content=\"light dark\">\n";
    AppendMeta(out, "generator", producer);
    if (!settings.fAuthor.empty()) AppendMeta(out, "author", settings.fAuthor);
    out += "<title>";
    AppendCharacters(out, title);
    out += "</title>\n<link rel=\"icon\" href=\"data:,\">\n<style>";
    out += StyleSheet().fText;
    out += "</style>\n</head>\n";
}

void AppendFact(std::string& out, std::string_view name, const std::vector<std::string>& values) {
    if (values.empty()) return;
    out.append("<div><dt>").append(name).append("</dt>");
    for (const std::string& value : values) {
        out += "<dd>";
        AppendText(out, value);
        out += "</dd>";
    }
    out += "</div>\n";
}

}  // namespace hierfit::report::html
