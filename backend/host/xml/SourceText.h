#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace hierfit::xml {

/// How bytes make characters, as far as expat reads them.
enum class Encoding : std::uint8_t { Utf8, OneByte, Utf16LittleEndian, Utf16BigEndian };

/// A document's bytes seen as characters. A view: the bytes must outlive it. Any bytes will do; what is no character is
/// read as U+FFFD, one for each byte or pair of bytes.
class SourceText {
  public:
    struct Character {
        char32_t fCode;
        std::size_t fEnd;  ///< offset of the byte behind it
    };

    /// Tells UTF-16 by its first two bytes, as expat does, and takes anything else for UTF-8.
    explicit SourceText(std::string_view bytes);

    /// What the XML declaration says of the encoding; it parts UTF-8 from ISO-8859-1.
    void Declare(std::string_view encoding);

    std::string_view Bytes() const { return fBytes; }
    Encoding GetEncoding() const { return fEncoding; }

    /// Offset of the first character, behind a byte order mark.
    std::size_t Begin() const { return fBegin; }

    /// The character at an offset below the size.
    Character At(std::size_t offset) const;

    /// Offset of the character before the one at an offset above `Begin()`.
    std::size_t Before(std::size_t offset) const;

  private:
    Character Utf16At(std::size_t offset) const;
    char32_t Utf16Unit(std::size_t offset) const;

    std::string_view fBytes;
    Encoding fEncoding = Encoding::Utf8;
    std::size_t fBegin = 0;
};

}  // namespace hierfit::xml
