// Feeds a PMML and a StatXML document, parted by a marker that chooses how labels are shown, through a run.

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"
#include "host/session/Session.h"

namespace hierfit::fuzz {

std::vector<const Form*> FormsOfInput() { return {&kXml, &kXml}; }

void RunInput(std::string_view input) {
    Parts parts = SplitInput(input, 2);
    session::Settings settings;
    settings.fVariables = static_cast<session::Labels>(parts.fMarkers[0] / 3);
    settings.fValues = static_cast<session::Labels>(parts.fMarkers[0] % 3);
    const session::Result result = session::Run({"model.pmml", std::move(parts.fvTexts[0])},
                                                {"model.statxml", std::move(parts.fvTexts[1])}, settings);
    JudgeRun(result);
    RenderFreshAndSaved(result.fDocument);
}

}  // namespace hierfit::fuzz
