#include "report/html/ChartFigure.h"

#include <algorithm>
#include <iterator>

#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/html/Words.h"
#include "report/html/table/HtmlTable.h"
#include "report/layout/ShownTable.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

namespace {

using charts::Names;
using charts::Scene;

// A picture's room is measured in these steps: the style sheet has a class for each, "r1" for the first, and shows the
// layout for a phone in a room that is narrower. A wider picture never has that much room.
constexpr double kSteps[] = {400, 480, 560, 640, 720, 960};

// A higher picture is printed smaller, and one that would take more than half of a page smaller still, so that less of
// the page before it stays empty.
constexpr double kHigh = 470;
constexpr double kHighest = 850;

void AppendTag(std::string& out, const document::Picture& picture, const ChartPlace& place, const Scene& desk) {
    out.append("<figure class=\"chart").append(picture.fTitle.empty() ? "" : " titled");
    out.append(desk.fWidth > charts::kDeskWidth ? " wide" : "");
    out.append(desk.fHeight > kHighest ? " highest" : desk.fHeight > kHigh ? " high" : "");
    out.append("\" id=\"").append(place.fAnchor);
    out.append("\" role=\"group\" aria-labelledby=\"").append(place.fAnchor).append("-title\"");
    if (!picture.fSentence.empty()) {
        out.append(" aria-describedby=\"").append(place.fAnchor).append("-sentence\"");
    }
    out += ">\n";
    out.append("<p class=\"title\" id=\"").append(place.fAnchor).append("-title\">");
    AppendText(out, place.fTitle);
    out += "</p>\n";
}

void AppendBoth(std::string& out, const Scene& desk, const Scene& phone) {
    const auto step = std::ranges::lower_bound(kSteps, desk.fWidth) - std::begin(kSteps) + 1;
    const std::string room = " r" + std::to_string(step) + '"';
    AppendSvg(out, desk, Names::Marks, " class=\"desk" + room);
    out += '\n';
    AppendSvg(out, phone, Names::None,
              " class=\"phone" + room + " role=\"img\" aria-label=\"" + words::Spell(words::kPicture) + '"');
}

void AppendDrawing(std::string& out, const document::Picture& picture, const Scene& desk) {
    out.append("<div class=\"drawing\" role=\"group\" aria-label=\"")
        .append(words::Spell(words::kPicture))
        .append("\">\n");
    const Scene phone = desk.fWidth > charts::kPhoneWidth ? charts::LayOut(picture, charts::kPhoneWidth) : Scene{};
    if (phone.fWidth > 0 && phone.fWidth < desk.fWidth) {
        AppendBoth(out, desk, phone);
    } else {
        AppendSvg(out, desk, Names::Marks, " class=\"desk\"");
    }
    out += "\n</div>\n";
}

void AppendSentence(std::string& out, const std::string& sentence, const ChartPlace& place) {
    if (sentence.empty()) return;
    out.append("<p id=\"").append(place.fAnchor).append("-sentence\">");
    AppendText(out, sentence);
    out += "</p>\n";
}

void AppendValues(std::string& out, const document::Picture& picture, const ChartPlace& place) {
    const std::vector<const document::ChartTable*> tables = FindShownTables(picture);
    if (tables.empty()) return;
    out.append("<details><summary>").append(words::Spell(words::kValues)).append("</summary>\n");
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
    const document::Picture& picture = chart.fPicture;
    const Scene desk = charts::LayOut(picture, charts::kDeskWidth);
    AppendTag(out, picture, place, desk);
    AppendDrawing(out, picture, desk);
    AppendSentence(out, picture.fSentence, place);
    AppendValues(out, picture, place);
    out += "</figure>\n";
}

}  // namespace hierfit::report::html
