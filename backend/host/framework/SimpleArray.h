#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hierfit::framework {

/// Splits a text into tokens as PMML 4.4 writes arrays: parted by white space, or in double quotes and ended by the
/// second one, where `\"` stands for a quote. Elsewhere quotes and backslashes stand for themselves. False, with
/// `tokens` empty, when a quote is not closed. An empty text has no tokens.
bool SplitSimpleArray(std::string_view text, std::vector<std::string>& tokens);

}  // namespace hierfit::framework
