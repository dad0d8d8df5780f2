#include "report/json/JsonView.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <system_error>
#include <utility>

#include "host/document/ViewExpressions.h"

namespace hierfit::report {

using document::Chart;
using document::ChartTable;
using Kind = JsonTokens::Kind;

namespace {

constexpr std::string_view kTables = "usermeta";

void AppendTexts(std::string& out, const std::vector<std::string>& texts) {
    out += '[';
    for (const std::string& text : texts) {
        if (&text != &texts.front()) out += ',';
        AppendQuoted(out, text);
    }
    out += ']';
}

void AppendMembers(std::string& out, const ChartTable& table) {
    out += "\"columns\":";
    AppendTexts(out, table.fvColumns);
    out += fmt::format(",\"keys\":{},\"rows\":[", table.fKeys);
    for (const std::vector<std::string>& row : table.fvRows) {
        if (&row != &table.fvRows.front()) out += ',';
        AppendTexts(out, row);
    }
    out += ']';
}

/// The first table, and as a member of it the further ones.
void AppendTables(std::string& out, const std::vector<ChartTable>& tables) {
    out.append(",\"").append(kTables).append("\":{");
    AppendMembers(out, tables.empty() ? ChartTable() : tables.front());
    for (std::size_t index = 1; index < tables.size(); ++index) {
        out += index == 1 ? ",\"further\":[{" : ",{";
        AppendMembers(out, tables[index]);
        out += '}';
    }
    out += tables.size() > 1 ? "]}" : "}";
}

void CheckRows(const JsonReader& in, const ChartTable& table) {
    const std::size_t columns = table.fvColumns.size();
    const auto isWrong = [columns](const std::vector<std::string>& row) { return row.size() != columns; };
    const auto wrong = std::find_if(table.fvRows.begin(), table.fvRows.end(), isWrong);
    if (wrong == table.fvRows.end()) return;
    in.Fail(fmt::format("{} cells expected, one for each column", columns),
            fmt::format("/rows/{}", wrong - table.fvRows.begin()));
}

/// Where nothing is said of keys, as in older documents, the first column counts as one.
int DefaultKeys(const ChartTable& table) { return table.fvColumns.size() > 1 ? 1 : 0; }

void CheckKeys(const JsonReader& in, const ChartTable& table) {
    const int most = std::max(static_cast<int>(table.fvColumns.size()) - 1, 0);
    if (table.fKeys >= 0 && table.fKeys <= most) return;
    in.Fail(fmt::format("whole number from 0 to {} expected", most), "/keys");
}

/// Reads a table, and the fields that stand beside its own.
template <typename... Target>
void ReadTable(JsonReader& in, ChartTable& table, Field<Target>... more) {
    Field columns("columns", table.fvColumns);
    Field keys("keys", table.fKeys);
    Field rows("rows", table.fvRows);
    in.ReadFields(columns, keys, rows, more...);
    in.Require(columns);
    in.Require(rows);
    if (!keys.fIsSeen) table.fKeys = DefaultKeys(table);
    CheckKeys(in, table);
    CheckRows(in, table);
}

}  // namespace

// Static rather than in the unnamed namespace: there the template for lists would not find it.
static void Read(JsonReader& in, ChartTable& table) { ReadTable(in, table); }

namespace {

/// The first table, and beside its members the further ones. A table without columns is none.
void ReadTables(JsonReader& in, std::vector<ChartTable>& tables) {
    ChartTable first;
    ReadTable(in, first, Field("further", tables));
    tables.insert(tables.begin(), std::move(first));
    std::erase_if(tables, [](const ChartTable& table) { return table.fvColumns.empty(); });
}

/// Numbers that decide how much is drawn.
struct Most {
    std::string_view fKey;
    int fNumber;
};
constexpr Most kMost[] = {
    {"tickCount", document::kMostTicks}, {"width", document::kMostPixels}, {"height", document::kMostPixels}};

const Most* FindExceeded(std::string_view key, std::string_view number) {
    const auto* const most = std::ranges::find(kMost, key, &Most::fKey);
    if (most == std::end(kMost)) return nullptr;
    double value = 0;
    const auto read = std::from_chars(number.begin(), number.end(), value);
    return read.ec == std::errc() && value <= most->fNumber ? nullptr : most;
}

/// Where a value stands decides what it may be.
enum class Place : unsigned char { Picture, Data, Row, Expression };

/// Copies a view without blanks while it makes sure of every key and expression.
class ViewReader {
  public:
    ViewReader(JsonReader& in, Chart& chart) : fIn(in), fTokens(in.GetTokens()), fChart(chart), fOut(chart.fView) {}

