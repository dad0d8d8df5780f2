#include "host/chart/specification/Inset.h"

#include <fmt/format.h>

#include <optional>
#include <variant>

#include "host/chart/data/DataStream.h"
#include "host/chart/specification/ChartMarkup.h"
#include "host/chart/specification/ReadSpecification.h"

namespace hierfit::chart {

namespace {

using Kind = MarkupPiece::Kind;

/// The root element of a document, without what stands before and behind it.
std::string_view RootOf(std::string_view xml) {
    std::size_t begin = std::string_view::npos;
    std::size_t end = 0;
    ChartMarkup markup(xml);
    for (MarkupPiece piece; markup.Next(piece);) {
        if (piece.fKind == Kind::StartTag && begin == std::string_view::npos) begin = piece.fBegin;
        if (piece.fKind == Kind::EndTag) end = piece.fEnd;
    }
    return begin < end ? xml.substr(begin, end - begin) : std::string_view();
}

/// JSON that holds no markup; the three characters can stand in its strings alone.
std::string EscapeMarkup(std::string_view json) {
    std::string escaped;
    for (const char c : json) {
        if (c == '<' || c == '>' || c == '&') {
            escaped += fmt::format("\\u{:04x}", c);
        } else {
            escaped += c;
        }
    }
    return escaped;
}

bool HasInset(const std::string& xml) {
    const auto result = ReadSpecification(xml);
    const auto* reading = std::get_if<Reading>(&result);
    return reading && reading->fSpecification.fInset;
}

}  // namespace

std::string EmbedInset(const std::string& graph, const std::string& inset, std::string_view stream, int fieldType) {
    const std::size_t end = graph.rfind("</chart>");
    if (end == std::string::npos) return {};
    std::string composed = graph;
    composed.insert(end, fmt::format("  <inset at=\"anchor\" fieldType=\"{}\">\n{}\n<stream>{}</stream>\n  </inset>\n",
                                     fieldType, RootOf(inset), EscapeMarkup(stream)));
    return HasInset(composed) ? composed : std::string();
}

}  // namespace hierfit::chart
