#include "tests/docx/DocxText.h"

#include <algorithm>
#include <stdexcept>

#include "tests/xml/Parsed.h"

namespace hierfit::test {

namespace {

using Node = xml::Document::Node;

/// The elements of a text, in order.
class Elements {
  public:
    explicit Elements(const std::string& text) : fpDocument(Parsed(text)) {}

    std::vector<Node> Of(std::string_view name, Node within = 0) const {
        std::vector<Node> found;
        for (Node node = within; node < fpDocument->Size(); ++node) {
            if (fpDocument->Name(node) == name && IsIn(node, within)) found.push_back(node);
        }
        return found;
    }

    std::vector<Node> ChildrenOf(Node parent, std::string_view name) const {
        std::vector<Node> children;
        for (Node node = fpDocument->FirstChild(parent, name); node != xml::Document::kNone;
             node = fpDocument->NextOfName(node)) {
            children.push_back(node);
        }
        return children;
    }

    bool IsIn(Node node, Node around) const {
        while (node != around && node != xml::Document::kNone) node = fpDocument->Parent(node);
        return node == around;
    }

    bool IsIn(Node node, std::string_view name) const {
        while (node != xml::Document::kNone && fpDocument->Name(node) != name) node = fpDocument->Parent(node);
        return node != xml::Document::kNone;
    }

    std::string Value(Node node, std::string_view attribute = "val") const {
        return std::string(fpDocument->Attribute(node, attribute).value_or(""));
    }

    /// Of the first element of a name within another; empty where there is none.
    std::string ValueIn(Node around, std::string_view name, std::string_view attribute = "val") const {
        const std::vector<Node> found = Of(name, around);
        return found.empty() ? "" : Value(found.front(), attribute);
    }

    std::string WordsOf(Node around) const {
        std::string words;
        for (const Node run : Of("r", around)) {
            const bool isMark = ValueIn(run, "rStyle") == "NoteMark";
            std::string own;
            for (Node node = run; node < fpDocument->Size() && IsIn(node, run); ++node) {
                if (fpDocument->Name(node) == "t") own += fpDocument->Text(node);
                if (fpDocument->Name(node) == "br") own += '|';
            }
            words += isMark ? "{" + own + "}" : own;
        }
        return words;
    }

  private:
    std::shared_ptr<xml::Document> fpDocument;
};

std::string DrawRow(const Elements& elements, Node row) {
    std::string drawn;
    int count = 0;
    for (const Node cell : elements.ChildrenOf(row, "tc")) {
        const std::string span = elements.ValueIn(cell, "gridSpan");
        const std::vector<Node> merges = elements.Of("vMerge", cell);
        const bool goesOn = !merges.empty() && elements.Value(merges.front()).empty();
        if (count++ > 0) drawn += " | ";
        drawn += (goesOn ? "^" : elements.WordsOf(cell)) + (span.empty() ? "" : ">" + span);
    }
    return (elements.Of("tblHeader", row).empty() ? "" : "# ") + drawn;
}

}  // namespace

std::vector<DrawnTable> DrawTables(const std::string& text) {
    const Elements elements(text);
    std::vector<DrawnTable> tables;
    for (const Node table : elements.Of("tbl")) {
        DrawnTable& drawn = tables.emplace_back();
        for (const Node column : elements.Of("gridCol", table)) {
            ++drawn.fColumns;
            drawn.fWidth += std::stol(elements.Value(column, "w"));
        }
        for (const Node row : elements.ChildrenOf(table, "tr")) drawn.fvRows.push_back(DrawRow(elements, row));
    }
    return tables;
}

std::vector<std::string> DrawParagraphs(const std::string& text) {
    const Elements elements(text);
    std::vector<std::string> paragraphs;
    for (const Node paragraph : elements.Of("p")) {
        if (elements.IsIn(paragraph, "tbl")) continue;
        paragraphs.push_back(elements.ValueIn(paragraph, "pStyle") + ": " + elements.WordsOf(paragraph));
    }
    return paragraphs;
}

std::vector<std::string> DrawRuns(const std::string& text) {
    const Elements elements(text);
    std::vector<std::string> runs;
    for (const Node run : elements.Of("r")) {
        runs.push_back((elements.Of("rtl", run).empty() ? "" : "<") + elements.WordsOf(run));
    }
    return runs;
}

std::vector<std::string> DrawSections(const std::string& text) {
    const Elements elements(text);
    std::vector<std::string> sections;
    for (const Node size : elements.Of("pgSz")) {
        sections.emplace_back(elements.Value(size, "orient") == "landscape" ? "turned" : "upright");
    }
    return sections;
}

std::vector<report::ArchiveFile> MakeFiles(std::list<document::Item> items, double mostScale) {
    const document::Document document{"hierfit", "en", "Report", {"a.pmml", "a.statxml"}, std::move(items), {}};
    const auto makePng = [mostScale](const std::string&, double scale) {
        return scale <= mostScale ? std::optional("PNG " + std::to_string(scale)) : std::nullopt;
    };
    return report::MakeDocxFiles(document, {{}, {}, makePng, 2});
}

std::string MakeText(std::list<document::Item> items) {
    for (report::ArchiveFile& file : MakeFiles(std::move(items))) {
        if (file.fName == "word/document.xml") return std::move(file.fBytes);
    }
    throw std::out_of_range("word/document.xml");
}

}  // namespace hierfit::test
