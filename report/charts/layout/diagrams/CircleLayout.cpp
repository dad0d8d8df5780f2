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
constexpr double kStrongest = 0.9;
constexpr double kLinesAtFullStrength = 110;  // that many lines that are not set off share the strength of one
constexpr double kSwatch = 25;                // two dashes and a half
constexpr double kBelowLegend = 12;
constexpr double kWidestHeading = 340;
constexpr double kHighestHeading = 160;  // turned, beside panels

/// How strong a line is drawn that is not set off, by the lines of the fullest panel.
double RestOpacity(const CirclePicture& picture) {
    std::size_t most = 1;
    for (const CirclePanel& panel : picture.fvPanels) most = std::max(most, panel.fvLinks.size());
    return std::clamp(kLinesAtFullStrength / static_cast<double>(most), kFaintest, kStrongest);
}

Paint PaintOf(bool isSetOff, double opacity, double width) {
    if (isSetOff) return {.fStroke = Ink::SetOff, .fStrokeWidth = width, .fOpacity = kSetOffOpacity};
    return {.fStroke = Ink::Quiet, .fStrokeWidth = width, .fDash = Dash::Short, .fOpacity = opacity};
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

/// With the heading over a panel. Rows of two nodes are lower than the headings beside them: those panels follow each
/// other.
double LeastPanelWidth(const CirclePicture& picture, double width) {
    const bool isLow =
        std::ranges::all_of(picture.fvPanels, [](const CirclePanel& panel) { return panel.fvNodes.size() <= 2; });
    if (isLow && !picture.fPanels.fvDown.empty()) return width;
    const double heading = std::min(WidestLine(picture.fPanels.fvAcross, kHeadingStyle), kWidestHeading) + 1;
    return std::max(LeastCircleWidth(picture.fvPanels), heading);
}

/// Panels are as wide as their headings over them, and as high as those beside them, within reason.
Frame RoomForHeadings(const PanelGrid& grid, const document::PicturePanels& panels) {
    const double across = WidestLine(panels.fvAcross, kHeadingStyle);
    const double down = WidestLine(panels.fvDown, kHeadingStyle);
    const double over =
        panels.fvDown.empty() || grid.IsTable() ? across : down + TextWidth(", ", kHeadingStyle) + across;
    return {0, 0, std::min(over, kWidestHeading) + 1, grid.IsTable() ? std::min(down, kHighestHeading) + 1 : 0};
}

bool AreCrowd(const CirclePicture& picture) {
    std::size_t links = 0;
    for (const CirclePanel& panel : picture.fvPanels) links += panel.fvLinks.size();
    return links > kMostInFull;
}

/// Draws circles one after the other.
class CircleDrawing {
  public:
    CircleDrawing(Scene& scene, const CirclePicture& picture, const CirclePlaces& places, const CircleKeys& keys)
        : fScene(scene),
          fPicture(picture),
          fPlaces(places),
          fKeys(keys),
          fRestOpacity(RestOpacity(picture)),
          fIsCrowd(AreCrowd(picture)) {}

    /// Marks come in this order at any width: what is not set off, what is, nodes. Of a crowd wide lines lie on top.
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
        std::vector<const CircleLink*> links;
        for (const CircleLink& link : fPicture.fvPanels[panel].fvLinks) {
            if (link.fIsSetOff == isSetOff) links.push_back(&link);
        }
        if (fIsCrowd) std::ranges::stable_sort(links, {}, &CircleLink::fShare);
        for (const CircleLink* link : links) {
            const double width = kThinnest + std::clamp(link->fShare, 0.0, 1.0) * (widest - kThinnest);
            const Point from = fPlaces.fvPanels[panel][static_cast<std::size_t>(link->fFrom)].fAt;
            const Point to = fPlaces.fvPanels[panel][static_cast<std::size_t>(link->fTo)].fAt;
            const Paint paint = PaintOf(isSetOff, fRestOpacity, width);
            fScene.fvElements.push_back({{fIsCrowd ? MakeCoarseLine(from, to, paint) : MakeLine(from, to, paint)},
                                         link->fTip,
                                         fKeys.OfLink(static_cast<int>(panel), *link),
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
    bool fIsCrowd;
};

}  // namespace

Scene LayOutContent(const CirclePicture& picture, double width) {
    const CircleKeys keys(picture);
    Scene scene;
    const Legend legend = EmphasisLegend(picture, keys);
    const Frame above = AddLegends(scene, {legend}, {}, width);
    PanelGrid grid(picture.fPanels, width, LeastPanelWidth(picture, width));
    const double room = grid.PlotWidth(width, {});
    const CirclePlaces places = PlaceCircles(picture.fvPanels, room);
    const Frame& reach = places.fReach;
    const Frame headings = RoomForHeadings(grid, picture.fPanels);
    const double plotWidth = std::max(reach.Width(), std::min(headings.Width(), room));
    const double plotHeight = std::max(reach.Height(), headings.Height());
    grid.Place(above.fBottom > 0 ? above.fBottom + kBelowLegend : 0, plotWidth, plotHeight, {});
    CircleDrawing drawing(scene, picture, places, keys);
    std::vector<document::PanelPlace> panels;
    for (const CirclePanel& panel : picture.fvPanels) panels.push_back(panel.fPlace);
    grid.AddHeadings(scene, panels);
    for (std::size_t panel = 0; panel < panels.size(); ++panel) {
        const Frame plot = grid.At(panels[panel]);
        drawing.Add(panel, {plot.fLeft - reach.fLeft + (plotWidth - reach.Width()) / 2,
                            plot.fTop - reach.fTop + (plotHeight - reach.Height()) / 2});
    }
    scene.fWidth = std::max(above.fRight, picture.fvPanels.empty() ? 0 : grid.Width());
    scene.fHeight = picture.fvPanels.empty() ? above.fBottom : grid.Bottom();
    return scene;
}

}  // namespace hierfit::report::charts
