#include "fuzz/Checks.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <variant>
#include <vector>

#include "host/xml/Document.h"
#include "report/charts/Pictures.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonDocument.h"
#include "report/text/TextReport.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::fuzz {

namespace {

constexpr std::string_view kAhead =
    R"({"format": "hierfit-output", "version": 2, "producer": "", "language": "en", "title": "", "sources": [],)"
    R"( "diagnostics": [], "items": [{"kind": "chart", "description": "", "sendArguments": [true, true, true],)"
    R"( "editor": 0, "template": "", "xml": "", "data": [], "variables": [], "picture": )";
constexpr std::string_view kBehind = "}]}";

/// A document in every form, by the form's name. JSON is the last.
using Renderings = std::vector<std::pair<const char*, std::string>>;

Renderings Render(const document::Document& document) {
    std::string pictures;
    for (const auto& chart : report::ListCharts(document)) pictures += report::MakePicture(chart);
    return {{"page", report::MakeHtmlReport(document)},
            {"pictures", pictures},
            {"text", report::MakeTextReport(document, {})},
            {"narrow text", report::MakeTextReport(document, {40, true})},
            {"JSON", report::WriteJson(document)}};
}

void Compare(const std::string& fresh, const std::string& saved, const char* form) {
    if (fresh == saved) return;
    const auto at = static_cast<std::size_t>(std::ranges::mismatch(fresh, saved).in1 - fresh.begin());
    const std::size_t begin = at < 60 ? 0 : at - 60;
    Fail(std::string("a saved document renders to other ") + form + ":\n" + fresh.substr(begin, 120) + "\n" +
         saved.substr(std::min(begin, saved.size()), 120));
}

}  // namespace

void Fail(const std::string& fault) {
    std::fprintf(stderr, "%s\n", fault.c_str());
    std::abort();
}

void CheckXml(const std::string& text) {
    const auto parsed = xml::Document::Parse(text);
    if (const auto* error = std::get_if<xml::ParseError>(&parsed)) Fail(error->fReason + ":\n" + error->fExcerpt);
}

void JudgeRun(const session::Result& result) {
    const auto& diagnostics = result.fDocument.fvDiagnostics;
    for (const document::Diagnostic& diagnostic : diagnostics) {
        if (diagnostic.fText.starts_with("the run broke off")) Fail(diagnostic.fText);
    }
    if (result.fOutcome == session::Outcome::NotSetUp) Fail(diagnostics.front().fText);
    if (result.fOutcome == session::Outcome::Issued) return;
    if (diagnostics.empty() || diagnostics.back().fLevel != 3) Fail("no error says why there is no report");
}

document::Document RunExample(const std::string& name) {
    session::Result result = session::Run({"model.pmml", test::ReadExample(name, "model.pmml")},
                                          {"model.statxml", test::ReadExample(name, "model.statxml")}, {});
    if (result.fOutcome != session::Outcome::Issued) Fail("an example has no report: " + name);
    return std::move(result.fDocument);
}

std::string PutPicture(std::string_view picture) { return std::string(kAhead).append(picture).append(kBehind); }

std::optional<document::Picture> ReadPicture(std::string_view picture) {
    const auto read = report::ReadJson(PutPicture(picture));
    const auto* document = std::get_if<document::Document>(&read);
    if (!document || document->fItems.empty()) return {};
    const auto* chart = std::get_if<document::Chart>(&document->fItems.front().fContent);
    return chart ? std::optional(chart->fPicture) : std::nullopt;
}

void RenderFreshAndSaved(const document::Document& document) {
    const Renderings fresh = Render(document);
    const auto read = report::ReadJson(fresh.back().second);
    if (const auto* error = std::get_if<report::JsonError>(&read)) {
        Fail("a saved document cannot be read: " + error->fPath + ": " + error->fText);
    }
    const Renderings saved = Render(std::get<document::Document>(read));
    for (std::size_t at = 0; at < fresh.size(); ++at) Compare(fresh[at].second, saved[at].second, fresh[at].first);
}

}  // namespace hierfit::fuzz
