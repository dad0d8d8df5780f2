#include "program/batch/Models.h"

#include <algorithm>
#include <filesystem>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace hierfit::program {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestList = std::size_t{256} << 20;
constexpr std::string_view kNameOfRoot = "root";

/// Two paths of the same folder are told from others by their names, not by where links lead.
fs::path Normalize(const std::string& path) {
    const fs::path normal = fs::absolute(path).lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

void CutSlashes(std::string& path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
}

/// Gives out names that differ. A name that is asked for again goes on counting where it was.
class Names {
  public:
    explicit Names(std::string_view ending) : fEnding(ending) { fTaken.insert(std::string(kIndexName)); }

    std::string Take(const std::string& base) {
        std::string name = base + fEnding;
        if (fTaken.insert(name).second) return name;
        int& number = fNumbers.try_emplace(base, 1).first->second;
        do {
            name = base + "-" + std::to_string(++number) + fEnding;
        } while (!fTaken.insert(name).second);
        return name;
    }

  private:
    std::string fEnding;
    std::unordered_set<std::string> fTaken;
    std::unordered_map<std::string, int> fNumbers;
};

}  // namespace

std::vector<BatchModel> ListModels(std::vector<std::string> folders, const std::string& directory,
                                   std::string_view ending) {
    std::ranges::for_each(folders, CutSlashes);
    std::ranges::sort(folders);
    const fs::path from = Normalize(directory);
    Names names(ending);
    std::unordered_set<std::string> seen;
    std::vector<BatchModel> models;
    for (std::string& folder : folders) {
        const fs::path normal = Normalize(folder);
        if (!seen.insert(normal.string()).second) continue;
        const std::string name = normal.filename().string();
        models.push_back({std::move(folder), normal.lexically_relative(from).string(),
                          names.Take(name.empty() ? std::string(kNameOfRoot) : name)});
    }
    return models;
}

std::variant<std::vector<std::string>, FileError> ReadFolderList() {
    auto read = ReadFile("-", kLargestList);
    if (auto* error = std::get_if<FileError>(&read)) return std::move(*error);
    std::string_view rest = std::get<std::string>(read);
    std::vector<std::string> folders;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.find_first_not_of(" \t\r") != std::string_view::npos) folders.emplace_back(line);
    }
    return folders;
}

}  // namespace hierfit::program
