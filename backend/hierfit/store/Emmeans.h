#pragma once

#include <string>
#include <vector>

#include "hierfit/store/SubjectData.h"
#include "hierfit/store/WarningMessage.h"
#include "host/CFStatVariableValue.h"
#include "host/SystemMissing.h"

namespace hierfit {

/// One column of a result table. Its values stay texts; each table or chart converts them for itself.
struct Coordinates {
    int fFeature = 4;        ///< 0 observed, 1 frequency, 2 statistic, 3 fields, 4 any other
    std::string fField;      ///< the variable of a factor column
    std::string fStatistic;  ///< which statistic a statistic column holds
    std::vector<std::string> fvValues;
};

/// A table of estimated means. All columns are parallel.
struct EstimateData {
    std::vector<Coordinates> fvFactorCoords;
    Coordinates fMean;
    Coordinates fStdErr;
    Coordinates fCILower;
    Coordinates fCIUpper;
};

struct ContrastKind {
    enum : int { PAIRWISE, DEVIATION, SIMPLE, OTHER };
};

/// A table of contrasts. All columns are parallel; the last two factor columns are those of the compare factor.
struct ContrastData {
    double fAdjustedSigLevel = kSystemMissing;
    int fContrastKind = ContrastKind::OTHER;
    std::vector<Coordinates> fvFactorCoords;
    Coordinates fContrastEstimate;
    Coordinates fStdErr;
    Coordinates fTTest;
    Coordinates fDf;
    Coordinates fAdjustedSig;
    Coordinates fCILower;
    Coordinates fCIUpper;
};

/// One overall F test, for one combination of the factors other than the compare factor.
struct OverallTest {
    SubjectData fSegment;
    int fTestID = -1;
    double fFStatistic = kSystemMissing;
    double fDf1 = kSystemMissing;
    double fDf2 = kSystemMissing;
    double fSig = kSystemMissing;
};

/// A continuous predictor at its fixed value.
struct EmmeansLabel {
    std::string fPattern;  ///< the field's name
    CFStatVariableValue fValue;
};

/// One block of estimated marginal means: the answer to one request of the build settings.
struct EmmeansData {
    int fEmmeansIndex = -1;  ///< position of the request, from 0; negative for a block that prints nothing
    std::vector<EmmeansLabel> fvLabels;
    EstimateData fEstimates;
    ContrastData fContrasts;
    std::vector<OverallTest> fvOverallTests;
    std::vector<WarningMessage> fvWarningList;
};

}  // namespace hierfit
