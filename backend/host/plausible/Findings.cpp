#include "host/plausible/Findings.h"

#include <fmt/format.h>

#include <utility>

#include "host/framework/SimpleArray.h"
#include "host/unicode/Excerpt.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::plausible {

namespace {

using Node = xml::Document::Node;

constexpr std::size_t kMostOfKind = 5;

/// The levels of the factors in a row of a table by columns, such as "Golden Rain, 2".
std::string LevelsOf(const xml::Document& document, Node table, std::size_t row) {
    std::string levels;
    const Node group = document.FirstChild(table, "CoordinatesGroup");
    std::vector<std::string> tokens;
    for (const Node column : xml::NamedChildren(document, group, "Coordinates")) {
        const Node array = document.FirstChild(column, "Array");
        if (array == xml::Document::kNone) continue;
        framework::SplitSimpleArray(document.Text(array), tokens);
        if (row < tokens.size()) levels += (levels.empty() ? "" : ", ") + tokens[row];
    }
    return levels;
}

}  // namespace

std::string Findings::Describe(const Item& item) const {
    std::string text = unicode::Excerpt(fDocument.PathOf(item.fNode));
    if (item.fRow != Item::kWhole) {
        text += fmt::format(" row {}", item.fRow + 1);
        const std::string levels = LevelsOf(fDocument, item.fNode, item.fRow);
        if (!levels.empty()) text += " (" + unicode::Excerpt(levels) + ")";
    }
    if (!item.fName.empty()) text += " \"" + unicode::Excerpt(item.fName) + "\"";
    return text;
}

void Findings::Add(Kind kind, const Item& item, std::string_view text) {
    if (!Wants(kind)) return;
    const auto at = static_cast<std::size_t>(kind);
    if (fvKinds.size() <= at) fvKinds.resize(at + 1);
    OfKind& same = fvKinds[at];
    if (++same.fCount <= kMostOfKind) {
        same.fvFirst.push_back({fmt::format("{}: {}", Describe(item), text), fDocument.PositionOf(item.fNode)});
    } else if (same.fCount == kMostOfKind + 1) {
        same.fNext = fDocument.PositionOf(item.fNode);
    }
}

std::vector<Finding> Findings::Take() {
    std::vector<Finding> findings;
    for (OfKind& same : fvKinds) {
        for (Finding& finding : same.fvFirst) findings.push_back(std::move(finding));
        if (same.fCount > kMostOfKind)
            findings.push_back({fmt::format("and {} more like the one before", same.fCount - kMostOfKind), same.fNext});
    }
    fvKinds.clear();
    return findings;
}

}  // namespace hierfit::plausible
