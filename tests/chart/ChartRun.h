#pragma once

#include <gtest/gtest.h>

#include <string>

#include "host/ViZEditor.h"
#include "host/context/RunContext.h"

namespace hierfit::test {

/// A run under way on this thread, with the project's own templates.
class ChartRun {
  public:
    explicit ChartRun(context::Settings settings = {}) : fContext(std::move(settings), nullptr, HIERFIT_SHARE) {}

    context::RunContext* operator->() { return &fContext; }

    /// Starts what merges histograms.
    static void StartEditor() {
        KestJVM::GetInstance().StartJVM();
        ViZEditor::GetInstance().StartEditorHeadless(nullptr);
    }

    /// The texts of the diagnostics so far, one a line.
    std::string Diagnostics() {
        std::string texts;
        for (const auto& diagnostic : fContext.GetDocument().fvDiagnostics) texts += diagnostic.fText + "\n";
        return texts;
    }

  private:
    context::RunContext fContext;
    context::RunContext::Activation fActivation{fContext};
};

}  // namespace hierfit::test
