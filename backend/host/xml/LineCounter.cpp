#include "host/xml/LineCounter.h"

#include <cstring>

#include "host/unicode/Utf8.h"

namespace hierfit::xml {

namespace {

bool HasLoneReturn(std::string_view bytes) {
    for (std::size_t at = bytes.find('\r'); at != std::string_view::npos; at = bytes.find('\r', at + 1)) {
        if (at + 1 == bytes.size() || bytes[at + 1] != '\n') return true;
    }
    return false;
}

}  // namespace

LineCounter::LineCounter(const SourceText& text)
    : fpText(&text), fOnlyLineFeeds(!HasLoneReturn(text.Bytes())), fOffset(text.Begin()) {}

Position LineCounter::MoveTo(std::size_t offset) {
    const Encoding encoding = fpText->GetEncoding();
    if (fOnlyLineFeeds && (encoding == Encoding::Utf8 || encoding == Encoding::OneByte)) {
        PassBytes(offset);
    } else {
        PassCharacters(offset);
    }
    return fPosition;
}

void LineCounter::PassBytes(std::size_t offset) {
    if (offset <= fOffset) return;
    const char* at = fpText->Bytes().data() + fOffset;
    const char* const end = fpText->Bytes().data() + offset;
    while (const void* feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
        at = static_cast<const char*>(feed) + 1;
        ++fPosition.fLine;
        fPosition.fColumn = 1;
    }
    fPosition.fColumn += static_cast<int>(fpText->GetEncoding() == Encoding::Utf8 ? unicode::CountCharacters({at, end})
                                                                                  : static_cast<std::size_t>(end - at));
    fOffset = offset;
}

void LineCounter::PassCharacters(std::size_t offset) {
    while (fOffset < offset) {
        const auto [code, end] = fpText->At(fOffset);
        fOffset = end;
        const bool endsReturn = code == '\n' && fAfterReturn;
        fAfterReturn = code == '\r';
        if (endsReturn) continue;
        const bool endsLine = code == '\n' || code == '\r';
        fPosition.fLine += endsLine ? 1 : 0;
        fPosition.fColumn = endsLine ? 1 : fPosition.fColumn + 1;
    }
}

}  // namespace hierfit::xml
