#include "host/pmml/FieldReader.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "host/data/PrintFormat.h"
#include "host/unicode/Utf8.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::pmml {

namespace {

using xml::Document;
using Node = Document::Node;

constexpr std::size_t kWidthWithoutValues = 8;
constexpr std::size_t kMostWidth = 255;

std::string_view AttributeOrEmpty(const Document& document, Node element, std::string_view name) {
    return document.Attribute(element, name).value_or(std::string_view());
}

int ReadType(std::string_view dataType) {
    if (dataType == "integer") return 1;
    return dataType == "double" || dataType == "float" ? 2 : 0;
}

int ReadMeasurementLevel(std::string_view optype, int type) {
    if (optype == "categorical") return 1;
    if (optype == "ordinal") return 2;
    return optype == "continuous" || type != 0 ? 3 : 1;
}

std::vector<Category> ReadCategories(const Document& document, Node field) {
    std::vector<Category> categories;
    for (const Node value : xml::NamedChildren(document, field, "Value")) {
        const auto text = document.Attribute(value, "value");
        if (!text || document.Attribute(value, "property").value_or("valid") != "valid") continue;
        categories.push_back({std::string(*text), std::string(AttributeOrEmpty(document, value, "displayValue"))});
    }
    return categories;
}

std::optional<KEST_Format> ReadFormat(const Document& document, Node field) {
    for (const Node extension : xml::NamedChildren(document, field, "Extension")) {
        if (document.Attribute(extension, "name") != "format") continue;
        return data::ParsePrintFormat(AttributeOrEmpty(document, extension, "value"));
    }
    return {};
}

KEST_Format DefaultFormat(const Field& field) {
    if (field.fType == 1) return {8, KEST_FormatType::Numeric, 0};
    if (field.fType == 2) return {8, KEST_FormatType::Numeric, 2};
    std::size_t width = field.fvCategories.empty() ? kWidthWithoutValues : 1;
    for (const Category& category : field.fvCategories) {
        width = std::max(width, unicode::CountCharacters(category.fValue));
    }
    return {static_cast<std::uint16_t>(std::min(width, kMostWidth)), KEST_FormatType::String, 0};
}

}  // namespace

Field ReadField(const Document& document, Node element) {
    Field field;
    field.fLabel = AttributeOrEmpty(document, element, "displayName");
    field.fType = ReadType(AttributeOrEmpty(document, element, "dataType"));
    field.fMeasurementLevel = ReadMeasurementLevel(AttributeOrEmpty(document, element, "optype"), field.fType);
    field.fvCategories = ReadCategories(document, element);
    const std::optional<KEST_Format> format = ReadFormat(document, element);
    const bool fits = format && format->IsString() == (field.fType == 0);
    field.fFormat = fits ? *format : DefaultFormat(field);
    return field;
}

}  // namespace hierfit::pmml
