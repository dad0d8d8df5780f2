#include "host/BpCellText.h"
#include "host/context/RunContext.h"
#include "host/document/Text.h"
#include "host/pivot/text/PatternExpansion.h"

namespace hierfit {

struct BpComposite::Building {
    document::PatternSource fSource;
    bool fIsInSublist = false;
};

BpComposite::BpComposite(const std::string& pattern, bool translate)
    : BpCellText(std::make_shared<const document::Text>()),
      fpBuilding(std::make_shared<Building>(Building{{pattern, translate, {}}})) {}

void BpComposite::Add(const BpCellText& text) {
    if (!fpBuilding) return;
    std::vector<document::Argument>& arguments = fpBuilding->fSource.fvArguments;
    if (fpBuilding->fIsInSublist) {
        arguments.back().fvTexts.push_back(*text.GetText());
    } else {
        arguments.push_back({false, {*text.GetText()}});
    }
}

void BpComposite::Sublist() {
    if (!fpBuilding) return;
    fpBuilding->fSource.fvArguments.push_back({true, {}});
    fpBuilding->fIsInSublist = true;
}

void BpComposite::EndSublist() {
    if (fpBuilding) fpBuilding->fIsInSublist = false;
}

void BpComposite::Finish() {
    if (!fpBuilding) return;
    document::PatternSource source = std::move(fpBuilding->fSource);
    fpBuilding.reset();
    const std::string_view pattern =
        source.fTranslate ? context::RunContext::Current().Translate(source.fPattern.Get()) : source.fPattern.Get();
    std::string words = pivot::ExpandPattern(pattern, source.fvArguments);
    fpText = std::make_shared<const document::Text>(document::Text{std::move(words), std::move(source)});
}

}  // namespace hierfit
