#include "tests/hierfit/Drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "host/SystemMissing.h"
#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {

namespace {

std::string DrawNumber(double number) {
    if (number == kSystemMissing) return ".";
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.10g", number);
    return buffer;
}

std::string DrawArguments(const document::PatternSource& pattern) {
    std::string drawn;
    for (const document::Argument& argument : pattern.fvArguments) {
        std::string texts;
        for (const document::Text& text : argument.fvTexts) texts += (texts.empty() ? "" : "; ") + DrawText(text);
        drawn += (drawn.empty() ? "" : "; ") + (argument.fIsSublist ? "[" + texts + "]" : texts);
    }
    return "(" + drawn + ")";
}

std::string DrawNotes(const std::vector<document::Text>& notes) {
    std::string drawn;
    for (const document::Text& note : notes) drawn += " * " + DrawText(note);
    return drawn;
}

/// The categories of a dimension by their ids, each with its path.
using Paths = std::map<int, std::string>;

std::string DrawMembers(const std::list<document::Member>& members, const std::string& path, Paths& paths) {
    std::string drawn;
    for (const document::Member& member : members) {
        drawn += drawn.empty() ? "" : ", ";
        if (const auto* category = std::get_if<document::Category>(&member.fContent)) {
            drawn += DrawText(category->fLabel) + DrawNotes(category->fvNotes);
            paths[category->fId] = path + DrawText(category->fLabel);
        } else {
            const auto& group = std::get<document::Group>(member.fContent);
            const std::string label = DrawText(group.fLabel);
            drawn += label + (group.fFlag && group.fSort == 2 ? "" : "!") + "{" +
                     DrawMembers(group.fMembers, path + label + "/", paths) + "}";
        }
    }
    return drawn;
}

std::string DrawDimension(const document::Dimension& dimension, Paths& paths) {
    const std::string side = dimension.fSide == document::Side::Rows ? "rows " : "columns ";
    std::string drawn = dimension.fPositioned ? side + std::to_string(dimension.fIndex) : "by itself";
    if (dimension.fHideName) drawn += " -name";
    if (dimension.fHideLabels) drawn += " -labels";
    drawn += " " + DrawText(dimension.fName) + (dimension.fSort == 2 ? "" : "!");
    return drawn + ": " + DrawMembers(dimension.fMembers, "", paths) + "\n";
}

/// A line for each row, with a place for each column.
std::string DrawCells(const document::Table& table, const std::vector<Paths>& paths) {
    const bool hasColumns = table.fvDimensions.back().fSide == document::Side::Columns;
    std::vector<std::pair<std::string, Strings>> rows;
    for (const document::Cell& cell : table.fvCells) {
        std::string label;
        for (std::size_t i = 0; i + (hasColumns ? 1 : 0) < paths.size(); ++i) {
            label += (i > 0 ? " | " : "") + paths[i].at(cell.fvAt[i]);
        }
        auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& one) { return one.first == label; });
        if (row == rows.end()) row = rows.insert(row, {label, Strings(hasColumns ? paths.back().size() : 1, " _")});
        const auto column = static_cast<std::size_t>(hasColumns ? cell.fvAt.back() : 0);
        row->second.at(column) = " " + DrawText(cell.fContent) + DrawNotes(cell.fvNotes);
    }
    std::string drawn;
    for (const auto& [label, cells] : rows) drawn += label + ":" + Join(cells, "", "") + "\n";
    return drawn;
}

std::string DrawTable(const document::Table& table) {
    std::string drawn = "table " + DrawText(table.fTitle);
    if (!table.fFlag) drawn += " flag false";
    if (table.fMinDataColumnWidth) drawn += " width " + std::to_string(*table.fMinDataColumnWidth);
    drawn += "\n";
    for (const document::Text& caption : table.fvCaptions) drawn += "caption " + DrawText(caption) + "\n";
    for (const document::Text& note : table.fvNotes) drawn += "note " + DrawText(note) + "\n";
    std::vector<Paths> paths;
    for (const document::Dimension& dimension : table.fvDimensions) {
        drawn += DrawDimension(dimension, paths.emplace_back());
    }
    return table.fvCells.empty() ? drawn : drawn + DrawCells(table, paths);
}

