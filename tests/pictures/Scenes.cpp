// Prints the pictures of a saved document as text: hierfit_scenes FILE.json

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "SceneText.h"
#include "report/charts/layout/LayOut.h"
#include "report/html/Contents.h"
#include "report/json/JsonDocument.h"

using namespace hierfit;
using namespace hierfit::report;

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return 1;
    std::ifstream file(arguments[1]);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const auto read = ReadJson(text);
    if (const auto* error = std::get_if<JsonError>(&read)) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], error->fText.c_str());
        return 1;
    }
    for (const html::Entry& entry : html::ListEntries(std::get<document::Document>(read))) {
        const auto* chart = std::get_if<document::Chart>(&entry.fpItem->fContent);
        if (!chart) continue;
        for (const double width : {charts::kDeskWidth, charts::kPhoneWidth}) {
            std::cout << entry.fAnchor << (width == charts::kDeskWidth ? " desk " : " phone ")
                      << charts::DescribeScene(charts::LayOut(chart->fPicture, width)) << '\n';
        }
    }
}
