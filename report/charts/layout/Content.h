#pragma once

#include "host/document/Picture.h"
#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// A picture without title and words below it, laid out in at most the width, from 0, 0 on. One for each kind.
Scene LayOutContent(const document::LevelsPicture& picture, double width);
Scene LayOutContent(const document::CirclePicture& picture, double width);
Scene LayOutContent(const document::NetworkPicture& picture, double width);
Scene LayOutContent(const document::ScatterPicture& picture, double width);
Scene LayOutContent(const document::HistogramPicture& picture, double width);

}  // namespace hierfit::report::charts
