#pragma once

#include <string>
#include <vector>

#include "hierfit/store/PrintableList.h"
#include "hierfit/store/RegressionParameter.h"
#include "hierfit/store/SubjectData.h"
#include "host/CFStatVariableValue.h"
#include "host/SystemMissing.h"

namespace hierfit {

/// One estimated parameter with its statistics.
struct ParamEstimate {
    std::string fStatName;  ///< "fixedEffectIndex" on a coefficient that belongs to an effect
    std::string fStatValue;
    int fStatIndex = -1;  ///< the effect's index
    RegressionParameter fParam;
    PrintableList fPrintableList;
    std::string fParamName;
    std::string fParamLabel;
    double fEstimate = kSystemMissing;
    double fStdError = kSystemMissing;
    double fDf = kSystemMissing;
    double fConfLower = kSystemMissing;
    double fConfUpper = kSystemMissing;
    double fTTest = kSystemMissing;
    double fZTest = kSystemMissing;
    double fSig = kSystemMissing;
    double fChiSquare = kSystemMissing;
    double fExpEstimate = kSystemMissing;
    double fExpCILower = kSystemMissing;
    double fExpCIUpper = kSystemMissing;
    bool fIsRedundant = false;
};

/// The parameters of one set: of a target category, of a combination of grouping values, or of the whole model.
struct ParamGroup {
    CFStatVariableValue fTargetValue;  ///< of a fixed group that names a target category
    SubjectData fFiledData;            ///< the grouping values of a residual or random group
    std::vector<ParamEstimate> fvParamEstimates;
};

/// The covariance parameters of one random effect block.
struct RandomParamBlock {
    int fBlock = 0;  ///< from 0
    std::vector<ParamGroup> fvGroups;
};

/// All estimated parameters of the model.
struct ParamCollect {
    std::vector<ParamGroup> fvFixedParamEstim;
    std::vector<ParamGroup> fvRepeatedParamEstim;
    std::vector<RandomParamBlock> fvRandomParamEstim;  ///< the position is the block's number
};

}  // namespace hierfit
