// Feeds the JSON of a picture, put into a document, through the reader of saved documents, and what is read through
// the layout at three widths.

#include <array>
#include <cmath>
#include <list>
#include <variant>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"
#include "report/json/JsonDocument.h"

namespace hierfit::fuzz {

namespace {

using report::charts::Point;
using report::charts::Scene;

// The last is odd and narrow, where there is no room for anything.
constexpr std::array kWidths = {report::charts::kDeskWidth, report::charts::kPhoneWidth, 97.3};

// Of an element of a scene, or of a point of its paths, for each byte of the input: a level that is one digit and a
// comma gets a tick, a grid line and words.
constexpr std::size_t kMostForAByte = 40;
constexpr std::size_t kMostForNothing = 5'000;

/// Counts what a scene is made of, and fails at a number that has no place.
class SceneCount {
  public:
    std::size_t Of(const Scene& scene) {
        Take(scene.fWidth, scene.fHeight);
        for (const report::charts::Element& element : scene.fvElements) {
            ++fCount;
            for (const report::charts::Shape& shape : element.fvShapes) Take(shape);
        }
        return fCount;
    }

    void operator()(const report::charts::Rectangle& form) { Take(form.fAt, form.fWidth, form.fHeight, form.fRound); }
    void operator()(const report::charts::Circle& form) { Take(form.fAt, form.fRadius); }
    void operator()(const report::charts::Line& form) { Take(form.fFrom, form.fTo); }
    void operator()(const report::charts::Text& form) { Take(form.fAt, form.fStyle.fSize, form.fTurn); }
    void operator()(const report::charts::Path& form) {
        for (const std::vector<Point>& part : form.fvParts) {
            fCount += part.size();
            for (const Point& point : part) Take(point);
        }
    }

  private:
    template <typename... Numbers>
    void Take(Numbers... numbers) {
        (Take(numbers), ...);
    }

    void Take(double number) {
        if (!std::isfinite(number)) Fail("a number of a scene has no place");
    }

    void Take(const Point& point) { Take(point.fX, point.fY); }

    void Take(const report::charts::Shape& shape) {
        ++fCount;
        Take(shape.fPaint.fStrokeWidth, shape.fPaint.fOpacity);
        std::visit(*this, shape.fForm);
    }

    std::size_t fCount = 0;
};

struct Mark {
    std::string fTip;
    std::vector<int> fvKeys;

    bool operator==(const Mark&) const = default;
};

std::vector<Mark> MarksOf(const Scene& scene) {
    std::vector<Mark> marks;
    for (const report::charts::Element& element : scene.fvElements) {
        if (!element.fTip.empty()) marks.push_back({element.fTip, element.fvKeys});
    }
    return marks;
}

void CheckPicture(const document::Picture& picture, std::size_t most) {
    const std::vector<Mark> marks = MarksOf(report::charts::LayOut(picture, report::charts::kDeskWidth));
    for (const double width : kWidths) {
        const Scene scene = report::charts::LayOut(picture, width);
        if (SceneCount().Of(scene) > most) Fail("a scene is much larger than its picture");
        if (MarksOf(scene) != marks) Fail("a picture has other marks at another width");
        CheckXml(report::charts::MakeSvgFile(scene, picture.fTitle, picture.fSentence));
    }
}

void CheckJson(const document::Document& document) {
    const std::string written = report::WriteJson(document);
    const auto again = report::ReadJson(written);
    if (const auto* error = std::get_if<report::JsonError>(&again)) Fail(error->fPath + ": " + error->fText);
    if (report::WriteJson(std::get<document::Document>(again)) != written) Fail("a saved picture is written otherwise");
}

void CheckItems(const std::list<document::Item>& items, std::size_t most) {
    for (const document::Item& item : items) {
        if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) CheckPicture(chart->fPicture, most);
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) CheckItems(heading->fItems, most);
    }
}

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kJson}; }

void RunInput(std::string_view input) {
    const auto read = report::ReadJson(PutPicture(input));
    if (const auto* document = std::get_if<document::Document>(&read)) {
        CheckItems(document->fItems, kMostForNothing + kMostForAByte * input.size());
        CheckJson(*document);
    } else if (std::get<report::JsonError>(read).fText.empty()) {
        Fail("no text says why the picture cannot be read");
    }
}

}  // namespace hierfit::fuzz
