#include "host/xml/Document.h"

#include <span>
#include <utility>

#include "host/xml/Tree.h"
#include "host/xml/TreeBuilder.h"

namespace hierfit::xml {

namespace {

using Node = Document::Node;

/// The first element of that name among a node and the siblings behind it.
Node FindSibling(const Tree& tree, Node node, Node end, NameTable::Id name) {
    while (node < end && tree.fvElements[node].fName != name) node = tree.fvElements[node].fEnd;
    return node < end ? node : Document::kNone;
}

std::string_view Characters(const Tree& tree, std::uint32_t offset) { return tree.fCharacters.data() + offset; }

std::span<const AttributeRecord> AttributesOf(const Tree& tree, Node node) {
    const auto& elements = tree.fvElements;
    const std::size_t first = elements[node].fFirstAttribute;
    const std::size_t end = node + 1 < elements.size() ? elements[node + 1].fFirstAttribute : tree.fvAttributes.size();
    return std::span(tree.fvAttributes).subspan(first, end - first);
}

}  // namespace

Document::Document(std::unique_ptr<const Tree> tree) : fpTree(std::move(tree)) {}

Document::~Document() = default;

std::variant<std::shared_ptr<Document>, ParseError> Document::Parse(const std::string& text) {
    auto result = BuildTree(text);
    if (auto* error = std::get_if<ParseError>(&result)) return std::move(*error);
    return std::shared_ptr<Document>(new Document(std::get<0>(std::move(result))));
}

Node Document::Size() const { return static_cast<Node>(fpTree->fvElements.size()); }

std::string_view Document::Name(Node node) const { return fpTree->fNames.Get(fpTree->fvElements[node].fName); }

Node Document::Parent(Node node) const { return node == 0 ? kNone : fpTree->fvElements[node].fParent; }

Node Document::FirstChild(Node node, std::string_view name) const {
    const NameTable::Id id = fpTree->fNames.Find(name);
    if (id == NameTable::kNone) return kNone;
    return FindSibling(*fpTree, node + 1, fpTree->fvElements[node].fEnd, id);
}

Node Document::NextOfName(Node node) const {
    const ElementRecord& element = fpTree->fvElements[node];
    return FindSibling(*fpTree, element.fEnd, fpTree->fvElements[element.fParent].fEnd, element.fName);
}

std::optional<std::string_view> Document::Attribute(Node node, std::string_view name) const {
    const NameTable::Id id = fpTree->fNames.Find(name);
    for (const AttributeRecord& attribute : AttributesOf(*fpTree, node)) {
        if (attribute.fName == id) return Characters(*fpTree, attribute.fValue);
    }
    return std::nullopt;
}

std::vector<std::string_view> Document::AttributeNames(Node node) const {
    std::vector<std::string_view> names;
    for (const AttributeRecord& attribute : AttributesOf(*fpTree, node))
        names.push_back(fpTree->fNames.Get(attribute.fName));
    return names;
}

std::string_view Document::Text(Node node) const { return Characters(*fpTree, fpTree->fvElements[node].fText); }

Position Document::PositionOf(Node node) const {
    const ElementRecord& element = fpTree->fvElements[node];
    return {static_cast<int>(element.fLine), static_cast<int>(element.fColumn)};
}

std::string Document::PathOf(Node node) const {
    std::string path(Name(node));
    if (node == 0) return path;
    const Node parent = Parent(node);
    int index = 1;
    Node sibling = FirstChild(parent, Name(node));
    for (; sibling != node; sibling = NextOfName(sibling)) ++index;
    if (index > 1 || NextOfName(node) != kNone) path += '[' + std::to_string(index) + ']';
    return PathOf(parent) + '/' + path;
}

}  // namespace hierfit::xml
