#include "report/index/RowAttributes.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

#include "report/index/UrlPath.h"
#include "report/markup/Escape.h"

namespace hierfit::report {

namespace {

constexpr std::string_view kFolder = "data-folder";
constexpr std::string_view kReport = "data-report";
constexpr std::string_view kTarget = "data-target";
constexpr std::string_view kRecords = "data-records";
constexpr std::string_view kAkaike = "data-akaike";
constexpr std::string_view kBayesian = "data-bayesian";
constexpr std::string_view kWarnings = "data-warnings";

constexpr std::pair<std::string_view, char> kEntities[] = {
    {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#39;", '\''}, {kAttributeLineBreak, '\n'}};

void AppendName(std::string& out, std::string_view name) { out.append(" ").append(name).append("=\""); }

/// With all digits, so that what is read is the same number.
template <typename Number>
void AppendNumber(std::string& out, std::string_view name, Number number) {
    constexpr std::size_t kLongest = 32;
    std::array<char, kLongest> digits{};
    AppendName(out, name);
    out.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr) += '"';
}

void AppendNumber(std::string& out, std::string_view name, const std::optional<double>& number) {
    if (number) AppendNumber(out, name, *number);
}

void AppendUrlAttribute(std::string& out, std::string_view name, std::string_view path) {
    AppendName(out, name);
    AppendUrl(out, path);
    out += '"';
}

std::string Unescape(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        std::string_view taken = text.substr(0, 1);
        char character = text.front();
        for (const auto& [entity, meaning] : kEntities) {
            if (!text.starts_with(entity)) continue;
            taken = entity;
            character = meaning;
        }
        plain += character;
        text.remove_prefix(taken.size());
    }
    return plain;
}

/// The value of an attribute between its quotes, where there is one.
std::optional<std::string_view> FindValue(std::string_view attributes, std::string_view name) {
    const std::string start = " " + std::string(name) + "=\"";
    const std::size_t at = attributes.find(start);
    if (at == std::string_view::npos) return {};
    attributes.remove_prefix(at + start.size());
    const std::size_t end = attributes.find('"');
    return end == std::string_view::npos ? std::nullopt : std::optional(attributes.substr(0, end));
}

template <typename Number>
std::optional<Number> ReadNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// A number that a row need not have; false where it has one that cannot be read.
bool ReadFigure(std::string_view attributes, std::string_view name, std::optional<double>& figure) {
    const auto text = FindValue(attributes, name);
    if (!text) return true;
    figure = ReadNumber<double>(*text);
    return figure && std::isfinite(*figure);
}

}  // namespace

void AppendRowAttributes(std::string& out, const IndexedModel& model) {
    AppendUrlAttribute(out, kFolder, model.fFolder);
    AppendUrlAttribute(out, kReport, model.fReport);
    AppendName(out, kTarget);
    AppendCharacters(out, model.fTarget, kAttributeLineBreak);
    out += '"';
    AppendNumber(out, kRecords, model.fRecords);
    AppendNumber(out, kAkaike, model.fAkaike);
    AppendNumber(out, kBayesian, model.fBayesian);
    AppendNumber(out, kWarnings, model.fWarnings);
}

std::optional<IndexedModel> ReadRowAttributes(std::string_view attributes) {
    const auto folder = FindValue(attributes, kFolder);
    const auto report = FindValue(attributes, kReport);
    const auto target = FindValue(attributes, kTarget);
    const auto warnings = ReadNumber<int>(FindValue(attributes, kWarnings).value_or(""));
    if (!folder || !report || !target || !warnings || *warnings < 0) return {};
    IndexedModel model{{}, ReadUrl(*folder), ReadUrl(*report), Unescape(*target), {}, {}, {}, *warnings};
    const bool isRead = ReadFigure(attributes, kRecords, model.fRecords) &&
                        ReadFigure(attributes, kAkaike, model.fAkaike) &&
                        ReadFigure(attributes, kBayesian, model.fBayesian);
    return isRead ? std::optional(std::move(model)) : std::nullopt;
}

}  // namespace hierfit::report
