#include "report/latex/Frame.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "host/unicode/Utf8.h"
#include "report/latex/LatexText.h"

namespace hierfit::report::latex {

namespace {

constexpr std::size_t kFloatsOfClass = 50;     // that may wait for their place
constexpr std::size_t kMostExtraFloats = 500;  // at once: TeX reckons one inside the other, 1,000 deep at most

std::string ListPackages(const Needs& needs) {
    std::string list = needs.fHasTables ? "array,booktabs,makecell,siunitx,threeparttable" : "";
    if (needs.fHasLongTables) list += ",longtable,threeparttablex";
    if (needs.fHasSidewaysTables) list += ",rotating";
    if (needs.fHasLandscapes) list += ",pdflscape";
    return list;
}

void AppendPackages(std::string& out, const Needs& needs, std::string_view begin) {
    const std::string list = ListPackages(needs);
    if (!list.empty()) out.append(begin).append("\\usepackage{").append(list).append("}\n");
    if (needs.fHasSections) out.append(begin).append("\\usepackage{placeins}\n");
    if (needs.fHasFigures) out.append(begin).append("\\usepackage{graphicx}\n");
    if (needs.fHasFigures) out.append(begin).append("\\usepackage[export]{adjustbox}\n");
    if (needs.fFloats <= kFloatsOfClass) return;
    const std::string floats = std::to_string(needs.fFloats);
    for (std::size_t left = needs.fFloats; left > 0; left -= std::min(left, kMostExtraFloats)) {
        const std::string extra = std::to_string(std::min(left, kMostExtraFloats));
        out.append(begin).append("\\extrafloats{").append(extra).append("}\n");
    }
    out.append(begin).append("\\maxdeadcycles=").append(floats).append("\n");
}

bool HasRightToLeft(const Scripts& scripts) { return scripts.fHasHebrew || scripts.fHasArabic; }

void AppendBidirectional(std::string& out, const Scripts& scripts, std::string_view begin) {
    if (!HasRightToLeft(scripts)) return;
    out.append(begin).append("\\usepackage[english,bidi=basic]{babel}\n");
    if (scripts.fHasHebrew) out.append(begin).append("\\babelprovide[import,onchar=ids fonts]{hebrew}\n");
    if (scripts.fHasArabic) out.append(begin).append("\\babelprovide[import,onchar=ids fonts]{arabic}\n");
}

/// A text as a PDF has it: as hexadecimal digits of UTF-16, whatever it holds.
void AppendProperty(std::string& out, std::string_view name, std::string_view text) {
    out.append(" /").append(name).append(" <FEFF");
    for (const char32_t c : unicode::Decode(MakeVisible(text))) {
        constexpr char32_t kPlane = 0x10000;
        if (c < kPlane) {
            fmt::format_to(std::back_inserter(out), "{:04X}", static_cast<unsigned>(c));
        } else {
            fmt::format_to(std::back_inserter(out), "{:04X}{:04X}", static_cast<unsigned>(0xD7C0 + (c >> 10)),
                           static_cast<unsigned>(0xDC00 + (c & 0x3FF)));
        }
    }
    out += '>';
}

void AppendProperties(std::string& out, const TitlePage& page) {
    out += "\\pdfextension info{";
    AppendProperty(out, "Title", page.fTitle);
    if (!page.fAuthor.empty()) AppendProperty(out, "Author", page.fAuthor);
    out += " }\n";
}

}  // namespace

std::string MakeComment(std::string_view producer, const Needs& needs) {
    std::string comment = "% ";
    comment.append(producer).append(
        "\n% For a line of 345 pt at 10 pt or a wider one. The document that takes this in needs:\n");
    constexpr std::string_view kBegin = "%   ";
    AppendPackages(comment, needs, kBegin);
    const Scripts& scripts = needs.fScripts;
    if (HasRightToLeft(scripts) || scripts.fHasOthers) {
        comment += "% and lualatex, with a font that has all letters";
        comment += HasRightToLeft(scripts) ? ":\n" : ".\n";
        AppendBidirectional(comment, scripts, kBegin);
    } else {
        comment.append("% and with pdflatex:\n");
        comment.append(kBegin).append("\\usepackage[").append(scripts.fHasGreek ? "LGR," : "").append("T1]{fontenc}\n");
        if (scripts.fHasGreek) comment.append(kBegin).append("\\usepackage{textalpha}\n");
    }
    return comment;
}

std::string MakePreamble(const TitlePage& page, const Needs& needs) {
    std::string preamble =
        "% !TeX program = lualatex\n"
        "\\documentclass[10pt,a4paper]{article}\n"
        "\\usepackage[margin=25mm]{geometry}\n"
        "\\usepackage{fontspec}\n";
    AppendBidirectional(preamble, needs.fScripts, "");
    preamble += HasRightToLeft(needs.fScripts) ? "\\babelfont{rm}{DejaVu Sans}\n" : "\\setmainfont{DejaVu Sans}\n";
    AppendPackages(preamble, needs, "");
    // Figures in the text's own digits; floats where they are; missing letters told by the compiler.
    if (needs.fHasTables) preamble += "\\sisetup{mode=text}\n";
    preamble +=
        "\\usepackage{float}\n"
        "\\floatplacement{table}{H}\n"
        "\\floatplacement{figure}{H}\n"
        "\\tracinglostchars=2\n";
    AppendProperties(preamble, page);
    preamble.append("\\title{").append(page.fTitleMarkup).append("}\n\\author{").append(page.fAuthorMarkup);
    preamble += "}\n\\date{}\n";
    return preamble + "\\begin{document}\n\\maketitle\n";
}

}  // namespace hierfit::report::latex
