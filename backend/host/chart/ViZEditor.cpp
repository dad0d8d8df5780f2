#include "host/ViZEditor.h"

#include <exception>
#include <new>
#include <string_view>

#include "host/Diagnose.h"
#include "host/chart/specification/Inset.h"
#include "host/context/RunContext.h"

namespace hierfit {

ViZEditor ViZEditor::GetInstance() { return {}; }

bool ViZEditor::IsStartedHeadless() const {
    const auto* run = context::RunContext::CurrentOrNull();
    return run && run->fEditorStarted;
}

bool ViZEditor::StartEditorHeadless(JNIEnv_*) {
    auto* run = context::RunContext::CurrentOrNull();
    if (!run || !run->fMachineStarted) return false;
    run->fEditorStarted = true;
    return true;
}

std::string ViZEditor::EmbedHistogramInGraph(const std::string& graph, const std::string& histogram, const char* stream,
                                             int length, int fieldType) {
    if (!IsStartedHeadless() || !stream || length < 0) return {};
    try {
        std::string composed =
            chart::EmbedInset(graph, histogram, std::string_view(stream, static_cast<std::size_t>(length)), fieldType);
        if (composed.empty()) Diagnose("a histogram was left out: its chart or the one around it cannot be read");
        return composed;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        Diagnose(std::string("a histogram was left out: ") + error.what());
        return {};
    }
}

}  // namespace hierfit
