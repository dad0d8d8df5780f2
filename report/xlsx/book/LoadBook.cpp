#include "report/xlsx/book/LoadBook.h"

#include "report/modules/FindSymbol.h"

namespace hierfit::report::xlsx {

std::variant<HierfitMakeBook, std::string> LoadBook(const std::string& path) {
    const auto found = FindSymbol(path, kHierfitMakeBook);
    if (const auto* reason = std::get_if<std::string>(&found)) return *reason;
    return reinterpret_cast<HierfitMakeBook>(std::get<void*>(found));
}

}  // namespace hierfit::report::xlsx
