// Feeds the JSON of a picture to the layout with its marks many times over, and again with four times as many: what is
// drawn, and the memory that it takes, must grow no more than the marks do. A marker chooses whether classes, levels
// and nodes grow too.

#include <algorithm>
#include <array>
#include <variant>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"
#include "fuzz/crowd/Multiply.h"
#include "fuzz/crowd/PeakOfMemory.h"
#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/json/JsonDocument.h"

namespace hierfit::fuzz {

namespace {

constexpr std::size_t kGrowth = 4;
constexpr std::array<std::size_t, 3> kMarks = {60, 600, 2500};  // in the smaller picture

struct Cost {
    std::size_t fBytes;   ///< of the SVG file
    std::size_t fMemory;  ///< at its highest
};

Cost Draw(const document::Picture& picture) {
    const PeakOfMemory peak;
    const report::charts::Scene scene = report::charts::LayOut(picture, report::charts::kDeskWidth);
    const std::string svg = report::charts::MakeSvgFile(scene, picture.fTitle, picture.fSentence);
    return {svg.size(), peak.Get()};
}

/// Growth is linear, with some room for what begins at a number of marks.
void CheckGrowth(std::size_t few, std::size_t many, std::size_t room, const char* what) {
    if (many <= kGrowth * few + few / 2 + room) return;
    Fail(std::string(what) + " grow from " + std::to_string(few) + " to " + std::to_string(many));
}

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kPlainText, &kJson}; }

void RunInput(std::string_view input) {
    const Parts parts = SplitInput(input, 2);
    const auto read = ReadPicture(parts.fvTexts[1]);
    if (!read) return;
    const char marker = parts.fMarkers[0];
    const bool isWhole = marker % 2 == 1;
    const std::size_t marks = std::max<std::size_t>(CountMarks(*read), 1);
    const std::size_t times = std::max<std::size_t>(OneOf(kMarks, marker) / marks, 1);
    const Cost few = Draw(Multiply(*read, times, isWhole));
    const Cost many = Draw(Multiply(*read, kGrowth * times, isWhole));
    CheckGrowth(few.fBytes, many.fBytes, 50'000, "bytes");
    CheckGrowth(few.fMemory, many.fMemory, 1'000'000, "bytes of memory");
}

}  // namespace hierfit::fuzz
