#pragma once

#include <string>

namespace hierfit::report::charts {

/// A coordinate as it is printed: a whole number of tenths of a pixel. What is no number is 0, and what is farther off
/// than any picture is wide stands at the edge of that.
long long TenthsOf(double pixels);

/// Appends a number of tenths, without a decimal that is 0.
void AppendTenths(std::string& out, long long tenths);

/// Appends ` name="pixels"`.
void AppendNumber(std::string& out, const char* name, double pixels);

}  // namespace hierfit::report::charts
