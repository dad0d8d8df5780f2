#include "hierfit/charts/HFITChartOutput.h"

namespace hierfit {

void HFITChartOutput::BuildContrastChart(const EmmeansData& block) {
    if (!CanChartContrasts(block)) return;
    switch (block.fContrasts.fContrastKind) {
        case ContrastKind::PAIRWISE:
            return BuildPairwiseContrastsChart(block);
        case ContrastKind::DEVIATION:
        case ContrastKind::SIMPLE:
            return BuildLevelContrastsChart(block);
        default:
            return;
    }
}

}  // namespace hierfit
