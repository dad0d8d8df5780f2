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
Table MakeTable(const std::string& subtype, Text row, Text column, Text figure) {
    Table table{};
    table.fSubtype = {subtype, StringSource{subtype, false}};
    const auto add = [&](Side side, Text label) {
        Dimension dimension{};
        dimension.fSide = side;
        dimension.fIndex = 1;
        dimension.fMembers.push_back({Category{0, std::move(label), {}}});
        table.fvDimensions.push_back(std::move(dimension));
    };
    add(Side::Rows, std::move(row));
    add(Side::Columns, std::move(column));
    table.fvCells.push_back({{0, 0}, std::move(figure), {}});
    return table;
}

struct KindCase {
    const char* fSubtype;
    Text fRow;
    Text fColumn;
    FormatName fFormat;
    FigureKind fKind;
};

TEST(FigureKinds, AreToldBySubtypeAndColumn) {
    const Text effect = MakeString("Effect");
    const Text slope{"t", VariableSource{"t", 2}};
    const Text rho{"AR(1) rho", PatternSource{"AR1 rho", true, {}}};
    const KindCase cases[] = {
        {"FixedEffects", effect, MakeString("Sig."), FormatName::Significance, FigureKind::PValue},
        {"Contrasts", effect, MakeString("Adj. Sig."), FormatName::Coefficient, FigureKind::PValue},
        {"Contrasts", effect, MakeString("df"), FormatName::Coefficient, FigureKind::DegreesOfFreedom},
        {"FixedCoefficients", effect, MakeString("t"), FormatName::GeneralStat, FigureKind::Statistic},
        {"FixedCoefficients", effect, slope, FormatName::GeneralStat, FigureKind::Other},
        {"FixedCoefficients", effect, MakeString("Coefficient"), FormatName::Count, FigureKind::Other},
        {"Estimates", effect, MakeString("Std. Error"), FormatName::CoefficientSE, FigureKind::Estimate},
        {"CovarianceParameters", rho, MakeString("Estimate"), FormatName::Coefficient, FigureKind::Correlation},
        {"CovarianceParameters", rho, MakeString("Z"), FormatName::GeneralStat, FigureKind::Statistic},
        {"CovarianceParameters", rho, MakeString("Sig."), FormatName::Significance, FigureKind::PValue},
        {"ResidualEffect", MakeString("Variance"), MakeString("Lower"), FormatName::Coefficient, FigureKind::Estimate},
        {"RandomEffects", effect, MakeString("t"), FormatName::Coefficient, FigureKind::Estimate},
        {"Classification", effect, MakeString("Sig."), FormatName::Percent, FigureKind::Other},
    };
    for (const KindCase& test : cases) {
        const Table table = MakeTable(test.fSubtype, test.fRow, test.fColumn, MakeNumber(0.5, test.fFormat, "0.5"));
        EXPECT_EQ(report::style::FigureKinds(table).Of(table.fvCells[0]), test.fKind)
            << test.fSubtype << ", " << test.fRow.fWords << ", " << test.fColumn.fWords;
    }
}

struct WordsCase {
    Text fBefore;
    const char* fAfter;
};

TEST(PlainStyle, WritesSignsAsPrintersDo) {
    const Text minusOne = MakeNumber(-1, FormatName::SigDigit, "-1");
    const Text minusTwo{"-2.0", ValueSource{-2.0, "dose", 2}};
    const auto compare = [](const char* first, const char* second, const char* words) {
        return Text{words,
                    PatternSource{"^1 - ^2", false, {{false, {MakeString(first)}}, {false, {MakeString(second)}}}}};
    };
    const WordsCase cases[] = {
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
        {{"-1; -1", PatternSource{"[%1:; ^1:]1", true, {{true, {minusOne, minusOne}}}}}, "−1; −1"},
    };
    for (const WordsCase& test : cases) {
        Document document;
        document.fItems.push_back({MakeTable("T", test.fBefore, MakeString("C"), test.fBefore)});
        report::style::Apply(document, {});
        const auto& table = std::get<Table>(document.fItems.front().fContent);
        EXPECT_EQ(table.fvCells[0].fContent.fWords, test.fAfter);
        const auto& category = std::get<Category>(table.fvDimensions[0].fMembers.front().fContent);
        EXPECT_EQ(category.fLabel.fWords, test.fAfter);
        EXPECT_EQ(table.fvCells[0].fContent.fFrom, test.fBefore.fFrom);
    }
}

TEST(PlainStyle, WritesEveryPValueByOneRule) {
    const std::pair<double, const char*> cases[] = {
        {0.000468, "<.001"}, {0.0312, ".031"}, {1, "1.000"}, {1e-11, "<.001"}, {0.0006, ".001"}};
    for (const auto& [number, words] : cases) {
        Document document;
        Heading heading;
        heading.fItems.push_back({MakeTable("Contrasts", MakeString("R"), MakeString("Adj. Sig."),
                                            MakeNumber(number, FormatName::Coefficient, "as it was"))});
        document.fItems.push_back({std::move(heading)});
        report::style::Apply(document, {});
        const auto& items = std::get<Heading>(document.fItems.front().fContent).fItems;
        EXPECT_EQ(std::get<Table>(items.front().fContent).fvCells[0].fContent.fWords, words);
    }
}

}  // namespace
}  // namespace hierfit
