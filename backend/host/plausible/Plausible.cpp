#include "host/plausible/Plausible.h"

#include "host/plausible/Model.h"
#include "host/plausible/rules/Rules.h"

namespace hierfit::plausible {

std::vector<Finding> FindContradictions(const xml::Document& statXml, bool wantsAll) {
    const Model model(statXml);
    Findings findings(statXml, wantsAll);
    JudgeSettings(model, findings);
    JudgeFit(model, findings);
    JudgeMatrices(model, findings);
    JudgeMeans(model, findings);
    JudgeParameters(model, findings);
    return findings.Take();
}

}  // namespace hierfit::plausible
