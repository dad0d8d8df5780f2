#pragma once

#include <string>
#include <vector>

#include "host/SystemMissing.h"

namespace hierfit {

// The values of the settings' enumerations. The settings hold them as int, in the order of the documents' texts; any
// other text has the value behind the last one.

struct DistributionOfTarget {
    enum : int { BINOMIAL, GAMMA, IGAUSS, NOMINAL, ORDINAL, NEGBIN, NORMAL, POISSON, OTHER };
};

struct LinkFunctionType {
    enum : int { CLOGLOG, IDENTITY, LOG, LOGC, LOGIT, NLOGLOG, POWER, PROBIT, CAUCHIT, OTHER };
};

struct CovarianceType {
    enum : int { VC, AR1, ARMA11, CS, DIAG, ID, TP, UNSTRUCTURED, OTHER };
};

struct PAdjustment {
    enum : int { LSD, SEQBONFERRONI, SEQSIDAK, OTHER };
};

struct ContrastType {
    enum : int { PAIRWISE, DEVIATION, SIMPLE, NONE, OTHER };
};

struct ReferenceType {
    enum : int { LAST, VALUE, OTHER };
};

/// Bands of a Toeplitz-type structure when the document names none.
inline constexpr int kDefaultBands = 2;

/// One effect or one subject specification: fields that are crossed, or nested where the level rises.
struct EffectStruct {
    std::vector<std::string> fvFieldNames;
    std::vector<int> fvFieldIndex;  ///< data-source indices
    std::vector<int> fvNestingLevels;

    /// Depth of the i-th field; a field without a level of its own is crossed.
    int NestingLevel(std::size_t i) const { return i < fvNestingLevels.size() ? fvNestingLevels[i] : 0; }
};

/// One random effect block.
struct RandomSpec {
    std::vector<EffectStruct> fvEffectList;
    bool fIntercept = false;
    EffectStruct fSubjectSpec;
    std::vector<std::string> fvGroupSpec;
    int fCovarianceType = CovarianceType::OTHER;
    int fCovarianceTBand = kDefaultBands;
};

/// One request for estimated marginal means.
struct EmmeansSpec {
    EffectStruct fFactors;
    bool fEstimateMeans = false;
    std::string fCompareFactor;  ///< the factor that contrasts compare
    int fContrastType = ContrastType::NONE;
    int fReferenceType = ReferenceType::LAST;
    std::string fReferenceValue;
};

/// The options with which the model was fitted.
struct BuildSettings {
    std::string fTarget;
    int fTargetIndex = -1;
    bool fUseTrials = false;  ///< the target counts events out of trials
    std::string fTrials;
    int fTrialsIndex = -1;  ///< negative when the number of trials is the fixed value
    int fTrialsValue = 0;
    std::string fDistributionName;
    int fDistribution = DistributionOfTarget::OTHER;
    std::string fLinkName;
    int fLink = LinkFunctionType::OTHER;
    double fLinkParam = kSystemMissing;
    std::string fLinkParamText;
    std::string fAlgorithmName;
    double fConfidenceLevel = kSystemMissing;  ///< a fraction, such as 0.95
    bool fIntercept = true;
    int fResidualCovarianceType = CovarianceType::OTHER;
    int fResidualCovarianceTBand = kDefaultBands;
    EffectStruct fResidualSubjectSpec;
    std::vector<std::string> fvResidualGroupSpec;
    std::vector<EffectStruct> fvFixedEffectList;
    std::vector<RandomSpec> fvRandomSpecs;
    std::vector<EmmeansSpec> fvEmmeansSpecs;
    int fPAdjustment = PAdjustment::OTHER;
};

}  // namespace hierfit
