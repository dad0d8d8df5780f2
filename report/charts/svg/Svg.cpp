#include "report/charts/svg/Svg.h"

#include <algorithm>
#include <optional>
#include <span>

#include "report/charts/svg/CommonTip.h"
#include "report/charts/svg/Forms.h"
#include "report/charts/svg/InkColors.h"
#include "report/charts/svg/Items.h"
#include "report/charts/svg/Numbers.h"
#include "report/markup/Escape.h"

namespace hierfit::report::charts {

namespace {

constexpr double kUsualSize = 12;
constexpr std::size_t kCrowd = 1000;    // marks of one look
constexpr std::size_t kMarks = 2000;    // of a picture: of more, groups tell the keys
constexpr std::size_t kTips = 300'000;  // bytes of a picture's: of more, groups tell what they have in common

// Pictures are laid out for the widest of these, so none of them is too wide.
constexpr std::string_view kFonts = "Helvetica,Arial,'Liberation Sans','DejaVu Sans',sans-serif";

std::string_view NameOf(Anchor anchor) {
    static constexpr std::string_view kNames[] = {"start", "middle", "end"};
    return kNames[static_cast<std::size_t>(anchor)];
}

void AppendAttribute(std::string& out, std::string_view name, std::string_view value) {
    out.append(" ").append(name).append("=\"").append(value).append("\"");
}

void AppendShare(std::string& out, std::string_view name, double share) {
    const auto hundredths = static_cast<int>(TenthsOf(10 * std::clamp(share, 0.0, 1.0)));
    if (hundredths >= 100) return;
    const std::string digits = std::to_string(hundredths + 100);
    AppendAttribute(out, name, "." + digits.substr(1));
}

void AppendTextElement(std::string& out, std::string_view name, std::string_view text,
                       std::string_view lineBreak = " ") {
    out.append("<").append(name).append(">");
    AppendCharacters(out, text, lineBreak);
    out.append("</").append(name).append(">");
}

/// The radius of circles that have nothing but a fill, if there are so many that each should be short.
std::optional<double> RadiusOfCrowd(std::span<const Item> items) {
    if (items.size() < kCrowd || items.front().fLook->fPaint.fStroke != Ink::None) return {};
    std::optional<double> radius;
    for (const Item& item : items) {
        const auto* circle = item.fvShapes.size() == 1 ? std::get_if<Circle>(&item.fvShapes.front().fForm) : nullptr;
        if (!circle || circle->fRadius != radius.value_or(circle->fRadius)) return {};
        radius = circle->fRadius;
    }
    return radius;
}

bool IsMark(const Item& item) { return item.fpElement && !item.fpElement->fTip.empty(); }

bool HasKey(const Element& element, int key) { return std::ranges::find(element.fvKeys, key) != element.fvKeys.end(); }

std::vector<int> FindCommonKeys(std::span<const Item> items) {
    if (!std::ranges::all_of(items, IsMark)) return {};
    std::vector<int> keys = items.front().fpElement->fvKeys;
    for (const Item& item : items) std::erase_if(keys, [&](int key) { return !HasKey(*item.fpElement, key); });
    return keys;
}

CommonTip FindCommonTip(std::span<const Item> items) {
    if (!std::ranges::all_of(items, IsMark)) return CommonTip({});
    std::vector<std::string_view> tips;
    for (const Item& item : items) tips.push_back(item.fpElement->fTip);
    return CommonTip(tips);
}

class SceneWriter {
  public:
    SceneWriter(std::string& out, const Scene& scene, Names names) : fOut(out), fNames(names) {
        std::size_t marks = 0;
        std::size_t bytes = 0;
        for (const Element& element : scene.fvElements) {
            marks += element.fTip.empty() ? 0 : 1;
            bytes += element.fTip.size();
        }
        fAreKeysShared = marks > kMarks;
        fAreTipsShared = bytes > kTips && names == Names::Marks;
    }