    void Read() {
        fIn.Expect(Kind::Object, "object expected");
        fOut += '{';
        fTokens.BeginObject();
        std::string_view key;
        while (fTokens.NextKey(key)) {
            if (key == kTables) {
                fIn.ReadValueOf(kTables, [this] {
                    if (std::exchange(fHasTables, true)) fIn.Fail("key expected once");
                    ReadTables(fIn, fChart.fShown.fvTables);
                });
            } else if (key == "description") {
                CopySentence();
            } else {
                CopyMember(key, Place::Picture);
            }
        }
        fOut += '}';
        if (fOut == "{}") fOut.clear();
    }

  private:
    void CopyKey(std::string_view key) {
        if (fOut.back() != '{') fOut += ',';
        AppendQuoted(fOut, key);
        fOut += ':';
    }

    void CopySentence() {
        CopyKey("description");
        fIn.ReadValueOf("description", [this] {
            fIn.Expect(Kind::String, "text expected");
            fChart.fShown.fSentence = fTokens.TakeString();
            AppendQuoted(fOut, fChart.fShown.fSentence);
        });
    }

    /// Inside rows of data keys are free, since nothing but the picture's keys gives them a meaning.
    void CopyMember(std::string_view key, Place place) {
        CopyKey(key);
        if (place == Place::Row) return fTokens.CopyCompact(fOut);
        const std::string_view known = document::FindViewKey(key);
        if (known.empty()) fIn.Fail("key of a view expected", "/" + std::string(key));
        fIn.ReadValueOf(known, [&] {
            if (fTokens.Peek() == Kind::Number) return CopyNumber(known);
            CopyValue(PlaceOf(known, place));
        });
    }

    void CopyNumber(std::string_view key) {
        const std::string_view number = fTokens.TakeNumber();
        if (const Most* most = FindExceeded(key, number)) {
            fIn.Fail(fmt::format("number up to {} expected", most->fNumber));
        }
        fOut += number;
    }

    static Place PlaceOf(std::string_view key, Place around) {
        if (key == "data") return Place::Data;
        if (key == "values" && around == Place::Data) return Place::Row;
        return document::IsExpressionKey(key) ? Place::Expression : Place::Picture;
    }

    void CopyValue(Place place) {
        switch (fTokens.Peek()) {
            case Kind::Object:
                return CopyObject(place);
            case Kind::List:
                return CopyList(place);
            case Kind::String:
                if (place == Place::Expression) return CopyExpression();
                [[fallthrough]];
            default:
                return fTokens.CopyCompact(fOut);
        }
    }

    void CopyObject(Place place) {
        fOut += '{';
        fTokens.BeginObject();
        std::string_view key;
        while (fTokens.NextKey(key)) CopyMember(key, place);
        fOut += '}';
    }

    void CopyList(Place place) {
        fOut += '[';
        fIn.ReadList([&](std::size_t index) {
            if (index > 0) fOut += ',';
            CopyValue(place);
        });
        fOut += ']';
    }

    void CopyExpression() {
        const std::string_view text = fTokens.TakeString();
        if (!document::IsViewExpression(text)) fIn.Fail("one of the expressions of views expected");
        AppendQuoted(fOut, text);
    }

    JsonReader& fIn;
    JsonTokens& fTokens;
    Chart& fChart;
    std::string& fOut;
    bool fHasTables = false;
};

}  // namespace

void WriteView(JsonOutput& out, const Chart& chart) {
    if (chart.fView.empty()) return out.Verbatim("{}");
    std::string view(chart.fView, 0, chart.fView.size() - 1);
    AppendTables(view, chart.fShown.fvTables);
    view += '}';
    out.Verbatim(view);
}

void ReadView(JsonReader& in, Chart& chart) { ViewReader(in, chart).Read(); }

}  // namespace hierfit::report
