#include "report/charts/Pictures.h"

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

std::string MakePicture(const items::Entry& chart) {
    const document::Picture& picture = std::get<document::Chart>(chart.fpItem->fContent).fPicture;
    return MakeSvgFile(charts::LayOut(picture, charts::kDeskWidth), items::TitleOf(*chart.fpItem), picture.fSentence);
}

}  // namespace hierfit::report