    // What stands side by side with the same look shares one element's attributes.
    void Append(std::span<const Item> items) {
        while (!items.empty()) {
            std::size_t count = 1;
            const std::optional<Look>& look = items.front().fLook;
            while (look && count < items.size() && items[count].fLook == look) ++count;
            AppendRun(items.first(count));
            items = items.subspan(count);
        }
    }

  private:
    void AppendRun(std::span<const Item> items) {
        if (items.size() == 1) return AppendItem(items.front(), items.front().fLook);
        if (fAreKeysShared) fvCommonKeys = FindCommonKeys(items);
        if (fAreTipsShared) fCommonTip = FindCommonTip(items);
        if (const auto radius = RadiusOfCrowd(items)) {
            AppendDots(items, *radius);
        } else {
            BeginGroup(*items.front().fLook, "");
            for (const Item& item : items) AppendItem(item, {});
        }
        fOut += "</g>";
        fvCommonKeys.clear();
        fCommonTip = CommonTip({});
    }

    void BeginGroup(const Look& look, std::string_view attributes) {
        fOut.append("<g").append(AttributesOf(nullptr, look)).append(attributes);
        AppendKeys(fOut, "data-k", fvCommonKeys);
        fOut += '>';
        if (fCommonTip.IsUseful()) AppendTextElement(fOut, "desc", fCommonTip.Form(), "\n");
    }

    /// The pen is as wide as the circles.
    void AppendDots(std::span<const Item> items, double radius) {
        Look look = *items.front().fLook;
        std::swap(look.fPaint.fFill, look.fPaint.fStroke);
        look.fPaint.fStrokeWidth = 2 * radius;
        BeginGroup(look, " stroke-linecap=\"round\"");
        for (const Item& item : items) {
            const auto& circle = std::get<Circle>(item.fvShapes.front().fForm);
            AppendDot(fOut, circle, AttributesOf(item.fpElement, {}), TitleOf(item.fpElement));
        }
    }

    /// The look is nothing where it is told already.
    void AppendItem(const Item& item, const std::optional<Look>& look) {
        const std::string attributes = AttributesOf(item.fpElement, look);
        const std::string title = TitleOf(item.fpElement);
        if (item.fvShapes.size() == 1) return AppendForm(fOut, item.fvShapes.front().fForm, attributes, title);
        if (!item.fpElement) return AppendLines(fOut, item.fvShapes, attributes);
        fOut.append("<g").append(attributes).append(">").append(title);
        if (item.fLook) {
            for (const Shape& shape : item.fvShapes) AppendForm(fOut, shape.fForm, {});
        } else {
            std::vector<Item> parts;
            ListDecoration(parts, item.fvShapes);
            Append(parts);
        }
        fOut += "</g>";
    }

    std::string AttributesOf(const Element* element, const std::optional<Look>& look) const {
        std::string attributes;
        AppendClasses(attributes, element, look);
        if (look) AppendPaint(attributes, look->fPaint);
        if (look && look->fIsText) AppendStyle(attributes, *look);
        if (element && !IsNameless(element))
            AppendKeys(attributes, element->fIsEntry ? "data-e" : "data-k", KeysOf(*element));
        return attributes;
    }

    bool IsNameless(const Element* element) const { return element && !element->fTip.empty() && fNames == Names::None; }

    void AppendClasses(std::string& out, const Element* element, const std::optional<Look>& look) const {
        std::string classes;
        const auto add = [&](const std::string& name) { classes.append(classes.empty() ? "" : " ").append(name); };
        const auto addInk = [&](char kind, Ink ink) {
            if (ink != Ink::None) add(kind + std::to_string(static_cast<int>(ink)));
        };
        if (IsNameless(element)) add("m");
        if (look) addInk('f', look->fPaint.fFill);
        if (look) addInk('s', look->fPaint.fStroke);
        if (!classes.empty()) AppendAttribute(out, "class", classes);
    }

