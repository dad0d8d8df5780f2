#include "host/chart/specification/ReadSpecification.h"

#include <fmt/format.h>

#include <memory>

#include "host/chart/specification/ChartMarkup.h"
#include "host/chart/specification/Fragments.h"
#include "host/chart/specification/Limits.h"
#include "host/xml/Document.h"

namespace hierfit::chart {

std::variant<Reading, Unreadable> ReadSpecification(const std::string& xml) {
    if (xml.empty()) return Unreadable{"there is no XML"};
    if (xml.size() > kMostChartBytes) return Unreadable{"its XML is larger than 16 MiB"};
    const auto parsed = xml::Document::Parse(MakePlainXml(ExpandFragments(xml)));
    if (const auto* error = std::get_if<xml::ParseError>(&parsed)) {
        return Unreadable{
            fmt::format("line {}, column {} of its XML: {}", error->fLine, error->fColumn, error->fReason)};
    }
    const xml::Document& document = *std::get<0>(parsed);
    if (document.Name(0) != "chart") {
        const auto [line, column] = document.PositionOf(0);
        return Unreadable{fmt::format("line {}, column {} of its XML: element \"chart\" expected", line, column)};
    }
    Reading reading;
    reading.fSpecification.fTemplate = document.Attribute(0, "template").value_or("");
    return reading;
}

}  // namespace hierfit::chart
