#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "program/files/Files.h"

namespace hierfit::program {

inline constexpr std::string_view kIndexName = "index.html";

/// One model of a batch.
struct BatchModel {
    std::string fPath;    ///< its folder, as the user named it, without slashes at the end
    std::string fFolder;  ///< the same as it is seen from the reports' folder
    std::string fReport;  ///< the name of its report, a file or folder
};

/// The models in order of their paths, each folder once. A report has the last name of its model's folder and the
/// ending; where the name is taken, by a path before it or by the index, "-2", "-3", ... stand behind it.
std::vector<BatchModel> ListModels(std::vector<std::string> folders, const std::string& directory,
                                   std::string_view ending);

/// The folders that standard input lists, one a line; blank lines do not count.
std::variant<std::vector<std::string>, FileError> ReadFolderList();

}  // namespace hierfit::program
