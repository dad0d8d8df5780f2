#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/context/RunContext.h"

namespace hierfit::language {

/// A binary message catalogue (GNU gettext, MO files, revision 0 of either byte order), read as it stands on disk.
class Catalogue : public context::Translator {
  public:
    /// Null when the file is missing or is no such catalogue.
    static std::unique_ptr<Catalogue> Open(const std::string& path);

    std::optional<std::string_view> Find(std::string_view key) const override;

  private:
    Catalogue() = default;
};

/// The languages that a folder of catalogues offers: "C", then the names of its `*.mo` files in order.
std::vector<std::string> ListLanguages(const std::string& folder);

/// Fills the marks ^1 to ^9 of a text in one pass; arguments are never expanded again, a mark without one stays.
std::string FillMarks(std::string_view text, const std::vector<std::string_view>& arguments);

}  // namespace hierfit::language
