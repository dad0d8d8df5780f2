#pragma once

#include <memory>
#include <string>

#include "hierfit/store/HFITOutputStats.h"
#include "host/BpProcedure.h"
#include "host/FacSTDictionary.h"
#include "host/KEST_DataSource.h"
#include "host/KEST_Format.h"
#include "host/SystemMissing.h"

namespace hierfit {

/// Print format of figures that no variable gives one.
inline constexpr KEST_Format kFigureFormat{40, KEST_FormatType::Numeric, 2};

/// Print format of coefficients and significances in tips.
inline constexpr KEST_Format kTipFormat{40, KEST_FormatType::Numeric, 3};

/// What the charts of one builder share. Everything borrowed outlives it.
struct ChartState {
    BpProcedure* fProcedure = nullptr;
    HFITOutputStats* fpStats = nullptr;
    KEST_DataSource* fDataSource = nullptr;
    std::unique_ptr<FacSTDictionary> fpDictionary;
    std::string fSourceName = "source0";
    std::string fPointSourceName = "pointSource";
    std::string fEdgeSourceName = "edgeSource";
    int fTargetIndex = -1;
    std::string fTargetName;
    std::string fTargetLabel;  ///< the name where there is no label
    KEST_Format fTargetFormat = kFigureFormat;
    bool fTargetHasLabel = true;
    double fSysMis = kSystemMissing;

    // Line weights of all diagrams so far, from 1 to 9.
    bool fHasLineWeights = false;
    double fMinLineWeight = 9.0;
    double fMaxLineWeight = 1.0;

    // Of the target's fitted distribution.
    double fDistMean = kSystemMissing;
    double fDistShape = kSystemMissing;
    double fDistRate = kSystemMissing;
    double fDistR = kSystemMissing;
    double fDistP = kSystemMissing;
};

}  // namespace hierfit
