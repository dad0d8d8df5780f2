// Prints the pictures of a saved document for tests:
//   hierfit_scenes FILE.json                as text
//   hierfit_scenes --svg FOLDER FILE.json   as FOLDER/NAME-desk.svg and FOLDER/NAME-phone.svg

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "SceneText.h"
#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/items/Entries.h"
#include "report/json/JsonDocument.h"

using namespace hierfit;
using namespace hierfit::report;

namespace {

void PrintScene(const std::string& folder, const items::Entry& entry, const std::string& view,
                const charts::Scene& scene) {
    if (folder.empty()) {
        std::cout << entry.fAnchor << ' ' << view << ' ' << charts::DescribeScene(scene) << '\n';
    } else {
        std::ofstream(folder + "/" + entry.fAnchor + "-" + view + ".svg")
            << charts::MakeSvgFile(scene, items::TitleOf(*entry.fpItem), {});
    }
}

int PrintScenes(const std::string& folder, const char* path) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const auto read = ReadJson(text);
    if (const auto* error = std::get_if<JsonError>(&read)) {
        std::fprintf(stderr, "%s: %s\n", path, error->fText.c_str());
        return 1;
    }
    for (const items::Entry& entry : items::ListEntries(std::get<document::Document>(read))) {
        const auto* chart = std::get_if<document::Chart>(&entry.fpItem->fContent);
        if (!chart) continue;
        PrintScene(folder, entry, "desk", charts::LayOut(chart->fPicture, charts::kDeskWidth));
        PrintScene(folder, entry, "phone", charts::LayOut(chart->fPicture, charts::kPhoneWidth));
    }
    return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount == 2) return PrintScenes({}, arguments[1]);
    if (argumentCount == 4 && std::string(arguments[1]) == "--svg") return PrintScenes(arguments[2], arguments[3]);
    return 1;
}
