#include "host/chart/view/Drawing.h"

namespace hierfit::chart {

Drawing MakeLevelsDrawing(const ViewContext&) { return {Json::object(), {}, 0, {}}; }

}  // namespace hierfit::chart
