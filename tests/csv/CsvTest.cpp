#include "report/csv/Csv.h"

#include <cmath>

#include "host/SystemMissing.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

using document::Text;

TEST(Csv, IsOneHeaderAndARecordForEachRow) {
    const struct {
        const char* fSketch;
        const char* fCsv;
    } cases[] = {
        {"rows 1 Term : a g::b\ncolumns 1 -name S : Est ci::Low\ncells a,Est=1.5 g::b,ci::Low=word",
         "Term,Term 2,Est,\"ci, Low\"\na,,1.5,\ng,b,,word\n"},
        {"rows 1 -name -labels R : 0 1\ncells 0=1 1=2", "R,Value\n0,1\n1,2\n"},
        {"columns 1 -labels C : x y\ncells x=1 y=2", "x,y\n1,2\n"},
        {"columns 1 C : say_\"so\" two|lines\ncells say_\"so\"=a,b two|lines==1+1",
         "\"say \"\"so\"\"\",\"two\nlines\"\n\"a,b\",=1+1\n"},
    };
    for (const auto& test : cases) {
        const document::Table table = test::SketchTable(test.fSketch);
        EXPECT_EQ(MakeCsvTable(table), test.fCsv) << test.fSketch;
    }
}

TEST(Csv, HasAllDigitsOfNumbersAndNothingForMissingOnes) {
    const std::pair<Text, const char*> cases[] = {
        {{"0.333", document::NumberSource{1.0 / 3, {document::FormatName::Coefficient}}}, "0.3333333333333333"},
        {{"97.2%", document::NumberSource{97.25, {document::FormatName::Percent}}}, "97.25"},
        {{"<.001", document::NumberSource{1e-300, {document::FormatName::Significance}}}, "1e-300"},
        {{".", document::NumberSource{kSystemMissing, {document::FormatName::Count}}}, "\"\""},
        {{".", document::NumberSource{std::nan(""), {document::FormatName::Count}}}, "NaN"},
        {{".", document::NumberSource{-INFINITY, {document::FormatName::Count}}}, "-Inf"},
        {{"2.0", document::ValueSource{2.04, "dose", 2}}, "2.04"},
        {{"placebo", document::ValueSource{1.0, "dose", 2}}, "placebo"},
        {{"NA", document::StringSource{"NA", false}}, "NA"},
    };
    for (const auto& [text, csv] : cases) {
        document::Table table = test::SketchTable("columns 1 C : x\ncells x=1");
        table.fvCells[0].fContent = text;
        EXPECT_EQ(MakeCsvTable(table), std::string("x\n") + csv + "\n") << text.fWords;
    }
}

TEST(Csv, IndexNamesEveryItem) {
    document::Heading heading{test::MakeText("A, B"), {}};
    heading.fItems.push_back({test::SketchTable("title Effects")});
    document::Document document;
    document.fItems.push_back({std::move(heading)});
    document.fItems.push_back({document::Message{test::MakeText("Careful"), 2, 2}});
    EXPECT_EQ(MakeCsvIndex(document),
              "name,kind,title,file\nA-B-1,heading,\"A, B\",\nEffects-1,table,Effects,Effects-1.csv\n"
              "Message-1,message,Careful,\n");
}

}  // namespace

}  // namespace hierfit::report
