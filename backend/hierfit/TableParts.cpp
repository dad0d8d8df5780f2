#include "hierfit/TableParts.h"

namespace hierfit {

BpNumber SigDigitNumber(double number) { return BpNumber(number, BpProcedure::SigDigit(number)); }

BpNumber CountNumber(double number) { return BpNumber(number, BpProcedure::Count()); }

BpComposite Composite(const std::string& pattern, const BpCellText& value) {
    BpComposite composite(pattern, true);
    composite.Add(value);
    composite.Finish();
    return composite;
}

BpCategory NumberCell(BpGroup& group, const char* name, double number, BpFormatSpec format) {
    BpCategory category = group.Category(Translated(name));
    category.Cell(BpNumber(number, format));
    return category;
}

}  // namespace hierfit
