#include "tests/hierfit/Drawing.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "host/SystemMissing.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {

namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

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
    return drawn;
}

std::string DrawValue(const document::ChartValue& value) {
    return std::visit(
        Overloaded{[](std::monostate) { return std::string("-"); }, [](double number) { return DrawNumber(number); },
                   [](const std::string& text) { return "'" + text + "'"; }},
        value);
}

std::string DrawArguments(const document::ChartCall& call) {
    std::string drawn;
    for (const document::ChartCall::Argument& argument : call.fvArguments) {
        drawn += drawn.empty() ? "" : ",";
        drawn += std::visit(Overloaded{[](bool flag) { return std::string(flag ? "true" : "false"); },
                                       [](const std::string& text) { return text; },
                                       [](const std::array<int, 3>& format) {
                                           return std::to_string(format[0]) + "." + std::to_string(format[1]) + "." +
                                                  std::to_string(format[2]);
                                       }},
                            argument);
    }
    return "(" + drawn + ")";
}

std::string DrawNotes(const std::vector<document::Text>& notes) {
    std::string drawn;
    for (const document::Text& note : notes) drawn += " * " + DrawText(note);
    return drawn;
}

/// The categories of a dimension in their order, each with its path.
using Paths = std::vector<std::pair<int, std::string>>;

std::string DrawMembers(const std::list<document::Member>& members, const std::string& path, Paths& paths) {
    std::string drawn;
    for (const document::Member& member : members) {
        drawn += drawn.empty() ? "" : ", ";
        if (const auto* category = std::get_if<document::Category>(&member.fContent)) {
            drawn += DrawText(category->fLabel) + DrawNotes(category->fvNotes);
            paths.emplace_back(category->fId, path + DrawText(category->fLabel));
        } else {
            const auto& group = std::get<document::Group>(member.fContent);
            const std::string label = DrawText(group.fLabel);
            drawn += label + (group.fFlag && group.fSort == 2 ? "" : "!") + "{" +
                     DrawMembers(group.fMembers, path + label + "/", paths) + "}";
        }
    }
    return drawn;
}

std::string DrawPosition(const document::Dimension& dimension) {
    if (!dimension.fPositioned) return "by itself";
    return std::string(dimension.fSide == document::Side::Rows ? "rows " : "columns ") +
           std::to_string(dimension.fIndex) + (dimension.fHideName ? " -name" : "") +
           (dimension.fHideLabels ? " -labels" : "");
}

std::size_t PlaceOf(const Paths& paths, int id) {
    const auto found = std::find_if(paths.begin(), paths.end(), [&](const auto& path) { return path.first == id; });
    return static_cast<std::size_t>(found - paths.begin());
}

/// A line for each row, with a place for each column.
std::string DrawCells(const document::Table& table, const std::vector<Paths>& paths) {
    const bool hasColumns = table.fvDimensions.back().fSide == document::Side::Columns;
    const std::size_t rowDimensions = paths.size() - (hasColumns ? 1 : 0);
    std::vector<std::pair<std::string, Strings>> rows;
    for (const document::Cell& cell : table.fvCells) {
        std::string label;
        for (std::size_t i = 0; i < rowDimensions; ++i) {
            const std::size_t place = PlaceOf(paths[i], cell.fvAt[i]);
            label += (i > 0 ? " | " : "") + (place < paths[i].size() ? paths[i][place].second : "-");
        }
        auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& one) { return one.first == label; });
        if (row == rows.end()) row = rows.insert(row, {label, Strings(hasColumns ? paths.back().size() : 1, "_")});
        const std::size_t column = hasColumns ? PlaceOf(paths.back(), cell.fvAt.back()) : 0;
        row->second.at(column) = DrawText(cell.fContent) + DrawNotes(cell.fvNotes);
    }
    std::string drawn;
    for (const auto& [label, cells] : rows) {
        drawn += label + ":";
        for (const std::string& cell : cells) drawn += " " + cell;
        drawn += "\n";
    }
    return drawn;
}

}  // namespace

