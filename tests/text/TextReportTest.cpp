#include "report/text/TextReport.h"

#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

struct TableCase {
    const char* fName;
    int fWidth;
    const char* fTable;
    const char* fText;
};

const TableCase kTables[] = {
    {"numbers by their decimal signs, groups above their columns", 0, R"(
title Fixed_Coefficients
caption Probability_distribution:_Normal
note Target:_distance
rows 1 Model_Term : Intercept age Sex:F Sex:M
columns 1 -name Statistics : Coefficient Std._Error t Sig. 95%_Confidence_Interval(Lower+Upper)
cells Intercept,Coefficient=#16.341 Intercept,Std._Error=#.9813 Intercept,t=#16.653 Intercept,Sig.=#<.001
cells Intercept,Lower=#14.395 Intercept,Upper=#18.287 age,Coefficient=#-0.784 age,Std._Error=#0.0775 age,t=#10.121
cells age,Sig.=#.025 age,Lower=#0.630 age,Upper=#0.938 Sex:F,Coefficient=#0*Redundant_coefficient,_set_to_zero.
)",
     R"(
)"},
};

std::string Print(const document::Table& table, int width) {
    document::Document document;
    document.fItems.push_back({table});
    return report::MakeTextReport(document, {width, false});
}

TEST(TextReport, PrintsTables) {
    for (const TableCase& test : kTables) {
        EXPECT_EQ(Print(test::SketchTable(test.fTable), test.fWidth), std::string_view(test.fText).substr(1))
            << test.fName;
    }
}

}  // namespace
}  // namespace hierfit
