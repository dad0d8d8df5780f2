#include "host/chart/data/DataStream.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

#include "host/unicode/Utf8.h"

namespace hierfit::chart {

namespace {

using document::ChartSource;
using document::ChartValue;
using document::ChartVariable;
using Json = nlohmann::json;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Numbers that JSON has no number for.
constexpr std::array<std::pair<std::string_view, double>, 3> kNamedNumbers{
    {{"NaN", std::numeric_limits<double>::quiet_NaN()}, {"Infinity", kInfinity}, {"-Infinity", -kInfinity}}};

auto FindNamed(std::string_view text) {
    return std::ranges::find(kNamedNumbers, text, [](const auto& named) { return named.first; });
}

void AppendString(std::string& out, std::string_view text) {
    out += '"';
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20) {
            fmt::format_to(std::back_inserter(out), "\\u{:04x}", c);
        } else {
            if (c == '"' || c == '\\') out += '\\';
            out += c;
        }
    }
    out += '"';
}

void AppendText(std::string& out, std::string_view text) {
    if (FindNamed(text) == kNamedNumbers.end()) return AppendString(out, text);
    fmt::format_to(std::back_inserter(out), "\"\\u{:04x}{}\"", text[0], text.substr(1));
}

void AppendNumber(std::string& out, double number) {
    if (std::isnan(number)) {
        out += "\"NaN\"";
    } else if (std::isinf(number)) {
        out += number < 0 ? "\"-Infinity\"" : "\"Infinity\"";
    } else {
        const std::string digits = fmt::format("{}", number);
        out += digits;
        if (digits.find_first_of(".e") == std::string::npos) out += ".0";
    }
}

void AppendValue(std::string& out, const ChartValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        AppendNumber(out, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        AppendText(out, *text);
    } else {
        out += "null";
    }
}

template <typename List, typename Append>
void AppendList(std::string& out, const List& list, Append append) {
    out += '[';
    for (const auto& item : list) {
        append(out, item);
        out += ',';
    }
    if (out.back() == ',') out.pop_back();
    out += ']';
}

void AppendVariable(std::string& out, const ChartVariable& variable) {
    out += "{\"name\":";
    AppendString(out, variable.fName);
    out += ",\"values\":";
    AppendList(out, variable.fvValues, AppendValue);
    out += '}';
}

void AppendSource(std::string& out, const ChartSource& source) {
    out += "{\"source\":";
    AppendString(out, source.fName);
    fmt::format_to(std::back_inserter(out), ",\"rows\":{},\"variables\":", source.fRows);
    AppendList(out, source.fvVariables, AppendVariable);
    out += '}';
}

ChartValue ReadValue(const Json& json) {
    if (json.is_null()) return {};
    if (json.is_number()) return json.get<double>();
    const auto& text = json.get_ref<const std::string&>();
    const auto* const named = FindNamed(text);
    return named == kNamedNumbers.end() ? ChartValue(text) : ChartValue(named->second);
}

ChartVariable ReadVariable(const Json& json) {
    ChartVariable variable{json.at("name").get<std::string>(), {}};
    for (const Json& value : json.at("values")) variable.fvValues.push_back(ReadValue(value));
    return variable;
}

int ReadRows(const Json& json) {
    const bool isCount = json.is_number_unsigned() && json.get<std::uint64_t>() <= std::numeric_limits<int>::max();
    if (!isCount) throw std::out_of_range("rows");
    return static_cast<int>(json.get<std::uint64_t>());
}

ChartSource ReadSource(const Json& json) {
    ChartSource source{json.at("source").get<std::string>(), ReadRows(json.at("rows")), {}};
    std::size_t rows = 0;
    for (const Json& variable : json.at("variables")) {
        source.fvVariables.push_back(ReadVariable(variable));
        rows = std::max(rows, source.fvVariables.back().fvValues.size());
    }
    for (const ChartVariable& variable : source.fvVariables) {
        if (variable.fvValues.size() != rows) throw std::length_error("variables of different length");
    }
    return source;
}

/// A text that nests deeper than the form does is none, and is not read to its end.
bool RefuseDepth(int depth, Json::parse_event_t, Json&) {
    constexpr int kMostDepth = 6;
    if (depth > kMostDepth) throw std::length_error("too deep");
    return true;
}

}  // namespace

std::string WriteDataStream(const std::vector<ChartSource>& sources) {
    std::string json;
    AppendList(json, sources, AppendSource);
    return unicode::MakeUtf8(std::move(json));
}

std::optional<std::vector<ChartSource>> ReadDataStream(std::string_view json) {
    try {
        const Json list = Json::parse(json, RefuseDepth);
        if (!list.is_array()) return std::nullopt;
        std::vector<ChartSource> sources;
        for (const Json& source : list) sources.push_back(ReadSource(source));
        return sources;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace hierfit::chart
