#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/document/Text.h"

namespace hierfit::pivot {

/// Fills a pattern, in one pass: what an argument holds is never expanded again.
///
/// "^1" to "^9" are the arguments outside sublists in their order. "[first:further:]n" is the list of the n-th sublist,
/// n from 1 to 9: its texts make items, the first shaped by `first` with the marks %1 to %9, the others by `further`
/// with ^1 to ^9, all by `further` when `first` is empty. An item takes as many texts as its part has different marks,
/// at least one. The parts hold no "[", and `first` no ":".
///
/// A mark without a value stays, a list without a sublist gives nothing, a sublist without a list is not shown, and
/// what only looks like a list is plain text.
std::string ExpandPattern(std::string_view pattern, const std::vector<document::Argument>& arguments);

}  // namespace hierfit::pivot
