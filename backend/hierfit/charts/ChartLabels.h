#pragma once

#include <string>
#include <vector>

#include "host/ChartString.h"
#include "host/KEST_Variable.h"
#include "host/VarDataProcessor.h"
#include "host/XDocument.h"

#include "hierfit/store/WarningMessage.h"

namespace hierfit {

/// The variable's label, or its name when it has none.
ChartString VariableDisplayName(const KEST_Variable& variable);

/// The label of a variable's value, or null when the value has none.
const char* ValueLabel(const KEST_Variable& variable, double value);
const char* ValueLabel(const KEST_Variable& variable, const std::string& value);

/// The label of the value that a document's text names: asked for as a text where the variable holds texts, else as the
/// number. Null when the value has none.
const char* LabelOfText(const KEST_Variable& variable, const std::string& text);

/// Shows the index-th variable of a name as a variable of the data: by its label, and its values by theirs.
XVariable LabelVariable(XGraph& graph, const char* name, int index, const KEST_Variable& variable);

/// Whether a message of exactly that key is among them.
bool ListHasWarning(const std::vector<WarningMessage>& list, const std::string& key);

/// Writes a text that may be a number: as a number where the whole text is one.
void SetNumberOrText(VarDataProcessor& processor, const VarDataProcessor::_varinfo& variable, int row,
                     const std::string& text);

/// Writes a text as the variable takes it: as it is where it holds texts, else as the number in it.
void SetByType(VarDataProcessor& processor, const VarDataProcessor::_varinfo& variable, int row, bool isString,
               const std::string& text);

/// Adds a variable to a source and gives its handle.
VarDataProcessor::_varinfo AddVariable(VarDataProcessor& processor, const std::string& source, const char* name);

}  // namespace hierfit
