// Feeds kept inputs to a target, without the fuzzer: replay_TARGET PATH... of files, and of folders of them. It ends as
// the target does at the first that fails.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ListFiles(int count, char** arguments) {
    std::vector<fs::path> files;
    for (int i = 1; i < count; ++i) {
        if (fs::is_directory(arguments[i])) {
            for (const auto& entry : fs::recursive_directory_iterator(arguments[i])) {
                if (entry.is_regular_file()) files.push_back(entry.path());
            }
        } else {
            files.emplace_back(arguments[i]);
        }
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<fs::path> files = ListFiles(count, arguments);
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\n", file.c_str());
        std::ifstream stream(file, std::ios::binary);
        if (!stream) return 1;
        const std::string input{std::istreambuf_iterator<char>(stream), {}};
        hierfit::fuzz::RunInput(input);
    }
    std::fprintf(stderr, "%zu inputs\n", files.size());
    return files.empty() ? 1 : 0;
}
