#pragma once

#include <cstddef>
#include <optional>

#include "host/xml/SourceText.h"

namespace hierfit::xml {

/// More start tags than this are not read.
inline constexpr std::size_t kMostElements = 5'000'000;

/// Something that is not read, and the offset of the markup that holds it.
struct Refusal {
    const char* fReason;
    std::size_t fOffset;
};

/// Looks through the markup of a text for what must not reach expat, which calls back only when it has taken in a whole
/// tag: a document type declaration, more than 5 million elements, more than 1,000 attributes, a name or a value over
/// 16 MiB as it is written. Sees markup as expat does up to the first fault of the text, which it leaves to expat to
/// tell. Linear, and fast where tags are short.
std::optional<Refusal> FindRefusal(const SourceText& text);

}  // namespace hierfit::xml
