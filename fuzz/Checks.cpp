#include "fuzz/Checks.h"

#include <cstdio>
#include <cstdlib>
#include <variant>

#include "report/charts/Pictures.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonDocument.h"
#include "report/text/TextReport.h"

namespace hierfit::fuzz {

namespace {

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
