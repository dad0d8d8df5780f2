// Feeds a label through runs of examples, in place of the words of each field and each value. It comes to every table,
// and to every template in the shapes that a run gives it.

#include <algorithm>
#include <array>
#include <map>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"
#include "report/items/Entries.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::fuzz {

namespace {

constexpr std::array<const char*, 4> kExamples = {"ergostool", "warpbreaks", "bacteria", "esoph"};

// What the procedure may take for a marker where a label holds it. Then a chart may lose words or be left out.
constexpr std::array<std::string_view, 4> kMarkersOfCharts = {"whenText", "y=", "</lineGuide>", "popup2"};

std::string LabelFields(std::string pmml, const std::string& label) {
    for (const std::string_view name : {"displayName=\"", "displayValue=\""}) {
        for (std::size_t at = pmml.find(name); at != std::string::npos; at = pmml.find(name, at)) {
            at += name.size();
            pmml.replace(at, pmml.find('"', at) - at, label);
        }
    }
    return pmml;
}

session::Result Run(const std::string& example, const std::string& label, session::Labels shown) {
    session::Settings settings;
    settings.fVariables = settings.fValues = shown;
    return session::Run({"model.pmml", LabelFields(test::ReadExample(example, "model.pmml"), kXml.fpEscape(label))},
                        {"model.statxml", test::ReadExample(example, "model.statxml")}, settings);
}

/// The names of a report's items, but for headings, and how much is told about them.
std::string Outline(const document::Document& document) {
    std::string outline = std::to_string(document.fvDiagnostics.size());
    for (const auto& entry : report::items::ListEntries(document)) {
        const bool isHeading = std::holds_alternative<document::Heading>(entry.fpItem->fContent);
        outline += isHeading ? " heading" : " " + entry.fAnchor;
    }
    return outline;
}

bool HoldsMarker(const std::string& label) {
    return std::ranges::any_of(kMarkersOfCharts, [&](auto marker) { return label.find(marker) != label.npos; });
}

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kPlainText}; }

void RunInput(std::string_view input) {
    static std::map<std::string, std::string> plain;
    const std::string label(input);
    const std::string example = OneOf(kExamples, static_cast<char>(label.size() % kMarkers));
    const auto shown = static_cast<session::Labels>(label.size() / kMarkers % 3);
    const auto [outline, isNew] = plain.try_emplace(example);
    if (isNew) outline->second = Outline(RunExample(example));
    const session::Result result = Run(example, label, shown);
    JudgeRun(result);
    if (!HoldsMarker(label) && Outline(result.fDocument) != outline->second) {
        Fail("the label was read: " + Outline(result.fDocument));
    }
    RenderFreshAndSaved(result.fDocument);
}

}  // namespace hierfit::fuzz
