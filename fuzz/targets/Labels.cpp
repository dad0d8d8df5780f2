// Feeds a label into every place of every template that takes one, and the charts through the chart library.

#include <algorithm>
#include <array>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "host/ViZEditor.h"
#include "host/XDocument.h"
#include "host/context/RunContext.h"
#include "tests/chart/PatchedCharts.h"

namespace hierfit::fuzz {

namespace {

struct Outcome {
    document::Document fDocument;
    std::string fRemarks;
};

/// Sends every so many-th template in turn, with the label in all places: all of them take too long for one input.
constexpr std::size_t kTurns = 5;
Outcome PutInto(const std::string& label, std::size_t turn) {
    context::RunContext run({}, nullptr, HIERFIT_SHARE);
    const context::RunContext::Activation activation(run);
    KestJVM::GetInstance().StartJVM();
    ViZEditor::GetInstance().StartEditorHeadless(nullptr);
    const std::vector<test::PatchedChart> charts = test::MakePatchedCharts(label);
    for (std::size_t i = turn; i < charts.size(); i += kTurns) {
        XDocument document(charts[i].fXml);
        document.SetDescription(XUtility::ChartStringFromLocalCodePage(label));
        const std::size_t before = run.GetDocument().fvDiagnostics.size();
        if (!document.SendChart(true, false, false) && run.GetDocument().fvDiagnostics.size() == before) {
            Fail("no text says why a chart was left out");
        }
    }
    Outcome outcome{std::move(run.GetDocument()), {}};
    for (const document::Diagnostic& told : outcome.fDocument.fvDiagnostics) outcome.fRemarks += told.fText + "\n";
    return outcome;
}

/// Whether the procedure may take something in the label for a marker. Then a chart may lose words or be left out.
bool HoldsMarker(const std::string& label) {
    static const std::vector<std::string> labels = test::HostileLabels();
    return std::ranges::any_of(labels, [&](const std::string& hostile) {
        const bool isTaken = test::IsTakenForMarker("levels", hostile) || test::IsTakenForMarker("custom", hostile);
        return isTaken && label.find(hostile) != std::string::npos;
    });
}

}  // namespace

std::span<const Form* const> FormsOfInput() {
    static const std::array<const Form*, 1> forms{&kPlainText};
    return forms;
}

void RunInput(std::string_view input) {
    const std::string label(input);
    const std::size_t turn = label.size() % kTurns;
    static std::array<std::string, kTurns> plain;
    if (plain[turn].empty()) plain[turn] = PutInto("label", turn).fRemarks;
    const Outcome outcome = PutInto(label, turn);
    if (!HoldsMarker(label) && outcome.fRemarks != plain[turn]) Fail("the label was read:\n" + outcome.fRemarks);
    RenderFreshAndSaved(outcome.fDocument);
}

}  // namespace hierfit::fuzz
