#pragma once

#include <string>
#include <vector>

#include "host/CFStatVariableValue.h"

namespace hierfit {

struct CovariateTerm {
    std::string fField;
    int fVarIndex = -1;  ///< data-source index
    int fPower = 0;
};

struct FactorTerm {
    std::string fField;
    int fVarIndex = -1;  ///< data-source index
    CFStatVariableValue fValue;
    bool fNest = false;
};

/// One model term as the document states it. An intercept has no covariates and no factors.
struct RegressionParameter {
    std::vector<CovariateTerm> fvCovariates;
    std::vector<FactorTerm> fvFactors;
    bool fIsIntercept = false;
    std::string fName;
};

}  // namespace hierfit
