#include "report/json/JsonView.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

#include "host/document/ViewExpressions.h"

namespace hierfit::report {

using document::Chart;
using document::ChartShown;
using Kind = JsonTokens::Kind;

namespace {

constexpr std::string_view kTable = "usermeta";

/// The view without blanks between its tokens; an empty object where it is none.
std::string MakeCompact(const std::string& view) {
    try {
        JsonTokens tokens(view);
        std::string compact;
        const bool isObject = tokens.Peek() == Kind::Object;
        tokens.CopyCompact(compact);
        tokens.Finish();
        return isObject ? compact : "{}";
    } catch (const JsonFailure&) {
        return "{}";
    }
}

void AppendTexts(std::string& out, const std::vector<std::string>& texts) {
    out += '[';
    for (const std::string& text : texts) {
        if (&text != &texts.front()) out += ',';
        AppendQuoted(out, text);
    }
    out += ']';
}

void AppendTable(std::string& out, const ChartShown& shown) {
    out.append(",\"").append(kTable).append("\":{\"columns\":");
    AppendTexts(out, shown.fvColumns);
    out += ",\"rows\":[";
    for (const std::vector<std::string>& row : shown.fvRows) {
        if (&row != &shown.fvRows.front()) out += ',';
        AppendTexts(out, row);
    }
    out += "]}";
}

void ReadTable(JsonReader& in, ChartShown& shown) {
    in.ReadObject(Field("columns", shown.fvColumns), Field("rows", shown.fvRows));
    const std::size_t columns = shown.fvColumns.size();
    const auto isWrong = [columns](const std::vector<std::string>& row) { return row.size() != columns; };
    const auto wrong = std::find_if(shown.fvRows.begin(), shown.fvRows.end(), isWrong);
    if (wrong == shown.fvRows.end()) return;
    in.Fail(fmt::format("{} cells expected, one for each column", columns),
            fmt::format("/rows/{}", wrong - shown.fvRows.begin()));
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
            if (key == kTable) {
                fIn.ReadValueOf(kTable, [this] {
                    if (std::exchange(fHasTable, true)) fIn.Fail("key expected once");
                    ReadTable(fIn, fChart.fShown);
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
        fIn.ReadValueOf(known, [&] { CopyValue(PlaceOf(known, place)); });
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
    bool fHasTable = false;
};

}  // namespace

void WriteView(JsonOutput& out, const Chart& chart) {
    std::string view = MakeCompact(chart.fView);
    if (view != "{}") {
        view.pop_back();
        AppendTable(view, chart.fShown);
        view += '}';
    }
    out.Verbatim(view);
}

void ReadView(JsonReader& in, Chart& chart) { ViewReader(in, chart).Read(); }

}  // namespace hierfit::report
