#include <array>
#include <cmath>
#include <limits>
#include <memory>

#include "host/ChartString.h"
#include "host/SystemMissing.h"
#include "host/VarDataProcessor.h"
#include "host/chart/data/DataStore.h"
#include "host/chart/data/DataStream.h"
#include "tests/chart/ChartRun.h"

namespace hierfit::test {

namespace {

TEST(ChartStringTest, TurnsAnyBytesIntoText) {
    EXPECT_EQ(XUtility::ChartStringFromOLANG("a\xFF\xFE\xE2\x82z").toUTF8(), "a\uFFFD\uFFFD\uFFFD\uFFFDz");
    EXPECT_EQ(XUtility::ChartStringFromOLANG(std::string("ä\0b", 4)).toUTF8(), std::string("ä\0b", 4));
    EXPECT_EQ(ChartString(std::u32string{0x41, 0xD800, 0x110000}).toUTF8(), "A\uFFFD\uFFFD");
}

TEST(ChartStringTest, ReplacesEachPlaceOnce) {
    const std::array<const char*, 4> cases[] = {{"999 and 999", "999", "x", "x and x"},
                                                {"aaa", "aa", "a", "aa"},
                                                {"ab", "a", "aa", "aab"},
                                                {"ab", "", "x", "ab"}};
    for (const auto& [text, from, to, result] : cases) {
        ChartString string(text);
        string.replaceSubstring(ChartString(from), ChartString(to));
        EXPECT_EQ(string.toUTF8(), result);
    }
}

std::string StreamOf(const VarDataProcessor& processor) {
    int length = 0;
    const std::unique_ptr<char[]> stream(processor.GetDataStream(&length));
    return {stream.get(), static_cast<std::size_t>(length)};
}

TEST(DataTest, StreamHoldsEveryValueAndReadsBack) {
    VarDataProcessor processor;
    VarDataProcessor::_varinfo x;
    EXPECT_EQ(StreamOf(processor), "[]");
    EXPECT_TRUE(processor.AddDataSource("a", 0) && processor.AddDataSource("b", 3) && processor.AddDataSource("c", 0));
    EXPECT_TRUE(processor.AddVariable("a", "x", &x) && processor.AddVariable("a", "y", nullptr));
    EXPECT_TRUE(processor.AddVariable("b", "x", nullptr));
    EXPECT_FALSE(processor.AddDataSource("a", 9));
    EXPECT_FALSE(processor.AddVariable("d", "x", nullptr));

    EXPECT_TRUE(processor.SetVariableValue(x, 1, 0.1) && processor.SetVariableValue(x, 3, 2));
    EXPECT_TRUE(processor.SetStringVariableValue("a", "y", 0, "<&>\"\\\n\x01ä\xFF"));
    EXPECT_TRUE(processor.SetStringVariableValue("a", "y", 1, "-Infinity"));
    EXPECT_TRUE(processor.SetVariableValue("a", "y", 1, -std::numeric_limits<double>::infinity()));  // the last counts
    EXPECT_TRUE(processor.SetStringVariableValue("a", "y", 2, "NaN"));
    EXPECT_TRUE(processor.SetVariableValue("b", "x", 0, kSystemMissing));
    EXPECT_TRUE(processor.SetVariableValue("b", "x", 1, std::nan("")));
    EXPECT_FALSE(processor.SetVariableValue("b", "y", 0, 1) || processor.SetVariableValue({}, 0, 1) ||
                 processor.SetVariableValue({0, 2}, 0, 1) || processor.SetVariableValue({3, 0}, 0, 1));

    const std::string stream = StreamOf(processor);
    EXPECT_EQ(stream,
              R"([{"source":"a","rows":0,"variables":[{"name":"x","values":[null,0.1,null,2.0]},)"
              R"({"name":"y","values":["<&>\"\\\u000a\u0001ä�","-Infinity","\u004eaN",null]}]},)"
              R"({"source":"b","rows":3,"variables":[{"name":"x","values":[-1.7976931348623157e+308,"NaN",null]}]},)"
              R"({"source":"c","rows":0,"variables":[]}])");
    const auto read = chart::ReadDataStream(stream);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->at(1).fRows, 3);
    EXPECT_TRUE(std::isnan(std::get<double>(read->at(1).fvVariables.at(0).fvValues.at(1))));
    EXPECT_EQ(std::get<std::string>(read->at(0).fvVariables.at(1).fvValues.at(0)), "<&>\"\\\n\x01ä\uFFFD");
}

