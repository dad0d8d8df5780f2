#include "report/layout/CellContent.h"

namespace hierfit::report {

bool IsNumber(const document::Text& text) {
    if (std::holds_alternative<document::NumberSource>(text.fFrom)) return true;
    const auto* value = std::get_if<document::ValueSource>(&text.fFrom);
    return value && std::holds_alternative<double>(value->fValue) &&
           text.fWords.find_first_not_of("0123456789.+-eE") == std::string::npos;
}

}  // namespace hierfit::report
