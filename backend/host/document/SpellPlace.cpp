#include "host/document/SpellPlace.h"

namespace hierfit::document {

std::string SpellPlace(const Document& document, const Place& place) {
    const auto source = static_cast<std::size_t>(place.fSource);
    const std::string name = source < document.fvSources.size() ? document.fvSources[source] : "?";
    return name + ":" + std::to_string(place.fLine) + ":" + std::to_string(place.fColumn);
}

std::string SpellPlaceBehind(const Document& document, const Diagnostic& diagnostic) {
    return diagnostic.fPlace ? " (" + SpellPlace(document, *diagnostic.fPlace) + ")" : std::string();
}

}  // namespace hierfit::document
