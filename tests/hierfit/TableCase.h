#pragma once

#include <string>

#include "tests/hierfit/Samples.h"

namespace hierfit::test {

/// A document and what the run issues for it.
struct TableCase {
    const char* fName;
    Sample fSample;
    const char* fSubtype;           ///< of the tables that are drawn, "" for messages and headings
    const char* fDrawn;             ///< behind a line feed; "" for none
    const char* fDiagnostics = "";  ///< must be among the diagnostics
};

/// Runs the procedure on the case's document and compares what it draws.
void CheckTable(const TableCase& one);

/// The cells of the tables of a subtype alone, their notes behind "*".
std::string DrawCells(const Sample& sample, const std::string& subtype);

template <std::size_t n>
void CheckTables(const TableCase (&cases)[n]) {
    for (const TableCase& one : cases) CheckTable(one);
}

}  // namespace hierfit::test
