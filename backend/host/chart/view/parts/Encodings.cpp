#include "host/chart/view/parts/Encodings.h"

namespace hierfit::chart {

Json PixelChannel(std::string_view field) { return {{"field", field}, {"scale", nullptr}, {"type", "quantitative"}}; }

void AddPointerTip(Json& encoding) { encoding["tooltip"] = {{"field", "tip"}, {"type", "nominal"}}; }

void AddTip(Json& encoding) {
    AddPointerTip(encoding);
    encoding["description"] = {{"field", "tip"}, {"type", "nominal"}};
}

}  // namespace hierfit::chart
