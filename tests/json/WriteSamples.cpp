// Writes the sample documents into a folder, a JSON file each, and tells the files' names.

#include <cstdio>
#include <fstream>

#include "report/json/JsonDocument.h"
#include "tests/json/Samples.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: json_samples FOLDER\n", stderr);
        return 1;
    }
    for (const hierfit::test::Sample& sample : hierfit::test::MakeSamples()) {
        const std::string name = std::string(argv[1]) + "/" + sample.fName + ".json";
        std::ofstream file(name, std::ios::binary);
        file << hierfit::report::WriteJson(sample.fDocument);
        if (!file.flush()) return 1;
        std::puts(name.c_str());
    }
    return 0;
}
