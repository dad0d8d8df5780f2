#include "report/latex/Figure.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace hierfit::report::latex {

namespace {

constexpr std::string_view kMinus = "\u2212";
constexpr double kDigit = 0.64;  // em
constexpr double kPoint = 0.32;
constexpr double kSign = 0.84;
constexpr double kComparator = 1.4;  // with the room about it
constexpr double kPercent = 0.95;
constexpr double kTimesTen = 2.4;
constexpr double kRaised = 0.45;

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool TakePrefix(std::string_view& words, std::string_view prefix) {
    if (!words.starts_with(prefix)) return false;
    words.remove_prefix(prefix.size());
    return true;
}

std::string_view TakeDigits(std::string_view& words) {
    const auto count = static_cast<std::size_t>(std::ranges::find_if_not(words, IsDigit) - words.begin());
    const std::string_view digits = words.substr(0, count);
    words.remove_prefix(count);
    return digits;
}

bool TakeExponent(std::string_view& words, Figure& figure) {
    if (!TakePrefix(words, "e") && !TakePrefix(words, "E")) return true;
    figure.fHasExponent = true;
    TakePrefix(words, "+");
    const auto [end, error] = std::from_chars(words.data(), words.data() + words.size(), figure.fExponent);
    words.remove_prefix(static_cast<std::size_t>(end - words.data()));
    return error == std::errc();
}

}  // namespace

std::optional<Figure> ReadFigure(std::string_view words) {
    Figure figure;
    if (words.starts_with('<') || words.starts_with('>')) {
        figure.fComparator = words.front();
        words.remove_prefix(1);
        TakePrefix(words, " ");
    }
    figure.fIsNegative = TakePrefix(words, "-") || TakePrefix(words, kMinus);
    figure.fInteger = TakeDigits(words);
    figure.fHasPoint = TakePrefix(words, ".");
    if (figure.fHasPoint) figure.fDecimals = TakeDigits(words);
    if (figure.fInteger.empty() && figure.fDecimals.empty()) return {};
    if (!TakeExponent(words, figure)) return {};
    figure.fIsPercentage = TakePrefix(words, "%");
    return words.empty() ? std::optional(figure) : std::nullopt;
}

void FigureColumn::Add(const Figure& figure) {
    fHasComparator = fHasComparator || figure.fComparator != '\0';
    fHasSign = fHasSign || figure.fIsNegative;
    fHasPercent = fHasPercent || figure.fIsPercentage;
    fHasZero = fHasZero || figure.fInteger == "0";
    fLacksInteger = fLacksInteger || figure.fInteger.empty();
    fInteger = std::max(fInteger, figure.fInteger.size());
    fDecimals = std::max(fDecimals, figure.fDecimals.size());
    if (!figure.fHasExponent) return;
    fExponent = std::max(fExponent, std::to_string(std::abs(figure.fExponent)).size());
    fHasNegativeExponent = fHasNegativeExponent || figure.fExponent < 0;
}

void FigureColumn::AddMarks(std::string_view marks) {
    if (marks.size() > fMarks.size()) fMarks = marks;
}

std::string FigureColumn::SpellWith(bool hidesZero) const {
    std::string spelt = "S[table-format=";
    if (fHasComparator) spelt += '<';
    if (fHasSign) spelt += '-';
    spelt += std::to_string(fInteger);
    if (fDecimals > 0) spelt.append(".").append(std::to_string(fDecimals));
    if (fExponent > 0) spelt.append(fHasNegativeExponent ? "e-" : "e").append(std::to_string(fExponent));
    if (fHasPercent || !fMarks.empty()) {
        spelt.append(",table-align-text-after=false,table-space-text-post={");
        if (fHasPercent) spelt += "\\%";
        if (!fMarks.empty()) spelt.append("\\tnote{").append(fMarks).append("}");
        spelt += '}';
    }
    if (hidesZero) spelt += ",print-zero-integer=false";
    return spelt + ']';
}

double FigureColumn::Width() const {
    double width = kDigit * static_cast<double>(fInteger + fDecimals) + kRaised * static_cast<double>(fMarks.size());
    if (fDecimals > 0) width += kPoint;
    if (fHasSign) width += kSign;
    if (fHasComparator) width += kComparator;
    if (fHasPercent) width += kPercent;
    if (fExponent > 0) width += kTimesTen + kRaised * static_cast<double>(fExponent + (fHasNegativeExponent ? 1 : 0));
    return width;
}

void FigureColumn::AppendCell(std::string& out, const Figure& figure, std::string_view behind,
                              std::string_view edge) const {
    // The column's format shows a zero before the decimal sign in all figures or in none.
    const bool isOther = figure.fInteger.empty() && fHasZero;
    if (isOther) out.append("\\multicolumn{1}{").append(SpellWith(true)).append(edge).append("}{");
    if (figure.fComparator != '\0') out += figure.fComparator;
    if (figure.fIsNegative) out += '-';
    out += figure.fInteger;
    if (figure.fHasPoint) out += '.';
    out += figure.fDecimals;
    if (figure.fHasExponent) out.append("e").append(std::to_string(figure.fExponent));
    if (figure.fIsPercentage || !behind.empty()) {
        out += '{';
        if (figure.fIsPercentage) out += "\\%";
        out.append(behind).append("}");
    }
    if (isOther) out += '}';
}

}  // namespace hierfit::report::latex
