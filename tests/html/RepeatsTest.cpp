#include "report/html/Repeats.h"

#include <gtest/gtest.h>

#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report::html {

namespace {

using document::Heading;
using document::Item;
using document::Table;
using test::MakeText;

Table MakeMeans(std::size_t rows, const std::string& last = "1.5") {
    return test::SketchTable("title Estimates\nrows 1 Dose :" + test::Repeated(" dose", rows) +
                             "\ncolumns 1 -name S : Mean Sig.\ncells" + test::Repeated(" 1.25", 2 * rows - 1) + " " +
                             last);
}

Item Under(const std::string& heading, std::list<Item> items) { return {Heading{MakeText(heading), std::move(items)}}; }

/// "second under first", ... for what repeats what.
std::string DescribeRepeats(std::list<Item> items) {
    const document::Document document{"hierfit 0.1.0", "en", "Report", {}, std::move(items), {}};
    const std::vector<items::Entry> entries = items::ListEntries(document);
    const std::vector<Repeat> repeats = FindRepeats(entries);
    std::string lines;
    for (std::size_t at = 0; at < entries.size(); ++at) {
        if (!repeats[at].fpFirst) continue;
        lines += entries[at].fAnchor + " = " + repeats[at].fpFirst->fAnchor + " in ";
        lines += repeats[at].fpHeading ? items::TitleOf(*repeats[at].fpHeading->fpItem) : "nothing";
        lines += "; ";
    }
    return lines;
}

TEST(Repeats, AreTablesThatAreTheSameInAllTheyHold) {
    const Table means = MakeMeans(8);
    Table renamed = means;
    std::get<document::Category>(renamed.fvDimensions[0].fMembers.back().fContent).fLabel = MakeText("other");
    Table noted = means;
    noted.fvCells.back().fvNotes.push_back(MakeText("Redundant."));
    const std::pair<std::list<Item>, std::string> cases[] = {
        {{{means}, {means}}, "Estimates-2 = Estimates-1 in nothing; "},
        {{Under("A", {{MakeMeans(9)}, {means}}), Under("B", {Under("C", {{means}}), {means}})},
         "Estimates-3 = Estimates-2 in A; Estimates-4 = Estimates-2 in A; "},
        {{Under("A", {Under("B", {}), {means}}), {means}}, "Estimates-2 = Estimates-1 in A; "},
        {{{means}, {MakeMeans(8, "1.6")}, {renamed}, {noted}}, ""},
        {{{MakeMeans(7)}, {MakeMeans(7)}}, ""},  // small ones
    };
    for (const auto& [items, repeats] : cases) EXPECT_EQ(DescribeRepeats(items), repeats);
}

}  // namespace

}  // namespace hierfit::report::html
