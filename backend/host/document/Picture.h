#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What a chart shows, resolved: every word is in the language of the run, every number is in the units of its axis.
/// There are no pixels and no colours here. All numbers are finite and so small that the difference of any two is
/// finite too; all numbers of classes, levels, nodes and panels count from 0 and lie within the lists that they count
/// in.
namespace hierfit::document {

/// Values behind the marks of a chart, as shown.
struct ChartTable {
    std::vector<std::string> fvColumns;  ///< one at least
    int fKeys = 0;  ///< so many leading columns tell what a row is about; there are others, which tell its figures
    std::vector<std::vector<std::string>> fvRows;  ///< as many cells as there are columns

    bool operator==(const ChartTable&) const = default;
};

/// An axis of numbers.
struct PictureAxis {
    std::string fTitle;           ///< what it shows; may be empty
    std::optional<double> fLow;   ///< limits that are set; without them the marks decide
    std::optional<double> fHigh;  ///< not below the low one
    bool fIsWhole = false;        ///< it counts something: nothing stands between whole numbers

    bool operator==(const PictureAxis&) const = default;
};

/// What marks are told apart by, and the legend that explains it. Only classes that occur are among them.
struct PictureClasses {
    std::string fTitle;
    std::vector<std::string> fvWords;  ///< a class each
    bool fHasLegend = false;

    bool operator==(const PictureClasses&) const = default;
};

/// What is set off (significant) and the rest, in words. Words are empty where no mark is of that kind, and the legend
/// has no entry for it.
struct PictureEmphasis {
    std::string fSetOff;
    std::string fRest;
    bool fHasLegend = false;

    bool operator==(const PictureEmphasis&) const = default;
};

/// One panel without a heading; or a panel for each level of a variable; or one for each pair of levels of two, the
/// second of which stands downwards.
struct PicturePanels {
    std::vector<std::string> fvAcross;  ///< headings over the panels
    std::vector<std::string> fvDown;    ///< headings beside the rows of panels; empty unless there are two variables
    int fAbreast = 0;                   ///< so many stand side by side at most; 0 leaves it open

    bool operator==(const PicturePanels&) const = default;
};

struct PanelPlace {
    int fAcross = 0;  ///< a heading's number; 0 where there is none
    int fDown = 0;

    bool operator==(const PanelPlace&) const = default;
};

/// One mean.
struct LevelMark {
    PanelPlace fPanel;
    int fLevel = 0;
    int fSeries = 0;  ///< a class of `LevelsPicture::fSeries`; 0 where there are none
    double fValue = 0;
    std::optional<double> fBase;  ///< what a contrast compares it with
    std::optional<double> fLow;   ///< the ends of its whisker; both or neither
    std::optional<double> fHigh;
    bool fIsSetOff = false;
    std::string fTip;  ///< several lines

    bool operator==(const LevelMark&) const = default;
};

/// A line across one panel.
struct LevelGuide {
    PanelPlace fPanel;
    double fValue = 0;
    std::string fTip;

    bool operator==(const LevelGuide&) const = default;
};

/// Means over levels of a factor, or over numbers of a continuous predictor; or contrasts, which stand up or down from
/// what they compare with.
struct LevelsPicture {
    bool fIsContrast = false;
    PictureAxis fValues;
    PictureAxis fPredictor;             ///< the axis of levels; its limits count where levels have numbers
    std::vector<std::string> fvLevels;  ///< in words, in order
    std::vector<double> fvNumbers;      ///< of each level where the axis is one of numbers, else empty
    PictureClasses fSeries;
    PictureEmphasis fEmphasis;  ///< of contrasts
    PicturePanels fPanels;
    std::vector<LevelMark> fvMarks;
    std::vector<LevelGuide> fvGuides;

    bool operator==(const LevelsPicture&) const = default;
};

struct CircleNode {
    std::string fName;
    std::string fTip;

    bool operator==(const CircleNode&) const = default;
};

struct CircleLink {
    int fFrom = 0;  ///< nodes of the panel
    int fTo = 0;
    double fShare = 0;  ///< of the widest line, 0 to 1
    bool fIsSetOff = false;
    std::string fTip;

    bool operator==(const CircleLink&) const = default;
};

struct CirclePanel {
    PanelPlace fPlace;
    std::vector<CircleNode> fvNodes;  ///< from the top clockwise
    std::vector<CircleLink> fvLinks;

    bool operator==(const CirclePanel&) const = default;
};

/// Levels on a circle and lines between those that are compared.
struct CirclePicture {
    PictureEmphasis fEmphasis;
    PicturePanels fPanels;
    std::vector<CirclePanel> fvPanels;  ///< those that have nodes

