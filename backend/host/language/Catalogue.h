#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/context/RunContext.h"

namespace hierfit::language {

/// A binary message catalogue (GNU gettext, MO files, revision 0 of either byte order), read as it stands on disk. It
/// owns the file's bytes; the texts that it gives are views of them. A damaged file finds fewer texts, no worse.
class Catalogue : public context::Translator {
  public:
    /// Null when the file is missing, larger than 16 MiB, or no such catalogue.
    static std::unique_ptr<Catalogue> Open(const std::string& path);

    /// The same from a file's bytes.
    static std::unique_ptr<Catalogue> FromBytes(std::string bytes);

    /// The translation of a text. The empty text has none: what a file keeps under it describes the catalogue.
    std::optional<std::string_view> Find(std::string_view key) const override;

  private:
    explicit Catalogue(std::string bytes) : fBytes(std::move(bytes)) {}

    bool ReadHeader();
    bool HoldsTable(std::uint32_t table) const;
    std::uint32_t Word(std::size_t offset) const;
    std::optional<std::string_view> Entry(std::uint32_t table, std::uint32_t index) const;

    std::string fBytes;
    bool fBigEndian = false;
    std::uint32_t fCount = 0;
    std::uint32_t fSources = 0;       ///< offset of the table of source texts, which are in order
    std::uint32_t fTranslations = 0;  ///< offset of the table of their translations
};

/// The languages that a folder of catalogues offers: "C", then the names of its `*.mo` files in order.
std::vector<std::string> ListLanguages(const std::string& folder);

/// Fills the marks ^1 to ^9 of a text in one pass; arguments are never expanded again. A mark without an argument
/// stays, and so does one whose argument is `std::string_view()`, a view of nothing.
std::string FillMarks(std::string_view text, const std::vector<std::string_view>& arguments);

}  // namespace hierfit::language
