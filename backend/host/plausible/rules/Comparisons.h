#pragma once

#include "host/plausible/Findings.h"
#include "host/plausible/Model.h"
#include "host/plausible/figures/Figure.h"

namespace hierfit::plausible {

/// A figure and the name that it has in the document.
struct Named {
    const char* fName;
    MaybeFigure fFigure;
};

struct Interval {
    Named fEstimate;
    Named fLower;
    Named fUpper;
};

/// A figure as a message shows it: as it is written, a long one by its two ends.
std::string Show(const Figure& figure);

/// Whether a figure is there and from 0 to 1.
bool IsProbability(const MaybeFigure& figure);

/// Rules for figures that belong together. A missing figure leaves out those rules that need it.

void JudgeInterval(Findings& findings, const Item& item, const Interval& interval);

/// An interval that lies evenly about its estimate and has an error and degrees of freedom, against the level of
/// confidence. Others are not of that kind and may be as wide as they like.
void JudgeWidth(Findings& findings, const Item& item, const Interval& interval, const Named& error, const Named& df,
                const MaybeFigure& level);

void JudgeError(Findings& findings, const Item& item, const Named& error);

void JudgeProbability(Findings& findings, const Item& item, const Named& probability);

void JudgeDf(Findings& findings, const Item& item, const Named& df);

void JudgeCount(Findings& findings, const Item& item, const Named& count);

void JudgeRange(Findings& findings, Kind kind, const Item& item, const Named& value, const Range& range);

/// A test statistic against the quotient of estimate and standard error.
void JudgeRatio(Findings& findings, const Item& item, const Named& statistic, const Named& estimate,
                const Named& error);

/// A contrast against the two means that it compares.
void JudgeDifference(Findings& findings, const Item& item, const Named& contrast, const Named& first,
                     const Named& second);

/// A covariance against the variances of its row and column, which leave its correlation within [-1, 1].
void JudgeCovarianceAmong(Findings& findings, const Item& item, const Figure& covariance, const Figure& row,
                          const Figure& column);

/// How a p value stands to that of its statistic.
enum class Relation {
    Equal,
    NotBelow,  ///< adjusted in an unknown way
    Multiple,  ///< adjusted in a way that gives at most as many times as much as there are comparisons
};

/// A two-sided p value against a t statistic. Without degrees of freedom it must be one for some of them, 1 at least.
void JudgeT(Findings& findings, const Item& item, const Named& significance, const Named& t, const MaybeFigure& df,
            Relation relation, std::size_t comparisons = 1);

enum class Sides { Two, OneOrTwo };

/// A p value against a standard normal statistic.
void JudgeZ(Findings& findings, const Item& item, const Named& significance, const Named& z, Sides sides);

/// The attributes of an `FTest`: F, degrees of freedom and p value. Without those of the denominator it must be one for
/// some of them.
void JudgeF(Findings& findings, const xml::Document& document, const Item& item, Node test);

}  // namespace hierfit::plausible
