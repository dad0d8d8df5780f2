#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::test {

/// A document and what is special about it, a name fit for a file.
struct Sample {
    std::string fName;
    document::Document fDocument;
};

/// A text that is printed as it stands.
document::Text Plain(std::string words);

/// A document of one heading with a table, one chart and a message: every key of the form at least once.
document::Document MakeSmallDocument();

/// Documents that together hold every form, with the values that are hard to carry over.
std::vector<Sample> MakeSamples();

}  // namespace hierfit::test
