#pragma once

#include <string>

#include "host/document/Document.h"

namespace hierfit::test {

/// A text's source: a translated text as it is, a fixed one in single quotes, a number with the initial of its format
/// (Coefficient C, CoefficientSE E, Significance S, GeneralStat G, Count N, Percent P, SigDigit D), "." for the missing
/// number, <variable/show>, <variable=value/preference>, a pattern with its arguments in round and its sublists in
/// square brackets.
std::string DrawText(const document::Text& text);

/// A table, one line each for title, captions, notes, dimensions and rows of cells: "Model: 3G 0.05S", "_" where a row
/// has no cell. "*" parts notes.
std::string DrawTable(const document::Table& table);

/// A chart without its XML: template and description, a line for each variable of each source, such as
/// "source0.X: 1 'lo' -", where "-" was never written, and one for the calls on each variable's settings.
std::string DrawChart(const document::Chart& chart);

/// The whole output, items of headings indented.
std::string DrawItems(const std::list<document::Item>& items, const std::string& indent = "");

}  // namespace hierfit::test
