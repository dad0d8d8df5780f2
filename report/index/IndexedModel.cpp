#include "report/index/IndexedModel.h"

#include <algorithm>
#include <vector>

#include "report/html/Facts.h"
#include "report/items/Entries.h"

namespace hierfit::report {

namespace {

constexpr int kWarning = 2;

bool IsWarning(const items::Entry& entry) {
    const auto* message = std::get_if<document::Message>(&entry.fpItem->fContent);
    return message && message->fLevel >= kWarning;
}

}  // namespace

void Describe(IndexedModel& model, const document::Document& document) {
    const std::vector<items::Entry> entries = items::ListEntries(document);
    const html::Facts facts = html::FindFacts(entries);
    model.fTarget = html::SpellTarget(facts);
    model.fRecords = facts.fRecords;
    model.fAkaike = facts.fAkaike;
    model.fBayesian = facts.fBayesian;
    const auto isGrave = [](const document::Diagnostic& diagnostic) { return diagnostic.fLevel >= kWarning; };
    model.fWarnings = static_cast<int>(std::ranges::count_if(entries, IsWarning) +
                                       std::ranges::count_if(document.fvDiagnostics, isGrave));
}

}  // namespace hierfit::report
