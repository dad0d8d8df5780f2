#include "report/charts/layout/diagrams/NodeNames.h"

#include <algorithm>
#include <numeric>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

namespace {

/// What certainly fits into so many lines of a width, however it breaks: any two lines hold more than one is wide.
double WidthOfLines(double width, std::size_t lines) {
    const std::size_t pairs = (lines + 1) / 2;
    return width * static_cast<double>(pairs);
}

bool DoOverlap(const Frame& one, const Frame& other) {
    return one.fLeft < other.fRight && other.fLeft < one.fRight && one.fTop < other.fBottom && other.fTop < one.fBottom;
}

}  // namespace

std::vector<std::vector<std::string>> SetNames(const std::vector<std::string>& names, const std::vector<double>& widths,
                                               std::size_t mostLines) {
    std::vector<std::vector<std::string>> set;
    std::vector<std::size_t> tooLong;
    std::vector<std::string> toCut;
    double least = 0;
    for (std::size_t at = 0; at < names.size(); ++at) {
        set.push_back(WrapText(names[at], widths[at], kLabelStyle, mostLines + 1));
        if (set.back().size() <= mostLines) continue;
        least = tooLong.empty() ? widths[at] : std::min(least, widths[at]);
        tooLong.push_back(at);
        toCut.push_back(names[at]);
    }
    const std::vector<std::string> cut = CutTexts(toCut, WidthOfLines(least, mostLines), kLabelStyle);
    for (std::size_t at = 0; at < cut.size(); ++at) {
        set[tooLong[at]] = WrapText(cut[at], widths[tooLong[at]], kLabelStyle, mostLines);
    }
    return set;
}

std::vector<bool> AreFree(const std::vector<Frame>& frames) {
    std::vector<std::size_t> order(frames.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&frames](std::size_t at) { return frames[at].fTop; });
    std::vector<bool> free(frames.size(), false);
    std::vector<Frame> near;  // free ones that still reach below the upper edge
    for (const std::size_t at : order) {
        const Frame& frame = frames[at];
        std::erase_if(near, [&frame](const Frame& other) { return other.fBottom <= frame.fTop; });
        if (std::ranges::any_of(near, [&frame](const Frame& other) { return DoOverlap(frame, other); })) continue;
        free[at] = true;
        if (frame.Width() > 0) near.push_back(frame);
    }
    return free;
}

}  // namespace hierfit::report::charts
