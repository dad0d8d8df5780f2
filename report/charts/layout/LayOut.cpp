#include "report/charts/layout/LayOut.h"

#include <algorithm>

#include "host/unicode/SignedFigures.h"
#include "report/charts/layout/Content.h"
#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"
#include "report/markup/Escape.h"

namespace hierfit::report::charts {

namespace {

constexpr double kMargin = 6;
constexpr double kLeastForWords = 400;  // narrower pictures let their words stand out
constexpr double kBelowTitle = 12;
constexpr double kAboveNotes = 12;

/// Words above or below the content, with what they are set in.
struct Block {
    std::vector<std::string> fvLines;
    TextStyle fStyle;
    Ink fInk;
};

void AddBlock(std::vector<Block>& blocks, const std::string& words, const TextStyle& style, Ink ink, double width) {
    std::vector<std::string> lines = WrapText(words, width, style);
    if (!lines.empty()) blocks.push_back({std::move(lines), style, ink});
}

double HeightOf(const std::vector<Block>& blocks) {
    double height = 0;
    for (const Block& block : blocks) height += static_cast<double>(block.fvLines.size()) * LineHeight(block.fStyle);
    return height;
}

double WidthOf(const std::vector<Block>& blocks) {
    double width = 0;
    for (const Block& block : blocks) width = std::max(width, WidestLine(block.fvLines, block.fStyle));
    return width;
}

/// Sets blocks below each other from a height on. What is read from right to left begins at the right.
Element SetBlocks(const std::vector<Block>& blocks, double top, double right) {
    Element element;
    for (const Block& block : blocks) {
        const bool isRightToLeft = BeginsRightToLeft(block.fvLines.front());
        AddLines(element, block.fvLines, {isRightToLeft ? right : 0, top + Ascent(block.fStyle)}, block.fStyle,
                 isRightToLeft ? Anchor::End : Anchor::Start, block.fInk);
        top += static_cast<double>(block.fvLines.size()) * LineHeight(block.fStyle);
    }
    return element;
}

std::vector<Block> WordsAbove(const document::Picture& picture, double width) {
    std::vector<Block> blocks;
    AddBlock(blocks, picture.fTitle, kTitleStyle, Ink::Ink, width);
    AddBlock(blocks, picture.fSubtitle, kLabelStyle, Ink::Soft, width);
    AddBlock(blocks, picture.fCaption, kLabelStyle, Ink::Soft, width);
    return blocks;
}

std::vector<Block> WordsBelow(const document::Picture& picture, double width) {
    std::vector<Block> blocks;
    for (const std::string& note : picture.fvNotes) AddBlock(blocks, note, kLabelStyle, Ink::Soft, width);
    AddBlock(blocks, picture.fFootnote, kLabelStyle, Ink::Soft, width);
    return blocks;
}

}  // namespace

Scene LayOut(const document::Picture& picture, double width) {
    const double room = width - 2 * kMargin;
    Scene scene = std::visit([room](const auto& content) { return LayOutContent(content, room); }, picture.fContent);
    const double forWords = std::max(scene.fWidth, std::min(kLeastForWords, room));
    const std::vector<Block> above = WordsAbove(picture, forWords);
    const std::vector<Block> below = WordsBelow(picture, forWords);
    const double right = std::max({scene.fWidth, WidthOf(above), WidthOf(below)});
    const double top = above.empty() ? 0 : HeightOf(above) + kBelowTitle;
    Move(scene, 0, top);
    scene.fHeight += top;
    if (!above.empty()) scene.fvElements.insert(scene.fvElements.begin(), SetBlocks(above, 0, right));
    if (!below.empty()) {
        scene.fHeight += kAboveNotes;
        scene.fvElements.push_back(SetBlocks(below, scene.fHeight, right));
        scene.fHeight += HeightOf(below);
    }
    scene.fWidth = right + 2 * kMargin;
    scene.fHeight += 2 * kMargin;
    Move(scene, kMargin, kMargin);
    for (Element& element : scene.fvElements) element.fTip = unicode::KeepSigns(element.fTip);
    return scene;
}

}  // namespace hierfit::report::charts
