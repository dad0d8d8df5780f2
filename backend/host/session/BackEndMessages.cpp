#include "host/session/BackEndMessages.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/language/Catalogue.h"
#include "host/session/ShownTexts.h"
#include "host/unicode/Excerpt.h"

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
    for (Node value = xml.FirstChild(list, "PrintableValue"); value != xml::Document::kNone;
         value = xml.NextOfName(value)) {
        const std::string_view text = xml.Attribute(value, "value").value_or("");
        if (!text.empty()) parameters.emplace_back(text);
    }
    return parameters;
}

void ReadMessagesBelow(const xml::Document& xml, Node parent, std::vector<BackEndMessage>& messages) {
    for (Node message = xml.FirstChild(parent, "Message"); message != xml::Document::kNone;
         message = xml.NextOfName(message)) {
        const Node list = xml.FirstChild(message, "PrintableList");
        if (list == xml::Document::kNone) continue;
        const std::string_view key = xml.Attribute(list, "pattern").value_or("");
        if (key.empty()) continue;
        messages.push_back({std::string(key), ReadParameters(xml, list), message});
    }
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
    if (diagnostics != xml::Document::kNone) {
        for (Node group = statXml.FirstChild(diagnostics, "DataGroup"); group != xml::Document::kNone;
             group = statXml.NextOfName(group)) {
            if (statXml.Attribute(group, "description") == "customEmmeans") ReadMessagesBelow(statXml, group, messages);
        }
    }
    const Node summary = Find(statXml, 0, {"PMMLModel", "TrainingSummary"});
    if (summary != xml::Document::kNone) ReadMessagesBelow(statXml, summary, messages);
    return messages;
}

void DiagnoseUnseenMessages(context::RunContext& context) {
    if (!context.GetLastXml()) return;
    const std::vector<BackEndMessage> messages = ReadBackEndMessages(*context.GetLastXml());
    if (messages.empty()) return;
    const ShownTexts shown(context.GetDocument());
    for (const BackEndMessage& message : messages) {
        const std::string_view pattern = context.Translate(message.fKey);
        if (IsShown(shown, message, Fill(pattern, message.fvParameters)) || !context.TakeRoomForWarning()) continue;
        const xml::Position position = context.GetLastXml()->PositionOf(message.fNode);
        context.AddDiagnostic(2, Summarize(pattern, message),
                              document::Place{document::kStatXmlSource, position.fLine, position.fColumn});
    }
}

}  // namespace hierfit::session
