#include <array>
#include <string_view>

#include "hierfit/store/HFITOutputStats.h"

namespace hierfit {

namespace {

constexpr const char* kUnknown = "Unknown";

constexpr std::array<const char*, DistributionOfTarget::OTHER> kDistributionTexts = {
    "Binomial", "Gamma", "Inverse Gaussian", "Multinomial", "Multinomial", "Negative binomial", "Normal", "Poisson"};

constexpr std::array<const char*, LinkFunctionType::OTHER> kNominalLinkTexts = {
    kUnknown, kUnknown, kUnknown, kUnknown, "Generalized logit", kUnknown, kUnknown, kUnknown, kUnknown};

constexpr std::array<const char*, LinkFunctionType::OTHER> kOrdinalLinkTexts = {"Cumulative complementary log-log",
                                                                                kUnknown,
                                                                                kUnknown,
                                                                                kUnknown,
                                                                                "Cumulative logit",
                                                                                "Cumulative negative log-log",
                                                                                kUnknown,
                                                                                "Cumulative probit",
                                                                                "Cumulative Cauchit"};

constexpr std::array<const char*, LinkFunctionType::OTHER> kLinkTexts = {
    "Complementary log-log", "Identity", "Log",    "Log complement", "Logit",
    "Negative log-log",      "Power",    "Probit", kUnknown};

constexpr std::array<const char*, CovarianceType::OTHER> kCovarianceTexts = {"Variance components",
                                                                             "First-order autoregressive",
                                                                             "Autoregressive moving average (1,1)",
                                                                             "Compound symmetry",
                                                                             "Diagonal",
                                                                             "Scaled Identity",
                                                                             "Toeplitz",
                                                                             "Unstructured"};

template <std::size_t n>
const char* TextAt(const std::array<const char*, n>& texts, int value) {
    return value >= 0 && static_cast<std::size_t>(value) < n ? texts[static_cast<std::size_t>(value)] : kUnknown;
}

const char* LinkTextOf(int link, int distribution) {
    switch (distribution) {
        case DistributionOfTarget::NOMINAL:
            return TextAt(kNominalLinkTexts, link);
        case DistributionOfTarget::ORDINAL:
            return TextAt(kOrdinalLinkTexts, link);
        default:
            return TextAt(kLinkTexts, link);
    }
}

}  // namespace

std::string HFITOutputStats::Translate(const std::string& key, const char* a1, const char* a2, const char* a3,
                                       const char* a4, const char* a5) const {
    return fpParserMessage->GetTranslatedText(key, a1, a2, a3, a4, a5);
}

std::string HFITOutputStats::DistributionText(int distribution, bool translate) const {
    const std::string text = TextAt(kDistributionTexts, distribution);
    return translate ? Translate(text) : text;
}

std::string HFITOutputStats::LinkText(int link, int distribution, bool translate) const {
    const std::string text = LinkTextOf(link, distribution);
    return translate ? Translate(text) : text;
}

std::string HFITOutputStats::CovarianceText(int covarianceType, bool translate) const {
    const std::string text = TextAt(kCovarianceTexts, covarianceType);
    return translate ? Translate(text) : text;
}

std::string LinkPattern(int link, int distribution) {
    const bool isMultinomial =
        distribution == DistributionOfTarget::NOMINAL || distribution == DistributionOfTarget::ORDINAL;
    return !isMultinomial && link == LinkFunctionType::POWER ? "Power(^1)" : "";
}

}  // namespace hierfit
