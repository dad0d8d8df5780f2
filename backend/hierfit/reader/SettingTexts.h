#pragma once

#include <array>
#include <string_view>

#include "hierfit/store/BuildSettings.h"

namespace hierfit {

// How the documents write the settings' enumerations; the position of a text is its value.

inline constexpr std::array<std::string_view, DistributionOfTarget::OTHER> kDistributions = {
    "BINOMIAL", "GAMMA", "IGAUSS", "NOMINAL", "ORDINAL", "NEGBIN", "NORMAL", "POISSON"};
inline constexpr std::array<std::string_view, LinkFunctionType::OTHER> kLinks = {
    "CLOGLOG", "IDENTITY", "LOG", "LOGC", "LOGIT", "NLOGLOG", "POWER", "PROBIT", "CAUCHIT"};
inline constexpr std::array<std::string_view, CovarianceType::OTHER> kCovarianceTypes = {
    "VC", "AR1", "ARMA11", "CS", "DIAG", "ID", "TP", "UNSTRUCTURED"};
inline constexpr std::array<std::string_view, PAdjustment::OTHER> kAdjustments = {"LSD", "SEQBONFERRONI", "SEQSIDAK"};
inline constexpr std::array<std::string_view, ContrastType::OTHER> kContrastTypes = {"Pairwise", "Deviation", "Simple",
                                                                                     "None"};
inline constexpr std::array<std::string_view, ReferenceType::OTHER> kReferenceTypes = {"Last", "Value"};

}  // namespace hierfit
