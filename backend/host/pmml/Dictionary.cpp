#include "host/pmml/Dictionary.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "host/pmml/FieldReader.h"
#include "host/unicode/Excerpt.h"
#include "host/xml/Document.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::pmml {

namespace {

using xml::Document;
using Node = Document::Node;

/// Children of the document element that are no models.
constexpr std::array<std::string_view, 5> kNoModels = {"Header", "MiningBuildTask", "DataDictionary",
                                                       "TransformationDictionary", "Extension"};

/// Reads fields and variables; throws a `ReadError` at the first thing that cannot be.
class DictionaryReader {
  public:
    explicit DictionaryReader(const Document& document) : fDocument(document) {}

    std::vector<Field> ReadFields();
    std::vector<int> ReadVariables() const;

  private:
    [[noreturn]] void Fail(Node element, std::string_view reason) const;
    std::string ReadName(Node element) const;
    Node FindMiningSchema() const;
    std::vector<int> AllVariables() const;

    const Document& fDocument;
    std::unordered_map<std::string, int> fIndices;
};

void DictionaryReader::Fail(Node element, std::string_view reason) const {
    const auto [line, column] = fDocument.PositionOf(element);
    throw ReadError{fmt::format("{}: {}", unicode::Excerpt(fDocument.PathOf(element)), reason), line, column};
}

std::string DictionaryReader::ReadName(Node element) const {
    const auto name = fDocument.Attribute(element, "name");
    if (!name || name->empty()) Fail(element, "attribute \"name\" expected");
    return std::string(*name);
}

std::vector<Field> DictionaryReader::ReadFields() {
    const Node dictionary = fDocument.FirstChild(0, "DataDictionary");
    if (dictionary == Document::kNone) Fail(0, "element \"DataDictionary\" expected");
    std::vector<Field> fields;
    for (const Node element : xml::NamedChildren(fDocument, dictionary, "DataField")) {
        std::string name = ReadName(element);
        if (!fIndices.emplace(name, static_cast<int>(fields.size())).second) {
            Fail(element, fmt::format("another field is named \"{}\"", unicode::Excerpt(name)));
        }
        fields.push_back(ReadField(fDocument, element));
        fields.back().fName = std::move(name);
    }
    return fields;
}

/// The first one in document order inside a model. Elements are numbered in that order.
Node DictionaryReader::FindMiningSchema() const {
    bool isModel = false;
    for (Node node = 1; node < fDocument.Size(); ++node) {
        const std::string_view name = fDocument.Name(node);
        if (fDocument.Parent(node) == 0) {
            isModel = std::ranges::find(kNoModels, name) == kNoModels.end();
        } else if (isModel && name == "MiningSchema") {
            return node;
        }
    }
    return Document::kNone;
}

std::vector<int> DictionaryReader::AllVariables() const {
    std::vector<int> variables(fIndices.size());
    for (std::size_t i = 0; i < variables.size(); ++i) variables[i] = static_cast<int>(i);
    return variables;
}

std::vector<int> DictionaryReader::ReadVariables() const {
    const Node schema = FindMiningSchema();
    if (schema == Document::kNone) return AllVariables();
    std::vector<int> variables;
    std::vector<bool> isTaken(fIndices.size());
    for (const Node element : xml::NamedChildren(fDocument, schema, "MiningField")) {
        const std::string name = ReadName(element);
        const auto found = fIndices.find(name);
        if (found == fIndices.end())
            Fail(element, fmt::format("\"{}\" is no field of the data dictionary", unicode::Excerpt(name)));
        const auto index = static_cast<std::size_t>(found->second);
        if (!isTaken[index]) variables.push_back(found->second);
        isTaken[index] = true;
    }
    return variables;
}

}  // namespace

std::variant<Dictionary, ReadError> Dictionary::Read(const std::string& text) {
    const auto result = Document::Parse(text);
    if (const auto* error = std::get_if<xml::ParseError>(&result)) {
        return ReadError{error->fReason + '\n' + error->fExcerpt, error->fLine, error->fColumn};
    }
    try {
        DictionaryReader reader(*std::get<0>(result));
        Dictionary dictionary;
        dictionary.fvFields = reader.ReadFields();
        dictionary.fvVariables = reader.ReadVariables();
        return dictionary;
    } catch (ReadError& error) {
        return std::move(error);
    }
}

}  // namespace hierfit::pmml
