#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/KEST_Format.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// Words of a chart: as they stand, or a key of the string table in their place.
struct Words {
    std::string fText;
    std::string fLookup;  ///< empty: the text counts
};

/// Limits of an axis; a missing one comes from the data.
struct Span {
    std::optional<double> fMin;
    std::optional<double> fMax;
};

/// One layer of marks. References name a field's slot or a variable of the mark's source; empty where not given.
struct Mark {
    enum class Kind {
        Points,  ///< at x and y, or at a node of the circle
        Links,   ///< from x, y to x2, y2, or between two nodes
        Names,   ///< words beside x and y, or outside a node
        Anchor,  ///< the box at which all links end
        Ranges,  ///< from the first to the second row of a pair
        Stems,   ///< from the first to the second row of a pair, up from the line that levels are compared with
    };
    Kind fKind;
    std::string fSource;  ///< empty: the only source, or the one that has the variables
    std::string fX;
    std::string fY;
    std::string fX2;
    std::string fY2;
    std::string fOf;  ///< the limits of a range
    std::string fNode;
    std::string fFrom;
    std::string fTo;
    std::string fShape;
    std::string fOpacity;
    std::string fWeight;
    std::string fSign;
    std::string fMark;  ///< 1 for what is set off (significant), 0 for the rest
    std::string fText;
    std::string fBeside;  ///< the x of what a name stands beside
    std::string fTip;
};

struct Bars {
    std::string fSource;
    std::string fX;
    std::string fY;
    std::optional<int> fBinCount;
};

/// The density of a distribution over bars.
struct Curve {
    std::string fDistribution;  ///< "normal", "gamma", "gaussianinverse", "binomialnegative" or "poisson"
    std::optional<double> fParameter;
    std::optional<double> fSecondaryParameter;
};

/// A horizontal line in every panel but those that the text tells.
struct LineGuide {
    double fY;
    std::string fUnless;
};

struct Plot {
    enum class Arrange { Free, Levels, Circle };

    std::string fId;
    Arrange fArrange = Arrange::Free;
    bool fPairs = false;  ///< rows 2v and 2v + 1 of a source are one item
    std::optional<int> fWidthPercent;
    int fMarginBottom = 0;  ///< pixels
    bool fSquare = false;
    Span fX;
    Span fY;
    std::string fColor;  ///< the variable that gives colour, shape and dodge; empty for none
    std::vector<Mark> fvMarks;
    std::optional<Bars> fBars;
    std::optional<Curve> fCurve;
    bool fHasDiagonal = false;
    std::vector<LineGuide> fvLineGuides;

    /// The first mark of a kind; null where there is none.
    const Mark* Find(Mark::Kind kind) const {
        for (const Mark& mark : fvMarks) {
            if (mark.fKind == kind) return &mark;
        }
        return nullptr;
    }
};

struct Faceting {
    std::vector<std::string> fvVariables;  ///< outermost last; at most two are drawn
    int fWrap = 0;                         ///< panels abreast; 0 leaves it open
    std::vector<bool> fvAlongColumns;      ///< for each level whether its panels stand abreast, else below each other
};

struct LegendEntry {
    std::string fValue;
    Words fWords;
};

struct Legend {
    std::string fId;
    bool fIsVisible = true;
    std::string fOf;
    std::optional<double> fHigh;  ///< entries outside low and high are not shown
    std::optional<double> fLow;
    std::optional<Words> fHeading;
    std::vector<LegendEntry> fvEntries;
};

struct AxisTitle {
    bool fIsX;
    Words fWords;
};

/// What a variable is called in tips.
struct Popup {
    std::string fOf;
    Words fWords;
};

/// A template's slot tied to a data variable.
struct Field {
    std::string fSlot;
    std::string fName;
    std::string fSource;
    bool fIsFactor = false;
    std::string fTitle;
    std::string fLabel;
    std::optional<KEST_Format> fFormat;
};

struct Specification;

/// A chart inside another, with its own data.
struct Inset {
    std::string fAt;  ///< "anchor"
    int fFieldType;   ///< of the target: 0 string, 1 integer, 2 real, 6 unknown
    std::unique_ptr<Specification> fpChart;
    std::vector<document::ChartSource> fvData;
};

/// Chart XML that has been read: what is drawn, from which variables, with which words.
struct Specification {
    std::string fTemplate;
    Plot fPlot;
    std::optional<Faceting> fFaceting;
    std::vector<Legend> fvLegends;
    std::optional<Words> fTitle;
    std::optional<Words> fSubtitle;
    std::optional<Words> fCaption;
    std::optional<Words> fFootnote;
    std::vector<AxisTitle> fvAxisTitles;
    std::vector<Popup> fvPopups;
    std::vector<Field> fvFields;
    std::optional<Inset> fInset;
};

}  // namespace hierfit::chart
