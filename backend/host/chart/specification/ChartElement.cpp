#include "host/chart/specification/ChartElement.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "host/data/Number.h"

namespace hierfit::chart {

namespace {

/// How numbers that are not finite are written.
constexpr std::array<std::string_view, 4> kNotFinite{"inf", "-inf", "nan", "-nan"};

bool HasWord(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (words.substr(0, end) == word) return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

}  // namespace

void ChartElement::RemarkUnknown() const {
    for (const std::string_view name : fDocument.AttributeNames(fNode)) {
        if (!HasWord(fKnown, name)) Remark(fmt::format("unknown attribute {} of {}", Quote(name), Name()));
    }
}

std::optional<std::string_view> ChartElement::Find(std::string_view attribute) const {
    return HasWord(fKnown, attribute) ? fDocument.Attribute(fNode, attribute) : std::nullopt;
}

std::string ChartElement::Text(std::string_view attribute) const { return std::string(Find(attribute).value_or("")); }

std::optional<double> ChartElement::Number(std::string_view attribute) const {
    const auto value = Find(attribute);
    if (!value) return std::nullopt;
    const auto number = data::ParseNumber(*value);
    const bool isKnown = number || std::ranges::find(kNotFinite, *value) != kNotFinite.end();
    if (!isKnown) RemarkValue(attribute, *value);
    return number;
}

std::optional<int> ChartElement::Count(std::string_view attribute, int least, int most, std::string_view unit) const {
    const auto value = Find(attribute);
    if (!value) return std::nullopt;
    int count = 0;
    const auto [end, error] = std::from_chars(value->data(), value->data() + value->size(), count);
    const bool isWhole = error == std::errc() && std::string_view(end, value->data() + value->size()) == unit;
    if (isWhole && count >= least && count <= most) return count;
    RemarkValue(attribute, *value);
    return std::nullopt;
}

int ChartElement::Choice(std::string_view attribute, std::initializer_list<std::string_view> values) const {
    const auto value = Find(attribute);
    if (!value) return 0;
    const auto* const found = std::ranges::find(values, *value);
    if (found != values.end()) return static_cast<int>(found - values.begin());
    RemarkValue(attribute, *value);
    return 0;
}

bool ChartElement::Flag(std::string_view attribute, bool otherwise) const {
    return otherwise ? Choice(attribute, {"true", "false"}) == 0 : Choice(attribute, {"false", "true"}) == 1;
}

void ChartElement::RemarkValue(std::string_view attribute, std::string_view value) const {
    Remark(fmt::format("attribute {} of {} cannot be {}", attribute, Name(), Quote(value)));
}

}  // namespace hierfit::chart
