// Prints the pictures of a saved document for tests:
//   hierfit_scenes FILE.json                as text
//   hierfit_scenes --svg FOLDER FILE.json   as FOLDER/NAME-desk.svg and FOLDER/NAME-phone.svg

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/items/Entries.h"
#include "report/json/JsonDocument.h"

using namespace hierfit;
using namespace hierfit::report;
using namespace hierfit::report::charts;

namespace {

std::string NameOf(Ink ink) {
    static constexpr const char* kNames[] = {"none", "ink",     "soft",  "axis", "grid",   "paper",
                                             "bar",  "boxedge", "quiet", "link", "set-off"};
    const int number = static_cast<int>(ink);
    if (ink < Ink::Level) return kNames[number];
    if (ink < Ink::Ramp) return fmt::format("level{}", number - static_cast<int>(Ink::Level));
    return fmt::format("ramp{}", number - static_cast<int>(Ink::Ramp));
}

std::string At(Point point) { return fmt::format("{},{}", std::lround(point.fX), std::lround(point.fY)); }

/// The corners of the box around a path's points.
std::string BoxOf(const Path& path) {
    Point least{1e9, 1e9};
    Point most{-1e9, -1e9};
    std::size_t count = 0;
    for (const std::vector<Point>& part : path.fvParts) {
        for (const Point& point : part) {
            least = {std::min(least.fX, point.fX), std::min(least.fY, point.fY)};
            most = {std::max(most.fX, point.fX), std::max(most.fY, point.fY)};
            ++count;
        }
    }
    return fmt::format("{} points {} to {}", count, At(least), At(most));
}

struct Describer {
    std::string operator()(const Rectangle& form) const {
        return fmt::format("box {} {}x{}", At(form.fAt), std::lround(form.fWidth), std::lround(form.fHeight));
    }
    std::string operator()(const Line& form) const {
        return fmt::format("line {} to {}", At(form.fFrom), At(form.fTo));
    }
    std::string operator()(const Path& form) const {
        return fmt::format("{} of {}", form.fIsClosed ? "shape" : "path", BoxOf(form));
    }
    std::string operator()(const Circle& form) const { return fmt::format("point {}", At(form.fAt)); }
    std::string operator()(const Text& form) const {
        static constexpr const char* kAnchors[] = {"from", "about", "up to"};
        const std::string turn = form.fTurn == 0 ? "" : fmt::format(" turned {}", std::lround(form.fTurn));
        return fmt::format("\"{}\" {} {}{}", form.fWords, kAnchors[static_cast<int>(form.fAnchor)], At(form.fAt), turn);
    }
};

std::string Describe(const Paint& paint) {
    std::string text;
    if (paint.fFill != Ink::None) text += " " + NameOf(paint.fFill);
    if (paint.fStroke != Ink::None) text += fmt::format(" {}/{:.3g}", NameOf(paint.fStroke), paint.fStrokeWidth);
    if (paint.fDash != Dash::Solid) text += paint.fDash == Dash::Long ? " long dashes" : " short dashes";
    if (paint.fOpacity < 1) text += fmt::format(" {:.2g}", paint.fOpacity);
    return text;
}

std::string Describe(const Element& element) {
    std::string line;
    const Paint* before = nullptr;
    for (const Shape& shape : element.fvShapes) {
        line += line.empty() ? "" : "; ";
        line += std::visit(Describer{}, shape.fForm);
        if (!before || *before != shape.fPaint) line += Describe(shape.fPaint);
        before = &shape.fPaint;
    }
    return line;
}

std::string InOneLine(std::string text) {
    std::ranges::replace(text, '\n', '|');
    return text;
}

/// A scene as lines that a person can review: its size, then each element on a line of its own with what it is made of,
/// where, in which inks, and what it says. Places are whole pixels.
std::string DescribeScene(const Scene& scene) {
    std::string text = fmt::format("{} x {}\n", std::lround(scene.fWidth), std::lround(scene.fHeight));
    for (const Element& element : scene.fvElements) {
        if (element.fvShapes.empty()) continue;
        text += element.fIsEntry ? "  entry" : element.fTip.empty() ? "  ." : "  mark";
        for (const int key : element.fvKeys) text += fmt::format(" #{}", key);
        text += " " + InOneLine(Describe(element));
        if (!element.fTip.empty()) text += " = " + InOneLine(element.fTip);
        text += '\n';
    }
    return text;
}

void PrintScene(const std::string& folder, const items::Entry& entry, const std::string& view, const Scene& scene) {
    if (folder.empty()) {
        std::cout << entry.fAnchor << ' ' << view << ' ' << DescribeScene(scene) << '\n';
    } else {
        std::ofstream(folder + "/" + entry.fAnchor + "-" + view + ".svg")
            << MakeSvgFile(scene, items::TitleOf(*entry.fpItem), {});
    }
}

int PrintScenes(const std::string& folder, const char* path) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const auto read = ReadJson(text);
    if (const auto* error = std::get_if<JsonError>(&read)) {
        std::fprintf(stderr, "%s: %s\n", path, error->fText.c_str());
        return 1;
    }
    for (const items::Entry& entry : items::ListEntries(std::get<document::Document>(read))) {
        const auto* chart = std::get_if<document::Chart>(&entry.fpItem->fContent);
        if (!chart) continue;
        PrintScene(folder, entry, "desk", LayOut(chart->fPicture, kDeskWidth));
        PrintScene(folder, entry, "phone", LayOut(chart->fPicture, kPhoneWidth));
    }
    return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount == 2) return PrintScenes({}, arguments[1]);
    if (argumentCount == 4 && std::string(arguments[1]) == "--svg") return PrintScenes(arguments[2], arguments[3]);
    return 1;
}
