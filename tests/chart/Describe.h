#pragma once

#include <string>

#include "host/chart/specification/Specification.h"

namespace hierfit::test {

/// All that a specification holds, one thing a line; what is not given is left out.
std::string Describe(const chart::Specification& specification);

/// The description of chart XML, or "unreadable: " and why, each with its remarks behind it.
std::string DescribeXml(const std::string& xml);

}  // namespace hierfit::test
