#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <limits>

#include "report/json/picture/PictureForms.h"

namespace hierfit::report {

using document::PanelPlace;
using document::PictureAxis;
using document::PictureClasses;
using document::PictureEmphasis;
using document::PicturePanels;
using Layout = JsonOutput::Layout;

namespace {

bool IsWithin(int index, std::size_t size) { return index >= 0 && static_cast<std::size_t>(index) < size; }

}  // namespace

void Read(JsonReader& in, Finite<double>& number) {
    constexpr double kMost = 1e300;
    constexpr const char* kFailure = "number from -1e300 to 1e300 expected";
    in.Expect(JsonTokens::Kind::Number, kFailure);
    Read(in, number.fTarget);
    if (number.fTarget < -kMost || number.fTarget > kMost) in.Fail(kFailure);
}

void Read(JsonReader& in, Finite<std::optional<double>>& number) {
    Finite finite{number.fTarget.emplace()};
    Read(in, finite);
}

void Read(JsonReader& in, Finite<std::vector<double>>& numbers) {
    in.ReadList([&](std::size_t) {
        Finite finite{numbers.fTarget.emplace_back()};
        Read(in, finite);
    });
}

void Write(JsonOutput& out, const PictureAxis& axis) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "title", axis.fTitle);
    WriteUnless(out, "low", axis.fLow);
    WriteUnless(out, "high", axis.fHigh);
    WriteUnless(out, "isWhole", axis.fIsWhole);
    out.EndObject();
}

void Read(JsonReader& in, PictureAxis& axis) {
    in.ReadObject(Optional("title", axis.fTitle), Optional("low", Finite{axis.fLow}),
                  Optional("high", Finite{axis.fHigh}), Optional("isWhole", axis.fIsWhole));
    CheckLimits(in, axis.fLow, axis.fHigh, "/high");
}

void Write(JsonOutput& out, const PictureClasses& classes) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "title", classes.fTitle);
    WriteList(out, "words", classes.fvWords, Layout::Line);
    WriteUnless(out, "hasLegend", classes.fHasLegend);
    out.EndObject();
}

void Read(JsonReader& in, PictureClasses& classes) {
    in.ReadObject(Optional("title", classes.fTitle), Field("words", classes.fvWords),
                  Optional("hasLegend", classes.fHasLegend));
}

void Write(JsonOutput& out, const PictureEmphasis& emphasis) {
    out.BeginObject(Layout::Line);
    WriteUnless(out, "setOff", emphasis.fSetOff);
    WriteUnless(out, "rest", emphasis.fRest);
    WriteUnless(out, "hasLegend", emphasis.fHasLegend);
    out.EndObject();
}

void Read(JsonReader& in, PictureEmphasis& emphasis) {
    in.ReadObject(Optional("setOff", emphasis.fSetOff), Optional("rest", emphasis.fRest),
                  Optional("hasLegend", emphasis.fHasLegend));
}

void Write(JsonOutput& out, const PicturePanels& panels) {
    out.BeginObject(Layout::Line);
    WriteUnlessEmpty(out, "across", panels.fvAcross, Layout::Line);
    WriteUnlessEmpty(out, "down", panels.fvDown, Layout::Line);
    WriteUnless(out, "abreast", panels.fAbreast);
    out.EndObject();
}

void Read(JsonReader& in, PicturePanels& panels) {
    in.ReadObject(Optional("across", panels.fvAcross), Optional("down", panels.fvDown),
                  Optional("abreast", Bounded{panels.fAbreast, 0, std::numeric_limits<int>::max()}));
    if (panels.fvAcross.empty() && !panels.fvDown.empty()) in.Fail("no headings expected without some across", "/down");
}

void Write(JsonOutput& out, const PanelPlace& place) {
    out.BeginList(Layout::Line);
    out.Integer(place.fAcross);
    out.Integer(place.fDown);
    out.EndList();
}

void Read(JsonReader& in, PanelPlace& place) {
    std::array<int, 2> numbers{};
    Read(in, numbers);
    place = {numbers[0], numbers[1]};
}

void Element::Fail(std::string text, std::string_view key) const {
    fIn.Fail(std::move(text), fmt::format("{}/{}{}", fList, fIndex, key));
}

void Element::CheckIndex(std::string_view key, int index, std::size_t size, std::string_view thing) const {
    if (IsWithin(index, size)) return;
    Fail(fmt::format("number of a {} expected, of which there are {}", thing, size), key);
}

void Element::CheckPlace(std::string_view key, const PanelPlace& place, const PicturePanels& panels) const {
    const std::size_t across = std::max<std::size_t>(panels.fvAcross.size(), 1);
    const std::size_t down = std::max<std::size_t>(panels.fvDown.size(), 1);
    if (IsWithin(place.fAcross, across) && IsWithin(place.fDown, down)) return;
    Fail(fmt::format("place of a panel expected, of which there are {} by {}", across, down), key);
}

void CheckLimits(const JsonReader& in, const std::optional<double>& low, const std::optional<double>& high,
                 std::string_view highKey) {
    if (low && high && *high < *low) in.Fail("number not below the low one expected", std::string(highKey));
}

}  // namespace hierfit::report
