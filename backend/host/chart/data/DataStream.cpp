#include "host/chart/data/DataStream.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
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

/// Takes a stream part by part, and stops at the first that has no place in it. There is no tree of it, whose end would
/// take memory.
class StreamReader : public nlohmann::json_sax<Json> {
  public:
    std::vector<ChartSource> Take() { return std::move(fSources); }

    bool start_array(std::size_t) override {
        const bool isPlace = fLevel == kTop || Is(kSource, kVariablesKey) || Is(kVariable, kValuesKey);
        if (isPlace) ++fLevel;
        return isPlace;
    }

    bool start_object(std::size_t) override {
        if (fLevel != kSources && fLevel != kVariables) return false;
        if (fLevel == kSources) fSources.push_back({});
        if (fLevel == kVariables) fSources.back().fvVariables.push_back({});
        ++fLevel;
        return true;
    }

    bool key(string_t& name) override {
        const auto* const found = std::ranges::find(kKeys, name);
        fKey = 1U << static_cast<unsigned>(found - kKeys.begin());
        const bool isKnown = found != kKeys.end() && !(fSeen & fKey);
        fSeen |= fKey;
        return isKnown;
    }

    bool end_object() override {
        const bool isSource = fLevel == kSource;
        const unsigned keys = isSource ? kSourceKey | kRowsKey | kVariablesKey : kNameKey | kValuesKey;
        const bool isWhole = (fSeen & keys) == keys && (!isSource || HasEqualLengths(fSources.back()));
        fSeen &= ~keys;
        --fLevel;
        return isWhole;
    }

    bool end_array() override {
        --fLevel;
        return true;
    }

    bool string(string_t& text) override {
        if (Is(kSource, kSourceKey)) {
            fSources.back().fName = std::move(text);
        } else if (Is(kVariable, kNameKey)) {
            fSources.back().fvVariables.back().fName = std::move(text);
        } else {
            const auto* const named = FindNamed(text);
            return named == kNamedNumbers.end() ? Add(std::move(text)) : Add(named->second);
        }
        return true;
    }

    bool number_unsigned(number_unsigned_t number) override {
        if (!Is(kSource, kRowsKey)) return Add(static_cast<double>(number));
        fSources.back().fRows = static_cast<int>(number);
        return number <= std::numeric_limits<int>::max();
    }

    bool number_integer(number_integer_t number) override { return Add(static_cast<double>(number)); }
    bool number_float(number_float_t number, const string_t&) override { return Add(number); }
    bool null() override { return Add(std::monostate()); }
    bool boolean(bool) override { return false; }
    bool binary(binary_t&) override { return false; }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) override { return false; }

  private:
    enum Level { kTop, kSources, kSource, kVariables, kVariable, kValues };
    static constexpr std::array<std::string_view, 5> kKeys{"source", "rows", "variables", "name", "values"};
    enum Key : unsigned { kSourceKey = 1, kRowsKey = 2, kVariablesKey = 4, kNameKey = 8, kValuesKey = 16 };

    bool Is(Level level, Key key) const { return fLevel == level && fKey == key; }

    template <typename Value>
    bool Add(Value value) {
        if (fLevel == kValues) fSources.back().fvVariables.back().fvValues.emplace_back(std::move(value));
        return fLevel == kValues;
    }

    static bool HasEqualLengths(const ChartSource& source) {
        return std::ranges::all_of(source.fvVariables, [&](const ChartVariable& variable) {
            return variable.fvValues.size() == source.fvVariables.front().fvValues.size();
        });
    }

    std::vector<ChartSource> fSources;
    int fLevel = kTop;
    unsigned fKey = 0;
    unsigned fSeen = 0;  ///< keys of the objects that are open
};

}  // namespace

std::string WriteDataStream(const std::vector<ChartSource>& sources) {
    std::string json;
    AppendList(json, sources, AppendSource);
    return unicode::MakeUtf8(std::move(json));
}

std::optional<std::vector<ChartSource>> ReadDataStream(std::string_view json) {
    StreamReader reader;
    return Json::sax_parse(json, &reader) ? std::optional(reader.Take()) : std::nullopt;
}

}  // namespace hierfit::chart
