#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::CircleLink;
using document::CircleNode;
using document::CirclePanel;
using document::CirclePicture;
using document::Picture;
using Layout = JsonOutput::Layout;

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const CircleNode& node) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "name", node.fName);
    WriteUnless(out, "tip", node.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, CircleNode& node) {
    in.ReadObject(Field("name", node.fName), Optional("tip", node.fTip));
}

static void Write(JsonOutput& out, const CircleLink& link) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "from", link.fFrom);
    WriteMember(out, "to", link.fTo);
    WriteMember(out, "share", link.fShare);
    WriteUnless(out, "isSetOff", link.fIsSetOff);
    WriteUnless(out, "tip", link.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, CircleLink& link) {
    in.ReadObject(Field("from", link.fFrom), Field("to", link.fTo), Field("share", Finite{link.fShare}),
                  Optional("isSetOff", link.fIsSetOff), Optional("tip", link.fTip));
    if (link.fShare < 0 || link.fShare > 1) in.Fail("number from 0 to 1 expected", "/share");
}

static void Write(JsonOutput& out, const CirclePanel& panel) {
    out.BeginObject(Layout::Block);
    WriteUnless(out, "place", panel.fPlace);
    WriteList(out, "nodes", panel.fvNodes, Layout::Block);
    WriteList(out, "links", panel.fvLinks, Layout::Block);
    out.EndObject();
}

static void Read(JsonReader& in, CirclePanel& panel) {
    in.ReadObject(Optional("place", panel.fPlace), Field("nodes", panel.fvNodes), Field("links", panel.fvLinks));
    if (panel.fvNodes.empty()) in.Fail("one node at least expected", "/nodes");
    for (std::size_t i = 0; i < panel.fvLinks.size(); ++i) {
        const Element link{in, "/links", i};
        link.CheckIndex("/from", panel.fvLinks[i].fFrom, panel.fvNodes.size(), "node");
        link.CheckIndex("/to", panel.fvLinks[i].fTo, panel.fvNodes.size(), "node");
    }
}

void WriteMembers(JsonOutput& out, const CirclePicture& circle) {
    WriteUnless(out, "emphasis", circle.fEmphasis);
    WriteUnless(out, "panels", circle.fPanels);
    WriteList(out, "circles", circle.fvPanels, Layout::Block);
}

void ReadAs(JsonReader& in, Picture& picture, CirclePicture& kind) {
    ReadPicture(in, picture, Optional("emphasis", kind.fEmphasis), Optional("panels", kind.fPanels),
                Field("circles", kind.fvPanels));
    for (std::size_t i = 0; i < kind.fvPanels.size(); ++i) {
        Element{in, "/circles", i}.CheckPlace("/place", kind.fvPanels[i].fPlace, kind.fPanels);
    }
}

}  // namespace hierfit::report
