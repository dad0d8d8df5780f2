#include "report/docx/Picture.h"

#include <algorithm>
#include <cmath>

#include "report/charts/Pictures.h"
#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/docx/Relations.h"
#include "report/docx/Runs.h"
#include "report/markup/Escape.h"

namespace hierfit::report::docx {

namespace {

constexpr double kTwentiethsToAPixel = 15;
constexpr double kUnitsToAPixel = 9525;
constexpr int kCaptionRoom = 1500;     // below the picture, in twentieths of a point
constexpr double kLeastShrink = 0.75;  // of what can be read upright
constexpr int kMostHalvings = 8;

double ShrinkOf(const DrawnPicture& picture, Page page) {
    const double width = WidthOf(page) / kTwentiethsToAPixel;
    const double height = (HeightOf(page) - kCaptionRoom) / kTwentiethsToAPixel;
    const double most = page == Page::Upright ? ShrinkOnPaper(picture.fHeight) : 1;
    return std::min({most, width / picture.fWidth, height / picture.fHeight});
}

std::optional<std::string> MakePng(const std::string& svg, const DocxSettings& settings) {
    double scale = settings.fScale;
    for (int halving = 0; halving < kMostHalvings; ++halving, scale /= 2) {
        if (auto png = settings.fMakePng(svg, scale)) return png;
    }
    return {};
}

void AppendExtent(std::string& out, std::string_view name, long width, long height) {
    out.append("<").append(name);
    AppendNumber(out, "cx", width);
    AppendNumber(out, "cy", height);
    out += "/>";
}

void AppendNames(std::string& out, std::string_view element, int number, std::string_view sentence) {
    out.append("<").append(element);
    AppendNumber(out, "id", number);
    out.append(" name=\"Picture ").append(std::to_string(number)).append("\" descr=\"");
    AppendCharacters(out, sentence);
    out += "\"/>";
}

void AppendFiles(std::string& out, int number) {
    out.append("<pic:blipFill><a:blip r:embed=\"").append(PixelsRelation(number)).append("\"><a:extLst>");
    out +=
        "<a:ext uri=\"{96DAC541-7B7A-43D3-8B79-37D633B846F1}\"><asvg:svgBlip "
        "xmlns:asvg=\"http://schemas.microsoft.com/office/drawing/2016/SVG/main\" r:embed=\"";
    out.append(VectorsRelation(number)).append("\"/></a:ext></a:extLst></a:blip>");
    out += "<a:stretch><a:fillRect/></a:stretch></pic:blipFill>";
}

}  // namespace

DrawnPicture Draw(const document::Chart& chart, std::string_view title, const DocxSettings& settings) {
    const document::Picture bare = Select(chart.fPicture, title, Titles::NotOfCaption);
    const charts::Scene scene = charts::LayOut(bare, WidthOf(Page::Upright) / kTwentiethsToAPixel);
    DrawnPicture picture{scene.fWidth, scene.fHeight, MakeSvgFile(scene, title, chart.fPicture.fSentence), {}};
    picture.fPng = MakePng(picture.fSvg, settings);
    return picture;
}

Page ChoosePage(const DrawnPicture& picture) {
    const double upright = ShrinkOf(picture, Page::Upright);
    return upright < kLeastShrink && ShrinkOf(picture, Page::Turned) > upright ? Page::Turned : Page::Upright;
}

void AppendPicture(std::string& out, const DrawnPicture& picture, Page page, int number, std::string_view sentence) {
    const double shrink = ShrinkOf(picture, page) * kUnitsToAPixel;
    const long width = std::max(1L, std::lround(picture.fWidth * shrink));
    const long height = std::max(1L, std::lround(picture.fHeight * shrink));
    out += "<w:r><w:drawing><wp:inline distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\">";
    AppendExtent(out, "wp:extent", width, height);
    AppendNames(out, "wp:docPr", number, sentence);
    out +=
        "<wp:cNvGraphicFramePr><a:graphicFrameLocks noChangeAspect=\"1\"/></wp:cNvGraphicFramePr><a:graphic>"
        "<a:graphicData uri=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><pic:pic><pic:nvPicPr>";
    AppendNames(out, "pic:cNvPr", number, sentence);
    out += "<pic:cNvPicPr/></pic:nvPicPr>";
    AppendFiles(out, number);
    out += "<pic:spPr><a:xfrm><a:off x=\"0\" y=\"0\"/>";
    AppendExtent(out, "a:ext", width, height);
    out +=
        "</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData>"
        "</a:graphic></wp:inline></w:drawing></w:r>";
}

}  // namespace hierfit::report::docx
