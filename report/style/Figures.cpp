#include "report/style/Figures.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/SystemMissing.h"
#include "host/document/NumberFormat.h"

namespace hierfit::report::style {

namespace {

constexpr int kMostDigits = 15;       // a figure's digits beyond which it has scientific form
constexpr int kMostPlaces = 20;       // behind which no two doubles from 0.001 on are alike
constexpr int kScientificPlaces = 5;  // of huge figures
constexpr double kLeastP = 0.001;
constexpr double kLevels[] = {0.05, 0.01, 0.001};

/// How a style writes p values: no zero stands before the decimal sign.
struct PRule {
    int fPlaces;
    int fPlacesBelowCent;
    double fMost;
    std::string_view fBelowLeast;
    std::string_view fAboveMost;
};

/// What a style says of each kind of figure; nothing where the print format stays.
struct Rules {
    std::optional<PRule> fP;
    std::optional<int> fStatisticPlaces;
    std::optional<int> fEstimatePlaces;  ///< more while fewer than two significant digits show
    std::optional<int> fDfPlaces;        ///< none where it is whole
    bool fHasZeroBeforeCorrelation = true;
};

constexpr Rules kPlain = {};
constexpr Rules kApa = {PRule{3, 3, 0.9995, "< .001", "> .999"}, 2, 2, 2, false};
constexpr Rules kAma = {PRule{2, 3, 0.99, "<.001", ">.99"}, 2, 2, 2, true};

const Rules& RulesOf(StyleName style) {
    if (style == StyleName::Plain) return kPlain;
    return style == StyleName::Apa ? kApa : kAma;
}

std::string Write(double number, std::chars_format form, int places) {
    char buffer[64];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number, form, places).ptr};
}

/// The power of ten of a number's first digit once it is rounded to so many digits.
int ExponentOf(double number, int digits) {
    const std::string text = Write(number, std::chars_format::scientific, digits - 1);
    const std::size_t sign = text.find('e') + 1;
    int exponent = 0;
    std::from_chars(text.data() + sign + (text[sign] == '+' ? 1 : 0), text.data() + text.size(), exponent);
    return exponent;
}

std::string WritePlaces(double number, int places) {
    if (number == 0) number = 0;  // without its sign
    if (std::abs(number) >= std::pow(10.0, kMostDigits)) {
        return Write(number, std::chars_format::scientific, kScientificPlaces);
    }
    return Write(number, std::chars_format::fixed, places);
}

/// So many places, but as many more as it takes to show so many significant digits.
std::string WriteAtLeast(double number, int places, int digits) {
    if (number == 0) return WritePlaces(number, places);
    const int needed = digits - 1 - ExponentOf(number, digits);
    if (needed > kMostDigits) return Write(number, std::chars_format::scientific, digits - 1);
    return WritePlaces(number, std::max(places, needed));
}

/// Exactly so many places, but one significant digit where they would show zero.
std::string WriteExactly(double number, int places) {
    const std::string text = WritePlaces(number, places);
    const bool showsZero = text.find_first_of("123456789") == std::string::npos;
    return showsZero ? WriteAtLeast(number, places, 1) : text;
}

void DropLeadingZero(std::string& text) {
    const std::size_t digit = text.starts_with('-') ? 1 : 0;
    if (text.compare(digit, 2, "0.") == 0) text.erase(digit, 1);
}

/// -1 below a level of significance, 0 on it, 1 above it.
int SideOf(double p, double level) { return p < level ? -1 : p > level ? 1 : 0; }

bool ChangesSide(double p, const std::string& text) {
    double shown = 0;
    std::from_chars(text.data(), text.data() + text.size(), shown);
    return std::ranges::any_of(kLevels, [&](double level) { return SideOf(p, level) != SideOf(shown, level); });
}

std::string WriteP(double p, const PRule& rule) {
    if (p < kLeastP) return std::string(rule.fBelowLeast);
    if (p > rule.fMost) return std::string(rule.fAboveMost);
    int places = p < 0.01 ? rule.fPlacesBelowCent : rule.fPlaces;
    std::string text = WritePlaces(p, places);
    while (ChangesSide(p, text) && places < kMostPlaces) text = WritePlaces(p, ++places);
    DropLeadingZero(text);
    return text;
}

std::string WriteEstimate(double number, const document::Format& format, const FigureStyle& style, const Rules& rules) {
    if (style.fDigits) return WriteExactly(number, *style.fDigits);
    return rules.fEstimatePlaces ? WriteAtLeast(number, *rules.fEstimatePlaces, 2)
                                 : document::FormatNumber(number, format);
}

std::string WriteStatistic(double number, const document::Format& format, const FigureStyle& style,
                           const Rules& rules) {
    const std::optional<int> places = style.fDigits ? style.fDigits : rules.fStatisticPlaces;
    return places ? WriteExactly(number, *places) : document::FormatNumber(number, format);
}

std::string WriteDf(double number, const document::Format& format, const Rules& rules) {
    if (!rules.fDfPlaces) return document::FormatNumber(number, format);
    return number == std::round(number) ? WritePlaces(number, 0) : WriteExactly(number, *rules.fDfPlaces);
}

}  // namespace

std::string WriteFigure(double number, const document::Format& format, FigureKind kind, const FigureStyle& style) {
    const Rules& rules = RulesOf(style.fStyle);
    const bool isMissing = number == kSystemMissing || !std::isfinite(number);
    if (isMissing || kind == FigureKind::Other) return document::FormatNumber(number, format);
    switch (kind) {
        case FigureKind::PValue:
            if (!rules.fP || number < 0 || number > 1) {
                return document::FormatNumber(number, {document::FormatName::Significance});
            }
            return WriteP(number, *rules.fP);
        case FigureKind::Statistic:
            return WriteStatistic(number, format, style, rules);
        case FigureKind::DegreesOfFreedom:
            return WriteDf(number, format, rules);
        case FigureKind::Correlation: {
            std::string text = WriteEstimate(number, format, style, rules);
            if (!rules.fHasZeroBeforeCorrelation) DropLeadingZero(text);
            return text;
        }
        case FigureKind::Estimate:
        case FigureKind::Other:
            break;
    }
    return WriteEstimate(number, format, style, rules);
}

}  // namespace hierfit::report::style
