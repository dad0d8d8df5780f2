#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::program {

/// The tables, charts and figures that a report of this kind of model has and the document lacks, each as one line:
/// what is missing, and what the StatXML document would have to hold. What a diagnostic of the document already tells
/// is left out.
std::vector<std::string> DescribeMissingItems(const document::Document& document);

}  // namespace hierfit::program
