#pragma once

#include <string>

namespace hierfit::test {

/// All that chart XML says, one thing a line, or "unreadable: " and why; with the remarks behind it.
std::string DescribeXml(const std::string& xml);

}  // namespace hierfit::test
