#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "host/Export.h"

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
HIERFIT_EXPORT std::span<const NamedStyle> Styles();

/// How figures are written.
struct FigureStyle {
    StyleName fStyle = StyleName::Plain;
    std::optional<int> fDigits;  ///< places of estimates, errors, bounds and statistics, 0 to 15

    /// Whether it writes figures other than in their print formats, p values aside.
    bool IsOwn() const { return fStyle != StyleName::Plain || fDigits; }
};

/// A number of places from 0 to 15; nothing for another text.
HIERFIT_EXPORT std::optional<int> ReadDigits(std::string_view text);

}  // namespace hierfit::report::style
