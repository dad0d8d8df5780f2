#include "host/plausible/rules/Comparisons.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/plausible/figures/Probability.h"
#include "host/unicode/Excerpt.h"

namespace hierfit::plausible {

namespace {

/// Bounds and estimates that differ by less, relative to the larger, are equal but for the arithmetic.
constexpr double kNoise = 1e-9;
/// Statistics that differ by less, relative to the larger, are equal, and so are p values that differ by less.
constexpr double kAlike = 1e-6;
/// Nobody writes a statistic or a p value with fewer decimals: what has none was not rounded there.
constexpr double kMostRoundingOfStatistic = 0.05;
constexpr double kMostRoundingOfP = 0.005;
constexpr double kMostRoundingOfDf = 0.5;

/// From one value to another, such as those p values that a statistic can have by the rounding of its figures.
struct Span {
    double fLow;
    double fHigh;
};

/// A p value that there is not.
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// What a message shows: the p value of the figures as they stand or, without one, the range.
Span Shown(double exact, const Span& span) { return std::isnan(exact) ? span : Span{exact, exact}; }

double Scale(double a, double b) { return std::max(std::abs(a), std::abs(b)); }

double RoundingOfStatistic(const Figure& statistic) { return RoundingOf(statistic, kMostRoundingOfStatistic); }

/// Whether the first of two figures of one kind is larger, and not by rounding alone.
bool IsLarger(const Figure& a, const Figure& b, const Figure& another) {
    const double difference = a.fValue - b.fValue;
    if (!(difference > kNoise * Scale(a.fValue, b.fValue))) return false;
    const double rounding = RoundingBeside(a, {b, another}) + RoundingBeside(b, {a, another});
    return difference > rounding * (1 - kAlike);
}

bool IsBelow(const Figure& significance, double p) {
    return significance.fValue + RoundingOf(significance, kMostRoundingOfP) + kAlike < p;
}

bool IsAbove(const Figure& significance, double p) {
    return significance.fValue - RoundingOf(significance, kMostRoundingOfP) - kAlike > p;
}

bool IsIn(const Figure& significance, const Span& span) {
    return !IsBelow(significance, span.fLow) && !IsAbove(significance, span.fHigh);
}

std::string ShowP(const Span& span) {
    const std::string low = fmt::format("{:.3g}", span.fLow);
    const std::string high = fmt::format("{:.3g}", span.fHigh);
    return low == high ? low : low + " to " + high;
}

std::string Show(const Named& named) { return std::string(named.fName) + " " + Show(*named.fFigure); }

/// Nothing where there is no such distribution.
std::optional<Span> SpanOfT(const Figure& t, const MaybeFigure& df) {
    const double size = std::abs(t.fValue);
    const double rounding = RoundingOfStatistic(t);
    const double nearer = std::max(0.0, size - rounding);
    if (!df) {
        const std::optional<double> high = TwoSidedT(nearer, 1);
        return high ? std::optional(Span{TwoSidedNormal(size + rounding), *high}) : std::nullopt;
    }
    const double ofDf = RoundingOf(*df, kMostRoundingOfDf);
    const std::optional<double> low = TwoSidedT(size + rounding, df->fValue + ofDf);
    const std::optional<double> high = TwoSidedT(nearer, std::max(df->fValue - ofDf, df->fValue / 2));
    return low && high ? std::optional(Span{*low, *high}) : std::nullopt;
}

/// Degrees of freedom of the denominator may be missing. The p value need not fall when they rise, so that both ends
/// of their range count.
std::optional<Span> SpanOfF(const Figure& f, const Figure& df1, const MaybeFigure& df2) {
    constexpr Span kAnyDf{1, 1e7};
    const double ofDf = df2 ? RoundingOf(*df2, kMostRoundingOfDf) : 0;
    const Span range = df2 ? Span{std::max(df2->fValue - ofDf, df2->fValue / 2), df2->fValue + ofDf} : kAnyDf;
    const double rounding = RoundingOfStatistic(f);
    Span span{1, 0};
    for (const double value : {std::max(0.0, f.fValue - rounding), f.fValue + rounding}) {
        for (const double df : {range.fLow, range.fHigh}) {
            const std::optional<double> p = UpperF(value, df1.fValue, df);
            if (!p) return std::nullopt;
            span = {std::min(span.fLow, *p), std::max(span.fHigh, *p)};
        }
    }
    return span;
}

void TellSignificance(Findings& findings, const Item& item, const Named& significance, const std::string& of,
                      const Span& span) {
    findings.Add(Kind::Significance, item,
                 fmt::format("{} contradicts {}, which gives {}", Show(significance), of, ShowP(span)));
}

std::string ShowT(const Named& t, const MaybeFigure& df) {
    return df ? Show(t) + " with df " + Show(*df) : Show(t) + " with any df from 1 on";
}

}  // namespace

bool IsProbability(const MaybeFigure& figure) { return figure && figure->fValue >= 0 && figure->fValue <= 1; }

std::string Show(const Figure& figure) { return unicode::Excerpt(figure.fText, 40); }

void JudgeInterval(Findings& findings, const Item& item, const Interval& interval) {
    const auto& [estimate, lower, upper] = interval;
    const MaybeFigure& value = estimate.fFigure;
    if (lower.fFigure && upper.fFigure && IsLarger(*lower.fFigure, *upper.fFigure, value ? *value : *upper.fFigure)) {
        findings.Add(Kind::Bounds, item, fmt::format("{} is above {}", Show(lower), Show(upper)));
        return;
    }
    if (!value) return;
    const MaybeFigure& low = lower.fFigure;
    const MaybeFigure& high = upper.fFigure;
    if (low && IsLarger(*low, *value, high ? *high : *low))
        findings.Add(Kind::Interval, item, fmt::format("{} is below {}", Show(estimate), Show(lower)));
    if (high && IsLarger(*value, *high, low ? *low : *high))
        findings.Add(Kind::Interval, item, fmt::format("{} is above {}", Show(estimate), Show(upper)));
}

void JudgeWidth(Findings& findings, const Item& item, const Interval& interval, const Named& error, const Named& df,
                const MaybeFigure& level) {
    const auto& [estimate, lower, upper] = interval;
    if (!findings.Wants(Kind::Width) || !estimate.fFigure || !lower.fFigure || !upper.fFigure) return;
    if (!error.fFigure || !(error.fFigure->fValue > 0) || !df.fFigure || !(df.fFigure->fValue > 0)) return;
    if (!level || !(level->fValue > 0 && level->fValue < 1)) return;
    const double half = (upper.fFigure->fValue - lower.fFigure->fValue) / 2;
    const double shift = upper.fFigure->fValue - half - estimate.fFigure->fValue;
    const double rounding = RoundingBeside(*lower.fFigure, {*upper.fFigure, *estimate.fFigure}) +
                            RoundingBeside(*upper.fFigure, {*lower.fFigure, *estimate.fFigure}) + kAlike * half;
    if (!(half > 0) || std::abs(shift) > rounding) return;

    const double ofError = RoundingBeside(*error.fFigure, {*estimate.fFigure}) + kAlike * error.fFigure->fValue;
    const double ofDf = RoundingOf(*df.fFigure, kMostRoundingOfDf);
    const double least = std::max(0.0, half - rounding) / (error.fFigure->fValue + ofError);
    const double most = (half + rounding) / std::max(error.fFigure->fValue - ofError, 0.0);
    const double low = TwoSidedT(most, df.fFigure->fValue + ofDf).value_or(0);
    const double high = TwoSidedT(least, std::max(df.fFigure->fValue - ofDf, df.fFigure->fValue / 2)).value_or(1);
    const double outside = 1 - level->fValue;
    if (low <= outside + kAlike && high >= outside - kAlike) return;
    const double exact = TwoSidedT(half / error.fFigure->fValue, df.fFigure->fValue).value_or(kNone);
    findings.Add(Kind::Width, item,
                 fmt::format("{} to {} are bounds at level {:.4g} by {} with {}, not {}", Show(lower), Show(upper),
                             1 - exact, Show(error), Show(df), Show(*level)));
}

void JudgeError(Findings& findings, const Item& item, const Named& error) {
    if (error.fFigure && error.fFigure->fValue < 0)
        findings.Add(Kind::Error, item, Show(error) + " is a negative standard error");
}

void JudgeProbability(Findings& findings, const Item& item, const Named& probability) {
    if (probability.fFigure && !IsProbability(probability.fFigure))
        findings.Add(Kind::Probability, item, Show(probability) + " is outside of 0 to 1");
}

void JudgeDf(Findings& findings, const Item& item, const Named& df) {
    if (df.fFigure && df.fFigure->fValue < 0) findings.Add(Kind::DegreesOfFreedom, item, Show(df) + " is below 0");
}

void JudgeCount(Findings& findings, const Item& item, const Named& count) {
    if (!count.fFigure) return;
    const double value = count.fFigure->fValue;
    if (value < 0)
        findings.Add(Kind::Count, item, Show(count) + " is a negative count");
    else if (std::abs(value - std::round(value)) > kAlike * value)
        findings.Add(Kind::Fraction, item, Show(count) + " is a count that is not whole");
}

void JudgeRange(Findings& findings, Kind kind, const Item& item, const Named& value, const Range& range) {
    if (!value.fFigure) return;
    if (value.fFigure->fValue < range.fLeast - kNoise)
        findings.Add(kind, item,
                     fmt::format("{} is below {:g}, the least that there can be", Show(value), range.fLeast));
    if (value.fFigure->fValue > range.fMost + kNoise)
        findings.Add(kind, item, fmt::format("{} is above {:g}, the most that there can be", Show(value), range.fMost));
}

void JudgeRatio(Findings& findings, const Item& item, const Named& statistic, const Named& estimate,
                const Named& error) {
    if (!statistic.fFigure || !estimate.fFigure || !error.fFigure || !(error.fFigure->fValue >= 0)) return;
    if (error.fFigure->fValue == 0 && estimate.fFigure->fValue == 0) return;
    const double size = std::abs(estimate.fFigure->fValue);
    const double ratio = estimate.fFigure->fValue / error.fFigure->fValue;
    const double value = statistic.fFigure->fValue;
    if (std::abs(ratio - value) <= kAlike * std::max(1.0, std::abs(value))) return;

    const double ofEstimate = RoundingBeside(*estimate.fFigure, {*error.fFigure});
    const double ofError = RoundingBeside(*error.fFigure, {*estimate.fFigure});
    const double ofStatistic = RoundingOfStatistic(*statistic.fFigure) + kAlike;
    const double least = (size - ofEstimate) / (error.fFigure->fValue + ofError);
    const double largestError = error.fFigure->fValue - ofError;
    const bool isSmall = std::abs(value) + ofStatistic < least;
    const bool isLarge = largestError > 0 && std::abs(value) - ofStatistic > (size + ofEstimate) / largestError;
    const bool isOpposite = std::signbit(ratio) != std::signbit(value) && least > 0 && std::abs(value) > ofStatistic;
    if (isSmall || isLarge || isOpposite)
        findings.Add(Kind::Statistic, item,
                     fmt::format("{} contradicts {} / {}, which is {:.4g}", Show(statistic), Show(estimate),
                                 Show(error), ratio));
}

void JudgeDifference(Findings& findings, const Item& item, const Named& contrast, const Named& first,
                     const Named& second) {
    if (!contrast.fFigure || !first.fFigure || !second.fFigure) return;
    const Figure& figure = *contrast.fFigure;
    const double expected = first.fFigure->fValue - second.fFigure->fValue;
    const double difference = std::abs(figure.fValue - expected);
    const double noise = kAlike * Scale(first.fFigure->fValue, second.fFigure->fValue);
    if (difference <= noise) return;
    const double rounding = RoundingBeside(figure, {*first.fFigure, *second.fFigure}) +
                            RoundingBeside(*first.fFigure, {figure, *second.fFigure}) +
                            RoundingBeside(*second.fFigure, {figure, *first.fFigure});
    if (difference <= noise + rounding) return;
    findings.Add(Kind::Difference, item,
                 fmt::format("{} is not the difference of the means {} and {}, which is {:.4g}", Show(contrast),
                             Show(*first.fFigure), Show(*second.fFigure), expected));
}

void JudgeCovarianceAmong(Findings& findings, const Item& item, const Figure& covariance, const Figure& row,
                          const Figure& column) {
    if (row.fValue < 0 || column.fValue < 0) return;
    const double size = std::abs(covariance.fValue);
    const auto most = [&](double ofRow, double ofColumn) {
        return std::sqrt(row.fValue + ofRow) * std::sqrt(column.fValue + ofColumn) * (1 + kAlike);
    };
    if (size <= most(0, 0)) return;
    const double rounding = RoundingBeside(covariance, {row, column});
    if (size <= most(RoundingBeside(row, {covariance, column}), RoundingBeside(column, {covariance, row})) + rounding)
        return;
    findings.Add(Kind::Correlation, item,
                 fmt::format("covariance {} is too large for the variances {} and {}", Show(covariance), Show(row),
                             Show(column)));
}

void JudgeT(Findings& findings, const Item& item, const Named& significance, const Named& t, const MaybeFigure& df,
            Relation relation, std::size_t comparisons) {
    if (!IsProbability(significance.fFigure) || !t.fFigure) return;
    const Figure& p = *significance.fFigure;
    const double exact = df ? TwoSidedT(t.fFigure->fValue, df->fValue).value_or(kNone) : kNone;
    if (std::abs(exact - p.fValue) <= kAlike) return;
    const std::optional<Span> span = SpanOfT(*t.fFigure, df);
    if (!span) return;
    const Span shown = Shown(exact, *span);
    if (relation == Relation::Equal) {
        if (!IsIn(p, *span)) TellSignificance(findings, item, significance, ShowT(t, df), shown);
        return;
    }
    if (IsBelow(p, span->fLow)) {
        findings.Add(Kind::Adjusted, item,
                     fmt::format("{} is below {}, the unadjusted p value of {}", Show(significance), ShowP(shown),
                                 ShowT(t, df)));
    }
    if (relation == Relation::Multiple && IsAbove(p, static_cast<double>(comparisons) * span->fHigh)) {
        findings.Add(Kind::Overadjusted, item,
                     fmt::format("{} is above {} times {}, the unadjusted p value of {}", Show(significance),
                                 comparisons, ShowP(shown), ShowT(t, df)));
    }
}

void JudgeZ(Findings& findings, const Item& item, const Named& significance, const Named& z, Sides sides) {
    if (!IsProbability(significance.fFigure) || !z.fFigure) return;
    const Figure& p = *significance.fFigure;
    const double size = std::abs(z.fFigure->fValue);
    const double rounding = RoundingOfStatistic(*z.fFigure);
    const Span span{TwoSidedNormal(size + rounding), TwoSidedNormal(std::max(0.0, size - rounding))};
    if (IsIn(p, span) || (sides == Sides::OneOrTwo && IsIn(p, {span.fLow / 2, span.fHigh / 2}))) return;
    const double exact = TwoSidedNormal(size);
    TellSignificance(findings, item, significance, Show(z), {exact, exact});
}

void JudgeF(Findings& findings, const xml::Document& document, const Item& item, Node test) {
    const auto named = [&](const char* name) { return Named{name, FigureOf(document, test, name)}; };
    const Named f = named("fStatistic");
    const Named df1 = named("df1");
    const Named df2 = named("df2");
    const Named significance = named("sig");
    JudgeProbability(findings, item, significance);
    JudgeDf(findings, item, df1);
    JudgeDf(findings, item, df2);
    if (!f.fFigure) return;
    if (f.fFigure->fValue < 0) findings.Add(Kind::Statistic, item, Show(f) + " is below 0");
    if (!IsProbability(significance.fFigure) || !df1.fFigure) return;
    const double exact =
        df2.fFigure ? UpperF(f.fFigure->fValue, df1.fFigure->fValue, df2.fFigure->fValue).value_or(kNone) : kNone;
    if (std::abs(exact - significance.fFigure->fValue) <= kAlike) return;
    const std::optional<Span> span = SpanOfF(*f.fFigure, *df1.fFigure, df2.fFigure);
    if (!span || IsIn(*significance.fFigure, *span)) return;
    const std::string dfs = df2.fFigure ? Show(df1) + " and " + Show(df2) : Show(df1) + " and any df2";
    TellSignificance(findings, item, significance, Show(f) + " with " + dfs, Shown(exact, *span));
}

}  // namespace hierfit::plausible
