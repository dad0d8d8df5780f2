#include <algorithm>
#include <set>

#include "tests/docx/DocxText.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"
#include "tests/xml/Parsed.h"

namespace hierfit::report {

namespace {

using document::Item;
using test::SketchTable;

constexpr std::string_view kReplaced = "\uFFFD";

TEST(DocxFile, HoldsAnyTextAndNoMarkupOfIt) {
    const std::pair<std::string, std::string> cases[] = {
        {"</w:t><w:t a='\"'>&amp;", "</w:t><w:t a='\"'>&amp;"},
        {"a\nb", "a|b"},
        {std::string("nul\0bell\a", 9), "nul\u2400bell\u2407"},
        {"\u202Eturned\u2066", std::string(kReplaced) + "turned" + std::string(kReplaced)},
        {"\xFFno UTF-8", std::string(kReplaced) + "no UTF-8"},
        {"\uFFFF", std::string(kReplaced)},
        {"\u00E4\U0001F600", "\u00E4\U0001F600"},
        {"]]>", "]]>"},
    };
    for (const auto& [words, shown] : cases) {
        document::Heading heading{test::MakeText(words),
                                  {{SketchTable("title @\nrows 1 @ : @*@\ncolumns 1 @ : @*@ b\n"
                                                "cells @*@ 2\ncaption @\nnote @",
                                                words)},
                                   {document::Message{test::MakeText(words), 0, 2}}}};
        const std::string text = test::MakeText({{std::move(heading)}});
        ASSERT_EQ(test::ErrorOf(text), "read") << shown;
        const std::vector<std::string> expected{
            "Title: Report",       "Heading1: " + shown,      "Caption: Table 1. " + shown, "TableNote: " + shown,
            "TableNote: " + shown, "TableNote: {a} " + shown, "Message: Warning: " + shown};
        EXPECT_EQ(test::DrawParagraphs(text), expected);
        const std::vector<std::string> rows{"#  | " + shown + ">2", "# " + shown + " | " + shown + "{a} | b",
                                            shown + "{a} | " + shown + "{a} | 2"};
        EXPECT_EQ(test::DrawTables(text).at(0).fvRows, rows);
    }
    for (const char* words : {" a", "a ", "a\nb", "a b"}) {
        const std::string text = test::MakeText({{SketchTable("cells @", words)}});
        EXPECT_EQ(text.find("<w:t xml:space=\"preserve\">" + std::string(words, 1)) != text.npos,
                  words != std::string("a b"));
    }
}

TEST(DocxFile, RunsGoInTheDirectionOfTheirLetters) {
    const std::string hebrew = "\u05D0\u05D1";
    const std::string arabic = "\u0627\u0628";
    const struct {
        std::string fWords;
        std::vector<std::string> fvRuns;
        bool fIsTurned;
    } cases[] = {
        {"abc", {"abc"}, false},
        {"\u2212"
         "1.5",
         {"\u2212"
          "1.5"},
         false},
        {hebrew, {"<" + hebrew}, true},
        {hebrew + " " + arabic + ", 12", {"<" + hebrew + " " + arabic + ", 12"}, true},
        {hebrew + " a 12 (b), " + hebrew, {"<" + hebrew + " ", "a 12 (b", "<), " + hebrew}, true},
        {hebrew + " \u200E-2.", {"<" + hebrew + " ", "\u200E-2", "<."}, true},
        {"abc " + hebrew + " (x)", {"abc ", "<" + hebrew, " (x)"}, false},
        {"(1) " + hebrew, {"<(1) " + hebrew}, true},
    };
    for (const auto& [words, runs, isTurned] : cases) {
        const std::string text = test::MakeText({{SketchTable("cells @", words)}});
        const std::vector<std::string> all = test::DrawRuns(text);
        ASSERT_GE(all.size(), runs.size());
        EXPECT_EQ(std::vector(all.end() - static_cast<std::ptrdiff_t>(runs.size()), all.end()), runs) << words;
        EXPECT_EQ(text.find("<w:bidi/>") != std::string::npos, isTurned) << words;
    }
}

TEST(DocxFile, TakesTheDirectionOfItsLanguage) {
    const struct {
        std::string fLanguage;
        std::vector<std::string> fvThere;
        std::vector<std::string> fvMissing;
    } cases[] = {
        {"de", {"<w:pStyle w:val=\"Heading1\"/></w:pPr>"}, {"<w:bidiVisual/>", "<w:bidi/></w:sectPr>", "\"right\""}},
        {"he",
         {"<w:tblStyle w:val=\"ReportTable\"/><w:bidiVisual/>", "<w:bidi/></w:sectPr>",
          "<w:pStyle w:val=\"Heading1\"/><w:jc w:val=\"right\"/></w:pPr>",
          "<w:pStyle w:val=\"TableHeader\"/><w:keepNext/></w:pPr>"},
         {"<w:pStyle w:val=\"TableHeader\"/><w:keepNext/><w:jc"}},
    };
    for (const auto& [language, there, missing] : cases) {
        document::Document document{"hierfit", language, "Report", {}, {}, {}};
        document.fItems = {{document::Heading{test::MakeText("0.2 - 0.4"), {}}},
                           {SketchTable("columns 1 -name C : Mean\ncells 1.5")}};
        const auto files = MakeDocxFiles(document, {});
        const auto text = std::ranges::find(files, "word/document.xml", &ArchiveFile::fName);
        ASSERT_NE(text, files.end());
        for (const std::string& markup : there) EXPECT_NE(text->fBytes.find(markup), std::string::npos) << markup;
        for (const std::string& markup : missing) EXPECT_EQ(text->fBytes.find(markup), std::string::npos) << markup;
    }
}

Item MakeWide() {
    return {SketchTable("title Wide\ncolumns 1 -name C :" + test::Repeated(" c", 25) + "\ncells" +
                        test::Repeated(" 12.5", 25))};
}

Item MakeNarrow() { return {SketchTable("title Narrow\ncells 1")}; }

Item MakeHeading(std::list<Item> items) { return {document::Heading{test::MakeText("Part"), std::move(items)}}; }

TEST(DocxFile, TurnsPagesWithTheirHeadings) {
    const struct {
        std::list<Item> fItems;
        std::vector<std::string> fvSections;
    } cases[] = {
        {{}, {"upright"}},
        {{MakeWide()}, {"turned"}},
        {{MakeNarrow(), MakeHeading({MakeWide(), MakeWide()}), MakeNarrow()}, {"upright", "turned", "upright"}},
        {{MakeHeading({MakeWide(), MakeHeading({MakeNarrow()})})}, {"turned", "upright"}},
    };
    for (const auto& [items, sections] : cases) {
        const std::string text = test::MakeText(items);
        EXPECT_EQ(test::DrawSections(text), sections);
        const std::vector<std::string> paragraphs = test::DrawParagraphs(text);
        for (auto end = paragraphs.begin();
             (end = std::find(end, paragraphs.end(), "SectionEnd: ")) != paragraphs.end(); ++end) {
            EXPECT_FALSE(std::prev(end)->starts_with("Heading")) << "a heading is left alone";
        }
    }
}

Item MakeChart(const std::string& title, const std::string& sentence) {
    document::Chart chart{};
    chart.fDescription = title;
    chart.fPicture.fTitle = title;
    chart.fPicture.fSentence = sentence;
    return {std::move(chart)};
}

TEST(DocxFile, PicturesAreAsSharpAsTheyCanBe) {
    const struct {
        double fMostScale;
        std::string fPng;
    } cases[] = {{20, "PNG 2.000000"}, {0.7, "PNG 0.500000"}, {1e-9, ""}};
    for (const auto& [mostScale, png] : cases) {
        const auto files = test::MakeFiles({MakeChart("Means", "Two points.")}, mostScale);
        const auto picture = std::ranges::find(files, "word/media/figure1.png", &ArchiveFile::fName);
        EXPECT_EQ(picture == files.end() ? "" : picture->fBytes, png);
        const std::string& text = std::ranges::find(files, "word/document.xml", &ArchiveFile::fName)->fBytes;
        EXPECT_EQ(text.find("descr=\"Two points.\"") != std::string::npos, !png.empty());
        EXPECT_EQ(test::DrawParagraphs(text).back(), "Caption: Figure 1. Means");
    }
}

TEST(DocxFile, EveryPartIsReadAndEveryRelationLeadsToOne) {
    const auto files = test::MakeFiles({MakeChart("A \"<\" B", "\"<&>\""), MakeChart("A", ""), MakeWide()});
    std::set<std::string> names;
    for (const ArchiveFile& file : files) {
        EXPECT_TRUE(names.insert(file.fName).second) << file.fName;
        EXPECT_TRUE(file.fIsDense || test::ErrorOf(file.fBytes) == "read") << file.fName;
    }
    EXPECT_EQ(files.front().fName, "[Content_Types].xml");
    const auto relations = std::ranges::find(files, "word/_rels/document.xml.rels", &ArchiveFile::fName);
    const auto parsed = test::Parsed(relations->fBytes);
    int count = 0;
    for (auto node = parsed->FirstChild(0, "Relationship"); node != xml::Document::kNone;
         node = parsed->NextOfName(node)) {
        EXPECT_TRUE(names.contains("word/" + std::string(*parsed->Attribute(node, "Target"))));
        ++count;
    }
    EXPECT_EQ(count, 3 + 2 * 2);
}

}  // namespace

}  // namespace hierfit::report
