#include "report/xlsx/cells/Looks.h"

namespace hierfit::report::xlsx {

int Looks::Of(const Look& look) {
    const auto [found, isNew] = fLooks.try_emplace(look, 0);
    if (isNew) found->second = fBook.AddLook(look);
    return found->second;
}

int Looks::OfNumber(int code, const Look& row) {
    const std::size_t kind =
        (row.fAbove == Rule::None ? 0U : 1U) + (row.fBelow == Rule::None ? 0U : 2U) + (row.fIsTop ? 4U : 0U);
    const auto index = static_cast<std::size_t>(code);
    if (index >= fNumbers[kind].size()) fNumbers[kind].resize(index + 1, -1);
    int& number = fNumbers[kind][index];
    if (number < 0) {
        Look look = row;
        look.fCode = fCodes.At(code);
        look.fAlign = Align::Right;
        number = Of(look);
    }
    return number;
}

}  // namespace hierfit::report::xlsx
