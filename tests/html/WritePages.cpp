// Writes the pages that the browser judges: html_pages FOLDER

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "Documents.h"
#include "report/html/HtmlReport.h"

int main(int argc, char** argv) {
    if (argc != 2) return std::fputs("usage: html_pages FOLDER\n", stderr), 1;
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const auto& sample : hierfit::test::MakeSamples()) {
        std::ofstream file(folder / (sample.fName + ".html"), std::ios::binary);
        file << hierfit::report::MakeHtmlReport(sample.fDocument);
        if (!file.flush()) return std::perror(sample.fName.c_str()), 1;
    }
    return 0;
}
