#include "report/xlsx/Looks.h"

namespace hierfit::report::xlsx {

int Looks::Of(const Look& look) {
    const auto [found, isNew] = fLooks.try_emplace(look, 0);
    if (isNew) found->second = fBook.AddLook(look);
    return found->second;
}

int Looks::OfNumber(int code, Rule below) {
    std::vector<int>& looks = below == Rule::None ? fvNumbers : fvRuledNumbers;
    const auto index = static_cast<std::size_t>(code);
    if (index >= looks.size()) looks.resize(index + 1, -1);
    if (looks[index] < 0) {
        looks[index] = Of({.fCode = fCodes.At(code), .fAlign = Align::Right, .fBelow = below});
    }
    return looks[index];
}

}  // namespace hierfit::report::xlsx