    // Opacity is that of each shape: where shapes lie on each other, there is more of it.
    static void AppendPaint(std::string& out, const Paint& paint) {
        if (paint.fFill != Ink::None) {
            AppendAttribute(out, "fill", ColorOf(paint.fFill));
            AppendShare(out, "fill-opacity", paint.fOpacity);
        }
        if (paint.fStroke == Ink::None) return;
        AppendAttribute(out, "stroke", ColorOf(paint.fStroke));
        AppendShare(out, "stroke-opacity", paint.fOpacity);
        if (TenthsOf(paint.fStrokeWidth) != TenthsOf(1)) AppendNumber(out, "stroke-width", paint.fStrokeWidth);
        if (paint.fDash != Dash::Solid) {
            AppendAttribute(out, "stroke-dasharray", paint.fDash == Dash::Long ? "7 3" : "4 3");
        }
    }

    static void AppendStyle(std::string& out, const Look& look) {
        if (TenthsOf(look.fStyle.fSize) != TenthsOf(kUsualSize)) AppendNumber(out, "font-size", look.fStyle.fSize);
        if (look.fStyle.fIsBold) AppendAttribute(out, "font-weight", "bold");
        if (look.fPaint.fStroke != Ink::None) AppendAttribute(out, "paint-order", "stroke");
        if (look.fAnchor != Anchor::Start) AppendAttribute(out, "text-anchor", NameOf(look.fAnchor));
        if (look.fIsRightToLeft) AppendAttribute(out, "direction", "rtl");
    }

    std::string TitleOf(const Element* element) const {
        std::string title;
        if (!element || element->fTip.empty() || fNames == Names::None) return title;
        AppendTextElement(title, "title", fCommonTip.IsUseful() ? fCommonTip.RestOf(element->fTip) : element->fTip,
                          "\n");
        return title;
    }

    /// Those that its group does not tell.
    std::vector<int> KeysOf(const Element& element) const {
        std::vector<int> keys = element.fvKeys;
        std::erase_if(keys, [&](int key) { return std::ranges::find(fvCommonKeys, key) != fvCommonKeys.end(); });
        return keys;
    }

    static void AppendKeys(std::string& out, std::string_view name, const std::vector<int>& keys) {
        if (keys.empty()) return;
        std::string numbers;
        for (const int key : keys) numbers.append(numbers.empty() ? "" : " ").append(std::to_string(key));
        AppendAttribute(out, name, numbers);
    }

    std::string& fOut;
    Names fNames;
    bool fAreKeysShared = false;
    bool fAreTipsShared = false;
    std::vector<int> fvCommonKeys;  ///< of the marks of the group that is being printed
    CommonTip fCommonTip{{}};
};

void AppendRoot(std::string& out, const Scene& scene, std::string_view attributes) {
    out.append("<svg").append(attributes);
    AppendNumber(out, "width", scene.fWidth);
    AppendNumber(out, "height", scene.fHeight);
    out += " viewBox=\"0 0 ";
    AppendTenths(out, TenthsOf(scene.fWidth));
    out += ' ';
    AppendTenths(out, TenthsOf(scene.fHeight));
    out += '"';
    AppendAttribute(out, "font-family", kFonts);
    AppendNumber(out, "font-size", kUsualSize);
    AppendAttribute(out, "fill", "none");
    out += '>';
}

}  // namespace

void AppendSvg(std::string& out, const Scene& scene, Names names, std::string_view attributes,
               std::string_view content) {
    AppendRoot(out, scene, attributes);
    out += content;
    SceneWriter(out, scene, names).Append(ListItems(scene.fvElements));
    out += "</svg>";
}

std::string MakeSvgFile(const Scene& scene, std::string_view title, std::string_view sentence) {
    std::string content;
    if (!title.empty()) AppendTextElement(content, "title", title);
    if (!sentence.empty()) AppendTextElement(content, "desc", sentence);
    content += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>";
    std::string out;
    AppendSvg(out, scene, Names::Marks, " xmlns=\"http://www.w3.org/2000/svg\" role=\"group\"", content);
    out += '\n';
    return out;
}

}  // namespace hierfit::report::charts
