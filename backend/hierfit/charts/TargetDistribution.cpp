#include <algorithm>

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "host/Diagnose.h"
#include "host/ViZEditor.h"
#include "host/XViZTemplate.h"

namespace hierfit {

namespace {

/// A distribution as the histogram's XML names it, and the figures that go with it.
struct NamedDistribution {
    int fDistribution;
    const char* fName;
    double ChartState::*fpParameter;
    double ChartState::*fpSecondary;  ///< null for a distribution of one parameter
};

constexpr NamedDistribution kNamed[] = {
    {DistributionOfTarget::GAMMA, "gamma", &ChartState::fDistShape, &ChartState::fDistRate},
    {DistributionOfTarget::IGAUSS, "gaussianinverse", &ChartState::fDistMean, &ChartState::fDistShape},
    {DistributionOfTarget::NEGBIN, "binomialnegative", &ChartState::fDistR, &ChartState::fDistP},
    {DistributionOfTarget::POISSON, "poisson", &ChartState::fDistMean, nullptr},
};

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ").append(name).append("=\"").append(value).append("\" ");
}

std::string Parameters(const NamedDistribution& named, const ChartState& state) {
    std::string parameters = Attribute("parameter", NumberToText(state.*named.fpParameter));
    if (named.fpSecondary) parameters += Attribute("secondaryParameter", NumberToText(state.*named.fpSecondary));
    return parameters;
}

/// Tells the histogram how many bins it has, and which distribution it is compared with; "normal" stays for the others.
void PatchHistogram(std::string& xml, std::size_t nBins, int distribution, const ChartState& state) {
    constexpr std::string_view kBins = "binStatistic";
    constexpr std::string_view kDistribution = "<distributionStatistic";
    const std::size_t place = xml.find(kBins);
    if (place == std::string::npos) return;
    xml.insert(place + kBins.size(), Attribute("binCount", std::to_string(nBins)));

    const auto* named = std::find_if(std::begin(kNamed), std::end(kNamed), [&](const NamedDistribution& entry) {
        return entry.fDistribution == distribution;
    });
    if (named == std::end(kNamed)) return;
    ReplaceFirst(xml, "normal", named->fName, place);
    const std::size_t element = xml.find(kDistribution);
    if (element != std::string::npos) xml.insert(element + kDistribution.size(), Parameters(*named, state));
}

/// Type of a field for the editor; 6 stands for any that it does not know.
int EditorFieldType(const CFField& field) {
    const int type = field.GetType();
    return type < 0 || type > 5 ? 6 : type;
}

/// Starts the machine and its editor where they do not run yet. False when the machine cannot start.
bool StartEditor() {
    KestJVM machine = KestJVM::GetInstance();
    if (!machine.IsStarted()) machine.StartJVM();
    if (!machine.IsStarted()) return false;
    JNIEnv_* environment = nullptr;
    machine.AttachCurrentThread(&environment);
    ViZEditor editor = ViZEditor::GetInstance();
    if (!editor.IsStartedHeadless()) editor.StartEditorHeadless(machine.GetEnv());
    return true;
}

void Merge(std::string& diagram, const std::string& histogram, const VarDataProcessor& processor, int fieldType) {
    try {
        int length = 0;
        const std::unique_ptr<char[]> stream(processor.GetDataStream(&length));
        ViZEditor editor = ViZEditor::GetInstance();
        const std::string merged = editor.EmbedHistogramInGraph(diagram, histogram, stream.get(), length, fieldType);
        if (!merged.empty()) diagram = merged;
    } catch (...) {  // the diagram goes out without its histogram
        NoteDropped();
    }
}

}  // namespace

void HFITChartOutput::EmbedTargetHistogram(std::string& diagram) {
    const HFITOutputStats& stats = *fpState->fpStats;
    if (!stats.GetBuildSettings() || !stats.GetModelDiagnostics()) return;
    const TargetDistribution& target = stats.GetModelDiagnostics()->fTargetDistribution;
    const std::size_t nBins = std::min(target.fvObserved.size(), target.fvFrequency.size());
    const std::string& source = fpState->fSourceName;

    XViZTemplate viz;
    viz.setTemplateInternalName("GLMMHistogram");
    VarDataProcessor processor;
    processor.AddDataSource(source, 0);
    const auto x = AddVariable(processor, source, "X");
    viz.addVariable("X", "X", false, "", source, &fpState->fTargetFormat, fpState->fTargetName);
    const auto y = AddVariable(processor, source, "Y");
    viz.addVariable("Y", "Y", false, "", source, nullptr, "");
    for (std::size_t i = 0; i < nBins; ++i) {
        processor.SetVariableValue(x, static_cast<int>(i), target.fvObserved[i]);
        processor.SetVariableValue(y, static_cast<int>(i), target.fvFrequency[i]);
    }
    std::string xml;
    std::string unused;
    viz.convert(xml, unused);
    PatchHistogram(xml, nBins, stats.GetBuildSettings()->fDistribution, *fpState);
    XDocument document(xml);
    document.applyTemplates();
    xml = document.AsUTF8();

    const CFField* field = stats.GetMetaData() ? stats.GetMetaData()->GetField(fpState->fTargetIndex) : nullptr;
    if (!field || !StartEditor()) return;
    Merge(diagram, xml, processor, EditorFieldType(*field));
}

}  // namespace hierfit
