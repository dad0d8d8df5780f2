#include <algorithm>
#include <array>

#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::NetworkLink;
using document::NetworkNode;
using document::NetworkPicture;
using document::NetworkTarget;
using document::NetworkWeights;
using document::NodeKind;
using document::Picture;
using document::WeightEntry;
using Layout = JsonOutput::Layout;

namespace {

/// In the order of `NodeKind`.
constexpr std::array<std::string_view, 6> kNodeKinds = {"continuous",  "categorical", "ordinal",
                                                        "interaction", "intercept",   "unknown"};

}  // namespace

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, NodeKind kind) { out.String(kNodeKinds[static_cast<std::size_t>(kind)]); }

static void Read(JsonReader& in, NodeKind& kind) {
    std::string text;
    Read(in, text);
    const auto* const at = std::ranges::find(kNodeKinds, text);
    if (at == kNodeKinds.end()) in.Fail("kind of a node expected");
    kind = static_cast<NodeKind>(at - kNodeKinds.begin());
}

static void Write(JsonOutput& out, const NetworkNode& node) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "x", node.fX);
    WriteMember(out, "y", node.fY);
    WriteUnless(out, "name", node.fName);
    WriteUnless(out, "tip", node.fTip);
    WriteUnless(out, "type", node.fType);
    out.EndObject();
}

static void Read(JsonReader& in, NetworkNode& node) {
    in.ReadObject(Field("x", Finite{node.fX}), Field("y", Finite{node.fY}), Optional("name", node.fName),
                  Optional("tip", node.fTip), Optional("type", node.fType));
}

static void Write(JsonOutput& out, const NetworkLink& link) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "x", link.fX);
    WriteMember(out, "y", link.fY);
    WriteMember(out, "x2", link.fX2);
    WriteMember(out, "y2", link.fY2);
    WriteMember(out, "weight", link.fWeight);
    WriteUnless(out, "sign", link.fSign);
    WriteUnless(out, "node", link.fNode);
    WriteUnless(out, "tip", link.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, NetworkLink& link) {
    in.ReadObject(Field("x", Finite{link.fX}), Field("y", Finite{link.fY}), Field("x2", Finite{link.fX2}),
                  Field("y2", Finite{link.fY2}), Field("weight", Finite{link.fWeight}), Optional("sign", link.fSign),
                  Optional("node", link.fNode), Optional("tip", link.fTip));
}

static void Write(JsonOutput& out, const NetworkTarget& target) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "x", target.fX);
    WriteUnless(out, "y", target.fY);
    WriteUnless(out, "name", target.fName);
    WriteUnless(out, "tip", target.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, NetworkTarget& target) {
    in.ReadObject(Optional("x", Finite{target.fX}), Optional("y", Finite{target.fY}), Optional("name", target.fName),
                  Optional("tip", target.fTip));
}

static void Write(JsonOutput& out, const WeightEntry& entry) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "weight", entry.fWeight);
    WriteMember(out, "words", entry.fWords);
    out.EndObject();
}

static void Read(JsonReader& in, WeightEntry& entry) {
    in.ReadObject(Field("weight", Finite{entry.fWeight}), Field("words", entry.fWords));
}

static void Write(JsonOutput& out, const NetworkWeights& weights) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "title", weights.fTitle);
    WriteMember(out, "low", weights.fLow);
    WriteMember(out, "high", weights.fHigh);
    WriteUnlessEmpty(out, "entries", weights.fvEntries, Layout::Line);
    out.EndObject();
}

static void Read(JsonReader& in, NetworkWeights& weights) {
    in.ReadObject(Optional("title", weights.fTitle), Field("low", Finite{weights.fLow}),
                  Field("high", Finite{weights.fHigh}), Optional("entries", weights.fvEntries));
    if (weights.fHigh <= weights.fLow) in.Fail("number above the low one expected", "/high");
    CheckOrder(
        in, "/entries", weights.fvEntries,
        [](const auto& entry, const auto& next) { return next.fWeight < entry.fWeight; },
        "weight not below that of the entry before expected");
}

void WriteMembers(JsonOutput& out, const NetworkPicture& network) {
    WriteUnless(out, "lowX", network.fLowX);
    WriteUnless(out, "highX", network.fHighX);
    WriteList(out, "nodes", network.fvNodes, Layout::Block);
    WriteList(out, "links", network.fvLinks, Layout::Block);
    WriteUnless(out, "target", network.fTarget);
    WriteMember(out, "weights", network.fWeights);
    WriteUnless(out, "signs", network.fSigns);
    WriteUnless(out, "isLastNegative", network.fIsLastNegative);
    WriteUnless(out, "types", network.fTypes);
    WriteUnlessEmpty(out, "kinds", network.fvKinds, Layout::Line);
    WriteUnless(out, "histogram", network.fHistogram);
}

namespace {

void CheckLinks(const JsonReader& in, const NetworkPicture& network) {
    for (std::size_t i = 0; i < network.fvLinks.size(); ++i) {
        const Element element{in, "/links", i};
        const NetworkLink& link = network.fvLinks[i];
        if (link.fSign) element.CheckIndex("/sign", *link.fSign, network.fSigns.fvWords.size(), "sign");
        if (link.fNode) element.CheckIndex("/node", *link.fNode, network.fvNodes.size(), "node");
    }
    CheckOrder(
        in, "/links", network.fvLinks, [](const auto& link, const auto& next) { return next.fWeight > link.fWeight; },
        "weight not above that of the link before expected");
}

void Check(const JsonReader& in, const NetworkPicture& network) {
    CheckLimits(in, network.fLowX, network.fHighX, "/highX");
    const std::size_t types = network.fTypes.fvWords.size();
    if (network.fvKinds.size() != types) in.Fail("as many kinds as types expected", "/kinds");
    for (std::size_t i = 0; i < network.fvNodes.size(); ++i) {
        const auto& type = network.fvNodes[i].fType;
        if (type) Element{in, "/nodes", i}.CheckIndex("/type", *type, types, "type");
    }
    CheckLinks(in, network);
    if (network.fIsLastNegative && network.fSigns.fvWords.empty()) in.Fail("false expected", "/isLastNegative");
}

}  // namespace

void ReadAs(JsonReader& in, Picture& picture, NetworkPicture& kind) {
    ReadPicture(in, picture, Optional("lowX", Finite{kind.fLowX}), Optional("highX", Finite{kind.fHighX}),
                Field("nodes", kind.fvNodes), Field("links", kind.fvLinks), Optional("target", kind.fTarget),
                Field("weights", kind.fWeights), Optional("signs", kind.fSigns),
                Optional("isLastNegative", kind.fIsLastNegative), Optional("types", kind.fTypes),
                Optional("kinds", kind.fvKinds), Optional("histogram", kind.fHistogram));
    Check(in, kind);
}

}  // namespace hierfit::report
