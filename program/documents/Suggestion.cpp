#include "program/documents/Suggestion.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "host/language/FolderNames.h"
#include "host/unicode/Excerpt.h"
#include "program/files/StandardError.h"
#include "report/items/WordDistance.h"

namespace hierfit::program {

namespace {

namespace fs = std::filesystem;

// Longer words are no slips of the fingers, and to compare them takes long.
constexpr std::size_t kMostCompared = 200;

/// A word may differ in so many letters, two that were exchanged counting as two.
std::size_t MostSlips(std::string_view word) { return word.size() / 4 + 1; }

}  // namespace

std::string FindNearest(std::string_view word, const std::vector<std::string>& words) {
    if (word.size() > kMostCompared) return {};
    std::string nearest;
    std::size_t least = MostSlips(word) + 1;
    for (const std::string& candidate : words) {
        if (candidate.size() > kMostCompared) continue;
        const std::size_t distance = report::items::DistanceBetween(word, candidate);
        if (distance >= std::min(least, candidate.size())) continue;
        least = distance;
        nearest = candidate;
    }
    return nearest;
}

std::string FindNearestPath(const std::string& path) {
    fs::path found;
    const fs::path wanted = fs::path(path).lexically_normal();
    for (const fs::path& name : wanted) {
        std::error_code error;
        if (name.empty() || fs::exists(found / name, error)) {
            found /= name;
            continue;
        }
        const std::string folder = found.empty() ? "." : found.string();
        const std::string nearest = FindNearest(name.string(), language::ListFolder(folder, error));
        if (nearest.empty()) return {};
        found /= nearest;
    }
    std::error_code error;
    return fs::exists(found, error) ? found.string() : std::string();
}

FileError DescribeMissing(const std::string& path) {
    FileError error = DescribeAbsence(path);
    error.fText += Suggest(FindNearestPath(path));
    return error;
}

std::string Suggest(const std::string& word) {
    return word.empty() ? word : "; did you mean \"" + unicode::Excerpt(word, kMostOfText) + "\"?";
}

}  // namespace hierfit::program
