#include "host/chart/picture/ChartWords.h"

#include <algorithm>

#include "host/unicode/Utf8.h"
#include "host/chart/picture/Numbers.h"
#include "host/context/RunContext.h"
#include "host/language/Catalogue.h"

namespace hierfit::chart {

std::string Translated(std::string_view key) {
    const context::RunContext* run = context::RunContext::CurrentOrNull();
    return std::string(run == nullptr ? key : run->Translate(key));
}

std::string Translated(std::string_view key, std::initializer_list<std::string_view> arguments) {
    return language::FillMarks(Translated(key), arguments);
}

std::string CutCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count) return std::string(text);
    std::u32string characters = unicode::Decode(text.substr(0, 4 * (count + 1)));
    if (characters.size() <= count) return std::string(text);
    characters.resize(count - 1);
    return unicode::Encode(characters.append(U"\u2026"));
}

std::string CutName(std::string_view name) {
    constexpr std::size_t kMostCharacters = 120;
    return CutCharacters(name, kMostCharacters);
}

std::string InWords(const Words& words) { return words.fLookup.empty() ? words.fText : Translated(words.fLookup); }

std::string AxisTitleOr(const Specification& specification, bool isX, const std::string& label) {
    for (const AxisTitle& title : specification.fvAxisTitles) {
        if (title.fIsX == isX) return InWords(title.fWords);
    }
    return label;
}

document::PictureAxis AxisWithin(const Span& span, std::string title) {
    document::PictureAxis axis{std::move(title), Placeable(span.fMin), Placeable(span.fMax), false};
    if (axis.fLow && axis.fHigh && *axis.fLow > *axis.fHigh) std::swap(axis.fLow, axis.fHigh);
    return axis;
}

std::string PopupOr(const Specification& specification, std::string_view reference, const std::string& label) {
    for (const Popup& popup : specification.fvPopups) {
        if (popup.fOf == reference) return CutName(InWords(popup.fWords));
    }
    return CutName(label);
}

std::string TitleOr(const std::string& title, const std::string& word) { return title.empty() ? word : title; }

const Legend* FindLegend(const Specification& specification, std::string_view reference) {
    for (const Legend& legend : specification.fvLegends) {
        if (legend.fOf == reference) return legend.fIsVisible ? &legend : nullptr;
    }
    return nullptr;
}

std::string LegendTitleOr(const Legend& legend, const std::string& label) {
    return legend.fHeading ? InWords(*legend.fHeading) : label;
}

std::string TitleInWords(const Specification& specification) {
    std::string title = specification.fTitle ? InWords(*specification.fTitle) : std::string();
    std::replace(title.begin(), title.end(), '\n', ' ');
    return title;
}

}  // namespace hierfit::chart