std::string DrawValue(const document::ChartValue& value) {
    if (const auto* number = std::get_if<double>(&value)) return " " + DrawNumber(*number);
    const auto* text = std::get_if<std::string>(&value);
    return text ? " '" + *text + "'" : " -";
}

std::string DrawChart(const document::Chart& chart) {
    std::string drawn = "chart " + chart.fTemplate + " " + chart.fDescription + "\n";
    for (const document::ChartSource& source : chart.fvData) {
        for (const document::ChartVariable& variable : source.fvVariables) {
            drawn += source.fName + "." + variable.fName + ":";
            for (const document::ChartValue& value : variable.fvValues) drawn += DrawValue(value);
            drawn += "\n";
        }
    }
    for (const document::ChartSetting& setting : chart.fvSettings) {
        drawn += setting.fName + "[" + std::to_string(setting.fIndex) + "]:";
        for (const document::ChartCall& call : setting.fvCalls) drawn += " " + call.fName;
        drawn += "\n";
    }
    return drawn + chart.fXml + "\n";
}

std::string Trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of('\n'), text.size());
    return std::string(text.substr(begin, text.find_last_not_of('\n') + 1 - begin));
}

}  // namespace

std::string DrawText(const document::Text& text) {
    const document::Source& from = text.fFrom;
    if (const auto* string = std::get_if<document::StringSource>(&from)) {
        return string->fTranslate ? string->fString : "'" + string->fString + "'";
    }
    if (const auto* number = std::get_if<document::NumberSource>(&from)) {
        const bool isDigits = number->fFormat.fName == document::FormatName::SigDigit;
        return DrawNumber(number->fNumber) + "CESGNPD"[static_cast<int>(number->fFormat.fName)] +
               (isDigits && number->fFormat.fArgument != number->fNumber ? "!" : "");
    }
    if (const auto* variable = std::get_if<document::VariableSource>(&from)) {
        return "<" + variable->fVariable + "/" + std::to_string(variable->fShow) + ">";
    }
    if (const auto* value = std::get_if<document::ValueSource>(&from)) {
        const auto* number = std::get_if<double>(&value->fValue);
        return "<" + value->fVariable.Get() + "=" +
               (number ? DrawNumber(*number) : std::get<document::SharedText>(value->fValue).Get()) + "/" +
               std::to_string(value->fPreference) + ">";
    }
    const auto& pattern = std::get<document::PatternSource>(from);
    return (pattern.fTranslate ? pattern.fPattern.Get() : "'" + pattern.fPattern.Get() + "'") + DrawArguments(pattern);
}

std::string Draw(const std::list<document::Item>& items, const std::string& subtype) {
    std::string drawn;
    for (const document::Item& item : items) {
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) {
            if (subtype.empty()) drawn += "heading " + DrawText(heading->fTitle) + "\n";
            drawn += Draw(heading->fItems, subtype);
        } else if (const auto* table = std::get_if<document::Table>(&item.fContent)) {
            if (table->fSubtype.fWords == subtype) drawn += DrawTable(*table);
        } else if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) {
            if (subtype == "charts") drawn += DrawChart(*chart);
        } else if (subtype.empty()) {
            const auto& message = std::get<document::Message>(item.fContent);
            drawn += "message " + std::to_string(message.fShow) + " " + std::to_string(message.fLevel) + " " +
                     DrawText(message.fText) + "\n";
        }
    }
    return drawn;
}

void CheckTables(const std::string& subtype, std::string_view diagnostic, std::span<const TableCase> cases) {
    for (const TableCase& one : cases) {
        ProcedureRun run;
        ASSERT_TRUE(run.Run(one.fSample.Text())) << run.Diagnostics();
        const std::string drawn = Draw(run.GetItems(), subtype) + run.Diagnostics(diagnostic);
        EXPECT_EQ(Trimmed(drawn), Trimmed(one.fDrawn)) << "case " << &one - cases.data();
    }
}

}  // namespace hierfit::test
