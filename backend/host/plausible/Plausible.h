#pragma once

#include <vector>

#include "host/plausible/Findings.h"
#include "host/xml/Document.h"

namespace hierfit::plausible {

/// Where the figures of a StatXML document contradict themselves or each other. Nothing is corrected. Without
/// `wantsAll` it tells what would mislead a reader of the report; with it, what else cannot be, too. Linear in the
/// document's size; any document will do.
std::vector<Finding> FindContradictions(const xml::Document& statXml, bool wantsAll);

}  // namespace hierfit::plausible
