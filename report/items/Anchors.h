#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "host/document/Document.h"

namespace hierfit::report::items {

/// Names for the items of a document, to be linked and chosen by. A name comes from what the item is made from, not
/// from its words in some language, so that links survive a new run: `FixedCoefficients-1` is the first table of that
/// subtype. All names of one object differ; each begins with a letter and ends in a hyphen and a number.
class Anchors {
  public:
    std::string Name(const document::Item& item);

  private:
    std::unordered_map<std::string, int> fCounts;
};

/// Letters, digits and hyphens of a text, in ASCII, at most 64; what lies between them becomes one hyphen.
std::string MakeSlug(std::string_view text);

}  // namespace hierfit::report::items
