#pragma once

#include <memory>
#include <string>
#include <variant>

#include "host/xml/Position.h"
#include "host/xml/Tree.h"

namespace hierfit::xml {

/// Parses a text by expat and builds its tree.
std::variant<std::unique_ptr<const Tree>, ParseError> BuildTree(const std::string& text);

}  // namespace hierfit::xml
