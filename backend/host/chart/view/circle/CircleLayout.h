#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::chart {

/// Where a node of a circle and its name stand, in pixels of its panel, y downward.
struct CircleNode {
    double fX;
    double fY;
    double fNameX;
    double fNameY;
    std::string_view fSide;      ///< the alignment of the name: "left", "center" or "right"
    std::string_view fBaseline;  ///< "top", "middle" or "bottom"
    double fTurn = 0;            ///< of the name, in degrees clockwise, from 0 below 360
    std::string fLabel;          ///< the name in lines, cut to its room; empty where names would collide
};

/// Circles of nodes, one for each panel, all in panels of one size. Names stand outside: upright up to 14 nodes, beyond
/// that along the radius.
class CircleLayout {
  public:
    /// The names of each panel's nodes, from the top clockwise; two nodes stand level. Columns are the panels abreast.
    CircleLayout(const std::vector<std::vector<std::string>>& names, std::size_t columns);

    double Width() const { return fRight - fLeft; }
    double Height() const { return fBottom - fTop; }
    bool AreNamesRadial() const { return fAreNamesRadial; }
    double FontSize() const;
    const CircleNode& At(std::size_t panel, std::size_t node) const { return fvPanels[panel][node]; }

  private:
    struct Name {
        std::vector<std::string> fvLines;
        double fWidth = 0;
    };

    double NameWidth(std::string_view name, std::size_t columns) const;
    Name Fit(std::string_view text, double width) const;
    double Radius(std::size_t most, double longestName, std::size_t columns) const;
    void PlacePanel(const std::vector<Name>& names);
    CircleNode PlaceUpright(double angle, const Name& name);
    CircleNode PlaceRadial(double angle, const Name& name);
    void Hold(double left, double right, double top, double bottom);

    bool fAreNamesRadial = false;
    double fRadius = 0;
    double fLeft = 0;
    double fRight = 0;
    double fTop = 0;
    double fBottom = 0;
    std::vector<std::vector<CircleNode>> fvPanels;
};

}  // namespace hierfit::chart
