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

}  // namespace

std::string ChartElement::Text(std::string_view attribute) const {
    return std::string(fDocument.Attribute(fNode, attribute).value_or(""));
}

std::optional<double> ChartElement::Number(std::string_view attribute) const {
    const auto value = fDocument.Attribute(fNode, attribute);
    if (!value) return std::nullopt;
    const auto number = data::ParseNumber(*value);
    const bool isKnown = number || std::ranges::find(kNotFinite, *value) != kNotFinite.end();
    if (!isKnown) RemarkValue(attribute, *value);
    return number;
}

std::optional<int> ChartElement::Count(std::string_view attribute, int least, int most, std::string_view unit) const {
    const auto value = fDocument.Attribute(fNode, attribute);
    if (!value) return std::nullopt;
    int count = 0;
    const auto [end, error] = std::from_chars(value->data(), value->data() + value->size(), count);
    const bool isWhole = error == std::errc() && std::string_view(end, value->data() + value->size()) == unit;
    if (isWhole && count >= least && count <= most) return count;
    RemarkValue(attribute, *value);
    return std::nullopt;
}

int ChartElement::Choice(std::string_view attribute, std::initializer_list<std::string_view> values) const {
    const auto value = fDocument.Attribute(fNode, attribute);
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
