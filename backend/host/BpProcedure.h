#pragma once

#include "host/BpFormatSpec.h"
#include "host/BpPivotTable.h"
#include "host/Export.h"

namespace hierfit {

/// The output of one procedure run: the root heading, and the number formats of its tables.
class HIERFIT_EXPORT BpProcedure : public BpHeading {
  public:
    /// Output goes to the document of the run that is under way on this thread.
    BpProcedure();

    static BpFormatSpec Coefficient();    ///< 3 decimals; 3 significant digits where that would round to 0
    static BpFormatSpec CoefficientSE();  ///< 4 decimals, likewise
    static BpFormatSpec Significance();   ///< 3 decimals without leading zero; "<.001"
    static BpFormatSpec GeneralStat();    ///< as Coefficient
    static BpFormatSpec Count();          ///< digits; up to 2 decimals for a figure that is not whole
    static BpFormatSpec Percent();        ///< 1 decimal and "%"

    /// The shortest digits that give the number back, at most 15.
    static BpFormatSpec SigDigit(double number);
};

}  // namespace hierfit
