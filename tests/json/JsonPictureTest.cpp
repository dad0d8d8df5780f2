#include "JsonEdits.h"

namespace hierfit::report {
namespace {

TEST(JsonPicture, WhatAPicturePromisesIsChecked) {
    const std::string items = "/items/0/items/";
    const std::string levels = items + "1/picture";
    const std::string circle = items + "2/picture/circles/0";
    const std::string network = items + "3/picture";
    const std::string scatter = items + "4/picture/points/";
    const std::string histogram = items + "5/picture";
    const std::string number = ": number from -1e300 to 1e300 expected";
    const Edit edits[] = {
        {R"("picture": {)", R"("view": {)", items + R"(1: key "picture" expected)"},
        {R"("kind": "levels")", R"("kind": "level")",
         levels + R"(/kind: "levels", "circle", "network", "scatter" or "histogram" expected)"},
        {R"("high":1e+300)", R"("high": 1.01e+300)", levels + "/values/high" + number},
        {"[0.5,-0.0]", "[0.5, -1.01e+300]", levels + "/numbers/1" + number},
        {R"("high":1e+300)", R"("high": -2)", levels + "/values/high: number not below the low one expected"},
        {R"("levels": ["<low>",""],)", "", levels + ": key \"levels\" expected"},
        {"[0.5,-0.0]", "[0.5]", levels + "/numbers: as many numbers as levels expected, or none"},
        {R"("across":["p","q"],)", "", levels + "/panels/down: no headings expected without some across"},
        {R"("abreast":3)", R"("abreast": -1)", levels + "/panels/abreast: whole number from 0 to 2147483647 expected"},
        {R"([1,0],"level")", R"([2, 0], "level")",
         levels + "/marks/0/panel: place of a panel expected, of which there are 2 by 1"},
        {R"([1,0],"value")", R"([0, 1], "value")",
         levels + "/guides/0/panel: place of a panel expected, of which there are 2 by 1"},
        {R"("level":1)", R"("level": 2)", levels + "/marks/0/level: number of a level expected, of which there are 2"},
        {R"(["f","m"])", "[]", levels + "/marks/0/series: number of a series expected, of which there are 1"},
        {R"("low":1.25,)", "", levels + R"(/marks/0: "low" and "high" or neither expected)"},
        {R"("keys":2)", R"("keys": 3)", levels + "/tables/1/keys: whole number from 0 to 2 expected"},
        {R"(["1","<b>"])", R"(["1"])", levels + "/tables/0/rows/0: 2 cells expected, one for each column"},
        {R"({"columns":["X","Y"],"rows")", R"({"columns": [], "rows")",
         levels + "/tables/0/columns: one column at least expected"},
        {R"("from":1)", R"("from": 2)", circle + "/links/0/from: number of a node expected, of which there are 2"},
        {R"("share":0.75)", R"("share": 1.01)", circle + "/links/0/share: number from 0 to 1 expected"},
        {R"("nodes": [)", R"("nodes": [], "more": [)", circle + "/nodes: one node at least expected"},
        {R"("type":1)", R"("type": 6)", network + "/nodes/0/type: number of a type expected, of which there are 6"},
        {R"("weight":4.0})", R"("weight": 9.5})",
         network + "/links/1: weight not above that of the link before expected"},
        {R"("low":1.0,"high":9.0)", R"("low": 9.0, "high": 9.0)",
         network + "/weights/high: number above the low one expected"},
        {R"({"weight":4.0,)", R"({"weight": 9.5, )",
         network + "/weights/entries/1: weight not below that of the entry before expected"},
        {R"("continuous")", R"("Continuous")", network + "/kinds/0: kind of a node expected"},
        {R"({"title":"Estimate","words":["positive","negative"],"hasLegend":true})", R"({"words": []})",
         network + "/links/0/sign: number of a sign expected, of which there are 0"},
        {R"({"x":0.0,"y":2.0})", R"({"x": -0.5, "y": 2.0})", scatter + "0/x: number within the limits of x expected"},
        {R"("frequency":2.5)", R"("frequency": -1)", scatter + "1/frequency: number of 0 or more expected"},
        {R"("frequency":2.5)", R"("frequency": 0.5)",
         scatter + "1: frequency not below that of the point before expected"},
        {R"("low":60.0)", R"("low": 40.0)", histogram + "/bins/1: bin not below the one before expected"},
        {"[51.0,-0.5]", "[49.5, -0.5]", histogram + "/curve/1: x not below that of the point before expected"},
    };
    ExpectFailures(edits);
}

}  // namespace
}  // namespace hierfit::report
