#include "host/session/BackEndMessages.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "host/KEST_DataSource.h"
#include "host/language/Catalogue.h"
#include "host/session/ShownTexts.h"
#include "host/unicode/Excerpt.h"
#include "host/xml/NamedChildren.h"

namespace hierfit::session {

namespace {

using Node = xml::Document::Node;

/// Keys that reach the output under another text.
constexpr std::pair<std::string_view, std::string_view> kShownAs[] = {{"kGLMM_C26", "Subject field not used ..."}};

Node Find(const xml::Document& xml, Node node, std::initializer_list<std::string_view> path) {
    for (const std::string_view name : path) {
        if (node == xml::Document::kNone) break;
        node = xml.FirstChild(node, name);
    }
    return node;
}

std::vector<std::string> ReadParameters(const xml::Document& xml, Node list) {
    std::vector<std::string> parameters;
    for (const Node value : xml::NamedChildren(xml, list, "PrintableValue")) {
        const std::string_view text = xml.Attribute(value, "value").value_or("");
        if (!text.empty()) parameters.emplace_back(text);
    }
    return parameters;
}

void ReadMessagesBelow(const xml::Document& xml, Node parent, Node block, std::vector<BackEndMessage>& messages) {
    for (const Node message : xml::NamedChildren(xml, parent, "Message")) {
        const Node list = xml.FirstChild(message, "PrintableList");
        if (list == xml::Document::kNone) continue;
        const std::string_view key = xml.Attribute(list, "pattern").value_or("");
        if (key.empty()) continue;
        messages.push_back({std::string(key), ReadParameters(xml, list), message, block});
    }
}

/// The label of the field of that name, or the name.
std::string DisplayName(const context::RunContext& context, std::string_view field) {
    const KEST_DataSource* source = context.GetDataSource();
    const std::string name(field);
    const KEST_Variable* variable = source == nullptr ? nullptr : source->GetVariable(source->FindVarIndex(name, 0));
    return variable != nullptr && variable->GetLabel() != nullptr ? variable->GetLabel() : name;
}

/// The factors of a block of means, joined as in its heading.
std::string FactorsOf(const context::RunContext& context, Node block) {
    const xml::Document& xml = *context.GetLastXml();
    std::string factors;
    const Node group = Find(xml, block, {"MultivariateData", "CoordinatesGroup"});
    for (const Node factor : xml::NamedChildren(xml, group, "Coordinates")) {
        factors += (factors.empty() ? "" : " * ") + DisplayName(context, xml.Attribute(factor, "field").value_or(""));
    }
    return factors;
}

/// The number of a block of means, counted from 1; empty where the block does not tell it.
std::string NumberOf(const xml::Document& xml, Node block) {
    for (const Node each : xml::NamedChildren(xml, block, "Statistic")) {
        const std::string_view value = xml.Attribute(each, "value").value_or("");
        int index = -1;
        const bool isIndex = xml.Attribute(each, "name") == "EMMEANSIndex";
        std::from_chars(value.data(), value.data() + value.size(), index);
        if (isIndex && index >= 0) return std::to_string(index + 1LL);
    }
    return {};
}

using Parameters = std::vector<std::string>;

/// A message in the run's language as a table or message would show it.
std::string Fill(std::string_view pattern, const Parameters& parameters) {
    return language::FillMarks(pattern, {parameters.begin(), parameters.end()});
}

/// The same, with the parameters that the wording has no mark for behind it. They may be sentences of the back-end and
/// stand nowhere else, so they get more room than a name.
std::string Summarize(std::string_view pattern, const BackEndMessage& message) {
    constexpr std::size_t kMarks = 9;
    constexpr std::size_t kMost = 1000;
    Parameters parameters;
    std::string rest;
    for (const std::string& parameter : message.fvParameters) {
        parameters.push_back(unicode::Excerpt(parameter, kMost));
        const std::size_t number = parameters.size();
        if (number <= kMarks && pattern.find("^" + std::to_string(number)) != std::string_view::npos) continue;
        rest += (rest.empty() ? "" : "; ") + parameters.back();
    }
    const std::string words =
        Fill(pattern == message.fKey ? unicode::Excerpt(pattern) : std::string(pattern), parameters);
    return rest.empty() ? words : words + " (" + unicode::Excerpt(rest, kMost) + ")";
}

/// Says which block of means a message is about, as its heading does; empty for one about the model.
std::string BlockBefore(const context::RunContext& context, const BackEndMessage& message) {
    if (message.fBlock == xml::Document::kNone) return {};
    const std::string number = NumberOf(*context.GetLastXml(), message.fBlock);
    const std::string factors = FactorsOf(context, message.fBlock);
    if (number.empty() || factors.empty()) return {};
    return language::FillMarks(context.Translate("EMMEANS Effect ^1 block ^2 ..."),
                               {unicode::Excerpt(factors), number}) +
           ": ";
}

bool IsShown(const ShownTexts& shown, const BackEndMessage& message, const std::string& words) {
    if (shown.HasKey(message.fKey) || shown.HasMessageWith(words)) return true;
    return std::ranges::any_of(kShownAs, [&](const auto& other) {
        return message.fKey == other.first && shown.HasKey(std::string(other.second));
    });
}

}  // namespace

std::vector<BackEndMessage> ReadBackEndMessages(const xml::Document& statXml) {
    std::vector<BackEndMessage> messages;
    const Node diagnostics = Find(statXml, 0, {"PMMLModel", "ModelDiagnostics"});
    for (const Node group : xml::NamedChildren(statXml, diagnostics, "DataGroup")) {
        if (statXml.Attribute(group, "description") == "customEmmeans") {
            ReadMessagesBelow(statXml, group, group, messages);
        }
    }
    const Node summary = Find(statXml, 0, {"PMMLModel", "TrainingSummary"});
    ReadMessagesBelow(statXml, summary, xml::Document::kNone, messages);
    return messages;
}

std::size_t DiagnoseUnseenMessages(context::RunContext& context) {
    if (!context.GetLastXml()) return 0;
    const std::vector<BackEndMessage> messages = ReadBackEndMessages(*context.GetLastXml());
    if (messages.empty()) return 0;
    std::size_t nOfModel = 0;
    const ShownTexts shown(context.GetDocument());
    for (const BackEndMessage& message : messages) {
        const std::string_view pattern = context.Translate(message.fKey);
        if (IsShown(shown, message, Fill(pattern, message.fvParameters)) || !context.TakeRoomForWarning()) continue;
        const xml::Position position = context.GetLastXml()->PositionOf(message.fNode);
        context.AddDiagnostic(2, BlockBefore(context, message) + Summarize(pattern, message),
                              document::Place{document::kStatXmlSource, position.fLine, position.fColumn});
        if (message.fBlock == xml::Document::kNone) ++nOfModel;
    }
    return nOfModel;
}

}  // namespace hierfit::session
