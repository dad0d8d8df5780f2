#include "report/text/ChartText.h"

#include "report/items/Words.h"
#include "report/layout/ShownTable.h"
#include "report/text/TableText.h"
#include "report/text/VisibleText.h"

namespace hierfit::report {

namespace {

constexpr std::size_t kMostRows = 20;

void WriteValues(const document::ChartTable& shown, int width, Sink& sink) {
    WriteTable(MakeShownTable(shown, kMostRows), width, sink);
    if (shown.fvRows.size() <= kMostRows) return;
    const std::size_t more = shown.fvRows.size() - kMostRows;
    const std::string words = items::Say(more == 1 ? items::kMoreRow : items::kMoreRows, {std::to_string(more)});
    sink.WriteParagraph(Role::Plain, "", words, width);
}

}  // namespace

void WriteChart(const document::Chart& chart, int width, bool isWhole, Sink& sink) {
    sink.WriteParagraph(Role::Title, std::string(items::Say(items::kChart)) + ": ", MakeVisible(chart.fDescription),
                        width);
    if (!isWhole) return;
    const document::Picture& picture = chart.fPicture;
    if (!picture.fSentence.empty()) sink.WriteParagraph(Role::Plain, "", MakeVisible(picture.fSentence), width);
    for (const document::ChartTable* table : FindShownTables(picture)) WriteValues(*table, width, sink);
}

}  // namespace hierfit::report
