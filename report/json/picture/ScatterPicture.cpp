#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::Picture;
using document::PictureAxis;
using document::ScatterPicture;
using document::ScatterPoint;
using Layout = JsonOutput::Layout;

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const ScatterPoint& point) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "x", point.fX);
    WriteMember(out, "y", point.fY);
    WriteUnless(out, "frequency", point.fFrequency, 1.0);
    WriteUnless(out, "tip", point.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, ScatterPoint& point) {
    in.ReadObject(Field("x", Finite{point.fX}), Field("y", Finite{point.fY}),
                  Optional("frequency", Finite{point.fFrequency}), Optional("tip", point.fTip));
    if (point.fFrequency < 0) in.Fail("number of 0 or more expected", "/frequency");
}

void WriteMembers(JsonOutput& out, const ScatterPicture& scatter) {
    WriteUnless(out, "x", scatter.fX);
    WriteUnless(out, "y", scatter.fY);
    WriteUnless(out, "isSquare", scatter.fIsSquare);
    WriteUnless(out, "hasDiagonal", scatter.fHasDiagonal);
    WriteUnless(out, "hasFrequencies", scatter.fHasFrequencies);
    WriteUnless(out, "frequencyTitle", scatter.fFrequencyTitle);
    WriteUnless(out, "hasLegend", scatter.fHasLegend);
    WriteList(out, "points", scatter.fvPoints, Layout::Block);
}

namespace {

bool Holds(const PictureAxis& axis, double number) {
    return (!axis.fLow || *axis.fLow <= number) && (!axis.fHigh || number <= *axis.fHigh);
}

void Check(const JsonReader& in, const ScatterPicture& scatter) {
    for (std::size_t i = 0; i < scatter.fvPoints.size(); ++i) {
        const Element point{in, "/points", i};
        if (!Holds(scatter.fX, scatter.fvPoints[i].fX)) point.Fail("number within the limits of x expected", "/x");
        if (!Holds(scatter.fY, scatter.fvPoints[i].fY)) point.Fail("number within the limits of y expected", "/y");
    }
    CheckOrder(
        in, "/points", scatter.fvPoints,
        [](const auto& point, const auto& next) { return next.fFrequency < point.fFrequency; },
        "frequency not below that of the point before expected");
}

}  // namespace

void ReadAs(JsonReader& in, Picture& picture, ScatterPicture& kind) {
    ReadPicture(in, picture, Optional("x", kind.fX), Optional("y", kind.fY), Optional("isSquare", kind.fIsSquare),
                Optional("hasDiagonal", kind.fHasDiagonal), Optional("hasFrequencies", kind.fHasFrequencies),
                Optional("frequencyTitle", kind.fFrequencyTitle), Optional("hasLegend", kind.fHasLegend),
                Field("points", kind.fvPoints));
    Check(in, kind);
}

}  // namespace hierfit::report
