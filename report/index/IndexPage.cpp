#include "report/index/IndexPage.h"

#include <algorithm>
#include <initializer_list>

#include "host/document/NumberFormat.h"
#include "report/html/HeadElement.h"
#include "report/html/Words.h"
#include "report/index/RowAttributes.h"
#include "report/index/UrlPath.h"
#include "report/markup/Escape.h"

namespace hierfit::report {

namespace {

using document::FormatName;

// A list of more rows scrolls in a frame of its own, below its header.
constexpr std::size_t kLongRows = 40;

constexpr std::string_view kTitle = "Models";
constexpr std::string_view kSkip = "Skip to the models";
constexpr std::string_view kReports = "Reports";
constexpr std::string_view kFailures = "Failures";
constexpr std::string_view kModel = "Model";
constexpr std::string_view kAkaike = "Akaike corrected";
constexpr std::string_view kBayesian = "Bayesian";
constexpr std::string_view kWarnings = "Warnings";
constexpr std::string_view kReason = "Reason";
constexpr std::string_view kNone = "There are no reports.";

// A row is a line. What stands between these two are its attributes.
constexpr std::string_view kRowStart = "<tr";
constexpr std::string_view kRowHeader = "><th scope=\"row\">";

std::string FormatCount(std::size_t count) {
    return document::FormatNumber(static_cast<double>(count), {FormatName::Count});
}

/// A figure as tables show it, with the minus that readers see.
std::string FormatFigure(const std::optional<double>& number, FormatName format) {
    if (!number) return {};
    std::string words = document::FormatNumber(*number, {format});
    if (words.starts_with('-')) words.replace(0, 1, "\u2212");
    return words;
}

/// A path may break behind its slashes.
void AppendPath(std::string& out, std::string_view path) {
    for (std::size_t end = 0; !path.empty(); path.remove_prefix(end)) {
        end = std::min(path.find('/'), path.size() - 1) + 1;
        AppendText(out, path.substr(0, end));
        if (end < path.size()) out += "<wbr>";
    }
}

void AppendTextCell(std::string& out, std::string_view text) {
    out += "<td class=\"t\">";
    AppendText(out, text);
    out += "</td>";
}

void AppendFigureCell(std::string& out, const std::string& words) { out.append("<td>").append(words).append("</td>"); }

void AppendRow(std::string& out, const IndexedModel& model) {
    out += kRowStart;
    AppendRowAttributes(out, model);
    out.append(kRowHeader).append("<a href=\"");
    AppendUrl(out, model.fReport);
    out += "\">";
    AppendPath(out, model.fPath);
    out += "</a></th>";
    AppendTextCell(out, model.fTarget);
    AppendFigureCell(out, FormatFigure(model.fRecords, FormatName::Count));
    AppendFigureCell(out, FormatFigure(model.fAkaike, FormatName::GeneralStat));
    AppendFigureCell(out, FormatFigure(model.fBayesian, FormatName::GeneralStat));
    AppendFigureCell(out, FormatCount(static_cast<std::size_t>(model.fWarnings)));
    out += "</tr>\n";
}

void AppendRow(std::string& out, const IndexedFailure& failure) {
    out.append(kRowStart).append(kRowHeader);
    AppendPath(out, failure.fPath);
    out += "</th>";
    AppendTextCell(out, failure.fReason);
    out += "</tr>\n";
}

struct Column {
    std::string_view fName;
    bool fIsText;
};

template <typename Row>
void AppendTable(std::string& out, std::string_view title, std::initializer_list<Column> columns,
                 const std::vector<Row>& rows) {
    out.append("<figure class=\"table\" id=\"").append(title).append("\">\n<section class=\"scroll");
    out.append(rows.size() > kLongRows ? " long" : "").append("\" tabindex=\"0\" aria-label=\"").append(title);
    out.append("\">\n<table>\n<caption><span>").append(title).append("</span></caption>\n<thead>\n<tr>");
    for (const Column& column : columns) {
        out += column.fIsText ? "<th scope=\"col\" class=\"t\"><span>" : "<th scope=\"col\"><span>";
        out.append(column.fName).append("</span></th>");
    }
    out += "</tr>\n</thead>\n<tbody>\n";
    for (const Row& row : rows) AppendRow(out, row);
    out += "</tbody>\n</table>\n</section>\n</figure>\n";
}

void AppendHeader(std::string& out, const Index& index, const HtmlSettings& settings) {
    out.append("<a class=\"skip\" href=\"#main\">").append(kSkip).append("</a>\n<header>\n<h1>");
    AppendText(out, settings.fTitle.empty() ? kTitle : std::string_view(settings.fTitle));
    out += "</h1>\n";
    if (!settings.fAuthor.empty()) {
        out += "<p class=\"author\">";
        AppendText(out, settings.fAuthor);
        out += "</p>\n";
    }
    out += "<dl class=\"facts\">\n";
    html::AppendFact(out, kReports, {FormatCount(index.fvModels.size())});
    html::AppendFact(out, kFailures, {FormatCount(index.fvFailures.size())});
    out += "</dl>\n</header>\n";
}

}  // namespace

std::string MakeIndexPage(const Index& index, const HtmlSettings& settings) {
    const std::string_view title = settings.fTitle.empty() ? kTitle : std::string_view(settings.fTitle);
    std::string out = "<!DOCTYPE html>\n<html lang=\"";
    out.append("en").append("\" data-running=\"");
    AppendCharacters(out, title);
    out += "\">\n";
    html::AppendHeadElement(out, title, index.fProducer, {Scripts::No, {}, settings.fAuthor});
    out += "<body class=\"index\">\n";
    AppendHeader(out, index, settings);
    out += "<main id=\"main\">\n";
    // What went wrong comes first: there is mostly little of it, and more than little should be seen.
    if (!index.fvFailures.empty()) AppendTable(out, kFailures, {{kModel, true}, {kReason, true}}, index.fvFailures);
    if (index.fvModels.empty()) {
        out.append("<p>").append(kNone).append("</p>\n");
    } else {
        AppendTable(out, kReports,
                    {{kModel, true},
                     {html::words::kTarget, true},
                     {html::words::kRecords, false},
                     {kAkaike, false},
                     {kBayesian, false},
                     {kWarnings, false}},
                    index.fvModels);
    }
    out += "</main>\n<footer>";
    AppendText(out, index.fProducer);
    out += "</footer>\n</body>\n</html>\n";
    return out;
}

std::vector<IndexedModel> ReadIndexPage(std::string_view page) {
    std::vector<IndexedModel> models;
    while (!page.empty()) {
        const std::string_view line = page.substr(0, page.find('\n'));
        page.remove_prefix(std::min(line.size() + 1, page.size()));
        const std::size_t end = line.find(kRowHeader);
        if (!line.starts_with(kRowStart) || end == std::string_view::npos) continue;
        if (auto model = ReadRowAttributes(line.substr(kRowStart.size(), end - kRowStart.size()))) {
            models.push_back(*std::move(model));
        }
    }
    return models;
}

}  // namespace hierfit::report
