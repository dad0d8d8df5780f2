#include "report/docx/Relations.h"

#include "report/docx/Parts.h"

namespace hierfit::report::docx {

namespace {

constexpr std::string_view kOffice = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr std::string_view kPackage = "http://schemas.openxmlformats.org/package/2006/";
constexpr std::string_view kText = "application/vnd.openxmlformats-officedocument.wordprocessingml.";

class RelationList {
  public:
    RelationList() { fOut.append("<Relationships xmlns=\"").append(kPackage).append("relationships\">\n"); }

    void Add(std::string_view id, std::string_view base, std::string_view type, std::string_view target) {
        fOut.append("<Relationship Id=\"").append(id).append("\" Type=\"").append(base).append(type);
        fOut.append("\" Target=\"").append(target).append("\"/>\n");
    }

    std::string Take() { return std::move(fOut.append("</Relationships>\n")); }

  private:
    std::string fOut{kXmlHead};
};

void AppendDefault(std::string& out, std::string_view ending, std::string_view type) {
    out.append("<Default Extension=\"").append(ending).append("\" ContentType=\"").append(type).append("\"/>\n");
}

void AppendOverride(std::string& out, std::string_view part, std::string_view base, std::string_view type) {
    out.append("<Override PartName=\"").append(part).append("\" ContentType=\"").append(base).append(type);
    out += "+xml\"/>\n";
}

}  // namespace

std::string PixelsName(int figure) { return "media/figure" + std::to_string(figure) + ".png"; }

std::string VectorsName(int figure) { return "media/figure" + std::to_string(figure) + ".svg"; }

std::string PixelsRelation(int figure) { return "png" + std::to_string(figure); }

std::string VectorsRelation(int figure) { return "svg" + std::to_string(figure); }

ArchiveFile MakeContentTypes() {
    std::string out(kXmlHead);
    out.append("<Types xmlns=\"").append(kPackage).append("content-types\">\n");
    AppendDefault(out, "rels", "application/vnd.openxmlformats-package.relationships+xml");
    AppendDefault(out, "xml", "application/xml");
    AppendDefault(out, "png", "image/png");
    AppendDefault(out, "svg", "image/svg+xml");
    AppendOverride(out, "/word/document.xml", kText, "document.main");
    for (const std::string part : {"styles", "settings", "footer"}) {
        AppendOverride(out, "/word/" + part + ".xml", kText, part);
    }
    AppendOverride(out, "/docProps/core.xml", "application/vnd.openxmlformats-package.", "core-properties");
    AppendOverride(out, "/docProps/app.xml", "application/vnd.openxmlformats-officedocument.", "extended-properties");
    return {"[Content_Types].xml", out + "</Types>\n"};
}

ArchiveFile MakeFileRelations() {
    RelationList list;
    list.Add("text", kOffice, "officeDocument", "word/document.xml");
    list.Add("core", kPackage, "relationships/metadata/core-properties", "docProps/core.xml");
    list.Add("app", kOffice, "extended-properties", "docProps/app.xml");
    return {"_rels/.rels", list.Take()};
}

ArchiveFile MakeTextRelations(int figures) {
    RelationList list;
    list.Add("styles", kOffice, "styles", "styles.xml");
    list.Add("settings", kOffice, "settings", "settings.xml");
    list.Add(kFooterRelation, kOffice, "footer", "footer.xml");
    for (int figure = 1; figure <= figures; ++figure) {
        list.Add(PixelsRelation(figure), kOffice, "image", PixelsName(figure));
        list.Add(VectorsRelation(figure), kOffice, "image", VectorsName(figure));
    }
    return {"word/_rels/document.xml.rels", list.Take()};
}

}  // namespace hierfit::report::docx
