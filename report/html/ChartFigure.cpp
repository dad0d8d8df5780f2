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

void AppendTag(std::string& out, const ChartPlace& place) {
    out.append("<figure class=\"chart\" id=\"").append(place.fAnchor);
    out.append("\" role=\"group\" aria-labelledby=\"").append(place.fAnchor).append("-title\">\n");
    out.append("<p class=\"title\" id=\"").append(place.fAnchor).append("-title\">");
    AppendText(out, place.fTitle);
    out += "</p>\n";
}

void AppendLive(std::string& out, std::string_view view) {
    out += "<div class=\"drawing\"><script type=\"application/json\">";
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
    out.append("<div class=\"drawing\">").append(*safe).append("</div>\n");
    return true;
}

void AppendSentence(std::string& out, const std::string& sentence) {
    if (sentence.empty()) return;
    out += "<p>";
    AppendText(out, sentence);
    out += "</p>\n";
}

void AppendValues(std::string& out, const document::ChartShown& shown, const ChartPlace& place, bool isOpen) {
    if (!HasTable(shown)) return;
    out += isOpen ? "<details open>" : "<details>";
    out.append("<summary>").append(words::kValues).append("</summary>\n<div class=\"values\">\n");
    AppendPlainTable(out, MakeShownTable(shown, shown.fvRows.size()), place.fTitle, place.fTable);
    out += "</div>\n</details>\n";
}

}  // namespace

void AppendChart(std::string& out, const document::Chart& chart, const ChartPlace& place) {
    AppendTag(out, place);
    const bool isDrawn = AppendDrawing(out, chart, place);
    AppendSentence(out, chart.fShown.fSentence);
    AppendValues(out, chart.fShown, place, !isDrawn);
    out += "</figure>\n";
}

}  // namespace hierfit::report::html
