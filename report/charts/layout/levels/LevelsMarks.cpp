#include "report/charts/layout/levels/LevelsMarks.h"

#include <algorithm>
#include <span>
#include <tuple>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/levels/LevelsArrangement.h"

namespace hierfit::report::charts {

using document::LevelGuide;
using document::LevelMark;
using document::LevelsPicture;

namespace {

constexpr std::size_t kMostJoined = 8;  // series: more lines would be a tangle
constexpr double kCap = 4;              // half of a whisker's ends
constexpr double kDenseCap = 3;
constexpr double kDense = 4;  // points of smaller radius are dense
constexpr double kLegendRadius = 5;
constexpr double kLeastRadius = 3.3;
constexpr double kHalfSquare = 3;  // of a mark in short

bool HasSeries(const LevelsPicture& picture) { return !picture.fSeries.fvWords.empty(); }
int CountOfSeries(const LevelsPicture& picture) { return static_cast<int>(picture.fSeries.fvWords.size()); }
bool HasNumbers(const LevelsPicture& picture) { return !picture.fvNumbers.empty(); }

/// A lone number has no band to show its whisker.
bool HasBands(const LevelsPicture& picture) { return picture.fvNumbers.size() > 1; }

int ClassOf(const LevelsPicture& picture, const LevelMark& mark) {
    if (picture.fIsContrast) return mark.fIsSetOff ? 0 : 1;
    return mark.fSeries;
}

Ink InkOf(const LevelsPicture& picture, int series) {
    return HasSeries(picture) ? InkOfClass(series, CountOfSeries(picture)) : Ink::Level;
}

Ink EmphasisOf(bool isSetOff) { return isSetOff ? Ink::SetOff : Ink::Quiet; }

Symbol SymbolOf(const LevelsPicture& picture, int series) {
    return HasSeries(picture) ? SymbolOfClass(series) : Symbol::Circle;
}

Paint PaintOfPoint(const LevelsPicture& picture, const LevelMark& mark, double radius) {
    if (!picture.fIsContrast) {
        return {
            .fFill = InkOf(picture, mark.fSeries), .fStroke = Ink::Paper, .fStrokeWidth = radius < kDense ? 0.8 : 1.2};
    }
    const Ink ink = EmphasisOf(mark.fIsSetOff);
    return {.fFill = mark.fIsSetOff ? ink : Ink::Paper, .fStroke = ink, .fStrokeWidth = 1.8};
}

bool AreInFull(const LevelsPicture& picture) { return picture.fvMarks.size() <= kMostInFull; }

std::vector<int> KeysOf(const LevelsPicture& picture, const LevelMark& mark) {
    int classes = CountOfSeries(picture);
    if (picture.fIsContrast) classes = picture.fEmphasis.fHasLegend ? 2 : 0;
    const bool hasPairs = AreInFull(picture) && (HasSeries(picture) || !picture.fPanels.fvAcross.empty());
    std::vector<int> keys;
    if (classes > 0) keys.push_back(ClassOf(picture, mark));
    if (hasPairs) keys.push_back(classes + mark.fLevel);
    return keys;
}

/// Leads from the marks of one panel to pixels.
class PanelScales {
  public:
    PanelScales(const LevelsPlaces& places, const Frame& plot)
        : fPlaces(places), fPlot(plot), fLevels(ScaleOf(places.fpPlan->fAxis, plot)) {
        const Extent& domain = places.fpPlan->fValues.fDomain;
        fValues = IsTurned() ? Scale{domain, plot.fLeft, plot.fRight} : Scale{domain, plot.fBottom, plot.fTop};
    }

    bool IsTurned() const { return fPlaces.fpPlan->fAxis.IsTurned(); }
    bool AreCoarse() const { return !AreInFull(*fPlaces.fpPicture); }

    /// Whether the axis shows the value.
    bool Holds(double value) const { return value >= fValues.fDomain.fLow && value <= fValues.fDomain.fHigh; }

