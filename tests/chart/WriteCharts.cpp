// Writes every patched chart, as the plain XML that it stands for, into a folder: write_charts FOLDER

#include <filesystem>
#include <fstream>
#include <string>

#include "host/chart/specification/ChartMarkup.h"
#include "tests/chart/ChartRun.h"
#include "tests/chart/PatchedCharts.h"

int main(int argc, char** argv) {
    if (argc != 2) return 1;
    const hierfit::test::ChartRun run;
    hierfit::test::ChartRun::StartEditor();

    const std::filesystem::path folder = argv[1];
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::vector<std::string> labels = hierfit::test::HostileLabels();
    std::erase_if(labels, [](const auto& label) { return hierfit::test::IsTakenForMarker("levels", label); });
    for (std::size_t i = 0; i < labels.size(); ++i) {
        for (const auto& [name, xml] : hierfit::test::MakePatchedCharts(labels[i])) {
            std::ofstream(folder / (std::to_string(i) + ' ' + name + ".xml"), std::ios::binary)
                << hierfit::chart::MakePlainXml(xml);
        }
    }
}
