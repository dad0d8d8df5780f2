#include "host/chart/view/levels/LevelsValues.h"

#include <cmath>

#include "host/chart/view/levels/LevelsWords.h"
#include "host/chart/view/parts/ChartWords.h"

namespace hierfit::chart {

namespace {

/// Six decimals of a slot are more than a screen shows.
double RoundedPlace(double at) { return std::round(at * 1e6) / 1e6; }

double PlaceOf(const LevelsItems& items, const LevelsItem& item, const LevelsAxis& axis) {
    if (items.fIsLinear) return item.fNumber;
    const double middle = (static_cast<double>(items.fColors.Count()) - 1) / 2;
    const double dodge = items.fColors.Count() == 0 ? 0 : (static_cast<double>(item.fColor) - middle) * axis.fDodge;
    return RoundedPlace(static_cast<double>(item.fX) + dodge);
}

Json MeanValue(const LevelsMarks& marks, const LevelsItems& items, const LevelsItem& item, const LevelsAxis& axis) {
    Json value = Json::object();
    items.fPanels.Mark(item.fPlace, value);
    value["at"] = PlaceOf(items, item, axis);
    if (marks.fpColor != nullptr) value["b"] = item.fColor;
    if (marks.fIsContrast) value["s"] = item.fIsSetOff ? 1 : 0;
    if (item.fBase) value["from"] = *item.fBase;
    value["m"] = item.fMean;
    if (item.fRange) {
        value["lo"] = item.fRange->fLow;
        value["hi"] = item.fRange->fHigh;
    }
    value["tip"] = LevelsTip(marks, items, item);
    return value;
}

Json GuideValue(const LevelsMarks& marks, const LevelsItems& items, const PanelGuide& guide) {
    Json value = Json::object();
    items.fPanels.Mark(guide.fPlace, value);
    value["base"] = guide.fHeight;
    const std::string figure = marks.fpMean == nullptr ? std::string() : marks.fpMean->Figure(guide.fHeight);
    value["tip"] = Translated("^1: ^2", {Translated("Reference"), figure});
    return value;
}

}  // namespace

Json LevelsValues(const LevelsMarks& marks, const LevelsItems& items, const LevelsAxis& axis,
                  const std::vector<PanelGuide>& guides) {
    Json values = Json::array();
    for (const PanelGuide& guide : guides) values.push_back(GuideValue(marks, items, guide));
    for (const LevelsItem& item : items.fvItems) values.push_back(MeanValue(marks, items, item, axis));
    return values;
}

}  // namespace hierfit::chart
