#pragma once

#include <cstddef>

#include "host/xml/Position.h"
#include "host/xml/SourceText.h"

namespace hierfit::xml {

/// Turns rising offsets of a text into lines and columns. A whole pass over the text costs no more than to look at each
/// byte once. A line ends at a line feed, a carriage return or both.
class LineCounter {
  public:
    /// The text must outlive the counter; its encoding must be known at the first `MoveTo`.
    explicit LineCounter(const SourceText& text);

    /// The place of the character at an offset, not below that of the call before.
    Position MoveTo(std::size_t offset);

  private:
    void PassBytes(std::size_t offset);
    void PassCharacters(std::size_t offset);

    const SourceText* fpText;
    bool fOnlyLineFeeds;  ///< no carriage return stands alone
    bool fAfterReturn = false;
    std::size_t fOffset;
    Position fPosition{1, 1};
};

}  // namespace hierfit::xml