    bool operator==(const CirclePicture&) const = default;
};

struct HistogramBin {
    double fLow = 0;
    double fHigh = 0;  ///< above the low edge
    double fCount = 0;
    std::string fTip;

    bool operator==(const HistogramBin&) const = default;
};

struct CurvePoint {
    double fX = 0;
    double fY = 0;

    bool operator==(const CurvePoint&) const = default;
};

/// Frequencies in bins, and over them what a distribution lets expect.
struct HistogramPicture {
    PictureAxis fValues;
    PictureAxis fCounts;
    std::vector<HistogramBin> fvBins;  ///< from the lowest to the highest
    std::vector<CurvePoint> fvCurve;   ///< in order of x; empty: there is no curve
    bool fIsCurveOfCounts = false;     ///< a point of the curve stands for one whole number

    bool operator==(const HistogramPicture&) const = default;
};

/// What a node stands for.
enum class NodeKind : unsigned char { Continuous, Categorical, Ordinal, Interaction, Intercept, Unknown };

struct NetworkNode {
    double fX = 0;
    double fY = 0;
    std::string fName;
    std::string fTip;
    std::optional<int> fType;  ///< a class of `NetworkPicture::fTypes`

    bool operator==(const NetworkNode&) const = default;
};

struct NetworkLink {
    double fX = 0;
    double fY = 0;
    double fX2 = 0;
    double fY2 = 0;
    double fWeight = 0;
    std::optional<int> fSign;  ///< a class of `NetworkPicture::fSigns`
    std::optional<int> fNode;  ///< the node that it comes from
    std::string fTip;

    bool operator==(const NetworkLink&) const = default;
};

/// What all links lead to.
struct NetworkTarget {
    std::optional<double> fX;
    std::optional<double> fY;
    std::string fName;
    std::string fTip;

    bool operator==(const NetworkTarget&) const = default;
};

struct WeightEntry {
    double fWeight = 0;
    std::string fWords;

    bool operator==(const WeightEntry&) const = default;
};

/// What the widths of links mean.
struct NetworkWeights {
    std::string fTitle;
    double fLow = 0;                     ///< the weight of the thinnest line
    double fHigh = 1;                    ///< of the widest; above the low one
    std::vector<WeightEntry> fvEntries;  ///< of the legend, ascending, those that occur; empty: there is no legend

    bool operator==(const NetworkWeights&) const = default;
};

/// Nodes, one link from each, and the target that all links lead to. y grows upwards.
struct NetworkPicture {
    std::optional<double> fLowX;  ///< limits of x that are set
    std::optional<double> fHighX;
    std::vector<NetworkNode> fvNodes;
    std::vector<NetworkLink> fvLinks;  ///< the heaviest first: thin lines lie on top
    NetworkTarget fTarget;
    NetworkWeights fWeights;
    PictureClasses fSigns;         ///< the negative one last
    bool fIsLastNegative = false;  ///< whether there is a negative one
    PictureClasses fTypes;
    std::vector<NodeKind> fvKinds;               ///< of each type
    std::optional<HistogramPicture> fHistogram;  ///< of the target

    bool operator==(const NetworkPicture&) const = default;
};

struct ScatterPoint {
    double fX = 0;
    double fY = 0;
    double fFrequency = 1;  ///< records that it stands for, not negative
    std::string fTip;

    bool operator==(const ScatterPoint&) const = default;
};

/// Points in two dimensions. The limits of both axes hold every point.
struct ScatterPicture {
    PictureAxis fX;
    PictureAxis fY;
    bool fIsSquare = false;     ///< both axes are alike
    bool fHasDiagonal = false;  ///< the line on which both axes agree
    bool fHasFrequencies = false;
    std::string fFrequencyTitle;
    bool fHasLegend = false;             ///< of frequencies
    std::vector<ScatterPoint> fvPoints;  ///< by frequency: what stands for more lies on top

    bool operator==(const ScatterPicture&) const = default;
};

struct Picture {
    std::string fTitle;  ///< each of the words may be empty and may have several lines
    std::string fSubtitle;
    std::string fCaption;
    std::string fFootnote;
    std::vector<std::string> fvNotes;  ///< what the marks mean, a sentence each
    std::variant<LevelsPicture, CirclePicture, NetworkPicture, ScatterPicture, HistogramPicture> fContent;
    std::string fSentence;  ///< the picture for readers who do not see it: kind, axes, number of marks, range
    std::vector<ChartTable> fvTables;  ///< the values behind its marks, one table for each kind of marks

    bool operator==(const Picture&) const = default;
};

}  // namespace hierfit::document
