#pragma once

#include <string>
#include <vector>

#include "host/SystemMissing.h"

namespace hierfit {

/// The target's binned observed distribution, and the parameters of the fitted one.
struct TargetDistribution {
    std::string fDescription;
    int fTotalFreq = 0;
    double fMean = 0;
    double fStdDeviation = 0;
    double fShape = 0;
    double fRate = 0;
    double fR = 0;
    double fP = 0;
    std::vector<double> fvObserved;   ///< the bins
    std::vector<double> fvFrequency;  ///< the height of each bin
};

/// The binned plot of predicted against observed values.
struct PredByObserved {
    std::string fDescription;
    int fTotalFreq = 0;
    std::vector<double> fvObserved;
    std::vector<double> fvStatistic;  ///< the predicted values
    std::vector<double> fvFrequency;
    double fAxisMin = 0;  ///< bounds of observed and predicted values together
    double fAxisMax = 0;
};

/// Fit statistics of the model, and the two data sets behind its charts.
struct ModelDiagnostics {
    double fAICC = kSystemMissing;
    double fBIC = kSystemMissing;
    double fMinus2LogLikelihood = kSystemMissing;
    double fClassificationAccuracy = kSystemMissing;  ///< a fraction
    int fNumOfCovParamOfRepeated = -1;
    int fNumOfCovParamOfRandom = -1;
    int fNumOfColsOfFixed = -1;
    int fNumOfColsOfRandom = -1;
    int fNumOfCommonSubjects = -1;
    double fGrandMean = kSystemMissing;
    double fGrandMeanStdErr = kSystemMissing;
    double fGrandMeanCILower = kSystemMissing;
    double fGrandMeanCIUpper = kSystemMissing;
    TargetDistribution fTargetDistribution;
    PredByObserved fPredByObserved;
};

/// One F test.
struct EffectTest {
    int fTestID = 0;
    int fTestType = 0;
    double fFStatistic = kSystemMissing;
    double fDf1 = kSystemMissing;
    double fDf2 = kSystemMissing;
    double fSig = kSystemMissing;
};

/// The F tests of the model. Entry i of the effects' tests belongs to entry i of the settings' fixed effects.
struct EffectStatData {
    EffectTest fCorrectedModel;
    std::vector<EffectTest> fvFixedEffectTests;
};

}  // namespace hierfit
