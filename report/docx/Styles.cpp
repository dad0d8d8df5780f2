#include "report/docx/Styles.h"

#include <string>

#include "report/docx/Parts.h"
#include "report/docx/Runs.h"

namespace hierfit::report::docx {

namespace {

// Where it is missing, word processors take a face of the same widths.
constexpr std::string_view kFonts =
    "<w:rFonts w:ascii=\"Arial\" w:hAnsi=\"Arial\" w:eastAsia=\"Arial\" w:cs=\"Arial\"/>";

/// A style of paragraphs. Properties are markup.
struct Style {
    std::string_view fId;
    std::string_view fName;
    std::string_view fBase;
    std::string_view fNext;  ///< of the paragraph behind it; empty: the same
    std::string_view fParagraph;
    std::string_view fRun;
};

constexpr std::string_view kSmall = "<w:sz w:val=\"16\"/><w:szCs w:val=\"16\"/>";

// In a table the decimal sign is a point in every language, so its figures are English to the reader's program.
constexpr Style kStyles[] = {
    {styles::kTitle, "Title", "Normal", "Normal",
     "<w:keepNext/><w:spacing w:after=\"120\" w:line=\"240\" w:lineRule=\"auto\"/>",
     "<w:b/><w:bCs/><w:sz w:val=\"36\"/><w:szCs w:val=\"36\"/>"},
    {styles::kSubtitle, "Subtitle", "Normal", "Normal", "<w:keepNext/>", "<w:sz w:val=\"24\"/><w:szCs w:val=\"24\"/>"},
    {styles::kAuthor, "Author", "Normal", "Normal", "", "<w:i/><w:iCs/>"},
    {styles::kMessage, "Message", "Normal", "", "<w:spacing w:before=\"120\" w:after=\"120\"/>", ""},
    {styles::kCaption, "caption", "Normal", "Normal",
     "<w:keepLines/><w:spacing w:before=\"320\" w:after=\"100\" w:line=\"240\" w:lineRule=\"auto\"/>",
     "<w:sz w:val=\"20\"/><w:szCs w:val=\"20\"/>"},
    {styles::kContinued, "Caption Continued", styles::kCaption, "Normal", "<w:keepNext/>", ""},
    {kPlainTable.fText, "Table Text", "Normal", "",
     "<w:spacing w:before=\"30\" w:after=\"30\" w:line=\"240\" w:lineRule=\"auto\"/>",
     "<w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/>"},
    {kPlainTable.fFigure, "Table Figure", kPlainTable.fText, "", "", "<w:lang w:val=\"en-US\"/>"},
    {kPlainTable.fColumnHeader, "Table Header", kPlainTable.fText, "", "<w:keepNext/><w:jc w:val=\"center\"/>", ""},
    {kPlainTable.fSpanner, "Table Spanner", kPlainTable.fColumnHeader, "",
     "<w:pBdr><w:bottom w:val=\"single\" w:sz=\"4\" w:space=\"1\" w:color=\"auto\"/></w:pBdr>", ""},
    {kSmallTable.fText, "Table Text Small", kPlainTable.fText, "", "", kSmall},
    {kSmallTable.fFigure, "Table Figure Small", kPlainTable.fFigure, "", "", kSmall},
    {kSmallTable.fColumnHeader, "Table Header Small", kPlainTable.fColumnHeader, "", "", kSmall},
    {kSmallTable.fSpanner, "Table Spanner Small", kPlainTable.fSpanner, "", "", kSmall},
    {styles::kNote, "Table Note", "Normal", "",
     "<w:keepLines/><w:spacing w:before=\"40\" w:after=\"0\" w:line=\"240\" w:lineRule=\"auto\"/>",
     "<w:sz w:val=\"16\"/><w:szCs w:val=\"16\"/>"},
    {styles::kPicture, "Picture", "Normal", styles::kCaption,
     "<w:keepNext/><w:spacing w:before=\"320\" w:after=\"0\"/>", ""},
    {styles::kSectionEnd, "Section End", "Normal", "",
     "<w:spacing w:before=\"0\" w:after=\"0\" w:line=\"20\" w:lineRule=\"exact\"/>",
     "<w:sz w:val=\"2\"/><w:szCs w:val=\"2\"/>"},
    {"Footer", "footer", "Normal", "", "<w:jc w:val=\"center\"/>", "<w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/>"},
};

void AppendStyle(std::string& out, const Style& style) {
    out.append("<w:style w:type=\"paragraph\" w:styleId=\"").append(style.fId).append("\"><w:name w:val=\"");
    out.append(style.fName).append("\"/><w:basedOn w:val=\"").append(style.fBase).append("\"/>");
    if (!style.fNext.empty()) out.append("<w:next w:val=\"").append(style.fNext).append("\"/>");
    out.append("<w:qFormat/><w:pPr>").append(style.fParagraph).append("</w:pPr><w:rPr>").append(style.fRun);
    out += "</w:rPr></w:style>\n";
}

void AppendHeading(std::string& out, int level) {
    constexpr int kSizes[] = {30, 26, 23};  // in half points; deeper ones are as large as the text
    const std::string number = std::to_string(level);
    const std::string size = std::to_string(level <= 3 ? kSizes[level - 1] : 21);
    const std::string paragraph =
        "<w:keepNext/><w:keepLines/><w:spacing w:before=\"360\" w:after=\"120\" w:line=\"240\" w:lineRule=\"auto\"/>"
        "<w:outlineLvl w:val=\"" +
        std::to_string(level - 1) + "\"/>";
    const std::string run = "<w:b/><w:bCs/><w:sz w:val=\"" + size + "\"/><w:szCs w:val=\"" + size + "\"/>";
    AppendStyle(out, {"Heading" + number, "heading " + number, "Normal", "Normal", paragraph, run});
}

void AppendDefaults(std::string& out, std::string_view language) {
    out.append("<w:docDefaults><w:rPrDefault><w:rPr>").append(kFonts);
    out.append("<w:sz w:val=\"21\"/><w:szCs w:val=\"21\"/><w:lang w:val=\"").append(language);
    out.append("\"/></w:rPr></w:rPrDefault><w:pPrDefault><w:pPr><w:spacing w:after=\"120\" w:line=\"264\" ");
    out += "w:lineRule=\"auto\"/></w:pPr></w:pPrDefault></w:docDefaults>\n";
    out +=
        "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/><w:qFormat/>"
        "</w:style>\n";
    out +=
        "<w:style w:type=\"character\" w:default=\"1\" w:styleId=\"DefaultParagraphFont\">"
        "<w:name w:val=\"Default Paragraph Font\"/></w:style>\n";
    out +=
        "<w:style w:type=\"character\" w:styleId=\"NoteMark\"><w:name w:val=\"Note Mark\"/><w:qFormat/><w:rPr>"
        "<w:vertAlign w:val=\"superscript\"/></w:rPr></w:style>\n";
}

void AppendMargins(std::string& out, int side) {
    out += "<w:tblCellMar><w:top w:w=\"0\" w:type=\"dxa\"/><w:left";
    AppendNumber(out, "w:w", side);
    out += " w:type=\"dxa\"/><w:bottom w:w=\"0\" w:type=\"dxa\"/><w:right";
    AppendNumber(out, "w:w", side);
    out += " w:type=\"dxa\"/></w:tblCellMar>";
}

// The rules at the top and the bottom; the one below the header stands in its cells.
void AppendTableStyle(std::string& out, const TableStyles& table, std::string_view name) {
    out.append("<w:style w:type=\"table\" w:styleId=\"").append(table.fTable).append("\"><w:name w:val=\"");
    out.append(name).append("\"/><w:basedOn w:val=\"TableNormal\"/><w:qFormat/>");
    out +=
        "<w:tblPr><w:tblBorders><w:top w:val=\"single\" w:sz=\"8\" w:space=\"0\" w:color=\"auto\"/>"
        "<w:bottom w:val=\"single\" w:sz=\"8\" w:space=\"0\" w:color=\"auto\"/></w:tblBorders>";
    AppendMargins(out, table.fMargin);
    out += "</w:tblPr></w:style>\n";
}

void AppendTableStyles(std::string& out) {
    out +=
        "<w:style w:type=\"table\" w:default=\"1\" w:styleId=\"TableNormal\"><w:name w:val=\"Normal Table\"/><w:tblPr>";
    AppendMargins(out, kPlainTable.fMargin);
    out += "</w:tblPr></w:style>\n";
    AppendTableStyle(out, kPlainTable, "Report Table");
    AppendTableStyle(out, kSmallTable, "Report Table Small");
}

}  // namespace

ArchiveFile MakeStyles(std::string_view language) {
    std::string out(kXmlHead);
    out.append("<w:styles").append(kMainNamespace).append(">\n");
    AppendDefaults(out, language);
    for (int level = 1; level <= kHeadings; ++level) AppendHeading(out, level);
    for (const Style& style : kStyles) AppendStyle(out, style);
    AppendTableStyles(out);
    return {"word/styles.xml", out + "</w:styles>\n"};
}

}  // namespace hierfit::report::docx
