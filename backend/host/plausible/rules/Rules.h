#pragma once

#include "host/plausible/Findings.h"
#include "host/plausible/Model.h"

namespace hierfit::plausible {

/// The rules by what they are about. Each looks at one part of the document, which need not be there.

void JudgeSettings(const Model& model, Findings& findings);    ///< BuildSettings
void JudgeFit(const Model& model, Findings& findings);         ///< figures of the fit, F tests, data behind charts
void JudgeMatrices(const Model& model, Findings& findings);    ///< classification and covariances of random effects
void JudgeMeans(const Model& model, Findings& findings);       ///< DataGroup
void JudgeParameters(const Model& model, Findings& findings);  ///< ParameterEstimates

}  // namespace hierfit::plausible
