#include "report/layout/NumberColumns.h"

#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

using test::Repeated;
using test::SketchTable;

TEST(NumberColumns, AlignAtTheDecimalSign) {
    const std::pair<std::vector<std::string>, std::vector<std::string>> cases[] = {
        {{"1", "2.5", "3.25", "."}, {".00", "0", "", "00"}}, {{"12", "3"}, {"", ""}},
        {{".012", "<.001", "1.000"}, {"", "", ""}},          {{"0.5", "-3.21E-05"}, {"0E-05", ""}},
        {{"0.000468", "4E-05"}, {"E-05", ".000000"}},        {{"45", "83.3%", "7%", "1.5"}, {".0", "", ".0", ""}},
        {{"1", "0." + std::string(100, '0')}, {"", ""}},
    };
    for (const auto& [numbers, expected] : cases) {
        std::string sketch = "rows 1 R :" + Repeated(" r", numbers.size()) + "\ncells";
        for (const std::string& number : numbers) sketch += ' ' + number;
        const document::Table table = SketchTable(sketch);
        const NumberColumns columns(MakeGrid(table));
        std::vector<std::string> paddings;
        for (const std::string& number : numbers) paddings.emplace_back(columns.PaddingOf(0, number));
        EXPECT_EQ(paddings, expected);
    }
}

}  // namespace

}  // namespace hierfit::report
