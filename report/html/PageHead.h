#pragma once

#include <string>
#include <vector>

#include "report/html/Contents.h"
#include "report/html/Facts.h"
#include "report/html/HtmlSettings.h"

namespace hierfit::report::html {

/// Appends the `head`: policy, title and style.
void AppendHead(std::string& out, const document::Document& document, const Facts& facts, const HtmlSettings& settings);

/// Appends what the reader sees first: the title, what the report is about, and links to what went wrong.
void AppendHeader(std::string& out, const document::Document& document, const std::vector<items::Entry>& entries,
                  const Facts& facts, const HtmlSettings& settings);

/// What stands in the margin of every printed page.
std::string RunningTitle(const document::Document& document, const Facts& facts, const HtmlSettings& settings);

}  // namespace hierfit::report::html
