#include <array>
#include <tuple>

#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::CurvePoint;
using document::HistogramBin;
using document::HistogramPicture;
using document::Picture;
using Layout = JsonOutput::Layout;

// Static rather than in the unnamed namespace: there the templates for lists and members would not find them.

static void Write(JsonOutput& out, const HistogramBin& bin) {
    out.BeginObject(Layout::Line);
    WriteMember(out, "low", bin.fLow);
    WriteMember(out, "high", bin.fHigh);
    WriteMember(out, "count", bin.fCount);
    WriteUnless(out, "tip", bin.fTip);
    out.EndObject();
}

static void Read(JsonReader& in, HistogramBin& bin) {
    in.ReadObject(Field("low", Finite{bin.fLow}), Field("high", Finite{bin.fHigh}), Field("count", Finite{bin.fCount}),
                  Optional("tip", bin.fTip));
    if (bin.fHigh <= bin.fLow) in.Fail("number above the low one expected", "/high");
    if (bin.fCount < 0) in.Fail("number of 0 or more expected", "/count");
}

static void Write(JsonOutput& out, const CurvePoint& point) {
    out.BeginList(Layout::Line);
    out.Number(point.fX);
    out.Number(point.fY);
    out.EndList();
}

static void Read(JsonReader& in, CurvePoint& point) {
    std::array numbers{Finite{point.fX}, Finite{point.fY}};
    Read(in, numbers);
}

void WriteMembers(JsonOutput& out, const HistogramPicture& histogram) {
    WriteUnless(out, "values", histogram.fValues);
    WriteUnless(out, "counts", histogram.fCounts);
    WriteList(out, "bins", histogram.fvBins, Layout::Block);
    WriteUnlessEmpty(out, "curve", histogram.fvCurve, Layout::Line);
    WriteUnless(out, "isCurveOfCounts", histogram.fIsCurveOfCounts);
}

void Write(JsonOutput& out, const HistogramPicture& histogram) {
    out.BeginObject(Layout::Block);
    WriteMembers(out, histogram);
    out.EndObject();
}

namespace {

auto FieldsOf(HistogramPicture& histogram) {
    return std::tuple(Optional("values", histogram.fValues), Optional("counts", histogram.fCounts),
                      Field("bins", histogram.fvBins), Optional("curve", histogram.fvCurve),
                      Optional("isCurveOfCounts", histogram.fIsCurveOfCounts));
}

void Check(const JsonReader& in, const HistogramPicture& histogram) {
    CheckOrder(
        in, "/bins", histogram.fvBins, [](const auto& bin, const auto& next) { return next.fLow < bin.fLow; },
        "bin not below the one before expected");
    CheckOrder(
        in, "/curve", histogram.fvCurve, [](const auto& point, const auto& next) { return next.fX < point.fX; },
        "x not below that of the point before expected");
}

}  // namespace

void Read(JsonReader& in, HistogramPicture& histogram) {
    std::apply([&](auto... fields) { in.ReadObject(fields...); }, FieldsOf(histogram));
    Check(in, histogram);
}

void ReadAs(JsonReader& in, Picture& picture, HistogramPicture& kind) {
    std::apply([&](auto... fields) { ReadPicture(in, picture, fields...); }, FieldsOf(kind));
    Check(in, kind);
}

}  // namespace hierfit::report
