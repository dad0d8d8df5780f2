#include "host/chart/view/parts/FrameView.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Config.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr TextStyle kTitleStyle{15, true};
constexpr TextStyle kSubtitleStyle{12, false};
constexpr TextStyle kFootnoteStyle{11, false};
constexpr double kLeastWidth = 320;  // narrower charts let their words stand out

std::vector<std::string> Lines(const std::optional<Words>& words, double width, const TextStyle& style) {
    if (!words) return {};
    return WrapText(InWords(*words), width, style);
}

/// Title and what stands below it; nothing when the chart has neither.
Json TitleBlock(const Specification& specification, double width) {
    Json block = Json::object();
    const std::vector<std::string> title = Lines(specification.fTitle, width, kTitleStyle);
    std::vector<std::string> below = Lines(specification.fSubtitle, width, kSubtitleStyle);
    const std::vector<std::string> caption = Lines(specification.fCaption, width, kSubtitleStyle);
    below.insert(below.end(), caption.begin(), caption.end());
    if (title.empty() && below.empty()) return block;
    block["text"] = title.empty() ? std::vector<std::string>{""} : title;
    if (!below.empty()) block["subtitle"] = below;
    return block;
}

/// A title below the picture. It belongs to a view within the whole one, which has a title of its own above.
Json FootnoteBlock(const std::vector<std::string>& lines) {
    return {{"text", lines},
            {"orient", "bottom"},
            {"anchor", "start"},
            {"frame", "bounds"},
            {"fontSize", kFootnoteStyle.fSize},
            {"fontWeight", "normal"},
            {"color", palette::kSoftInk},
            {"lineHeight", 14.5},
            {"offset", 14}};
}

void AddDrawing(Json& view, const Specification& specification, Drawing& drawing, double width) {
    const std::vector<std::string> footnote = Lines(specification.fFootnote, width, kFootnoteStyle);
    if (footnote.empty()) {
        MoveMembers(view, std::move(drawing.fView));
        return;
    }
    drawing.fView["title"] = FootnoteBlock(footnote);
    view["concat"] = Json::array();
    view["concat"].push_back(std::move(drawing.fView));
}

Json TextParams(const std::vector<LevelTexts>& texts) {
    Json params = Json::array();
    for (const LevelTexts& each : texts) params.push_back({{"name", each.fName}, {"value", each.fvTexts}});
    return params;
}

/// Control characters behind ASCII's as numbers, which is how saved documents spell them.
std::string EscapeControls(std::string json) {
    const auto mayBegin = [](char byte) { return byte == '\x7F' || byte == '\xC2'; };
    if (std::none_of(json.begin(), json.end(), mayBegin)) return json;
    std::string escaped;
    escaped.reserve(json.size());
    for (std::size_t at = 0; at < json.size(); ++at) {
        const auto byte = static_cast<unsigned char>(json[at]);
        const auto next = static_cast<unsigned char>(at + 1 < json.size() ? json[at + 1] : 0);
        const bool isPair = byte == 0xC2 && next < 0xA0;
        if (isPair || byte == 0x7F) {
            fmt::format_to(std::back_inserter(escaped), "\\u{:04x}", isPair ? next : byte);
            at += isPair ? 1 : 0;
        } else {
            escaped += json[at];
        }
    }
    return escaped;
}

}  // namespace

std::string FrameView(const Specification& specification, Drawing& drawing) {
    const double width = std::max(drawing.fWidth, kLeastWidth);
    Json view = {{"$schema", "https://vega.github.io/schema/vega-lite/v6.json"},
                 {"description", drawing.fShown.fSentence}};
    if (Json title = TitleBlock(specification, width); !title.empty()) view["title"] = std::move(title);
    if (!drawing.fvTexts.empty()) view["params"] = TextParams(drawing.fvTexts);
    AddDrawing(view, specification, drawing, width);
    std::string text = EscapeControls(view.dump(-1, ' ', false, Json::error_handler_t::replace));
    text.replace(text.size() - 1, 1, ",\"config\":" + ViewConfig() + "}");
    return text;
}

}  // namespace hierfit::chart
