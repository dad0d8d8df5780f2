#pragma once

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "host/NeverHeld.h"
#include "host/document/Picture.h"

namespace hierfit::document {

/// One value behind a chart: never written, a number or a text.
using ChartValue = std::variant<std::monostate, double, std::string, NeverHeld>;

struct ChartVariable {
    std::string fName;
    std::vector<ChartValue> fvValues;

    bool operator==(const ChartVariable&) const = default;
};

struct ChartSource {
    std::string fName;
    int fRows;  ///< as announced; 0 leaves the count open
    std::vector<ChartVariable> fvVariables;

    bool operator==(const ChartSource&) const = default;
};

/// One call on a variable's settings, with its arguments. Three numbers are a print format: width, type, decimals.
struct ChartCall {
    using Argument = std::variant<bool, std::string, std::array<int, 3>, NeverHeld>;
    std::string fName;
    std::vector<Argument> fvArguments;

    bool operator==(const ChartCall&) const = default;
};

/// All calls on the index-th variable of a name.
struct ChartSetting {
    std::string fName;
    int fIndex;
    std::vector<ChartCall> fvCalls;

    bool operator==(const ChartSetting&) const = default;
};

struct Chart {
    std::string fDescription;
    std::array<bool, 3> fSendArguments;
    int fEditor;
    std::string fTemplate;
    std::string fXml;  ///< as it was sent
    std::vector<ChartSource> fvData;
    std::vector<ChartSetting> fvSettings;
    Picture fPicture;

    bool operator==(const Chart&) const = default;
};

}  // namespace hierfit::document
