#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/xml/Document.h"

namespace hierfit::test {

/// The document of a text that must be read.
inline std::shared_ptr<xml::Document> Parsed(const std::string& text) {
    return std::get<0>(xml::Document::Parse(text));
}

/// The tree as text, an element a line: its path, the attributes of these names in brackets, its text in quotes.
inline std::string ShowTree(const xml::Document& document, const std::vector<std::string_view>& names) {
    std::string text;
    for (xml::Document::Node node = 0; node < document.Size(); ++node) {
        text += document.PathOf(node);
        for (const std::string_view name : names) {
            const auto value = document.Attribute(node, name);
            if (value) text += " [" + std::string(name) + '=' + std::string(*value) + ']';
        }
        if (!document.Text(node).empty()) text += " \"" + std::string(document.Text(node)) + '"';
        text += '\n';
    }
    return text;
}

/// Reason, place and excerpt of a text that must not be read.
inline std::string ErrorOf(const std::string& text) {
    const auto result = xml::Document::Parse(text);
    const auto* error = std::get_if<xml::ParseError>(&result);
    if (!error) return "read";
    return std::to_string(error->fLine) + ':' + std::to_string(error->fColumn) + ' ' + error->fReason + '\n' +
           error->fExcerpt;
}

/// ASCII text as UTF-16 with a byte order mark.
inline std::string Utf16(const std::string& ascii, bool isBigEndian) {
    std::string text = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char c : ascii) text += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return text;
}

}  // namespace hierfit::test
