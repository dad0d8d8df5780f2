#include "host/chart/specification/ReadSpecification.h"

#include <fmt/format.h>

#include <utility>

#include "host/chart/specification/ChartMarkup.h"
#include "host/chart/specification/Fragments.h"
#include "host/chart/specification/Limits.h"
#include "host/chart/specification/TreeReader.h"
#include "host/xml/Document.h"

namespace hierfit::chart {

namespace {

constexpr std::string_view kVersion = "1";

Unreadable At(int line, int column, std::string_view reason) {
    return {fmt::format("line {}, column {} of its XML: {}", line, column, reason)};
}

}  // namespace

std::variant<Reading, Unreadable> ReadSpecification(const std::string& xml) {
    if (xml.empty()) return Unreadable{"it has no XML"};
    if (xml.size() > kMostChartBytes) return Unreadable{"its XML is larger than 16 MiB"};
    const auto parsed = xml::Document::Parse(MakePlainXml(ExpandFragments(xml)));
    if (const auto* error = std::get_if<xml::ParseError>(&parsed)) {
        return At(error->fLine, error->fColumn, error->fReason);
    }
    const xml::Document& document = *std::get<0>(parsed);
    const auto [line, column] = document.PositionOf(0);
    if (document.Name(0) != "chart") return At(line, column, "element \"chart\" expected");
    if (document.Attribute(0, "version").value_or(kVersion) != kVersion) return At(line, column, "version 1 expected");
    Remarks remarks;
    Specification specification = TreeReader(document, 0, remarks).Read();
    return Reading{std::move(specification), remarks.Take()};
}

}  // namespace hierfit::chart
