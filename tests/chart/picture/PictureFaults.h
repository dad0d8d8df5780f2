#pragma once

#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "report/json/JsonDocument.h"
#include "tests/chart/picture/Samples.h"

namespace hierfit::chart {

/// Where a picture breaks its word: numbers that cannot be placed or mean nothing, limits that are the wrong way round,
/// rows that do not fit their table. The reader of saved pictures checks all that, but for what marks of levels must
/// have besides. Empty for a sound one.
inline std::string FaultsOf(const document::Picture& picture) {
    if (const auto* levels = std::get_if<document::LevelsPicture>(&picture.fContent)) {
        for (const document::LevelMark& mark : levels->fvMarks) {
            if (mark.fTip.empty()) return "a mark without a tip";
            if (mark.fLow && mark.fHigh && *mark.fLow > *mark.fHigh) return "a whisker upside down";
        }
    }
    document::Chart chart{};
    chart.fPicture = picture;
    document::Document document;
    document.fItems.push_back({std::move(chart)});
    const auto read = report::ReadJson(report::WriteJson(document));
    const auto* error = std::get_if<report::JsonError>(&read);
    return error ? error->fPath + ": " + error->fText : std::string();
}

/// The picture of a sample, which must be sound.
inline document::Picture Make(const Sample& sample) {
    document::Picture picture = sample.Make();
    EXPECT_EQ(FaultsOf(picture), "");
    return picture;
}

/// What the picture shows, of its kind.
template <typename Kind>
Kind Draw(const Sample& sample) {
    return std::get<Kind>(Make(sample).fContent);
}

}  // namespace hierfit::chart
