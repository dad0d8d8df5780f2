#include <algorithm>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/Legend.h"
#include "report/charts/layout/PanelGrid.h"
#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/diagrams/CirclePlaces.h"
#include "report/charts/layout/diagrams/Keys.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::CircleLink;
using document::CirclePanel;
using document::CirclePicture;

namespace {

constexpr double kThinnest = 0.7;
constexpr double kWidest = 4;
constexpr double kWidestOfMany = 2.2;  // where names are radial
constexpr double kSetOffOpacity = 0.9;
constexpr double kFaintest = 0.14;
constexpr double kStrongest = 0.75;
constexpr double kLinesAtFullStrength = 110;  // that many lines that are not set off share the strength of one
constexpr double kSwatch = 25;                // two dashes and a half
constexpr double kBelowLegend = 12;
constexpr double kWidestHeading = 340;

/// How strong a line is drawn that is not set off, by the lines of the fullest panel.
double RestOpacity(const CirclePicture& picture) {
    std::size_t most = 1;
    for (const CirclePanel& panel : picture.fvPanels) most = std::max(most, panel.fvLinks.size());
    return std::clamp(kLinesAtFullStrength / static_cast<double>(most), kFaintest, kStrongest);
}

Paint PaintOf(bool isSetOff, double opacity, double width) {
    if (isSetOff) return {.fStroke = Ink::SetOff, .fStrokeWidth = width, .fOpacity = kSetOffOpacity};
    return {.fStroke = Ink::Axis, .fStrokeWidth = width, .fDash = Dash::Short, .fOpacity = opacity};
}

/// Only what occurs.
Legend EmphasisLegend(const CirclePicture& picture, const CircleKeys& keys) {
    Legend legend{{}, {}, kSwatch};
    if (!picture.fEmphasis.fHasLegend) return legend;
    for (const bool isSetOff : {true, false}) {
        const bool occurs = std::ranges::any_of(picture.fvPanels, [isSetOff](const CirclePanel& panel) {
            return std::ranges::any_of(panel.fvLinks,
                                       [&](const CircleLink& link) { return link.fIsSetOff == isSetOff; });
        });
        if (!occurs) continue;
        Paint paint = PaintOf(isSetOff, 1, 3);
        paint.fOpacity = 1;
        legend.fvEntries.push_back({isSetOff ? picture.fEmphasis.fSetOff : picture.fEmphasis.fRest,
                                    {MakeLine({-kSwatch / 2, 0}, {kSwatch / 2, 0}, paint)},
                                    keys.OfEmphasis(isSetOff)});
    }
    return legend;
}

/// The width of the widest heading, within reason: panels are as wide as their headings.
double HeadingWidth(const document::PicturePanels& panels) {
    return std::min(WidestLine(panels.fvAcross, kHeadingStyle), kWidestHeading);
}

/// Draws circles one after the other.
class CircleDrawing {
  public:
    CircleDrawing(Scene& scene, const CirclePicture& picture, const CirclePlaces& places, const CircleKeys& keys)
        : fScene(scene), fPicture(picture), fPlaces(places), fKeys(keys), fRestOpacity(RestOpacity(picture)) {}

    /// Marks come in this order at any width: what is not set off, what is, nodes.
    void Add(std::size_t panel, Point middle) {
        const std::size_t first = fScene.fvElements.size();
        AddLinks(panel, false);
        AddLinks(panel, true);
        AddNodes(panel);
        Move(fScene, middle.fX, middle.fY, first);
    }

  private:
    void AddLinks(std::size_t panel, bool isSetOff) {
        const double widest = fPlaces.fAreNamesRadial ? kWidestOfMany : kWidest;
        for (const CircleLink& link : fPicture.fvPanels[panel].fvLinks) {
            if (link.fIsSetOff != isSetOff) continue;
            const double width = kThinnest + std::clamp(link.fShare, 0.0, 1.0) * (widest - kThinnest);
            const Point from = fPlaces.fvPanels[panel][static_cast<std::size_t>(link.fFrom)].fAt;
            const Point to = fPlaces.fvPanels[panel][static_cast<std::size_t>(link.fTo)].fAt;
            fScene.fvElements.push_back({{MakeLine(from, to, PaintOf(isSetOff, fRestOpacity, width))},
                                         link.fTip,
                                         fKeys.OfLink(static_cast<int>(panel), link),
                                         false});
        }
    }

    void AddNodes(std::size_t panel) {
        const Paint paint{.fFill = Ink::Ink, .fStroke = Ink::Paper, .fStrokeWidth = 1.5};
        const double radius = fPlaces.fAreNamesRadial ? 3.8 : 5.4;
        const auto& nodes = fPicture.fvPanels[panel].fvNodes;
        for (std::size_t at = 0; at < nodes.size(); ++at) {
            const CirclePlace& place = fPlaces.fvPanels[panel][at];
            Element element;
            element.fTip = nodes[at].fTip;
            element.fvKeys = {fKeys.OfNode(static_cast<int>(panel), static_cast<int>(at))};
            element.fvShapes.push_back(MakeSymbol(Symbol::Circle, place.fAt, radius, paint));
            element.fvShapes.insert(element.fvShapes.end(), place.fvName.begin(), place.fvName.end());
            fScene.fvElements.push_back(std::move(element));
        }
    }

    Scene& fScene;
    const CirclePicture& fPicture;
    const CirclePlaces& fPlaces;
    const CircleKeys& fKeys;
    double fRestOpacity;
};

}  // namespace

Scene LayOutContent(const CirclePicture& picture, double width) {
    const CircleKeys keys(picture);
    Scene scene;
    const Legend legend = EmphasisLegend(picture, keys);
    const Frame above = AddLegends(scene, {legend}, {}, width);
    const double headings = HeadingWidth(picture.fPanels);
    PanelGrid grid(picture.fPanels, width, std::max(LeastCircleWidth(picture.fvPanels), headings));
    const double room = grid.PlotWidth(width, {});
    const CirclePlaces places = PlaceCircles(picture.fvPanels, room);
    const Frame& reach = places.fReach;
    const double plotWidth = std::max(reach.Width(), std::min(headings, room));
    grid.Place(above.fBottom > 0 ? above.fBottom + kBelowLegend : 0, plotWidth, reach.Height(), {});
    CircleDrawing drawing(scene, picture, places, keys);
    for (std::size_t panel = 0; panel < picture.fvPanels.size(); ++panel) {
        const Frame plot = grid.At(picture.fvPanels[panel].fPlace);
        grid.AddHeading(scene, picture.fvPanels[panel].fPlace);
        drawing.Add(panel, {plot.fLeft - reach.fLeft + (plotWidth - reach.Width()) / 2, plot.fTop - reach.fTop});
    }
    scene.fWidth = std::max(above.fRight, picture.fvPanels.empty() ? 0 : grid.Width());
    scene.fHeight = picture.fvPanels.empty() ? above.fBottom : grid.Bottom();
    return scene;
}

}  // namespace hierfit::report::charts
