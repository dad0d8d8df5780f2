#include "report/xlsx/sheets/SheetNames.h"

#include "report/xlsx/cells/CellText.h"

namespace hierfit::report::xlsx {

namespace {

TEST(SheetNames, FitAndDiffer) {
    const std::string stem(40, 'A');
    const std::pair<std::string, std::string> kCases[] = {
        {"Estimates-1", "Estimates-1"},
        {"estimates-1", "estimates-1 (2)"},
        {"ESTIMATES-1", "ESTIMATES-1 (3)"},
        {stem + "-12", std::string(28, 'A') + "-12"},
        {stem + "B-12", std::string(24, 'A') + "-12 (2)"},
        {"a[]:*?/\\b-1", "a_______b-1"},
        {"", " (2)"},
    };
    SheetNames names;
    for (const auto& [item, name] : kCases) EXPECT_EQ(names.Add(item), name);
}

TEST(CellText, EscapesWhatWouldBeACode) {
    const std::pair<const char*, const char*> kCases[] = {
        {"_x0041_", "_x005F_x0041_"}, {"a_x00e9_x0041_", "a_x005F_x00e9_x005F_x0041_"}, {"_x0041", "_x0041"},
        {"_x00g1_", "_x00g1_"},       {"_x0041__x0042_", "_x005F_x0041__x005F_x0042_"},
    };
    for (const auto& [text, escaped] : kCases) EXPECT_EQ(EscapeCodes(text), escaped);
}

}  // namespace

}  // namespace hierfit::report::xlsx
