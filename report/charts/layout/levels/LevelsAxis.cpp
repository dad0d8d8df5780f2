#include "report/charts/layout/levels/LevelsAxis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::LevelsPicture;

namespace {

constexpr double kGap = 8;             // between the words of two levels side by side
constexpr double kWordsGap = 7;        // between the plot and words
constexpr std::size_t kMostLines = 3;  // side by side
constexpr std::size_t kMostLinesBelow = 6;
constexpr double kAngle = 40;  // of slanted words, degrees
constexpr double kSine = 0.6428;
constexpr double kCosine = 0.766;
constexpr double kSlantedRight = 4;    // slanted words end right of the middle of their level
constexpr double kBetweenLines = 6;    // of levels below each other
constexpr double kMostForLines = 640;  // pixels of levels below each other that get more lines than their marks need
constexpr double kMostLength = 20000;  // pixels of levels at their usual slots
constexpr double kLeastSlot = 2;
constexpr std::size_t kMostNames = 20'000;  // of levels, in all panels
constexpr double kRoomAtEnds = 0.03;        // of an axis of numbers

double CountOf(const LevelsPicture& picture) {
    return static_cast<double>(std::max<std::size_t>(picture.fvLevels.size(), 1));
}

/// Many levels move closer together.
double SlotFor(const LevelsPicture& picture, double wished) {
    return std::max(std::min(wished, kMostLength / CountOf(picture)), kLeastSlot);
}

/// The least room in which the words stand in a few lines, about; above `most` where that is not enough.
double LeastRoom(const std::string& words, double most) {
    const double whole = TextWidth(words, kLabelStyle);
    double room = std::max(LongestWord(words, kLabelStyle), whole / kMostLines);
    while (room <= most && !DoesFit(words, room, kLabelStyle, kMostLines))
        room = std::min(room * 1.08 + 1, std::max(whole, room + 1));
    return room;
}

/// So that words of a line each do not meet, every so many-th level has any.
std::size_t StepOfWords(double slot, double needed) {
    return static_cast<std::size_t>(std::max(1.0, std::ceil(needed / slot)));
}

/// One line for each level, cut to the room.
void SetInLines(const LevelsPicture& picture, double room, std::size_t step, LevelsAxis& axis) {
    std::vector<std::string> words;
    for (std::size_t level = 0; level < picture.fvLevels.size(); level += step)
        words.push_back(picture.fvLevels[level]);
    words = CutTexts(words, room, kLabelStyle);
    axis.fvWords.assign(picture.fvLevels.size(), {});
    for (std::size_t at = 0; at < words.size(); ++at) axis.fvWords[at * step] = {std::move(words[at])};
}

double WidestOf(const LevelsAxis& axis) {
    double widest = 0;
    for (const std::vector<std::string>& lines : axis.fvWords)
        widest = std::max(widest, WidestLine(lines, kLabelStyle));
    return widest;
}

void SetSideBySide(const LevelsPicture& picture, LevelsAxis& axis) {
    std::size_t most = 1;
    for (const std::string& words : picture.fvLevels) {
        axis.fvWords.push_back(WrapText(words, axis.fSlot - kGap, kLabelStyle, kMostLines));
        most = std::max(most, axis.fvWords.back().size());
    }
    axis.fRoom = kWordsGap + static_cast<double>(most) * LineHeight(kLabelStyle);
}

double SlantedTop() { return kWordsGap - 1 + Ascent(kLabelStyle) * kCosine; }

void SetSlanted(const LevelsPicture& picture, double mostWords, LevelsAxis& axis) {
    SetInLines(picture, mostWords, 1, axis);
    axis.fRoom = SlantedTop() + WidestOf(axis) * kSine + Descent(kLabelStyle) * kCosine;
}

void SetUpright(const LevelsPicture& picture, double mostWords, LevelsAxis& axis) {
    axis.fSlot = std::max(axis.fSlot, SlotFor(picture, kLeastUpright));
    axis.fLength = axis.fSlot * CountOf(picture);
    SetInLines(picture, mostWords, StepOfWords(axis.fSlot, kLeastUpright - 1), axis);
    axis.fRoom = kWordsGap + WidestOf(axis);
}

void SetNumbers(const LevelsPicture& picture, LevelsAxis& axis) {
    Extent extent;
    for (const double number : picture.fvNumbers) extent.Add(number);
    if (picture.fPredictor.fLow) extent.Add(*picture.fPredictor.fLow);
    if (picture.fPredictor.fHigh) extent.Add(*picture.fPredictor.fHigh);
    const double room = extent.Length() * kRoomAtEnds;
    if (!extent.fIsEmpty) extent = {extent.fLow - room, extent.fHigh + room, false};
    axis.fNumbers = MakeNumberAxis({{}, {}, {}, picture.fPredictor.fIsWhole}, extent, axis.fLength, true, false);
    axis.fRoom = RoomBelow(axis.fNumbers, false);
}

std::size_t LinesIn(double slot) {
    const auto lines = static_cast<std::size_t>(std::max(0.0, slot - kBetweenLines) / LineHeight(kLabelStyle));
    return std::clamp<std::size_t>(lines, 1, kMostLinesBelow);
}

bool DoAllStandIn(const LevelsPicture& picture, double room, std::size_t lines) {
    return std::ranges::all_of(picture.fvLevels,
                               [&](const std::string& words) { return DoesFit(words, room, kLabelStyle, lines); });
}

/// As many lines as the marks leave room for; more where few levels need them.
std::size_t LinesBelow(const LevelsPicture& picture, double slot, double room) {
    const auto isAffordable = [&](std::size_t lines) {
        return (static_cast<double>(lines) * LineHeight(kLabelStyle) + kBetweenLines) * CountOf(picture) <=
               kMostForLines;
    };
    std::size_t lines = LinesIn(slot);
    while (lines < kMostLinesBelow && isAffordable(lines + 1) && !DoAllStandIn(picture, room, lines)) ++lines;
    return lines;
}

void SetBelow(const LevelsPicture& picture, double room, std::size_t lines, LevelsAxis& axis) {
    if (lines > 1) {
        axis.fvWords = WrapTexts(picture.fvLevels, room, kLabelStyle, lines);
    } else {
        SetInLines(picture, room, StepOfWords(axis.fSlot, LineHeight(kLabelStyle)), axis);
    }
    axis.fRoom = kWordsGap + WidestOf(axis);
}

Shape TurnedText(const std::string& words, Point at, double turn) {
    Shape shape = MakeText(words, at, kLabelStyle, Anchor::End);
    std::get<Text>(shape.fForm).fTurn = turn;
    return shape;
}

/// About the middle of the letters.
constexpr double kToBaseline = 0.35;

/// Adds the words of one level, whose place along the axis is `at`.
void AddWords(Element& element, const LevelsAxis& axis, const std::vector<std::string>& lines, double at,
              const Frame& plot) {
    if (lines.empty()) return;
    const double size = kLabelStyle.fSize;
    if (axis.fStand == LevelsStand::Slanted) {
        element.fvShapes.push_back(
            TurnedText(lines.front(), {at + kSlantedRight, plot.fBottom + SlantedTop()}, -kAngle));
    } else if (axis.fStand == LevelsStand::Upright) {
        element.fvShapes.push_back(TurnedText(lines.front(), {at + size * kToBaseline, plot.fBottom + kWordsGap}, -90));
    } else if (axis.IsTurned()) {
        const double others = static_cast<double>(lines.size() - 1) * LineHeight(kLabelStyle);
        AddLines(element, lines, {plot.fLeft - kWordsGap, at + size * kToBaseline - others / 2}, kLabelStyle,
                 Anchor::End);
    } else {
        AddLines(element, lines, {at, plot.fBottom + kWordsGap + Ascent(kLabelStyle)}, kLabelStyle, Anchor::Middle);
    }
}

}  // namespace

