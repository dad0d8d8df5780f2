#include "report/charts/Pictures.h"

#include <algorithm>
#include <variant>

#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"

namespace hierfit::report {

std::vector<items::Entry> ListCharts(const document::Document& document) {
    std::vector<items::Entry> charts = items::ListEntries(document);
    std::erase_if(charts, [](const items::Entry& entry) {
        return !std::holds_alternative<document::Chart>(entry.fpItem->fContent);
    });
    return charts;
}

document::Picture Select(const document::Picture& picture, std::string_view caption, Titles titles) {
    document::Picture selected = picture;
    if (titles == Titles::NotOfCaption && selected.fTitle == caption) selected.fTitle.clear();
    return selected;
}

std::string MakePicture(const items::Entry& chart, Titles titles) {
    const std::string_view title = items::TitleOf(*chart.fpItem);
    const document::Picture picture = Select(std::get<document::Chart>(chart.fpItem->fContent).fPicture, title, titles);
    return MakeSvgFile(charts::LayOut(picture, charts::kDeskWidth), title, picture.fSentence);
}

double ShrinkOnPaper(double height) {
    constexpr double kHigh = 12 / 2.54 * 96;
    constexpr double kLeast = 0.8;
    return std::clamp(kHigh / height, kLeast, 1.0);
}

}  // namespace hierfit::report