    /// Along the axis of levels.
    double Along(const LevelMark& mark) const {
        const LevelsPicture& picture = *fPlaces.fpPicture;
        if (HasNumbers(picture)) return fLevels.Within(picture.fvNumbers[static_cast<std::size_t>(mark.fLevel)]);
        const double middle = 0.5 * (std::max(CountOfSeries(picture), 1) - 1);
        return fLevels.At(mark.fLevel) + (mark.fSeries - middle) * fPlaces.fDodge;
    }

    Point At(double along, double value) const {
        const double across = fValues.Within(value);
        return IsTurned() ? Point{across, along} : Point{along, across};
    }
    Point At(const LevelMark& mark, double value) const { return At(Along(mark), value); }

    Line Across(double value) const {
        const double at = fValues.Within(value);
        return IsTurned() ? Line{{at, fPlot.fTop}, {at, fPlot.fBottom}} : Line{{fPlot.fLeft, at}, {fPlot.fRight, at}};
    }

  private:
    const LevelsPlaces& fPlaces;
    Frame fPlot;
    Scale fLevels;
    Scale fValues;
};

// --- what lies behind the marks

using Trend = std::span<const LevelMark* const>;  // marks of one series in one panel, by level

auto TrendOf(const LevelMark* mark) { return std::tuple(mark->fPanel.fDown, mark->fPanel.fAcross, mark->fSeries); }

std::vector<const LevelMark*> SortMarks(const LevelsPicture& picture) {
    const auto place = [&](const LevelMark* mark) {
        return HasNumbers(picture) ? picture.fvNumbers[static_cast<std::size_t>(mark->fLevel)] : mark->fLevel;
    };
    std::vector<const LevelMark*> marks;
    for (const LevelMark& mark : picture.fvMarks) marks.push_back(&mark);
    std::ranges::stable_sort(marks, {}, [&](const LevelMark* mark) { return std::pair(TrendOf(mark), place(mark)); });
    return marks;
}

/// There and back.
Path BandOf(Trend trend, const PanelScales& scales) {
    Path band{{{}}, true, scales.AreCoarse()};
    std::vector<Point>& points = band.fvParts.front();
    for (const LevelMark* mark : trend) {
        if (mark->fLow && mark->fHigh) points.push_back(scales.At(*mark, *mark->fHigh));
    }
    for (std::size_t at = trend.size(); at-- > 0;) {
        if (trend[at]->fLow && trend[at]->fHigh) points.push_back(scales.At(*trend[at], *trend[at]->fLow));
    }
    return band;
}

Path LineOf(Trend trend, const PanelScales& scales) {
    Path line{{{}}, false, scales.AreCoarse()};
    for (const LevelMark* mark : trend) line.fvParts.front().push_back(scales.At(*mark, mark->fValue));
    return line;
}

void AddTrend(Element& bands, Element& lines, Trend trend, const LevelsPlaces& places) {
    const LevelsPicture& picture = *places.fpPicture;
    const PanelScales scales(places, places.fpPlan->fGrid.At(trend.front()->fPanel));
    const Ink ink = InkOf(picture, trend.front()->fSeries);
    if (trend.size() < 2) return;
    if (HasNumbers(picture)) {
        Path band = BandOf(trend, scales);
        if (band.fvParts.front().size() > 2) {
            bands.fvShapes.push_back({{.fFill = ink, .fOpacity = 0.16}, std::move(band)});
        }
        lines.fvShapes.push_back({{.fStroke = ink, .fStrokeWidth = 2}, LineOf(trend, scales)});
    } else {
        lines.fvShapes.push_back({{.fStroke = ink, .fStrokeWidth = 1.2, .fOpacity = 0.45}, LineOf(trend, scales)});
    }
}

bool AreJoined(const LevelsPicture& picture) {
    if (picture.fIsContrast) return false;
    return HasNumbers(picture) || (HasSeries(picture) && picture.fSeries.fvWords.size() <= kMostJoined);
}

// --- marks

/// A line from one end of a whisker to the other, across at ends that the axis shows.
Path WhiskerOf(const LevelMark& mark, const PanelScales& scales, double cap) {
    Path whisker{{{}}, false};
    std::vector<Point>& points = whisker.fvParts.front();
    const double along = scales.Along(mark);
    const Point low = scales.At(along, *mark.fLow);
    const Point high = scales.At(along, *mark.fHigh);
    const Point aside = scales.IsTurned() ? Point{0, cap} : Point{cap, 0};
    const auto move = [&](const Point& point, double times) {
        return Point{point.fX + times * aside.fX, point.fY + times * aside.fY};
    };
    if (scales.Holds(*mark.fLow)) points.insert(points.end(), {move(low, -1), move(low, 1)});
    points.insert(points.end(), {low, high});
    if (scales.Holds(*mark.fHigh)) points.insert(points.end(), {move(high, -1), move(high, 1)});
    return whisker;
}

bool HasWhisker(const LevelsPicture& picture, const LevelMark& mark) {
    return mark.fLow && mark.fHigh && !HasBands(picture);
}

void AddInFull(Element& element, const LevelMark& mark, const LevelsPlaces& places, const PanelScales& scales) {
    const LevelsPicture& picture = *places.fpPicture;
    const bool isDense = places.fRadius < kDense;
    const Ink ink = picture.fIsContrast ? EmphasisOf(mark.fIsSetOff) : InkOf(picture, mark.fSeries);
    if (mark.fBase) {
        element.fvShapes.push_back(MakeLine(scales.At(mark, *mark.fBase), scales.At(mark, mark.fValue),
                                            {.fStroke = ink, .fStrokeWidth = isDense ? 3.5 : 5, .fOpacity = 0.35}));
    }
    if (HasWhisker(picture, mark)) {
        const double cap = std::min({isDense ? kDenseCap : kCap, places.fRadius + 1});
        element.fvShapes.push_back(
            {{.fStroke = ink, .fStrokeWidth = picture.fIsContrast ? 1.2 : 1.5}, WhiskerOf(mark, scales, cap)});
    }
    if (!scales.Holds(mark.fValue)) return;
    element.fvShapes.push_back(MakeSymbol(SymbolOf(picture, picture.fIsContrast ? 0 : mark.fSeries),
                                          scales.At(mark, mark.fValue), places.fRadius,
                                          PaintOfPoint(picture, mark, places.fRadius)));
}

/// All in one path: a line and a square.
void AddInShort(Element& element, const LevelMark& mark, const LevelsPicture& picture, const PanelScales& scales) {
    const Ink ink = picture.fIsContrast ? EmphasisOf(mark.fIsSetOff) : InkOf(picture, mark.fSeries);
    Paint paint{.fFill = ink, .fStroke = ink};
    if (picture.fIsContrast && !mark.fIsSetOff) paint.fFill = Ink::Paper;
    Path path{{}, true, true};
    if (HasWhisker(picture, mark)) path.fvParts.push_back({scales.At(mark, *mark.fLow), scales.At(mark, *mark.fHigh)});
    if (scales.Holds(mark.fValue)) {
        const auto [x, y] = scales.At(mark, mark.fValue);
        path.fvParts.push_back({{x - kHalfSquare, y - kHalfSquare},
                                {x + kHalfSquare, y - kHalfSquare},
                                {x + kHalfSquare, y + kHalfSquare},
                                {x - kHalfSquare, y + kHalfSquare}});
    }
    element.fvShapes.push_back({paint, std::move(path)});
}

/// Marks in short come by their classes, so that those of one paint stand side by side; what is set off lies on top.
std::vector<const LevelMark*> OrderOf(const LevelsPicture& picture, bool isInFull) {
    std::vector<const LevelMark*> marks;
    marks.reserve(picture.fvMarks.size());
    for (const LevelMark& mark : picture.fvMarks) marks.push_back(&mark);
    if (isInFull) return marks;
    const auto place = [&](const LevelMark* mark) { return picture.fIsContrast ? mark->fIsSetOff : mark->fSeries; };
    std::ranges::stable_sort(marks, {}, place);
    return marks;
}

void AddGuides(Scene& scene, const LevelsPlaces& places) {
    for (const LevelGuide& guide : places.fpPicture->fvGuides) {
        const PanelScales scales(places, places.fpPlan->fGrid.At(guide.fPanel));
        Element element;
        element.fTip = guide.fTip;
        element.fvShapes.push_back({{.fStroke = Ink::Ink, .fStrokeWidth = 1.2}, scales.Across(guide.fValue)});
        scene.fvElements.push_back(std::move(element));
    }
}

Shape SwatchOfEmphasis(const LevelsPicture& picture, bool isSetOff) {
    LevelMark mark;
    mark.fIsSetOff = isSetOff;
    return MakeSymbol(Symbol::Circle, {}, kLegendRadius, PaintOfPoint(picture, mark, kLegendRadius));
}

Legend LegendOfEmphasis(const LevelsPicture& picture) {
    Legend legend;
    for (const bool isSetOff : {true, false}) {
        const auto isLike = [isSetOff](const LevelMark& mark) { return mark.fIsSetOff == isSetOff; };
        if (std::ranges::none_of(picture.fvMarks, isLike)) continue;
        legend.fvEntries.push_back({isSetOff ? picture.fEmphasis.fSetOff : picture.fEmphasis.fRest,
                                    {SwatchOfEmphasis(picture, isSetOff)},
                                    isSetOff ? 0 : 1});
    }
    return legend;
}

Legend LegendOfSeries(const LevelsPicture& picture) {
    Legend legend;
    legend.fTitle = picture.fSeries.fTitle;
    for (int series = 0; series < CountOfSeries(picture); ++series) {
        const Paint paint{.fFill = InkOf(picture, series)};
        legend.fvEntries.push_back({picture.fSeries.fvWords[static_cast<std::size_t>(series)],
                                    {MakeSymbol(SymbolOfClass(series), {}, kLegendRadius, paint)},
                                    series});
    }
    return legend;
}

double RadiusFor(const LevelsPicture& picture, const LevelsPlan& plan, double dodge) {
    if (HasNumbers(picture)) return HasSeries(picture) ? 4.2 : 3.6;
    const double most = plan.fGrid.HasHeadings() ? 4.6 : 5.2;
    const double apart = picture.fSeries.fvWords.size() > 1 ? dodge : plan.fAxis.fSlot;
    return std::clamp(0.42 * apart, kLeastRadius, most);
}

}  // namespace

LevelsPlaces PlacesOf(const LevelsPicture& picture, const LevelsPlan& plan) {
    const double dodge = DodgeIn(picture, plan.fAxis.fSlot);
    return {&picture, &plan, dodge, RadiusFor(picture, plan, dodge)};
}

Legend LegendOf(const LevelsPicture& picture) {
    if (picture.fIsContrast) return picture.fEmphasis.fHasLegend ? LegendOfEmphasis(picture) : Legend{};
    return picture.fSeries.fHasLegend ? LegendOfSeries(picture) : Legend{};
}

void AddTrends(Scene& scene, const LevelsPlaces& places) {
    if (!AreJoined(*places.fpPicture)) return;
    const std::vector<const LevelMark*> marks = SortMarks(*places.fpPicture);
    Element bands;
    Element lines;
    for (Trend rest = marks; !rest.empty();) {
        const auto isOther = [&](const LevelMark* mark) { return TrendOf(mark) != TrendOf(rest.front()); };
        const Trend trend = rest.first(static_cast<std::size_t>(std::ranges::find_if(rest, isOther) - rest.begin()));
        AddTrend(bands, lines, trend, places);
        rest = rest.subspan(trend.size());
    }
    scene.fvElements.push_back(std::move(bands));
    scene.fvElements.push_back(std::move(lines));
}

void AddMarks(Scene& scene, const LevelsPlaces& places) {
    AddGuides(scene, places);
    const LevelsPicture& picture = *places.fpPicture;
    const bool isInFull = AreInFull(picture);
    for (const LevelMark* mark : OrderOf(picture, isInFull)) {
        const PanelScales scales(places, places.fpPlan->fGrid.At(mark->fPanel));
        Element element;
        element.fTip = mark->fTip;
        element.fvKeys = KeysOf(picture, *mark);
        isInFull ? AddInFull(element, *mark, places, scales) : AddInShort(element, *mark, picture, scales);
        scene.fvElements.push_back(std::move(element));
    }
}

}  // namespace hierfit::report::charts
