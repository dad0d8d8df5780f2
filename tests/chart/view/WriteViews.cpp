// Writes the views of all samples into a folder, one file each: write_views FOLDER

#include <filesystem>
#include <fstream>

#include "tests/chart/view/LevelsSamples.h"
#include "tests/chart/view/NetworkSamples.h"

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const auto& samples : {hierfit::chart::LevelsSamples, hierfit::chart::NetworkSamples}) {
        for (const hierfit::chart::Sample& sample : samples()) {
            std::ofstream(folder / (sample.fName + ".vl.json")) << sample.Make().fJson;
        }
    }
    return 0;
}
