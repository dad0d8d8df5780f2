#include "report/docx/Page.h"

#include "report/docx/Relations.h"
#include "report/docx/Runs.h"
#include "report/markup/PageDirection.h"

namespace hierfit::report::docx {

void AppendSection(std::string& out, Page page) {
    out.append("<w:sectPr><w:footerReference w:type=\"default\" r:id=\"").append(kFooterRelation).append("\"/><w:pgSz");
    AppendNumber(out, "w:w", page == Page::Turned ? kLongSide : kShortSide);
    AppendNumber(out, "w:h", page == Page::Turned ? kShortSide : kLongSide);
    if (page == Page::Turned) out += " w:orient=\"landscape\"";
    out += "/><w:pgMar";
    for (const char* side : {"w:top", "w:right", "w:bottom", "w:left"}) AppendNumber(out, side, kMargin);
    out += " w:header=\"720\" w:footer=\"720\" w:gutter=\"0\"/>";
    out += PageDirection::IsRightToLeft() ? "<w:bidi/></w:sectPr>" : "</w:sectPr>";
}

}  // namespace hierfit::report::docx
