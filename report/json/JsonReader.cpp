#include "report/json/JsonReader.h"

#include <fmt/core.h>

#include <charconv>
#include <cmath>
#include <limits>

#include "host/SystemMissing.h"

namespace hierfit::report {

namespace {

/// Appends a key to a JSON pointer.
void AppendKey(std::string& path, std::string_view key) { path.append(1, '/').append(key); }

bool IsWholeWithin(double value, int low, int high) {
    return value >= low && value <= high && value == std::floor(value);
}

double ParseNumber(const JsonReader& in, std::string_view spelling) {
    double value = 0;
    const auto result = std::from_chars(spelling.data(), spelling.data() + spelling.size(), value);
    if (result.ec == std::errc::result_out_of_range) in.Fail("number within the range of a double expected");
    return value;
}

}  // namespace

std::string JsonReader::GetPath() const {
    std::string path;
    for (const Step& step : fvPath) {
        if (step.fIndex == kNoIndex) {
            AppendKey(path, step.fKey);
        } else {
            AppendKey(path, std::to_string(step.fIndex));
        }
    }
    return path;
}

void JsonReader::Fail(std::string text, std::string path) const {
    throw JsonFailure{std::move(text), JsonFailure::kNoOffset, std::move(path)};
}

void JsonReader::Expect(JsonTokens::Kind kind, const char* failure) {
    if (fTokens.Peek() != kind) Fail(failure);
}

std::string JsonReader::FindKind() {
    constexpr std::size_t kMostTimes = 16;  // nested objects are looked through again and again
    constexpr std::size_t kFreely = 1 << 20;
    Expect(JsonTokens::Kind::Object, "object expected");
    const JsonTokens::Mark mark = fTokens.GetMark();
    std::string kind;
    std::string_view key;
    for (fTokens.BeginObject(); fTokens.NextKey(key); fTokens.Skip()) {
        if (key != "kind") continue;
        if (fTokens.Peek() == JsonTokens::Kind::String) kind = fTokens.TakeString();
        break;
    }
    fLookedThrough += fTokens.GetOffset() - mark.fAt;
    if (fLookedThrough > kMostTimes * fTextSize + kFreely) Fail("\"kind\" as the first key expected");
    fTokens.GoBack(mark);
    return kind;
}

void JsonReader::CountElement() {
    if (++fElements > kMaxElements) Fail(fmt::format("at most {} elements in all lists expected", kMaxElements));
}

void Read(JsonReader& in, bool& value) {
    in.Expect(JsonTokens::Kind::Boolean, "true or false expected");
    value = in.GetTokens().TakeBoolean();
}

void Read(JsonReader& in, int& value) {
    Bounded bounded{value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    Read(in, bounded);
}

void Read(JsonReader& in, Bounded& value) {
    if (in.GetTokens().Peek() == JsonTokens::Kind::Number) {
        const double number = ParseNumber(in, in.GetTokens().TakeNumber());
        if (IsWholeWithin(number, value.fLow, value.fHigh)) {
            value.fTarget = static_cast<int>(number);
            return;
        }
    }
    if (value.fLow == value.fHigh) in.Fail(fmt::format("{} expected", value.fLow));
    in.Fail(fmt::format("whole number from {} to {} expected", value.fLow, value.fHigh));
}

void Read(JsonReader& in, double& value) {
    constexpr const char* kFailure = "number, \"NaN\", \"Infinity\" or \"-Infinity\" expected";
    JsonTokens& tokens = in.GetTokens();
    if (tokens.Peek() == JsonTokens::Kind::Number) {
        value = ParseNumber(in, tokens.TakeNumber());
        return;
    }
    in.Expect(JsonTokens::Kind::String, kFailure);
    const std::optional<double> number = FindNamedNumber(tokens.TakeString());
    if (!number) in.Fail(kFailure);
    value = *number;
}

void Read(JsonReader& in, std::string& value) {
    in.Expect(JsonTokens::Kind::String, "text expected");
    value = in.GetTokens().TakeString();
}

void Read(JsonReader& in, Missable& value) {
    if (in.GetTokens().Peek() != JsonTokens::Kind::Null) return Read(in, value.fTarget);
    in.GetTokens().TakeNull();
    value.fTarget = kSystemMissing;
}

std::optional<double> FindNamedNumber(std::string_view text) {
    if (text == "NaN") return std::numeric_limits<double>::quiet_NaN();
    if (text == "Infinity") return std::numeric_limits<double>::infinity();
    if (text == "-Infinity") return -std::numeric_limits<double>::infinity();
    return std::nullopt;
}

}  // namespace hierfit::report
