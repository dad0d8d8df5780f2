#include "fuzz/Checks.h"

#include <cstdio>
#include <cstdlib>
#include <variant>

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

struct Renderings {
    std::string fPage;
    std::string fPictures;  ///< the charts alone, one after another
    std::string fText;
    std::string fNarrowText;
    std::string fJson;
};

std::string DrawPictures(const document::Document& document) {
    std::string pictures;
    for (const auto& chart : report::ListCharts(document)) pictures += report::MakePicture(chart);
    return pictures;
}

Renderings Render(const document::Document& document) {
    return {report::MakeHtmlReport(document), DrawPictures(document), report::MakeTextReport(document, {}),
            report::MakeTextReport(document, {40, true}), report::WriteJson(document)};
}

void Compare(const std::string& fresh, const std::string& saved, const char* form) {
    if (fresh == saved) return;
    std::size_t at = 0;
    while (at < fresh.size() && at < saved.size() && fresh[at] == saved[at]) ++at;
    const std::size_t begin = at < 60 ? 0 : at - 60;
    Fail(std::string("a saved document renders to another ") + form + ":\n" + fresh.substr(begin, 120) + "\n" +
         saved.substr(begin, 120));
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
    const auto read = report::ReadJson(fresh.fJson);
    if (const auto* error = std::get_if<report::JsonError>(&read)) {
        Fail("a saved document cannot be read: " + error->fPath + ": " + error->fText);
    }
    const Renderings saved = Render(std::get<document::Document>(read));
    Compare(fresh.fPage, saved.fPage, "page");
    Compare(fresh.fPictures, saved.fPictures, "picture");
    Compare(fresh.fText, saved.fText, "text");
    Compare(fresh.fNarrowText, saved.fNarrowText, "narrow text");
    Compare(fresh.fJson, saved.fJson, "JSON");
}

}  // namespace hierfit::fuzz
