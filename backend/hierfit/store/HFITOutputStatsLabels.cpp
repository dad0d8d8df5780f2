#include <algorithm>

#include "hierfit/store/EffectNaming.h"
#include "hierfit/store/HFITOutputStats.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

constexpr const char* kVarOfEffect = "VarOfEffect";

/// A short name or a power in a document stands for a text of any length, as often as it likes.
constexpr std::size_t kMostTermCharacters = 64'000'000;

/// Bytes that covariates take with their powers written out; some number above the limit where they take more.
std::size_t CountCharacters(const std::vector<CovariateTerm>& covariates) {
    std::size_t count = 0;
    for (const CovariateTerm& covariate : covariates) {
        if (count > kMostTermCharacters) break;
        count += static_cast<std::size_t>(std::max(covariate.fPower, 1)) * (covariate.fField.size() + 1);
    }
    return count;
}

/// Covariates with their powers written out: "a*a*b".
std::string CovariatesText(const std::vector<CovariateTerm>& covariates) {
    std::string text;
    for (std::size_t i = 0; i < covariates.size(); ++i) {
        if (i > 0) text += "*";
        text += covariates[i].fField;
        for (int power = 1; power < covariates[i].fPower; ++power) text += "*" + covariates[i].fField;
    }
    return text;
}

std::string FactorText(const FactorTerm& factor) {
    const std::string& value = factor.fValue.GetStringValue();
    return value.empty() ? factor.fField : factor.fField + "=" + value;
}

/// Factors in brackets, crossed or nested: "[b=2]*[c=3]", "[b=2]([c=3])".
std::string FactorsText(const std::vector<FactorTerm>& factors) {
    std::string text;
    std::size_t nOpen = 0;
    for (std::size_t i = 0; i < factors.size(); ++i) {
        if (factors[i].fNest) {
            text += "(";
            ++nOpen;
        } else if (i > 0) {
            text += "*";
        }
        text += "[" + FactorText(factors[i]) + "]";
    }
    return text.append(nOpen, ')');
}

/// The index that a printable list of one nested list names; -1 when it names none.
int EffectIndex(const PrintableList& list) {
    if (list.fvLists.size() != 1 || list.fvLists[0].fPattern.empty()) return -1;
    return String2Integer(list.fvLists[0].fPattern);
}

}  // namespace

bool HFITOutputStats::PrintableText(const PrintableList& list, std::string& text) const {
    if (list.fMapId == -1) {
        text = list.fPattern;
        return true;
    }
    const RegressionParameter* term =
        fpStringMapCollect ? fpStringMapCollect->Find(list.fMapId, list.fPattern) : nullptr;
    if (!term || fTermCharacters > kMostTermCharacters) return false;
    const bool isWritten = CountCharacters(term->fvCovariates) <= kMostTermCharacters - fTermCharacters;
    if (isWritten) RegressionParameterText(*term, text);
    fTermCharacters = isWritten ? fTermCharacters + text.size() : kMostTermCharacters + 1;
    if (fTermCharacters > kMostTermCharacters) {
        Diagnose("the labels of model terms are too long, and those that follow are left empty");
    }
    return isWritten;
}

bool HFITOutputStats::RegressionParameterText(const RegressionParameter& parameter, std::string& text) const {
    if (parameter.fIsIntercept) {
        text = Translate("Intercept");
        return true;
    }
    const std::vector<FactorTerm>& factors = parameter.fvFactors;
    text = CovariatesText(parameter.fvCovariates);
    if (text.empty() && factors.size() == 1) {
        text = FactorText(factors[0]);
    } else if (!factors.empty()) {
        if (!text.empty() && !factors[0].fNest) text += "*";
        text += FactorsText(factors);
    }
    return true;
}

bool HFITOutputStats::RandomEffectText(const RandomSpec& spec, int effectIndex, std::string& text) const {
    if (spec.fIntercept && effectIndex == 0) {
        text = Translate("Intercept");
        return true;
    }
    const int position = spec.fIntercept ? effectIndex - 1 : effectIndex;
    if (position < 0 || static_cast<std::size_t>(position) >= spec.fvEffectList.size()) return false;
    const EffectStruct& effect = spec.fvEffectList[static_cast<std::size_t>(position)];
    text = EffectName(effect, effect.fvFieldNames);
    return true;
}

bool HFITOutputStats::EffectVarianceArgs(const PrintableList& list, int block, std::vector<std::string>& args) const {
    const int effectIndex = EffectIndex(list);
    if (effectIndex < 0) return true;
    const auto at = static_cast<std::size_t>(block);
    std::string text;
    if (!fpBuildSettings || block < 0 || at >= fpBuildSettings->fvRandomSpecs.size() ||
        !RandomEffectText(fpBuildSettings->fvRandomSpecs[at], effectIndex, text)) {
        Diagnose("a covariance parameter of " +
                 (block < 0 ? "the residual" : "random effect block " + std::to_string(block + 1)) +
                 " has no label, since there is no effect " + std::to_string(effectIndex));
        return false;
    }
    args.push_back(std::move(text));
    return true;
}

bool HFITOutputStats::CovarianceParameterLabel(const PrintableList& list, int block, std::string& key,
                                               std::vector<std::string>& args, std::string& label) const {
    if (list.fMapId != -1) return false;
    key = list.fPattern;
    if (key == kVarOfEffect) {
        if (!EffectVarianceArgs(list, block, args)) return false;
    } else {
        for (const PrintableList& nested : list.fvLists) PrintableText(nested, args.emplace_back());
    }
    if (args.size() > 2) return false;
    label = Translate(key, args.empty() ? nullptr : args[0].c_str(), args.size() < 2 ? nullptr : args[1].c_str());
    return true;
}

}  // namespace hierfit
