#pragma once

#include <string>
#include <variant>

#include "report/xlsx/book/Book.h"

namespace hierfit::report::xlsx {

/// What makes a book, from the module at a path; or why it cannot be had. It stays loaded.
std::variant<HierfitMakeBook, std::string> LoadBook(const std::string& path);

}  // namespace hierfit::report::xlsx
