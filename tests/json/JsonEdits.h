#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>

#include "report/json/JsonDocument.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::report {

/// How a failure reads: its place in the text if it has one, its path, what was expected. Empty when the text is read.
inline std::string DescribeFailure(const std::string& json) {
    const auto result = ReadJson(json);
    const auto* error = std::get_if<JsonError>(&result);
    if (!error) return {};
    const std::string place =
        error->fLine ? std::to_string(error->fLine) + ":" + std::to_string(error->fColumn) + " " : std::string();
    return place + error->fPath + ": " + error->fText;
}

struct Edit {
    std::string fFrom;  ///< its first place in the small document is taken
    std::string fTo;
    std::string fFailure;
};

inline void ExpectFailures(std::span<const Edit> edits) {
    const std::string json = test::ReadFile(HIERFIT_SMALL_DOCUMENT);
    for (const auto& [from, to, failure] : edits) {
        ASSERT_NE(json.find(from), std::string::npos) << from;
        EXPECT_EQ(DescribeFailure(test::Replaced(json, from, to)), failure) << from << " -> " << to;
    }
}

}  // namespace hierfit::report
