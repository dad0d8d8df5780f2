#include "host/chart/view/circle/CircleLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostUpright = 14;
constexpr std::size_t kMostRoomy = 9;  // upright names up to here leave the radius as it is
constexpr double kPlot = 640;
constexpr double kBetweenPanels = 18;
constexpr double kNameGap = 12;
constexpr double kWidestName = 90;  // beside panels
constexpr double kLine = 13.5;
constexpr double kLeastRadius = 46;
constexpr double kRadius = 110;
constexpr double kRoomyRadius = 190;
constexpr double kLargestRadius = 520;
constexpr double kRoomyArc = 30;    // between radial names
constexpr double kTightArc = 12.5;  // below this they would touch
constexpr double kCentered = 0.3;   // the cosine up to which a name is above or below its node
constexpr double kNodeEdge = 8;
constexpr double kTurnaround = 2 * std::numbers::pi;

double PanelRoom(std::size_t columns) {
    const double count = static_cast<double>(columns);
    return (kPlot - kBetweenPanels * (count - 1)) / count;
}

/// From the top clockwise; two nodes level, the first one on the left.
double Angle(std::size_t node, std::size_t count) {
    const double first = count == 2 ? -std::numbers::pi : -std::numbers::pi / 2;
    return first + kTurnaround * static_cast<double>(node) / static_cast<double>(count);
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += text.empty() ? line : "\n" + line;
    return text;
}

}  // namespace

CircleLayout::CircleLayout(const std::vector<std::vector<std::string>>& names, std::size_t columns) {
    std::size_t most = 1;
    for (const auto& panel : names) most = std::max(most, panel.size());
    fAreNamesRadial = most > kMostUpright;
    double longest = 0;
    std::vector<std::vector<Name>> fitted(names.size());
    for (std::size_t panel = 0; panel < names.size(); ++panel) {
        for (const std::string& name : names[panel]) {
            fitted[panel].push_back(Fit(name, NameWidth(name, columns)));
            longest = std::max(longest, fitted[panel].back().fWidth);
        }
    }
    fRadius = Radius(most, longest, columns);
    Hold(-fRadius - kNodeEdge, fRadius + kNodeEdge, -kNodeEdge, kNodeEdge);
    for (const auto& panel : fitted) PlacePanel(panel);
    for (auto& panel : fvPanels) {
        for (CircleNode& node : panel) {
            node.fX -= fLeft;
            node.fNameX -= fLeft;
            node.fY -= fTop;
            node.fNameY -= fTop;
        }
    }
}

double CircleLayout::FontSize() const { return fAreNamesRadial ? 10.5 : 11.5; }

// Panels grow rather than break words.
double CircleLayout::NameWidth(std::string_view name, std::size_t columns) const {
    if (columns < 2) return 150;
    const double room = std::clamp(PanelRoom(columns) * 0.28, 48.0, kWidestName);
    return fAreNamesRadial ? room : std::max(room, std::min(LongestWord(name, {FontSize(), false}) + 1, kWidestName));
}

CircleLayout::Name CircleLayout::Fit(std::string_view text, double width) const {
    const TextStyle style{FontSize(), false};
    Name name;
    if (fAreNamesRadial) {
        name.fvLines = {CutText(KeepBlanks(text), width, style)};
    } else {
        name.fvLines = WrapText(text, width, style, 3);
    }
    for (const std::string& line : name.fvLines) name.fWidth = std::max(name.fWidth, TextWidth(line, style));
    return name;
}

double CircleLayout::Radius(std::size_t most, double longestName, std::size_t columns) const {
    const double count = static_cast<double>(most);
    const double fitting = (PanelRoom(columns) - 2 * (longestName + kNameGap + 2)) / 2;
    const double widest = columns < 2 ? kRoomyRadius : kRadius;
    if (!fAreNamesRadial) {
        const double wished = kRadius + (most > kMostRoomy ? 8 * (count - static_cast<double>(kMostRoomy)) : 0);
        return columns < 2 ? wished : std::clamp(fitting, kLeastRadius, wished);
    }
    const double roomy = std::clamp(count * kRoomyArc / kTurnaround, kLeastRadius, widest);
    const double tight = std::min(count * kTightArc / kTurnaround, kLargestRadius);
    return std::max(columns < 2 ? roomy : std::min(roomy, std::max(fitting, kLeastRadius)), tight);
}

void CircleLayout::PlacePanel(const std::vector<Name>& names) {
    const double arc = kTurnaround * fRadius / static_cast<double>(std::max<std::size_t>(names.size(), 1));
    const auto step = fAreNamesRadial ? static_cast<std::size_t>(std::max(1.0, std::ceil(kTightArc / arc - 1e-9))) : 1;
    std::vector<CircleNode>& panel = fvPanels.emplace_back();
    for (std::size_t node = 0; node < names.size(); ++node) {
        const double angle = Angle(node, names.size());
        panel.push_back(fAreNamesRadial ? PlaceRadial(angle, names[node]) : PlaceUpright(angle, names[node]));
        if (node % step != 0) panel.back().fLabel.clear();
    }
}

CircleNode CircleLayout::PlaceUpright(double angle, const Name& name) {
    const double nameX = (fRadius + kNameGap) * std::cos(angle);
    const double nameY = (fRadius + kNameGap) * std::sin(angle);
    const double rest = kLine * (static_cast<double>(name.fvLines.size()) - 1);  // below the first line
    const double left = std::cos(angle) < -kCentered ? name.fWidth : std::cos(angle) > kCentered ? 0 : name.fWidth / 2;
    CircleNode node{fRadius * std::cos(angle), fRadius * std::sin(angle), nameX, nameY, "center", "middle", 0, ""};
    node.fLabel = Joined(name.fvLines);
    if (std::abs(std::cos(angle)) > kCentered) {
        node.fSide = left > 0 ? "right" : "left";
        node.fNameY -= rest / 2;
        Hold(nameX - left, nameX - left + name.fWidth, nameY - (rest + kLine) / 2, nameY + (rest + kLine) / 2);
        return node;
    }
    const bool isAbove = std::sin(angle) < 0;
    node.fBaseline = isAbove ? "bottom" : "top";
    if (isAbove) node.fNameY -= rest;
    Hold(nameX - left, nameX + left, isAbove ? nameY - rest - kLine : nameY, isAbove ? nameY : nameY + rest + kLine);
    return node;
}

CircleNode CircleLayout::PlaceRadial(double angle, const Name& name) {
    const bool isLeft = std::cos(angle) < -1e-9;
    const double outer = fRadius + kNameGap - 1;
    const double degrees = angle * 360 / kTurnaround + (isLeft ? 180 : 0);
    CircleNode node{fRadius * std::cos(angle),     fRadius * std::sin(angle), outer * std::cos(angle),
                    outer * std::sin(angle),       isLeft ? "right" : "left", "middle",
                    std::fmod(degrees + 720, 360), Joined(name.fvLines)};
    const double farX = (outer + name.fWidth) * std::cos(angle);
    const double farY = (outer + name.fWidth) * std::sin(angle);
    Hold(farX - kLine / 2, farX + kLine / 2, farY - kLine / 2, farY + kLine / 2);
    return node;
}

void CircleLayout::Hold(double left, double right, double top, double bottom) {
    fLeft = std::min(fLeft, left);
    fRight = std::max(fRight, right);
    fTop = std::min(fTop, top);
    fBottom = std::max(fBottom, bottom);
}

}  // namespace hierfit::chart
