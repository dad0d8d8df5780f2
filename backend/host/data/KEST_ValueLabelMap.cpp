#include "host/KEST_ValueLabelMap.h"

namespace hierfit {

namespace {

template <typename Map, typename Key>
const char* Find(const Map& labels, const Key& value) {
    const auto found = labels.find(value);
    return found == labels.end() ? nullptr : found->second.c_str();
}

}  // namespace

const char* KEST_ValueLabelMap::GetLabel(double value) const { return Find(fpLabels->fOfNumbers, value); }

const char* KEST_ValueLabelMap::GetLabel(const std::string& value) const { return Find(fpLabels->fOfTexts, value); }

const char* KEST_ValueLabelMap::GetLabel(const OBS* value) const {
    if (!value) return nullptr;
    return value->IsText() ? GetLabel(value->Text()) : GetLabel(value->Number());
}

}  // namespace hierfit
