#include "host/xml/MarkupScan.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace hierfit::xml {

namespace {

constexpr std::size_t kMostNameBytes = std::size_t{16} << 20U;
constexpr std::size_t kMostAttributes = 1000;
constexpr std::size_t kHarmlessTag = 5 * kMostAttributes;  // an attribute takes five bytes at least

bool IsSeparator(char32_t code) {
    return code == ' ' || code == '\t' || code == '\n' || code == '\r' || code == '=' || code == '/';
}

class MarkupScan {
  public:
    explicit MarkupScan(const SourceText& text);

    std::optional<Refusal> Run() const;

  private:
    std::string Encoded(std::string_view ascii) const;
    std::size_t Find(std::string_view ascii, std::size_t from) const;
    bool IsAt(std::string_view ascii, std::size_t offset) const;
    std::size_t BehindSpecial(std::size_t markup) const;
    const char* CheckTag(std::size_t begin, std::size_t end) const;

    const SourceText& fText;
    std::size_t fUnit;  ///< bytes of an ASCII character
};

MarkupScan::MarkupScan(const SourceText& text)
    : fText(text),
      fUnit(text.GetEncoding() == Encoding::Utf16LittleEndian || text.GetEncoding() == Encoding::Utf16BigEndian ? 2
                                                                                                                : 1) {}

std::string MarkupScan::Encoded(std::string_view ascii) const {
    std::string bytes;
    for (char c : ascii) {
        if (fText.GetEncoding() == Encoding::Utf16BigEndian) bytes += '\0';
        bytes += c;
        if (fText.GetEncoding() == Encoding::Utf16LittleEndian) bytes += '\0';
    }
    return bytes;
}

/// Offset of the first such characters from an offset on, or the size of the text.
std::size_t MarkupScan::Find(std::string_view ascii, std::size_t from) const {
    const std::string_view bytes = fText.Bytes();
    if (fUnit == 1) return std::min(bytes.find(ascii, from), bytes.size());
    const std::string sought = Encoded(ascii);
    std::size_t at = bytes.find(sought, from);
    while (at != std::string_view::npos && at % fUnit != 0) at = bytes.find(sought, at + 1);
    return std::min(at, bytes.size());
}

bool MarkupScan::IsAt(std::string_view ascii, std::size_t offset) const {
    const std::string_view bytes = fText.Bytes().substr(offset);
    return fUnit == 1 ? bytes.starts_with(ascii) : bytes.starts_with(Encoded(ascii));
}

/// Where a comment, a CDATA section or a processing instruction ends, or behind the opening of other markup. In a
/// comment two hyphens can only be the end.
std::size_t MarkupScan::BehindSpecial(std::size_t markup) const {
    constexpr std::string_view kPairs[][2] = {{"<!--", "--"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [opening, closing] : kPairs) {
        if (IsAt(opening, markup)) return Find(closing, markup + opening.size() * fUnit);
    }
    return markup + fUnit;
}

/// Why a start tag is not read, or null. It ends before the next markup begins.
const char* MarkupScan::CheckTag(std::size_t begin, std::size_t end) const {
    std::size_t attributes = 0;
    std::size_t nameBytes = 0;
    for (std::size_t at = begin + fUnit; at < end;) {
        const auto [code, behind] = fText.At(at);
        if (code == '>') return nullptr;
        nameBytes = IsSeparator(code) ? 0 : nameBytes + (behind - at);
        at = behind;
        if (code == '"' || code == '\'') {
            if (++attributes > kMostAttributes) return "an element has more than 1,000 attributes";
            at = std::min(Find(code == '"' ? "\"" : "'", behind), end);
            if (at - behind > kMostNameBytes) return "an attribute value is longer than 16 MiB";
            at += fUnit;
            nameBytes = 0;
        }
        if (nameBytes > kMostNameBytes) return "a name is longer than 16 MiB";
    }
    return nullptr;
}

std::optional<Refusal> MarkupScan::Run() const {
    const std::size_t size = fText.Bytes().size();
    std::size_t elements = 0;
    std::size_t at = Find("<", fText.Begin());
    while (size - at > fUnit) {
        const char32_t kind = fText.At(at + fUnit).fCode;
        const bool isSpecial = kind == '!' || kind == '?';
        if (isSpecial && IsAt("<!DOCTYPE", at)) return Refusal{"document type declarations are not read", at};
        const bool isTag = !isSpecial && kind != '/';
        if (isTag && ++elements > kMostElements) return Refusal{"the document has more than 5 million elements", at};
        const std::size_t next = Find("<", isSpecial ? BehindSpecial(at) : at + fUnit);
        if (isTag && next - at > kHarmlessTag) {
            if (const char* reason = CheckTag(at, next)) return Refusal{reason, at};
        }
        at = next;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Refusal> FindRefusal(const SourceText& text) { return MarkupScan(text).Run(); }

}  // namespace hierfit::xml