std::string DrawText(const document::Text& text) {
    return std::visit(Overloaded{
                          [](const document::StringSource& source) {
                              return source.fTranslate ? source.fString : "'" + source.fString + "'";
                          },
                          [](const document::NumberSource& source) {
                              std::string drawn =
                                  DrawNumber(source.fNumber) + "CESGNPD"[static_cast<int>(source.fFormat.fName)];
                              const bool isDigits = source.fFormat.fName == document::FormatName::SigDigit;
                              if (isDigits && source.fFormat.fArgument != source.fNumber) drawn += "!";
                              return drawn;
                          },
                          [](const document::VariableSource& source) {
                              return "<" + source.fVariable + "/" + std::to_string(source.fShow) + ">";
                          },
                          [](const document::ValueSource& source) {
                              const auto* number = std::get_if<double>(&source.fValue);
                              return "<" + source.fVariable + "=" +
                                     (number ? DrawNumber(*number) : std::get<std::string>(source.fValue)) + "/" +
                                     std::to_string(source.fPreference) + ">";
                          },
                          [](const document::PatternSource& source) {
                              return (source.fTranslate ? source.fPattern : "'" + source.fPattern + "'") + "(" +
                                     DrawArguments(source) + ")";
                          },
                      },
                      text.fFrom);
}

std::string DrawTable(const document::Table& table) {
    std::string drawn = "table " + DrawText(table.fSubtype) + " " + DrawText(table.fTitle);
    if (!table.fFlag) drawn += " flag false";
    if (table.fMinDataColumnWidth) drawn += " width " + std::to_string(*table.fMinDataColumnWidth);
    drawn += "\n";
    for (const document::Text& caption : table.fvCaptions) drawn += "caption " + DrawText(caption) + "\n";
    for (const document::Text& note : table.fvNotes) drawn += "note " + DrawText(note) + "\n";
    std::vector<Paths> paths;
    for (const document::Dimension& dimension : table.fvDimensions) {
        drawn += DrawPosition(dimension) + " " + DrawText(dimension.fName) + (dimension.fSort == 2 ? "" : "!") + ": ";
        drawn += DrawMembers(dimension.fMembers, "", paths.emplace_back()) + "\n";
    }
    return table.fvCells.empty() ? drawn : drawn + DrawCells(table, paths);
}

std::string DrawChart(const document::Chart& chart) {
    std::string drawn = "chart " + chart.fTemplate + " " + chart.fDescription + "\n";
    for (const document::ChartSource& source : chart.fvData) {
        for (const document::ChartVariable& variable : source.fvVariables) {
            drawn += source.fName + "." + variable.fName + ":";
            for (const document::ChartValue& value : variable.fvValues) drawn += " " + DrawValue(value);
            drawn += "\n";
        }
    }
    for (const document::ChartSetting& setting : chart.fvSettings) {
        drawn += setting.fName + "[" + std::to_string(setting.fIndex) + "]:";
        for (const document::ChartCall& call : setting.fvCalls) drawn += " " + call.fName + DrawArguments(call);
        drawn += "\n";
    }
    return drawn;
}

std::string DrawItems(const std::list<document::Item>& items, const std::string& indent) {
    std::string drawn;
    for (const document::Item& item : items) {
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) {
            drawn += indent + "heading " + DrawText(heading->fTitle) + "\n" + DrawItems(heading->fItems, indent + "  ");
        } else if (const auto* table = std::get_if<document::Table>(&item.fContent)) {
            drawn += indent + DrawTable(*table);
        } else if (const auto* message = std::get_if<document::Message>(&item.fContent)) {
            drawn += indent + "message " + std::to_string(message->fShow) + " " + std::to_string(message->fLevel) +
                     " " + DrawText(message->fText) + "\n";
        }
    }
    return drawn;
}

}  // namespace hierfit::test
