#include "host/chart/view/parts/ChartWords.h"

#include <algorithm>

#include "host/chart/view/ShownVariable.h"
#include "host/context/RunContext.h"

namespace hierfit::chart {

std::string Translated(std::string_view key) {
    const context::RunContext* run = context::RunContext::CurrentOrNull();
    return std::string(run == nullptr ? key : run->Translate(key));
}

std::string Translated(std::string_view key, std::initializer_list<std::string_view> arguments) {
    const std::string pattern = Translated(key);
    std::string filled;
    for (std::size_t place = 0; place < pattern.size(); ++place) {
        const bool isMark = pattern[place] == '^' && place + 1 < pattern.size();
        const auto index = isMark ? static_cast<std::size_t>(pattern[place + 1] - '1') : arguments.size();
        if (index < arguments.size()) {
            filled.append(arguments.begin()[index]);
            ++place;
        } else {
            filled.push_back(pattern[place]);
        }
    }
    return filled;
}

std::string InWords(const Words& words) { return words.fLookup.empty() ? words.fText : Translated(words.fLookup); }

std::string AxisTitleOr(const Specification& specification, bool isX, const std::string& label) {
    for (const AxisTitle& title : specification.fvAxisTitles) {
        if (title.fIsX == isX) return InWords(title.fWords);
    }
    return label;
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
