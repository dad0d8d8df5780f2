#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::test {

document::Text Words(std::string words);
document::Text Number(std::string words);

/// A text made as a number if it looks like one.
document::Text Data(std::string words);

/// A dimension of the labels; "Group|Label" is a label in a group, and groups nest.
document::Dimension MakeDimension(const std::string& name, document::Side side, int index,
                                  const std::vector<std::string>& labels);

/// A table with a cell for each combination of categories, the last dimension's running fastest. Empty words leave the
/// combination without a cell.
document::Table MakeTable(const std::string& title, std::vector<document::Dimension> dimensions,
                          const std::vector<std::string>& cells);

document::Document MakeDocument(const std::string& title, std::list<document::Item> items);

/// A hand-made document for a page to be judged by the browser.
struct Sample {
    std::string fName;
    document::Document fDocument;
};

std::vector<Sample> MakeSamples();

}  // namespace hierfit::test
