#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/document/Text.h"
#include "report/style/FigureKind.h"

namespace hierfit::report::style {

enum class StyleName : unsigned char {
    Plain,  ///< print formats; every p value by the rule of significances
    Apa,    ///< of the American Psychological Association's manual
    Ama,    ///< of the American Medical Association's manual
};

/// The styles by the words that choose them.
struct NamedStyle {
    std::string_view fWord;
    StyleName fStyle;
};
std::span<const NamedStyle> Styles();

/// How figures are written.
struct FigureStyle {
    StyleName fStyle = StyleName::Plain;
    std::optional<int> fDigits;  ///< places of estimates, errors, bounds and statistics, 0 to 15

    /// Whether it writes figures other than in their print formats, p values aside.
    bool IsOwn() const { return fStyle != StyleName::Plain || fDigits; }
};

/// A number of places from 0 to 15; nothing for another text.
std::optional<int> ReadDigits(std::string_view text);

/// A number in a style, in the C locale. Nothing that is not zero shows as zero, no zero has a sign, and a p value that
/// is not 0.05, 0.01 or 0.001 never shows on the other side of these, nor on them.
std::string WriteFigure(double number, const document::Format& format, FigureKind kind, const FigureStyle& style);

}  // namespace hierfit::report::style
