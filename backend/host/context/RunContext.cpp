#include "host/context/RunContext.h"

#include <stdexcept>
#include <utility>

namespace hierfit::context {

namespace {

thread_local RunContext* gpCurrent = nullptr;

}  // namespace

RunContext::RunContext(Settings settings, const Translator* translator, std::string shareDirectory)
    : fSettings(std::move(settings)), fpTranslator(translator), fShareDirectory(std::move(shareDirectory)) {}

RunContext& RunContext::Current() {
    if (!gpCurrent) throw std::logic_error("no run is under way on this thread");
    return *gpCurrent;
}

RunContext* RunContext::CurrentOrNull() { return gpCurrent; }

RunContext::Activation::Activation(RunContext& context) : fpBefore(std::exchange(gpCurrent, &context)) {}

RunContext::Activation::~Activation() { gpCurrent = fpBefore; }

std::string_view RunContext::Translate(std::string_view key) const {
    if (!fpTranslator) return key;
    return fpTranslator->Find(key).value_or(key);
}

void RunContext::OpenHeading(const std::shared_ptr<std::list<document::Item>>& items) {
    fvOpenHeadings.push_back(items);
}

std::list<document::Item>& RunContext::InnermostItems() {
    while (!fvOpenHeadings.empty() && fvOpenHeadings.back().expired()) fvOpenHeadings.pop_back();
    return fvOpenHeadings.empty() ? fDocument.fItems : *fvOpenHeadings.back().lock();
}

bool RunContext::TakeRoomForWarning() {
    constexpr std::size_t kMostWarnings = 100;
    const std::size_t count = fDocument.fvDiagnostics.size();
    fHasMiss = false;
    if (count == kMostWarnings) AddDiagnostic(2, "there are more warnings, which are not listed", {});
    return count < kMostWarnings;
}

void RunContext::AddDiagnostic(int level, std::string text, std::optional<document::Place> place) {
    fDocument.fvDiagnostics.push_back({level, std::move(text), place});
    fHasMiss = false;
}

void RunContext::SetMiss(Miss::Kind kind, std::string_view name, std::string_view owner, unsigned node) {
    fHasMiss = true;
    fMiss.fKind = kind;
    fMiss.fName = name;
    fMiss.fOwner = owner;
    fMiss.fNode = node;
}

}  // namespace hierfit::context
