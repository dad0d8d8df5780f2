#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>

#include "program/batch/Models.h"
#include "report/index/IndexedModel.h"

namespace hierfit::program {

/// What a batch has still to do for a model.
enum class Work {
    Nothing,  ///< the report is there, and the index knows what it tells
    Facts,    ///< the report is there, but not what the index tells of it
    Report,
};

/// The reports that a folder holds already, and what its index tells of them. The index counts for those that are no
/// newer than it: what became of a later one, nobody noted.
class EarlierReports {
  public:
    /// `areFolders`: the format makes a folder for each model. Whether such a one is whole only the index tells.
    EarlierReports(const std::string& directory, bool areFolders);

    /// A report is there if it is newer than both documents and the index knows it for no other model's.
    Work WorkFor(const BatchModel& model) const;

    /// What the index tells of a model for which there is nothing to do.
    report::IndexedModel Find(const BatchModel& model) const;

  private:
    std::filesystem::path fDirectory;
    bool fAreFolders;
    std::filesystem::file_time_type fIndexTime;
    std::unordered_map<std::string, report::IndexedModel> fModels;  ///< by name of the report
};

}  // namespace hierfit::program
