#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/xml/Position.h"

namespace hierfit::xml {

struct Tree;

/// A parsed XML document: a compact tree of elements with their attributes and text. Immutable once parsed.
///
/// Elements are numbers in document order, 0 the document element; kNone is none. Names have lost their namespace
/// prefix and namespace declarations are no attributes. An element's text is its own character data; that of its
/// children and white space that merely parts them are left out. Texts are UTF-8, whatever the document was written in,
/// and good as long as the document lives.
///
/// Not read: document type declarations, more than 256 MiB, elements deeper than 256, more than 1,000 attributes at an
/// element, names or attribute values over 16 MiB as written, more than 5 million elements, more than 100,000 different
/// names. Each is an error with its place.
class Document {
  public:
    using Node = std::uint32_t;
    static constexpr Node kNone = 0xFFFFFFFF;

    static std::variant<std::shared_ptr<Document>, ParseError> Parse(const std::string& text);

    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Number of elements.
    Node Size() const;

    std::string_view Name(Node node) const;

    /// The element around it; kNone for the document element.
    Node Parent(Node node) const;

    /// The first child of that name, or kNone.
    Node FirstChild(Node node, std::string_view name) const;

    /// The next element of the same name behind this one, below the same parent, or kNone.
    Node NextOfName(Node node) const;

    std::optional<std::string_view> Attribute(Node node, std::string_view name) const;

    /// The names of the element's attributes, in their order.
    std::vector<std::string_view> AttributeNames(Node node) const;

    std::string_view Text(Node node) const;

    /// Where the element's start tag begins.
    Position PositionOf(Node node) const;

    /// Names from the document element down, such as "StatXML/PMMLModel/ModelDiagnostics/Statistic[3]"; an index, from
    /// 1, stands where the parent has several children of the name. Takes time linear in the siblings.
    std::string PathOf(Node node) const;

  private:
    explicit Document(std::unique_ptr<const Tree> tree);

    std::unique_ptr<const Tree> fpTree;
};

}  // namespace hierfit::xml
