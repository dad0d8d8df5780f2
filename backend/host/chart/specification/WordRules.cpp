#include <array>

#include "host/chart/specification/ElementRules.h"
#include "host/data/PrintFormat.h"

namespace hierfit::chart {

namespace {

constexpr int kMostPopups = 100;
constexpr int kMostFields = 1'000;

template <std::optional<Words> Specification::*kMember>
bool ReadWordsInto(const ChartElement& element, Specification& specification) {
    specification.*kMember = element.ReadWords();
    return true;
}

bool ReadAxisTitle(const ChartElement& element, Specification& specification) {
    specification.fvAxisTitles.push_back({element.Choice("of", {"x", "y"}) == 0, element.ReadWords()});
    return true;
}

bool ReadPopup(const ChartElement& element, Specification& specification) {
    specification.fvPopups.push_back({element.Text("of"), element.ReadWords()});
    return true;
}

std::optional<KEST_Format> ReadFormat(const ChartElement& element) {
    if (!element.Has("format")) return std::nullopt;
    const std::string text = element.Text("format");
    const auto format = data::ParsePrintFormat(text);
    if (!format) element.Remark("attribute format of field cannot be " + Quote(text));
    return format;
}

bool ReadField(const ChartElement& element, Specification& specification) {
    Field& field = specification.fvFields.emplace_back();
    field.fSlot = element.Text("slot");
    field.fName = element.Text("name");
    field.fSource = element.Text("source");
    field.fIsFactor = element.Choice("role", {"measure", "factor"}) == 1;
    field.fTitle = element.Text("title");
    field.fLabel = element.Text("label");
    field.fFormat = ReadFormat(element);
    return true;
}

constexpr std::array<ElementRule, 7> kRules{{
    {"title", "chart", 1, "lookup", ReadWordsInto<&Specification::fTitle>},
    {"subtitle", "chart", 1, "lookup", ReadWordsInto<&Specification::fSubtitle>},
    {"caption", "chart", 1, "lookup", ReadWordsInto<&Specification::fCaption>},
    {"footnote", "chart", 1, "lookup", ReadWordsInto<&Specification::fFootnote>},
    {"axisTitle", "chart", 2, "id of lookup", ReadAxisTitle},
    {"popup", "chart", kMostPopups, "of lookup", ReadPopup},
    {"field", "chart", kMostFields, "slot name source role title label format", ReadField},
}};

}  // namespace

std::span<const ElementRule> WordRules() { return kRules; }

}  // namespace hierfit::chart
