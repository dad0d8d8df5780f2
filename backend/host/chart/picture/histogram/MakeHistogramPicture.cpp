#include "host/chart/picture/PictureContext.h"
#include "host/chart/picture/histogram/Histogram.h"

namespace hierfit::chart {

document::Picture MakeHistogramPicture(const PictureContext& context) {
    const Histogram histogram = ReadHistogram(context.fSpecification, context.fData, std::nullopt);
    document::Picture picture;
    picture.fSentence = HistogramSentence(histogram);
    picture.fvTables.push_back(ShowBins(histogram));
    picture.fContent = ShowHistogram(histogram);
    return picture;
}

}  // namespace hierfit::chart
