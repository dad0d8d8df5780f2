#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/chart/specification/Specification.h"

namespace hierfit::chart {

/// What was read, and in plain English what of the XML was ignored, each thing once.
struct Reading {
    Specification fSpecification;
    std::vector<std::string> fvRemarks;
};

/// Why a text is no chart, with the place in the text.
struct Unreadable {
    std::string fReason;
};

/// Reads chart XML of at most 16 MiB, with what `use` stands for in place of it.
std::variant<Reading, Unreadable> ReadSpecification(const std::string& xml);

}  // namespace hierfit::chart
