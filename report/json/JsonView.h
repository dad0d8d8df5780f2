#pragma once

#include "host/document/Chart.h"
#include "report/json/JsonOutput.h"
#include "report/json/JsonReader.h"

/// How the view of a chart stands in JSON: as it is, without blanks, with the tables of what it shows as a last member
/// "usermeta", a place that the views' grammar leaves to others.
namespace hierfit::report {

/// Writes view and tables; a view that is no JSON object, or an empty one, is written as an empty object.
void WriteView(JsonOutput& out, const document::Chart& chart);

/// Reads both back, and the sentence from the view's "description". A view that holds more than views may hold is
/// refused: see `host/document/ViewExpressions.h`.
void ReadView(JsonReader& in, document::Chart& chart);

}  // namespace hierfit::report
