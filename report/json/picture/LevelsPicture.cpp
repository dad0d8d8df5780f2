#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::LevelGuide;
using document::LevelMark;
using document::LevelsPicture;
using document::Picture;
using Layout = JsonOutput::Layout;

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const LevelMark& mark) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "panel", mark.fPanel);
    WriteMember(out, "level", mark.fLevel);
    WriteUnless(out, "series", mark.fSeries);
    WriteMember(out, "value", mark.fValue);
    WriteUnless(out, "base", mark.fBase);
    WriteUnless(out, "low", mark.fLow);
    WriteUnless(out, "high", mark.fHigh);
    WriteUnless(out, "isSetOff", mark.fIsSetOff);
    WriteUnless(out, "tip", mark.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, LevelMark& mark) {
    in.ReadObject(Optional("panel", mark.fPanel), Field("level", mark.fLevel), Optional("series", mark.fSeries),
                  Field("value", Finite{mark.fValue}), Optional("base", Finite{mark.fBase}),
                  Optional("low", Finite{mark.fLow}), Optional("high", Finite{mark.fHigh}),
                  Optional("isSetOff", mark.fIsSetOff), Optional("tip", mark.fTip));
    if (mark.fLow.has_value() != mark.fHigh.has_value()) in.Fail("\"low\" and \"high\" or neither expected");
}

static void Write(JsonOutput& out, const LevelGuide& guide) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "panel", guide.fPanel);
    WriteMember(out, "value", guide.fValue);
    WriteUnless(out, "tip", guide.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, LevelGuide& guide) {
    in.ReadObject(Optional("panel", guide.fPanel), Field("value", Finite{guide.fValue}), Optional("tip", guide.fTip));
}

void WriteMembers(JsonOutput& out, const LevelsPicture& levels) {
    WriteUnless(out, "isContrast", levels.fIsContrast);
    WriteUnless(out, "values", levels.fValues);
    WriteUnless(out, "predictor", levels.fPredictor);
    WriteList(out, "levels", levels.fvLevels, Layout::Line);
    WriteUnlessEmpty(out, "numbers", levels.fvNumbers, Layout::Line);
    WriteUnless(out, "series", levels.fSeries);
    WriteUnless(out, "emphasis", levels.fEmphasis);
    WriteUnless(out, "panels", levels.fPanels);
    WriteList(out, "marks", levels.fvMarks, Layout::Block);
    WriteUnlessEmpty(out, "guides", levels.fvGuides, Layout::Block);
}

namespace {

void Check(const JsonReader& in, const LevelsPicture& levels) {
    const std::size_t count = levels.fvLevels.size();
    if (!levels.fvNumbers.empty() && levels.fvNumbers.size() != count) {
        in.Fail("as many numbers as levels expected, or none", "/numbers");
    }
    const std::size_t series = std::max<std::size_t>(levels.fSeries.fvWords.size(), 1);
    for (std::size_t i = 0; i < levels.fvMarks.size(); ++i) {
        const Element mark{in, "/marks", i};
        mark.CheckPlace("/panel", levels.fvMarks[i].fPanel, levels.fPanels);
        mark.CheckIndex("/level", levels.fvMarks[i].fLevel, count, "level");
        mark.CheckIndex("/series", levels.fvMarks[i].fSeries, series, "series");
    }
    for (std::size_t i = 0; i < levels.fvGuides.size(); ++i) {
        Element{in, "/guides", i}.CheckPlace("/panel", levels.fvGuides[i].fPanel, levels.fPanels);
    }
}

}  // namespace

void ReadAs(JsonReader& in, Picture& picture, LevelsPicture& kind) {
    ReadPicture(in, picture, Optional("isContrast", kind.fIsContrast), Optional("values", kind.fValues),
                Optional("predictor", kind.fPredictor), Field("levels", kind.fvLevels),
                Optional("numbers", Finite{kind.fvNumbers}), Optional("series", kind.fSeries),
                Optional("emphasis", kind.fEmphasis), Optional("panels", kind.fPanels), Field("marks", kind.fvMarks),
                Optional("guides", kind.fvGuides));
    Check(in, kind);
}

}  // namespace hierfit::report
