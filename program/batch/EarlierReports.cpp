#include "program/batch/EarlierReports.h"

#include <system_error>
#include <utility>

#include "program/documents/FindDocuments.h"
#include "program/files/Files.h"
#include "report/index/IndexPage.h"

namespace hierfit::program {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestIndex = std::size_t{1} << 30;

/// When a file was written; nothing where there is none.
std::optional<fs::file_time_type> TimeOf(const fs::path& path) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    return error ? std::nullopt : std::optional(time);
}

bool IsOfKind(const fs::path& path, bool isFolder) {
    std::error_code error;
    return isFolder ? fs::is_directory(path, error) : fs::is_regular_file(path, error);
}

}  // namespace

EarlierReports::EarlierReports(const std::string& directory, bool areFolders)
    : fDirectory(directory), fAreFolders(areFolders) {
    const fs::path index = fDirectory / kIndexName;
    const auto time = TimeOf(index);
    if (!time || !IsOfKind(index, false)) return;
    fIndexTime = *time;
    const auto page = ReadFile(index.string(), kLargestIndex);
    if (!std::holds_alternative<std::string>(page)) return;
    for (report::IndexedModel& model : report::ReadIndexPage(std::get<std::string>(page))) {
        fModels.insert_or_assign(model.fReport, std::move(model));
    }
}

Work EarlierReports::WorkFor(const BatchModel& model) const {
    const fs::path report = fDirectory / model.fReport;
    const auto time = TimeOf(report);
    if (!time || !IsOfKind(report, fAreFolders)) return Work::Report;
    const auto documents = FindDocuments({model.fPath});
    if (!std::holds_alternative<std::vector<std::string>>(documents)) return Work::Report;
    for (const std::string& document : std::get<std::vector<std::string>>(documents)) {
        const auto written = TimeOf(document);
        if (!written || *written >= *time) return Work::Report;
    }
    const auto known = fModels.find(model.fReport);
    if (known == fModels.end()) return fAreFolders ? Work::Report : Work::Facts;
    if (known->second.fFolder != model.fFolder) return Work::Report;
    if (*time <= fIndexTime) return Work::Nothing;
    return fAreFolders ? Work::Report : Work::Facts;
}

report::IndexedModel EarlierReports::Find(const BatchModel& model) const {
    report::IndexedModel found = fModels.at(model.fReport);
    found.fPath = model.fPath;
    return found;
}

}  // namespace hierfit::program
