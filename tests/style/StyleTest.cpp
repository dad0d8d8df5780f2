#include "report/style/Style.h"

#include "report/style/FigureKind.h"
#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

using namespace document;
using report::style::FigureKind;

Text MakeString(const std::string& words) { return {words, StringSource{words, true}}; }

Text MakeNumber(double number, FormatName format, const std::string& words) {
    return {words, NumberSource{number, {format}}};
}

/// A table of one row and one column, and in it one figure.
Table MakeTable(const std::string& subtype, const Text& row, const Text& column, const Text& figure) {
    Table table = test::SketchTable("rows 1 R : r\ncolumns 1 C : c\ncells 1");
    table.fSubtype = {subtype, StringSource{subtype, false}};
    for (int side = 0; side < 2; ++side) {
        Dimension& dimension = table.fvDimensions[static_cast<std::size_t>(side)];
        std::get<Category>(dimension.fMembers.front().fContent).fLabel = side == 0 ? row : column;
    }
    table.fvCells[0].fContent = figure;
    return table;
}

TEST(FigureKinds, AreToldBySubtypeAndColumn) {
    const Text effect = MakeString("Effect");
    const Text slope{"t", VariableSource{"t", 2}};
    const Text rho{"AR(1) rho", PatternSource{"AR1 rho", true, {}}};
    const std::tuple<const char*, Text, Text, FormatName, FigureKind> cases[] = {
        {"FixedEffects", effect, MakeString("Sig."), FormatName::Significance, FigureKind::PValue},
        {"Contrasts", effect, MakeString("Adj. Sig."), FormatName::Coefficient, FigureKind::PValue},
        {"Contrasts", effect, MakeString("df"), FormatName::Coefficient, FigureKind::DegreesOfFreedom},
        {"FixedCoefficients", effect, slope, FormatName::GeneralStat, FigureKind::Other},
        {"FixedCoefficients", effect, MakeString("Coefficient"), FormatName::Count, FigureKind::Other},
        {"CovarianceParameters", rho, MakeString("Estimate"), FormatName::Coefficient, FigureKind::Correlation},
        {"CovarianceParameters", rho, MakeString("Z"), FormatName::GeneralStat, FigureKind::Statistic},
        {"ResidualEffect", MakeString("Variance"), MakeString("Lower"), FormatName::Coefficient, FigureKind::Estimate},
        {"RandomEffects", effect, MakeString("t"), FormatName::Coefficient, FigureKind::Estimate},
        {"Classification", effect, MakeString("Sig."), FormatName::Percent, FigureKind::Other},
    };
    for (const auto& [subtype, row, column, format, kind] : cases) {
        const Table table = MakeTable(subtype, row, column, MakeNumber(0.5, format, "0.5"));
        EXPECT_EQ(report::style::FigureKinds(table).Of(table.fvCells[0]), kind) << subtype << ", " << column.fWords;
    }
}

TEST(PlainStyle, WritesSignsAsPrintersDo) {
    const Text minusOne = MakeNumber(-1, FormatName::SigDigit, "-1");
    const Text minusTwo{"-2.0", ValueSource{-2.0, "dose", 2}};
    const auto compare = [](const char* first, const char* second, const char* words) {
        return Text{words,
                    PatternSource{"^1 - ^2", false, {{false, {MakeString(first)}}, {false, {MakeString(second)}}}}};
    };
    const std::pair<Text, const char*> cases[] = {
        {MakeNumber(-0.25, FormatName::Coefficient, "-0.250"), "−0.250"},
        {MakeNumber(1.2e-7, FormatName::Coefficient, "1.20e-07"), "1.20e-07"},
        {minusTwo, "−2.0"},
        {{"-", ValueSource{1.0, "sign", 2}}, "-"},
        {{"-2 to 0", ValueSource{1.0, "range", 2}}, "-2 to 0"},
        {MakeString("-1"), "-1"},
        {compare("A", "B", "A - B"), "A – B"},
        {compare("A - B", "C", "A - B - C"), "A - B – C"},
        {compare("A", "B", "A / B"), "A / B"},
        {{"x = -1, dose = -2.0", PatternSource{"x = ^1, dose = ^2", true, {{false, {minusOne}}, {false, {minusTwo}}}}},
         "x = −1, dose = −2.0"},
        {{"x-1 = -1", PatternSource{"^1 = ^2", true, {{false, {MakeString("x-1")}}, {false, {minusOne}}}}}, "x-1 = −1"},
        {{"-1; -1", PatternSource{"[%1:; ^1:]1", true, {{true, {minusOne, minusOne}}}}}, "−1; −1"},
    };
    for (const auto& [before, after] : cases) {
        Document document;
        document.fItems.push_back({MakeTable("T", before, MakeString("C"), before)});
        report::style::Apply(document, {});
        const auto& table = std::get<Table>(document.fItems.front().fContent);
        EXPECT_EQ(table.fvCells[0].fContent.fWords, after);
        EXPECT_EQ(std::get<Category>(table.fvDimensions[0].fMembers.front().fContent).fLabel.fWords, after);
        EXPECT_EQ(table.fvCells[0].fContent.fFrom, before.fFrom);
    }
}

TEST(PlainStyle, WritesPValuesUnderHeadingsByTheirRule) {
    Document document;
    Heading heading;
    const Text p = MakeNumber(0.000468, FormatName::Coefficient, "as it was");
    heading.fItems.push_back({MakeTable("Contrasts", MakeString("R"), MakeString("Adj. Sig."), p)});
    document.fItems.push_back({std::move(heading)});
    report::style::Apply(document, {});
    const auto& items = std::get<Heading>(document.fItems.front().fContent).fItems;
    EXPECT_EQ(std::get<Table>(items.front().fContent).fvCells[0].fContent.fWords, "<.001");
}

}  // namespace
}  // namespace hierfit
