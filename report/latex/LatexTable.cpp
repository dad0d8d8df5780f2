#include "report/latex/LatexTable.h"

#include "report/items/Words.h"
#include "report/latex/Notes.h"
#include "report/latex/TableLines.h"
#include "report/latex/TablePlan.h"

namespace hierfit::report::latex {

namespace {

constexpr double kNarrowest = 0.6;  // of the line: what is narrower is stretched to this, for the sake of its notes
constexpr std::string_view kContinued = " (continued)";
constexpr std::string_view kSmall = "\\footnotesize\\setlength{\\tabcolsep}{4pt}";
constexpr std::string_view kWholeDigits = "\\sisetup{group-digits=none}\n";

/// Writes the parts of one table.
class Writer {
  public:
    Writer(std::string& out, const Grid& grid, std::string_view title, std::string_view anchor, Needs& needs)
        : fOut(out),
          fGrid(grid),
          fTitle(title),
          fAnchor(anchor),
          fNeeds(needs),
          fPlan(grid, needs.fPage),
          fNotes(grid, needs.fScripts) {}

    void Append() {
        for (const Block& block : fPlan.Blocks()) {
            fpBlock = &block;
            fNotes.BeginPart();
            fPlan.IsLong() ? AppendLongTable() : AppendFloat();
        }
        fNotes.AppendLongTexts(fOut);
    }

    void AppendWithoutCells() {
        fOut.append("\\begin{table}").append(PlacementOn(fNeeds.fPage)).append("\n\\centering\n");
        fOut += "\\begin{threeparttable}\n";
        AppendCaption();
        fOut.append(items::kNoCells).append("\n");
        AppendNotes(fNotes.MakeItems(true));
        fOut += "\\end{threeparttable}\n\\end{table}\n";
        fNotes.AppendLongTexts(fOut);
    }

  private:
    bool IsFirst() const { return fpBlock == nullptr || fpBlock->fFirst == 0; }
    bool IsLast() const { return fpBlock->fEnd == fGrid.fColumns; }

    void AppendTitle() { fNotes.AppendShown(fOut, fTitle, kTitle); }

    // Parts of a table have one number.
    void AppendCaption() {
        fOut += "\\caption{";
        AppendTitle();
        if (!IsFirst()) fOut += kContinued;
        fOut += '}';
        if (IsFirst()) fOut.append("\\label{tab:").append(fAnchor).append("}");
        fOut += '\n';
    }

    void AppendNotes(const std::string& items) {
        if (items.empty()) return;
        fOut.append("\\begin{tablenotes}[flushleft]\n\\footnotesize\\raggedright\\labelsep=0pt\n")
            .append(items)
            .append("\\end{tablenotes}\n");
    }

    void AppendFloat() {
        const Setting& setting = fPlan.GetSetting();
        const std::string_view environment = setting.fIsSideways ? "sidewaystable" : "table";
        fNeeds.fHasSidewaysTables = fNeeds.fHasSidewaysTables || setting.fIsSideways;
        ++fNeeds.fFloats;
        fOut.append("\\begin{").append(environment).append("}");
        fOut.append(setting.fIsSideways ? "[p]" : PlacementOn(fNeeds.fPage)).append("\n\\centering\n");
        if (!IsFirst()) fOut += "\\addtocounter{table}{-1}\n";
        fOut += "\\begin{threeparttable}\n";
        AppendCaption();
        if (setting.fIsSmall) fOut.append(kSmall).append("\n");
        fOut += kWholeDigits;
        const bool isStretched = fPlan.WidthOf(*fpBlock) < kNarrowest * setting.fLine;
        TableLines lines(fGrid, fPlan, *fpBlock, fNotes, fNeeds.fScripts);
        fOut += isStretched ? "\\begin{tabular*}{0.6\\linewidth}{" : "\\begin{tabular}{";
        fOut.append(lines.MakeColumns(isStretched)).append("}\n").append(lines.MakeHead());
        lines.AppendBody(fOut);
        fOut.append("\\bottomrule\n\\end{tabular").append(isStretched ? "*}\n" : "}\n");
        AppendNotes(fNotes.MakeItems(IsLast()));
        fOut.append("\\end{threeparttable}\n\\end{").append(environment).append("}\n");
    }

    void AppendLongTable() {
        const Setting& setting = fPlan.GetSetting();
        fNeeds.fHasLongTables = true;
        fNeeds.fHasLandscapes = fNeeds.fHasLandscapes || setting.fIsSideways;
        if (setting.fIsSideways) fOut += "\\begin{landscape}\n";
        fOut += "\\begin{ThreePartTable}\n";
        if (!IsFirst()) fOut += "\\addtocounter{table}{-1}\n";
        if (setting.fIsSmall) fOut.append(kSmall).append("\n");
        fOut += kWholeDigits;
        TableLines lines(fGrid, fPlan, *fpBlock, fNotes, fNeeds.fScripts);
        const std::string head = lines.MakeHead();
        std::string body;
        lines.AppendBody(body);
        const std::string items = fNotes.MakeItems(IsLast());
        if (!items.empty()) {
            fOut.append("\\begin{TableNotes}[flushleft]\n\\footnotesize\\raggedright\\labelsep=0pt\n")
                .append(items)
                .append("\\end{TableNotes}\n");
        }
        fOut.append("\\begin{longtable}{").append(lines.MakeColumns(false)).append("}\n");
        AppendCaption();
        fOut.back() = '\\';
        fOut.append("\\\n").append(head).append("\\endfirsthead\n\\caption[]{");
        AppendTitle();
        fOut.append(kContinued)
            .append("}\\\\\n")
            .append(head)
            .append("\\endhead\n\\bottomrule\n\\endfoot\n\\bottomrule\n");
        if (!items.empty()) fOut += "\\insertTableNotes\n";
        fOut.append("\\endlastfoot\n").append(body).append("\\end{longtable}\n\\end{ThreePartTable}\n");
        if (setting.fIsSideways) fOut += "\\end{landscape}\n";
    }

    std::string& fOut;
    const Grid& fGrid;
    std::string_view fTitle;
    std::string_view fAnchor;
    Needs& fNeeds;
    TablePlan fPlan;
    Notes fNotes;
    const Block* fpBlock = nullptr;
};

}  // namespace

void AppendTable(std::string& out, const document::Table& table, std::string_view title, std::string_view anchor,
                 Needs& needs) {
    const Grid grid = MakeGrid(table);
    needs.fHasTables = true;
    Writer writer(out, grid, title, anchor, needs);
    grid.fRows > 0 ? writer.Append() : writer.AppendWithoutCells();
}

}  // namespace hierfit::report::latex
