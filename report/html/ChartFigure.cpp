#include "report/html/ChartFigure.h"

#include "report/html/HtmlEscape.h"
#include "report/html/SafeSvg.h"
#include "report/html/Words.h"
#include "report/html/table/HtmlTable.h"
#include "report/layout/ShownTable.h"

namespace hierfit::report::html {

namespace {

// Inside a script's element nothing may look like markup. In JSON a "<" stands in strings only.
void AppendJson(std::string& out, std::string_view json) {
    for (std::size_t at = 0; at < json.size();) {
        const std::size_t end = std::min(json.find('<', at), json.size());
        out += json.substr(at, end - at);
        if (end < json.size()) out += "\\u003c";
        at = end + 1;
    }
}

/// Past the text that begins at a quotation mark.
std::size_t EndOfText(std::string_view json, std::size_t at) {
    for (++at; at < json.size() && json[at] != '"'; ++at) {
        if (json[at] == '\\') ++at;
    }
    return at + 1;
}

/// Whether a view has a title of its own, told by the JSON's outermost names; deeper ones are those of axes.
bool HasTitle(std::string_view json) {
    int depth = 0;
    for (std::size_t at = 0; at < json.size(); ++at) {
        if (json[at] == '{' || json[at] == '[') ++depth;
        if (json[at] == '}' || json[at] == ']') --depth;
        if (json[at] != '"') continue;
        const std::size_t end = EndOfText(json, at);
        if (depth == 1 && json.substr(at, end - at) == R"("title")" && json.substr(end).starts_with(':')) return true;
        at = end - 1;
    }
    return false;
}

void AppendTag(std::string& out, const document::Chart& chart, const ChartPlace& place) {
    out.append("<figure class=\"chart").append(HasTitle(chart.fView) ? " titled" : "");
    out.append("\" id=\"").append(place.fAnchor);
    out.append("\" role=\"group\" aria-labelledby=\"").append(place.fAnchor).append("-title\"");
    if (!chart.fShown.fSentence.empty()) {
        out.append(" aria-describedby=\"").append(place.fAnchor).append("-sentence\"");
    }
    out += ">\n";
    out.append("<p class=\"title\" id=\"").append(place.fAnchor).append("-title\">");
    AppendText(out, place.fTitle);
    out += "</p>\n";
}

// Whoever has no pointer can scroll a picture, too.
void BeginDrawing(std::string& out) {
    out.append("<div class=\"drawing\" tabindex=\"0\" role=\"group\" aria-label=\"")
        .append(words::kPicture)
        .append("\">");
}

void AppendLive(std::string& out, std::string_view view) {
    BeginDrawing(out);
    out += "<script type=\"application/json\">";
    AppendJson(out, view);
    out.append("</script></div>\n<noscript><p>").append(words::kNeedsScript).append("</p></noscript>\n");
}

bool AppendDrawing(std::string& out, const document::Chart& chart, const ChartPlace& place) {
    const std::string* picture = place.fpPicture;
    if (!picture && !chart.fView.empty()) {
        AppendLive(out, chart.fView);
        return true;
    }
    const auto safe = picture ? MakeSafeSvg(*picture, std::string(place.fAnchor) + '-') : std::nullopt;
    if (!safe) {
        out.append("<p>").append(words::kNoPicture).append("</p>\n");
        return false;
    }
    BeginDrawing(out);
    out.append(*safe).append("</div>\n");
    return true;
}

void AppendSentence(std::string& out, const std::string& sentence, const ChartPlace& place) {
    if (sentence.empty()) return;
    out.append("<p id=\"").append(place.fAnchor).append("-sentence\">");
    AppendText(out, sentence);
    out += "</p>\n";
}

void AppendValues(std::string& out, const document::ChartShown& shown, const ChartPlace& place, bool isOpen) {
    const std::vector<const document::ChartTable*> tables = FindShownTables(shown);
    if (tables.empty()) return;
    out += isOpen ? "<details open>" : "<details>";
    out.append("<summary>").append(words::kValues).append("</summary>\n");
    int number = place.fTable;
    for (const document::ChartTable* table : tables) {
        out += "<div class=\"values\">\n";
        AppendPlainTable(out, MakeShownTable(*table, table->fvRows.size()), place.fTitle, number++);
        out += "</div>\n";
    }
    out += "</details>\n";
}

}  // namespace

void AppendChart(std::string& out, const document::Chart& chart, const ChartPlace& place) {
    AppendTag(out, chart, place);
    const bool isDrawn = AppendDrawing(out, chart, place);
    AppendSentence(out, chart.fShown.fSentence, place);
    AppendValues(out, chart.fShown, place, !isDrawn);
    out += "</figure>\n";
}

}  // namespace hierfit::report::html