double LeastSlotSideBySide(const LevelsPicture& picture, double most) {
    double room = 0;
    for (const std::string& words : picture.fvLevels) {
        room = std::max(room, LeastRoom(words, most));
        if (room + kGap > most) break;
    }
    return room + kGap;
}

LevelsAxis MakeLevelAxis(const LevelsPicture& picture, LevelsStand stand, double length, double mostWords) {
    LevelsAxis axis;
    axis.fStand = stand;
    axis.fLength = length;
    axis.fSlot = length / CountOf(picture);
    if (stand == LevelsStand::Numbers) {
        SetNumbers(picture, axis);
    } else if (stand == LevelsStand::SideBySide) {
        SetSideBySide(picture, axis);
    } else if (stand == LevelsStand::Slanted) {
        SetSlanted(picture, mostWords, axis);
    } else {
        SetUpright(picture, mostWords, axis);
    }
    return axis;
}

LevelsAxis MakeTurnedAxis(const LevelsPicture& picture, double leastSlot, double mostWords) {
    LevelsAxis axis;
    axis.fStand = LevelsStand::Below;
    const std::size_t lines = LinesBelow(picture, leastSlot, mostWords);
    const double forLines = lines > 1 ? static_cast<double>(lines) * LineHeight(kLabelStyle) + kBetweenLines : 0;
    axis.fSlot = SlotFor(picture, std::max(leastSlot, forLines));
    axis.fLength = axis.fSlot * CountOf(picture);
    SetBelow(picture, mostWords, lines, axis);
    return axis;
}

