#include "report/latex/LatexReport.h"

#include <algorithm>
#include <string_view>

#include "report/items/Entries.h"
#include "report/items/Words.h"
#include "report/latex/Frame.h"
#include "report/latex/LatexTable.h"
#include "report/latex/LatexText.h"
#include "report/latex/Needs.h"
#include "report/latex/TablePlan.h"

namespace hierfit::report {

namespace {

using latex::AppendText;

constexpr std::string_view kSections[] = {"\\section", "\\subsection", "\\subsubsection", "\\paragraph"};

/// Writes items one after the other, with an empty line between them.
class Writer {
  public:
    Writer(std::string& out, const LatexSettings& settings, latex::Needs& needs)
        : fOut(out), fSettings(settings), fNeeds(needs) {}

    void Append(const items::Entry& entry) {
        const bool isChart = std::holds_alternative<document::Chart>(entry.fpItem->fContent);
        if (isChart && fSettings.fChartFolder.empty()) return;
        fOut += '\n';
        fpEntry = &entry;
        std::visit(*this, entry.fpItem->fContent);
    }

    void operator()(const document::Heading&) {
        const auto depth = std::min(static_cast<std::size_t>(fpEntry->fDepth), std::size(kSections) - 1);
        // Tables and charts stay in their section.
        fNeeds.fHasSections = true;
        fOut.append("\\FloatBarrier\n").append(kSections[depth]).append("[{");
        AppendTitle();
        fOut += "}]{\\raggedright ";
        AppendTitle();
        fOut.append("}\\label{sec:").append(fpEntry->fAnchor).append("}\n");
        AppendWholeTitle();
    }

    void operator()(const document::Table& table) {
        latex::AppendTable(fOut, table, items::TitleOf(*fpEntry->fpItem), fpEntry->fAnchor, fNeeds);
    }

    void operator()(const document::Chart&) {
        fNeeds.fHasFigures = true;
        ++fNeeds.fFloats;
        fOut.append("\\begin{figure}").append(latex::PlacementOn(fNeeds.fPage));
        fOut += "\n\\centering\n\\includegraphics[max width=\\linewidth,max height=0.8\\textheight]{";
        latex::AppendPath(fOut, fSettings.fChartFolder);
        fOut.append("/").append(fpEntry->fAnchor).append(".pdf}\n\\caption{");
        AppendTitle();
        fOut.append("}\\label{fig:").append(fpEntry->fAnchor).append("}\n\\end{figure}\n");
        AppendWholeTitle();
    }

    void operator()(const document::Message& message) {
        fOut += "\\noindent\\textbf{";
        AppendText(fOut, items::WordOfLevel(message.fLevel), latex::kProse, fNeeds.fScripts);
        fOut += ":} ";
        AppendText(fOut, message.fText.fWords, latex::kProse, fNeeds.fScripts);
        fOut += '\n';
    }

  private:
    void AppendTitle() {
        AppendText(fOut, latex::ShownInCell(items::TitleOf(*fpEntry->fpItem)), latex::kTitle, fNeeds.fScripts);
    }

    void AppendWholeTitle() {
        const std::string_view title = items::TitleOf(*fpEntry->fpItem);
        if (title.size() <= latex::kMostOfCell) return;
        fOut += "\n\\noindent ";
        AppendText(fOut, title, latex::kProse, fNeeds.fScripts);
        fOut += '\n';
    }

    std::string& fOut;
    const LatexSettings& fSettings;
    latex::Needs& fNeeds;
    const items::Entry* fpEntry = nullptr;
};

std::string MarkUp(std::string_view words, latex::Needs& needs) {
    std::string markup;
    AppendText(markup, words, latex::kTitle, needs.fScripts);
    return markup;
}

}  // namespace

std::string MakeLatexReport(const document::Document& document, const LatexSettings& settings) {
    latex::Needs needs;
    needs.fPage = settings.fIsStandalone ? latex::Page::Own : latex::Page::Other;
    std::string text;
    Writer writer(text, settings, needs);
    for (const items::Entry& entry : items::ListEntries(document)) writer.Append(entry);
    // What stands before the text depends on it.
    if (!settings.fIsStandalone) return text.insert(0, latex::MakeComment(MarkUp(document.fProducer, needs), needs));
    const std::string title = MarkUp(settings.fTitle.empty() ? items::TitleOf(document) : settings.fTitle, needs);
    const std::string author = MarkUp(settings.fAuthor, needs);
    return text.insert(0, latex::MakePreamble(title, author, needs)).append("\n\\end{document}\n");
}

}  // namespace hierfit::report
