#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "host/chart/specification/Remarks.h"
#include "host/chart/specification/Specification.h"
#include "host/xml/Document.h"

namespace hierfit::chart {

/// One element of chart XML while it is read: its known attributes by kind, and a word about what cannot be taken. It
/// borrows document, names and remarks.
class ChartElement {
  public:
    using Node = xml::Document::Node;

    /// The known attributes are names parted by blanks; all others are as if they were not there.
    ChartElement(const xml::Document& document, Node node, std::string_view known, Remarks& remarks)
        : fDocument(document), fNode(node), fKnown(known), fRemarks(remarks) {}

    /// Remarks on the attributes that are not known.
    void RemarkUnknown() const;

    std::string_view Name() const { return fDocument.Name(fNode); }
    std::string_view Content() const { return fDocument.Text(fNode); }
    bool Has(std::string_view attribute) const { return Find(attribute).has_value(); }

    /// Empty where there is no such attribute.
    std::string Text(std::string_view attribute) const;

    /// A finite number; what the procedure writes for one that is not finite is as if it were not given.
    std::optional<double> Number(std::string_view attribute) const;

    /// A whole number in limits, with a unit behind it that may be empty, such as "30px".
    std::optional<int> Count(std::string_view attribute, int least, int most, std::string_view unit = {}) const;

    /// Index of the attribute's value among some; the first where there is no such attribute, or another value.
    int Choice(std::string_view attribute, std::initializer_list<std::string_view> values) const;

    bool Flag(std::string_view attribute, bool otherwise) const;

    /// The element's content, and the string-table key that may stand in place of it.
    Words ReadWords() const { return {std::string(Content()), Text("lookup")}; }

    void Remark(std::string text) const { fRemarks.Add(std::move(text)); }

  private:
    std::optional<std::string_view> Find(std::string_view attribute) const;
    void RemarkValue(std::string_view attribute, std::string_view value) const;

    const xml::Document& fDocument;
    Node fNode;
    std::string_view fKnown;
    Remarks& fRemarks;
};

}  // namespace hierfit::chart
