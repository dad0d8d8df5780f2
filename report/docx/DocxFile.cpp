#include "report/docx/DocxFile.h"

#include <utility>

#include "report/docx/Body.h"
#include "report/docx/Parts.h"
#include "report/docx/Relations.h"
#include "report/docx/Runs.h"
#include "report/docx/Styles.h"
#include "report/items/Entries.h"
#include "report/markup/Escape.h"
#include "report/markup/LanguageTag.h"
#include "report/markup/PageDirection.h"

namespace hierfit::report {

namespace {

using namespace docx;

std::string_view TitleOf(const document::Document& document, const DocxSettings& settings) {
    return settings.fTitle.empty() ? items::TitleOf(document) : settings.fTitle;
}

// Word processors look for dictionaries of a country.
std::string LanguageOf(const document::Document& document) {
    std::string tag = MakeLanguageTag(document.fLanguage);
    return tag == "en" ? "en-US" : tag;
}

void AppendElement(std::string& out, std::string_view name, std::string_view text) {
    out.append("<").append(name).append(">");
    AppendCharacters(out, text);
    out.append("</").append(name).append(">\n");
}

// No dates: the same document gives the same file.
ArchiveFile MakeCoreProperties(const document::Document& document, const DocxSettings& settings) {
    std::string out(kXmlHead);
    out +=
        "<cp:coreProperties xmlns:cp=\"http://schemas.openxmlformats.org/package/2006/metadata/core-properties\" "
        "xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n";
    AppendElement(out, "dc:title", TitleOf(document, settings));
    if (!settings.fAuthor.empty()) AppendElement(out, "dc:creator", settings.fAuthor);
    AppendElement(out, "dc:language", LanguageOf(document));
    return {"docProps/core.xml", out + "</cp:coreProperties>\n"};
}

ArchiveFile MakeProducer(const document::Document& document) {
    std::string out(kXmlHead);
    out += "<Properties xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties\">\n";
    AppendElement(out, "Application", document.fProducer);
    return {"docProps/app.xml", out + "</Properties>\n"};
}

// Files without the mark of a version are shown as those of an old one. Figures have points.
ArchiveFile MakeSettings() {
    std::string out(kXmlHead);
    out.append("<w:settings").append(kMainNamespace).append(">\n<w:compat><w:compatSetting ");
    out +=
        "w:name=\"compatibilityMode\" w:uri=\"http://schemas.microsoft.com/office/word\" w:val=\"15\"/></w:compat>\n"
        "<w:decimalSymbol w:val=\".\"/><w:listSeparator w:val=\",\"/>\n</w:settings>\n";
    return {"word/settings.xml", std::move(out)};
}

/// The number of the page.
ArchiveFile MakeFooter() {
    std::string out(kXmlHead);
    out.append("<w:ftr").append(kMainNamespace).append(">\n");
    AppendParagraphStart(out, "Footer");
    AppendField(out, "PAGE", "1");
    out.append(kParagraphEnd).append("</w:ftr>\n");
    return {"word/footer.xml", std::move(out)};
}

}  // namespace

std::vector<ArchiveFile> MakeDocxFiles(const document::Document& document, const DocxSettings& settings) {
    const PageDirection direction(IsWrittenRightToLeft(document.fLanguage));
    Body body(settings);
    body.Write(document);
    std::vector<ArchiveFile> pictures = body.TakePictures();
    std::vector<ArchiveFile> files{MakeContentTypes(),
                                   MakeFileRelations(),
                                   MakeCoreProperties(document, settings),
                                   MakeProducer(document),
                                   {"word/document.xml", body.TakeText()},
                                   MakeTextRelations(static_cast<int>(pictures.size() / 2)),
                                   MakeStyles(LanguageOf(document)),
                                   MakeSettings(),
                                   MakeFooter()};
    for (ArchiveFile& picture : pictures) files.push_back(std::move(picture));
    return files;
}

}  // namespace hierfit::report
