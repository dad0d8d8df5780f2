#pragma once

#include <unordered_map>

#include "host/chart/specification/ElementRules.h"

namespace hierfit::chart {

/// Goes once through the elements of one chart, in document order, and reads each by its rule. What has no rule is left
/// out with all below it. Document and remarks must outlive the reader.
class TreeReader {
  public:
    using Node = xml::Document::Node;

    /// The root is an element `chart`. One that is not the document's own may not hold a further inset.
    TreeReader(const xml::Document& document, Node root, Remarks& remarks)
        : fDocument(document), fRoot(root), fRemarks(remarks) {}

    Specification Read();

  private:
    bool ReadElement(Node node);
    bool ReadByRule(const ElementRule& rule, Node node);
    void ReadInset(Node node);
    Node EndOf(Node node) const;

    const xml::Document& fDocument;
    Node fRoot;
    Remarks& fRemarks;
    Specification fSpecification;
    std::unordered_map<const ElementRule*, int> fCounts;
};

}  // namespace hierfit::chart
