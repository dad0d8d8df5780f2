#include "host/chart/specification/TreeReader.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "host/chart/DataStream.h"

namespace hierfit::chart {

namespace {

constexpr std::string_view kChart = "chart";

bool HasWord(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (words.substr(0, end) == word) return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

const ElementRule* FindRule(std::string_view name, std::string_view parent) {
    for (const auto rules : {PlotRules(), GuideRules(), WordRules()}) {
        for (const ElementRule& rule : rules) {
            if (rule.fName == name && rule.fParent == parent) return &rule;
        }
    }
    return nullptr;
}

void CheckAttributes(const ChartElement& element, std::string_view known) {
    for (const std::string_view name : element.GetDocument().AttributeNames(element.GetNode())) {
        if (!HasWord(known, name)) {
            element.Remark("unknown attribute " + Quote(name) + " of " + std::string(element.Name()));
        }
    }
}

}  // namespace

Specification TreeReader::Read() {
    const ChartElement chart(fDocument, fRoot, fRemarks);
    CheckAttributes(chart, "version template");
    fSpecification.fTemplate = chart.Text("template");
    for (Node node = fRoot + 1; node < fDocument.Size() && fDocument.Parent(node) >= fRoot;) {
        node = ReadElement(node) ? node + 1 : EndOf(node);
    }
    auto& faceting = fSpecification.fFaceting;
    if (faceting && faceting->fvVariables.empty()) faceting.reset();
    return std::move(fSpecification);
}

/// Whether to go on below it.
bool TreeReader::ReadElement(Node node) {
    const ChartElement element(fDocument, node, fRemarks);
    const std::string_view name = element.Name();
    const std::string_view parent = fDocument.Name(fDocument.Parent(node));
    if (const ElementRule* rule = FindRule(name, parent)) return ReadByRule(*rule, element);
    if (name == "use") {
        element.Remark("fragment " + Quote(element.Text("fragment")) + " cannot be used");
    } else if (name == "inset" && parent == kChart && fRoot == 0) {
        ReadInset(element);
    } else {
        element.Remark("unknown element " + Quote(name) + " in " + std::string(parent));
    }
    return false;
}

bool TreeReader::ReadByRule(const ElementRule& rule, const ChartElement& element) {
    if (++fCounts[&rule] > rule.fMost) {
        element.Remark("more than " + std::to_string(rule.fMost) + " of element " + std::string(rule.fName));
        return false;
    }
    CheckAttributes(element, rule.fAttributes);
    return rule.fpRead(element, fSpecification);
}

void TreeReader::ReadInset(const ChartElement& element) {
    constexpr int kUnknownFieldType = 6;
    CheckAttributes(element, "at fieldType");
    const Node chart = fDocument.FirstChild(element.GetNode(), kChart);
    const Node stream = fDocument.FirstChild(element.GetNode(), "stream");
    const bool isWhole = chart != xml::Document::kNone && stream != xml::Document::kNone;
    auto data = isWhole ? ReadDataStream(fDocument.Text(stream)) : std::nullopt;
    if (fSpecification.fInset || !data) return element.Remark("an inset cannot be read");
    fSpecification.fInset =
        Inset{element.Text("at"), element.Count("fieldType", 0, kUnknownFieldType).value_or(kUnknownFieldType),
              std::make_unique<Specification>(TreeReader(fDocument, chart, fRemarks).Read()), std::move(*data)};
}

TreeReader::Node TreeReader::EndOf(Node node) const {
    Node end = node + 1;
    while (end < fDocument.Size() && fDocument.Parent(end) >= node) ++end;
    return end;
}

}  // namespace hierfit::chart
