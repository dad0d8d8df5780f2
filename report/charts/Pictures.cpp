#include "report/charts/Pictures.h"

#include <variant>

#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/items/Entries.h"

namespace hierfit::report {

std::vector<PictureFile> MakePictures(const document::Document& document) {
    std::vector<PictureFile> pictures;
    for (items::Entry& entry : items::ListEntries(document)) {
        const auto* chart = std::get_if<document::Chart>(&entry.fpItem->fContent);
        if (!chart) continue;
        const charts::Scene scene = charts::LayOut(chart->fPicture, charts::kDeskWidth);
        pictures.push_back(
            {std::move(entry.fAnchor), MakeSvgFile(scene, items::TitleOf(*entry.fpItem), chart->fPicture.fSentence)});
    }
    return pictures;
}

}  // namespace hierfit::report
