#include "GeneratedDocument.h"

#include <fmt/core.h>

#include <cmath>
#include <utility>

namespace bench {

using hierfit::document::Category;
using hierfit::document::Dimension;
using hierfit::document::Document;
using hierfit::document::FormatName;
using hierfit::document::Group;
using hierfit::document::NumberSource;
using hierfit::document::Side;
using hierfit::document::StringSource;
using hierfit::document::Table;
using hierfit::document::Text;
using hierfit::document::ValueSource;

namespace {

constexpr int kColumns = 10;
constexpr int kRowsOfGroup = 10;
constexpr int kRowsToNote = 100;

Text MakeText(const std::string& words) { return {words, StringSource{words, true}}; }

Dimension MakeRows(int rows) {
    Dimension dimension{MakeText("Parameter"), 2, true, Side::Rows, 1, false, false, {}};
    for (int row = 0; row < rows; ++row) {
        if (row % kRowsOfGroup == 0) {
            dimension.fMembers.push_back({Group{MakeText(fmt::format("Effect {}", row / kRowsOfGroup)), true, 2, {}}});
        }
        Category category{row, {fmt::format("Level {}", row), ValueSource{static_cast<double>(row), "level", 2}}, {}};
        if (row % kRowsToNote == 0) category.fvNotes.push_back(MakeText("This coefficient is set to zero."));
        std::get<Group>(dimension.fMembers.back().fContent).fMembers.push_back({std::move(category)});
    }
    return dimension;
}

Dimension MakeColumns() {
    Dimension dimension{MakeText("Statistics"), 2, true, Side::Columns, 1, true, false, {}};
    for (int column = 0; column < kColumns; ++column) {
        dimension.fMembers.push_back({Category{column, MakeText(fmt::format("Statistic {}", column)), {}}});
    }
    return dimension;
}

/// A figure of some digits before and behind the point, the same in every run.
Text MakeFigure(int cell) {
    const double number = std::sin(cell) * std::pow(10.0, cell % 4);
    return {fmt::format("{:.3f}", number), NumberSource{number, {FormatName::Coefficient}}};
}

}  // namespace

Document GenerateDocument(int cells) {
    Table table{MakeText("Fixed Coefficients"), MakeText("Fixed Coefficients"), true, 150, {}, {}, {}, {}};
    table.fvCaptions.push_back(MakeText("Probability distribution: Normal"));
    table.fvDimensions = {MakeRows(cells / kColumns), MakeColumns()};
    for (int cell = 0; cell < cells; ++cell) {
        table.fvCells.push_back({{cell / kColumns, cell % kColumns}, MakeFigure(cell), {}});
    }
    Document document{"hierfit", "en", "Generated", {"model.pmml", "model.statxml"}, {}, {}};
    document.fItems.push_back({std::move(table)});
    return document;
}

}  // namespace bench
