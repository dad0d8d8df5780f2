#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::fuzz {

/// What can be replaced by another of its kind, and unless it is a leaf be taken out or doubled, while the whole keeps
/// its form.
struct Piece {
    enum class Kind : unsigned char {
        Element,    ///< of XML, from its start tag through its end tag
        Attribute,  ///< from the blank before its name through the closing quote
        Member,     ///< of a JSON object, from its key through its value
        Item,       ///< of a JSON list
        Line,       ///< from the line feed before it
        Name,       ///< leaf: of an attribute
        Word,       ///< leaf: of XML's characters, an attribute's value, a JSON string, a line, or all of a plain text
        Number,     ///< leaf: of JSON, or one of its words
    };
    Kind fKind;
    std::size_t fBegin;
    std::size_t fEnd;

    bool IsLeaf() const { return fKind >= Kind::Name; }
    bool HasComma() const { return fKind == Kind::Member || fKind == Kind::Item; }
};

/// A way in which a text may be formed.
struct Form {
    /// The pieces of a text; of one that is not so formed, those that can be told.
    std::vector<Piece> (*fpList)(std::string_view text);

    /// Any bytes as they may stand in a word.
    std::string (*fpEscape)(std::string_view bytes);
};

extern const Form kXml;
extern const Form kJson;
extern const Form kPlainText;
extern const Form kLines;

}  // namespace hierfit::fuzz
