#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "program/files/Files.h"

namespace hierfit::program {

/// The paths of a model's PMML and StatXML document: those of a pair, or those that one folder holds. There they are
/// model.pmml and model.statxml, or of any name where it holds one of each. "-" is standard input, for one of a pair.
/// An error says what is there instead.
std::variant<std::vector<std::string>, FileError> FindDocuments(const std::vector<std::string>& named);

/// What is wrong with two documents that stand in the wrong order, by their root elements; empty for all others.
std::string DescribeSwap(const std::vector<std::string>& paths, std::string_view pmml, std::string_view statXml);

}  // namespace hierfit::program