TEST(DataTest, WhatIsNoStreamIsNotRead) {
    const std::string begin = R"([{"source":"a","rows":0,"variables":[{"name":"x","values":[)";
    const std::string cases[] = {"",
                                 "{}",
                                 "[1]",
                                 R"([{"source":"a","rows":2147483648,"variables":[]}])",
                                 R"([{"source":"a","rows":-1,"variables":[]}])",
                                 R"([{"source":"a","rows":0,"rows":0,"variables":[]}])",
                                 R"([{"source":"a","rows":0,"variables":[],"name":"x"}])",
                                 R"([{"source":"a","rows":0,"variables":[{"name":"x"}]}])",
                                 begin + "true]}]}]",
                                 begin + "[1]]}]}]",
                                 begin + "1]},{\"name\":\"y\",\"values\":[1,2]}]}]",
                                 std::string(1'000'000, '[')};
    for (const std::string& json : cases) EXPECT_FALSE(chart::ReadDataStream(json)) << json.substr(0, 100);
    EXPECT_TRUE(chart::ReadDataStream(R"([{"variables":[{"values":[],"name":"x"}],"rows":2,"source":"a"}])"));
}

TEST(DataTest, RowsOutOfProportionAreRefused) {
    ChartRun run;
    VarDataProcessor processor;
    VarDataProcessor::_varinfo x;
    processor.AddDataSource("a", 0);
    processor.AddVariable("a", "x", &x);
    for (const int row : {-1, 2'000'000, std::numeric_limits<int>::max()}) {
        EXPECT_FALSE(processor.SetVariableValue(x, row, 1)) << row;
    }
    EXPECT_FALSE(processor.AddDataSource("b", -1) || processor.AddDataSource("c", std::numeric_limits<int>::max()));
    EXPECT_TRUE(processor.SetVariableValue(x, 1000, 1));
    EXPECT_EQ(run.Diagnostics(), "chart data: row -1 of a cannot be held\n");
    EXPECT_LT(StreamOf(processor).size(), 10'000U);

    // Many variables multiply each row.
    VarDataProcessor wide;
    wide.AddDataSource("a", 0);
    for (int i = 0; i < 10'000; ++i) wide.AddVariable("a", std::to_string(i), nullptr);
    EXPECT_TRUE(wide.SetVariableValue("a", "7", 0, 1));
    EXPECT_FALSE(wide.SetVariableValue("a", "7", 1000, 1));
}

TEST(DataTest, TextsOutOfProportionAreRefused) {
    ChartRun run;
    chart::DataStore store;
    store.AddSource("a", 0);
    const auto x = store.AddVariable("a", "x");
    const std::string text(std::size_t{64} << 20U, 'x');
    for (const int row : {0, 1, 2, 3, 3}) EXPECT_TRUE(store.Write(x, row, text)) << row;
    EXPECT_FALSE(store.Write(x, 4, "y"));
    EXPECT_EQ(run.Diagnostics(), "chart data: row 4 of a cannot be held\n");
    EXPECT_TRUE(store.Write(x, 0, 1.0) && store.Write(x, 4, "y"));
}

TEST(DataTest, ManyRowsInAnyNumberOfVariablesAreHeld) {
    VarDataProcessor processor;
    processor.AddDataSource("a", 0);
    std::vector<VarDataProcessor::_varinfo> variables(7);
    for (std::size_t i = 0; i < variables.size(); ++i) processor.AddVariable("a", std::to_string(i), &variables[i]);
    for (int row = 0; row < 200'000; ++row) {
        for (const auto& variable : variables) ASSERT_TRUE(processor.SetVariableValue(variable, row, row));
    }
}

}  // namespace

}  // namespace hierfit::test
