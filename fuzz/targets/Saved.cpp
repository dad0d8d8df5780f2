// Feeds a JSON document through the reader of saved documents.

#include <variant>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "report/json/JsonDocument.h"

namespace hierfit::fuzz {

std::vector<const Form*> FormsOfInput() { return {&kJson}; }

void RunInput(std::string_view input) {
    const auto read = report::ReadJson(input);
    if (const auto* document = std::get_if<document::Document>(&read)) {
        RenderFreshAndSaved(*document);
    } else if (std::get<report::JsonError>(read).fText.empty()) {
        Fail("no text says why the document cannot be read");
    }
}

}  // namespace hierfit::fuzz
