#include "report/latex/LatexReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "host/document/SpellPlace.h"
#include "report/charts/Pictures.h"
#include "report/charts/layout/LayOut.h"
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

constexpr int kWarning = 2;
constexpr std::string_view kLeftOut = "Charts are left out, since TeX cannot be told the name of their folder: ";
constexpr std::string_view kSections[] = {"\\section", "\\subsection", "\\subsubsection", "\\paragraph"};

/// Writes items one after the other, with an empty line between them.
class Writer {
  public:
    Writer(std::string& out, const LatexSettings& settings, latex::Needs& needs)
        : fOut(out), fSettings(settings), fNeeds(needs) {}

    void Append(const items::Entry& entry) {
        const bool isChart = std::holds_alternative<document::Chart>(entry.fpItem->fContent);
        if (isChart && (fSettings.fChartFolder.empty() || LeavesOut())) return;
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

    void operator()(const document::Chart& chart) {
        fNeeds.fHasFigures = true;
        ++fNeeds.fFloats;
        fOut.append("\\begin{figure}").append(latex::PlacementOn(fNeeds.fPage));
        fOut.append("\n\\centering\n\\includegraphics[max width=\\linewidth,max height=").append(MostHeight(chart));
        fOut += "]{";
        latex::AppendPath(fOut, fSettings.fChartFolder);
        fOut.append("/").append(fpEntry->fAnchor).append(".pdf}\n\\caption{");
        AppendTitle();
        fOut.append("}\\label{fig:").append(fpEntry->fAnchor).append("}\n\\end{figure}\n");
        AppendWholeTitle();
    }

    void operator()(const document::Message& message) { AppendMessage(message.fLevel, message.fText.fWords); }

    /// The paper whose fragment this is has no place for what the program found: its author reads it in the source.
    void AppendDiagnostics(const document::Document& document) {
        if (document.fvDiagnostics.empty() && !fHasLeftOut) return;
        const bool isOwn = fNeeds.fPage == latex::Page::Own;
        fOut += isOwn ? "\n\\section*{" : "\n% ";
        if (isOwn) AppendText(fOut, items::Say(items::kDiagnostics), latex::kTitle, fNeeds.fScripts);
        if (!isOwn) fOut += items::Say(items::kDiagnostics);
        fOut += isOwn ? "}\n" : ":\n";
        for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
            AppendDiagnostic(diagnostic.fLevel, diagnostic.fText + document::SpellPlaceBehind(document, diagnostic));
        }
        if (fHasLeftOut) AppendDiagnostic(kWarning, std::string(kLeftOut).append(fSettings.fChartFolder));
    }

  private:
    bool LeavesOut() {
        fHasLeftOut = !latex::IsPath(fSettings.fChartFolder);
        return fHasLeftOut;
    }

    std::string MostHeight(const document::Chart& chart) const {
        constexpr double kPointsToAPixel = 0.7528;  // those of TeX are smaller than others
        const document::Picture picture =
            Select(chart.fPicture, items::TitleOf(*fpEntry->fpItem), Titles::NotOfCaption);
        const double height = charts::LayOut(picture, charts::kDeskWidth).fHeight;
        const double shrink = ShrinkOnPaper(height);
        return shrink < 1 ? fmt::format("{:.0f}pt", height * shrink * kPointsToAPixel) : "0.8\\textheight";
    }

    void AppendMessage(int level, std::string_view text) {
        fOut += "\\noindent\\textbf{";
        AppendText(fOut, items::WordOfLevel(level), latex::kProse, fNeeds.fScripts);
        fOut += ":} ";
        AppendText(fOut, text, latex::kProse, fNeeds.fScripts);
        fOut += '\n';
    }

    void AppendDiagnostic(int level, std::string_view text) {
        if (fNeeds.fPage != latex::Page::Own) return AppendComment(level, text);
        fOut += '\n';
        AppendMessage(level, text);
    }

    void AppendComment(int level, std::string_view text) {
        fOut.append("% ").append(items::WordOfLevel(level)).append(": ");
        for (const char byte : latex::MakeVisible(text)) {
            fOut += byte;
            if (byte == '\n') fOut += "% ";
        }
        fOut += '\n';
    }

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
    bool fHasLeftOut = false;
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
    writer.AppendDiagnostics(document);
    // What stands before the text depends on it.
    if (!settings.fIsStandalone) return text.insert(0, latex::MakeComment(MarkUp(document.fProducer, needs), needs));
    const std::string_view title = settings.fTitle.empty() ? items::TitleOf(document) : settings.fTitle;
    const latex::TitlePage page{title, settings.fAuthor, MarkUp(title, needs), MarkUp(settings.fAuthor, needs)};
    return text.insert(0, latex::MakePreamble(page, needs)).append("\n\\end{document}\n");
}

}  // namespace hierfit::report
