#include "host/chart/specification/TreeReader.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "host/chart/data/DataStream.h"

namespace hierfit::chart {

namespace {

constexpr std::string_view kChart = "chart";

const ElementRule* FindRule(std::string_view name, std::string_view parent) {
    for (const auto rules : {PlotRules(), GuideRules(), WordRules()}) {
        for (const ElementRule& rule : rules) {
            if (rule.fName == name && rule.fParent == parent) return &rule;
        }
    }
    return nullptr;
}

}  // namespace

Specification TreeReader::Read() {
    const ChartElement chart(fDocument, fRoot, "version template", fRemarks);
    chart.RemarkUnknown();
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
    const std::string_view name = fDocument.Name(node);
    const std::string_view parent = fDocument.Name(fDocument.Parent(node));
    if (const ElementRule* rule = FindRule(name, parent)) return ReadByRule(*rule, node);
    if (name == "use") {
        const ChartElement use(fDocument, node, "fragment", fRemarks);
        use.Remark("fragment " + Quote(use.Text("fragment")) + " cannot be used");
    } else if (name == "inset" && parent == kChart && fRoot == 0) {
        ReadInset(node);
    } else {
        fRemarks.Add("unknown element " + Quote(name) + " in " + std::string(parent));
    }
    return false;
}

bool TreeReader::ReadByRule(const ElementRule& rule, Node node) {
    const ChartElement element(fDocument, node, rule.fAttributes, fRemarks);
    if (++fCounts[&rule] > rule.fMost) {
        element.Remark("more than " + std::to_string(rule.fMost) + " of element " + std::string(rule.fName));
        return false;
    }
    element.RemarkUnknown();
    return rule.fpRead(element, fSpecification);
}

void TreeReader::ReadInset(Node node) {
    constexpr int kUnknownFieldType = 6;
    const ChartElement element(fDocument, node, "at fieldType", fRemarks);
    element.RemarkUnknown();
    const Node chart = fDocument.FirstChild(node, kChart);
    const Node stream = fDocument.FirstChild(node, "stream");
    const bool isWhole = chart != xml::Document::kNone && stream != xml::Document::kNone;
    auto data = isWhole ? ReadDataStream(fDocument.Text(stream)) : std::nullopt;
    if (fSpecification.fInset || !data) return fRemarks.Add("an inset cannot be read");
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
