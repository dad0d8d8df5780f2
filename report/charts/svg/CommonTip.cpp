#include "report/charts/svg/CommonTip.h"

#include <algorithm>
#include <utility>

namespace hierfit::report::charts {

namespace {

constexpr std::string_view kDots = "\u2026";
constexpr std::string_view kSigns[] = {": ", " = "};

/// Calls for each line of a text.
template <typename Call>
void ForEachLine(std::string_view text, Call call) {
    while (true) {
        const std::size_t end = text.find('\n');
        call(text.substr(0, end));
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
}

std::string_view CommonStart(std::string_view one, std::string_view other) {
    return one.substr(0, static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin()));
}

/// A name up to the sign before its value; nothing where there is none.
std::string_view NameIn(std::string_view start) {
    std::size_t end = 0;
    for (const std::string_view sign : kSigns) {
        const std::size_t at = start.rfind(sign);
        if (at != std::string_view::npos) end = std::max(end, at + sign.size());
    }
    return start.substr(0, end);
}

}  // namespace

CommonTip::CommonTip(const std::vector<std::string_view>& tips) {
    if (tips.empty()) return;
    ForEachLine(tips.front(), [&](std::string_view line) { fvLines.push_back({line}); });
    const std::size_t lines = fvLines.size();
    for (const std::string_view tip : tips) {
        if (static_cast<std::size_t>(std::ranges::count(tip, '\n')) + 1 != lines) return;
        Narrow(tip);
    }
    for (Line& line : fvLines) {
        if (line.fText.ends_with(kDots)) line.fIsWhole = false;
        if (!line.fIsWhole) line.fText = NameIn(line.fText);
    }
    const bool isAnyAlike = std::ranges::any_of(fvLines, [](const Line& line) { return !line.fText.empty(); });
    fIsUseful = isAnyAlike && !std::ranges::all_of(fvLines, &Line::fIsWhole);
}

void CommonTip::Narrow(std::string_view tip) {
    auto at = fvLines.begin();
    ForEachLine(tip, [&](std::string_view text) {
        Line& line = *at++;
        if (line.fIsWhole && line.fText == text) return;
        line = {CommonStart(line.fText, text), false};
    });
}

std::string CommonTip::Form() const {
    std::string form;
    for (const Line& line : fvLines) {
        if (&line != &fvLines.front()) form += '\n';
        form.append(line.fText).append(line.fIsWhole ? std::string_view{} : kDots);
    }
    return form;
}

std::string CommonTip::RestOf(std::string_view tip) const {
    std::string rest;
    auto at = fvLines.begin();
    bool isFirst = true;
    ForEachLine(tip, [&](std::string_view text) {
        const Line& line = *at++;
        if (line.fIsWhole) return;
        if (!std::exchange(isFirst, false)) rest += '\n';
        rest.append(text.substr(line.fText.size()));
    });
    return rest;
}

}  // namespace hierfit::report::charts
