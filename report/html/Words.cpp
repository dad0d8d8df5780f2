#include "report/html/Words.h"

#include "report/markup/Escape.h"

namespace hierfit::report::html::words {

std::string Spell(std::string_view english) {
    std::string spelt;
    AppendCharacters(spelt, items::Say(english));
    return spelt;
}

}  // namespace hierfit::report::html::words
