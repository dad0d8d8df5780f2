#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "host/plausible/Plausible.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::plausible {

namespace {

using test::ReadExample;

std::vector<Finding> Find(const std::string& text, bool wantsAll = true) {
    const auto document = xml::Document::Parse(text);
    return FindContradictions(*std::get<0>(document), wantsAll);
}

std::vector<std::string> ListExamples() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(HIERFIT_EXAMPLES)) {
        if (exists(entry.path() / "model.statxml")) names.push_back(entry.path().filename().string());
    }
    return names;
}

/// Sets the next attribute of that name behind a text or, with a name such as "#2", the value of that number in the
/// next array.
std::string Set(std::string text, const std::string& behind, const std::string& name, const std::string& value) {
    std::size_t begin = text.find(behind);
    if (begin == std::string::npos) return "no " + behind;
    std::size_t end = 0;
    if (name[0] == '#') {
        begin = text.find('>', text.find("<Array", begin)) + 1;
        for (int left = std::stoi(name.substr(1)); left > 1; --left) begin = text.find(' ', begin) + 1;
        end = text.find_first_of(" <", begin);
    } else {
        begin = text.find(" " + name + "=\"", begin) + name.size() + 3;
        end = text.find('"', begin);
    }
    return text.replace(begin, end - begin, value);
}

struct Change {
    const char* fBehind;
    const char* fName;
    const char* fValue;
};

struct Case {
    const char* fExample;
    std::vector<Change> fvChanges;
    bool fMisleads;     ///< whether a report tells it, too
    const char* fLine;  ///< without the elements above the last two; empty for none
};

std::string Changed(const Case& one) {
    std::string text = ReadExample(one.fExample, "model.statxml");
    for (const Change& change : one.fvChanges) text = Set(std::move(text), change.fBehind, change.fName, change.fValue);
    return text;
}

std::string LinesOf(const std::vector<Finding>& findings) {
    static const std::regex above("^[^ :\"]*/([^/: ]+/[^/: ]+)");
    std::string lines;
    for (const Finding& finding : findings)
        lines += (lines.empty() ? "" : "\n") + std::regex_replace(finding.fText, above, "$1");
    return lines;
}

constexpr const char* kFixed = "parameterType=\"fixed\"";
constexpr const char* kRandom = "parameterType=\"random\"";
constexpr const char* kRepeated = "parameterType=\"repeated\"";
constexpr const char* kMeans = "description=\"customEmmeans\"";
constexpr const char* kContrasts = "description=\"contrasts\"";
constexpr const char* kMatrix = "description=\"randomEffectCovariances\"";

const Case kCases[] = {
    // Intervals and their bounds.
    {"sleepstudy", {{kFixed, "estimate", "275"}}, true, "?"},
    {"sleepstudy", {{kFixed, "confIntervalLower", "270"}}, true, "?"},
    {"sleepstudy", {{kFixed, "confIntervalLower", "252"}, {kFixed, "tTest", ""}}, true, "?"},
    {"sleepstudy", {{kRandom, "confIntervalUpper", "600"}}, true, "?"},
    {"sleepstudy", {{kMeans, "none", ""}}, true, "?"},
    {"cbpp", {{"statistic=\"mean\"", "#2", "0.3"}}, true, "?"},
    {"cbpp", {{kContrasts, "none", ""}}, true, "?"},
    {"cbpp", {{"statistic=\"tTest\"", "#3", "-4.115886920826843"}}, true, "?"},
    {"cbpp", {{"grandMeanCILower", "value", "0.0893"}}, true, "?"},
    {"cbpp", {{kFixed, "expCIUpper", "0.05"}}, true, "?"},
};

TEST(Contradictions, AreNotInTheExamples) {
    for (const std::string& example : ListExamples())
        EXPECT_EQ(LinesOf(Find(ReadExample(example, "model.statxml"))), "") << example;
}

TEST(Contradictions, AreToldWithTheirPlace) {
    for (const Case& one : kCases) {
        const std::string text = Changed(one);
        EXPECT_EQ(LinesOf(Find(text)), one.fLine) << one.fExample;
        EXPECT_EQ(LinesOf(Find(text, false)), one.fMisleads ? one.fLine : "") << one.fExample;
    }
}

}  // namespace

}  // namespace hierfit::plausible
