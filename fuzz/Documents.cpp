// Feeds a PMML and a StatXML document, parted by a marker that chooses how labels are shown, through a run.

#include <array>

#include "fuzz/Checks.h"
#include "fuzz/Parts.h"
#include "fuzz/Target.h"
#include "host/session/Session.h"

namespace hierfit::fuzz {

namespace {

/// A run ends with a report or with one error that says why there is none, and never in the net that is spread for
/// faults of the program.
void Judge(const session::Result& result) {
    const auto& diagnostics = result.fDocument.fvDiagnostics;
    for (const document::Diagnostic& diagnostic : diagnostics) {
        if (diagnostic.fText.starts_with("the run broke off")) Fail(diagnostic.fText);
    }
    if (result.fOutcome == session::Outcome::NotSetUp) Fail(diagnostics.front().fText);
    if (result.fOutcome == session::Outcome::Issued) return;
    if (diagnostics.empty() || diagnostics.back().fLevel != 3) Fail("no error says why there is no report");
}

}  // namespace

std::span<const Form* const> FormsOfInput() {
    static const std::array<const Form*, 2> forms{&kXml, &kXml};
    return forms;
}

void RunInput(std::string_view input) {
    Parts parts = SplitInput(input, 2);
    session::Settings settings;
    settings.fVariables = static_cast<session::Labels>(parts.fMarkers[0] / 3);
    settings.fValues = static_cast<session::Labels>(parts.fMarkers[0] % 3);
    const session::Result result = session::Run({"model.pmml", std::move(parts.fvTexts[0])},
                                                {"model.statxml", std::move(parts.fvTexts[1])}, settings);
    Judge(result);
    RenderFreshAndSaved(result.fDocument);
}

}  // namespace hierfit::fuzz
