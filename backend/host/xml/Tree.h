#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/xml/NameTable.h"

namespace hierfit::xml {

/// One element. Elements stand in document order, so that the first child of one is the next one, if it is a child.
struct ElementRecord {
    NameTable::Id fName;
    std::uint32_t fParent;          ///< of the document element: itself
    std::uint32_t fEnd;             ///< the first element behind this one and all below it
    std::uint32_t fFirstAttribute;  ///< its attributes go on to the first one of the next element
    std::uint32_t fText;            ///< offset in the characters
    std::uint32_t fLine;
    std::uint32_t fColumn;
};

struct AttributeRecord {
    NameTable::Id fName;
    std::uint32_t fValue;  ///< offset in the characters
};

/// What a document is made of. No character of XML is a NUL.
struct Tree {
    NameTable fNames;
    std::vector<ElementRecord> fvElements;
    std::vector<AttributeRecord> fvAttributes;
    std::string fCharacters = std::string(1, '\0');  ///< values and texts, each ended by a NUL; an empty one first
};

}  // namespace hierfit::xml
