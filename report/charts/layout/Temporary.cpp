#include "report/charts/layout/Content.h"
namespace hierfit::report::charts {
Scene LayOutContent(const document::LevelsPicture&, double) { return {}; }
Scene LayOutContent(const document::CirclePicture&, double) { return {}; }
Scene LayOutContent(const document::NetworkPicture& p, double w) { if (p.fHistogram) return LayOutContent(*p.fHistogram, w); return {}; }
}