double OverhangOf(const LevelsAxis& axis, double width, int columns) {
    if (axis.fStand != LevelsStand::Slanted) return 0;
    const double slots = static_cast<double>(axis.fvWords.size()) * columns;
    const double upwards = Ascent(kLabelStyle) * kSine;  // the upper edge reaches farther than the baseline
    double overhang = 0;
    for (std::size_t level = 0; level < axis.fvWords.size(); ++level) {
        const double reach = WidestLine(axis.fvWords[level], kLabelStyle) * kCosine + upwards - kSlantedRight;
        const double share = (static_cast<double>(level) + 0.5) / slots;
        overhang = std::max(overhang, (reach - share * width) / (1 - share));
    }
    return overhang;
}

Scale ScaleOf(const LevelsAxis& axis, const Frame& plot) {
    if (axis.fStand == LevelsStand::Numbers) return {axis.fNumbers.fDomain, plot.fLeft, plot.fRight};
    const double count = static_cast<double>(std::max<std::size_t>(axis.fvWords.size(), 1));
    const Extent slots{-0.5, count - 0.5, false};
    return axis.IsTurned() ? Scale{slots, plot.fTop, plot.fBottom} : Scale{slots, plot.fLeft, plot.fRight};
}

void NameLevels(LevelsAxis& axis, std::size_t panels) {
    std::vector<std::size_t> named;
    for (std::size_t level = 0; level < axis.fvWords.size(); ++level) {
        if (!axis.fvWords[level].empty()) named.push_back(level);
    }
    const std::size_t most = std::max<std::size_t>(kMostNames / std::max<std::size_t>(panels, 1), 1);
    const std::size_t step = (named.size() + most - 1) / most;
    axis.fvNamed.clear();
    for (std::size_t at = 0; at < named.size(); at += step) axis.fvNamed.push_back(named[at]);
}

void AddLevels(Scene& scene, const LevelsAxis& axis, const Frame& plot) {
    if (axis.fStand == LevelsStand::Numbers) return AddBottomAxis(scene, axis.fNumbers, plot, false);
    const Scale scale = ScaleOf(axis, plot);
    Element words;
    if (!axis.IsTurned()) {
        words.fvShapes.push_back(
            MakeLine({plot.fLeft, plot.fBottom}, {plot.fRight, plot.fBottom}, {.fStroke = Ink::Axis}));
    }
    for (const std::size_t level : axis.fvNamed) {
        AddWords(words, axis, axis.fvWords[level], scale.At(static_cast<double>(level)), plot);
    }
    scene.fvElements.push_back(std::move(words));
}

}  // namespace hierfit::report::charts
