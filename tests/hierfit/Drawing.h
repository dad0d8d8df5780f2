#pragma once

#include <span>
#include <string>

#include "host/document/Document.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {

/// A text's source: a translated text as it is, a fixed one in single quotes, a number with the initial of its format
/// (Coefficient C, CoefficientSE E, Significance S, GeneralStat G, Count N, Percent P, SigDigit D), "." for the missing
/// number, <variable/show>, <variable=value/preference>, a pattern with its arguments in round and its sublists in
/// square brackets.
std::string DrawText(const document::Text& text);

/// The tables of a subtype, a line each for title, captions, notes, dimensions and rows of cells: "Model: 3G 0.05S",
/// "_" where a row has no cell. "*" parts notes. With "charts", the charts with their XML in place of tables: template
/// and description, a line for each variable of each source, such as "source0.X: 1 'lo' -", where "-" was never
/// written, and one for the names of the calls on each variable's settings. With neither, headings and messages.
std::string Draw(const std::list<document::Item>& items, const std::string& subtype = "");

/// A document, and what comes of it: the tables of a subtype as they are drawn, and what the diagnostics tell of them.
struct TableCase {
    Sample fSample;
    std::string_view fDrawn;  ///< line feeds about it do not count
};

/// Runs the procedure on each document. The diagnostics about a table begin as told.
void CheckTables(const std::string& subtype, std::string_view diagnostic, std::span<const TableCase> cases);

}  // namespace hierfit::test
