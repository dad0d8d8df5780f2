#pragma once

#include "host/chart/picture/ShownData.h"
#include "host/chart/specification/Specification.h"
#include "host/document/Picture.h"

namespace hierfit::chart {

/// What a picture is made from: the specification and its data as they are shown. It borrows both.
struct PictureContext {
    const Specification& fSpecification;
    const ShownData& fData;
};

// Each kind of picture with its notes, its sentence and its tables, but without the words about the whole chart.
document::Picture MakeLevelsPicture(const PictureContext& context);
document::Picture MakeCirclePicture(const PictureContext& context);
document::Picture MakeNetworkPicture(const PictureContext& context);
document::Picture MakeScatterPicture(const PictureContext& context);
document::Picture MakeHistogramPicture(const PictureContext& context);

}  // namespace hierfit::chart
