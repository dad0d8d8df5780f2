#include "interface/Settings.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "host/unicode/Excerpt.h"
#include "host/unicode/Utf8.h"
#include "interface/ShortMemory.h"
#include "interface/hierfit.h"
#include "report/items/Selection.h"

namespace hierfit::interface {

namespace {

using session::Labels;

constexpr std::size_t kMostOfText = 200;

/// Takes a value, or gives what would be one.
using Setter = std::optional<std::string> (*)(hf_settings& settings, const std::string& value);

template <typename Value, std::size_t kCount>
using Choices = std::array<std::pair<std::string_view, Value>, kCount>;

constexpr Choices<Labels, 3> kVariableLabels = {
    {{"name", Labels::Name}, {"label", Labels::Label}, {"both", Labels::Both}}};
constexpr Choices<Labels, 3> kValueLabels = {
    {{"value", Labels::Name}, {"label", Labels::Label}, {"both", Labels::Both}}};
constexpr Choices<bool, 2> kTruths = {{{"true", true}, {"false", false}}};
constexpr Choices<bool, 3> kColors = {{{"auto", false}, {"always", true}, {"never", false}}};
constexpr Choices<report::Scripts, 2> kStatic = {{{"true", report::Scripts::No}, {"false", report::Scripts::Yes}}};

std::string OneOf(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) list.append(list.empty() ? "one of " : ", ").append(word);
    return list;
}

template <typename Value, typename List>
std::optional<std::string> Choose(Value& target, const List& choices, const std::string& word) {
    std::vector<std::string> words;
    for (const auto& [name, value] : choices) {
        if (name == word) {
            target = value;
            return {};
        }
        words.emplace_back(name);
    }
    return OneOf(words);
}

std::optional<std::string> SetLanguage(hf_settings& settings, const std::string& value) {
    const std::vector<std::string> languages = session::Languages();
    if (std::ranges::find(languages, value) == languages.end()) return OneOf(languages);
    settings.fRun.fLanguage = value;
    return {};
}

std::optional<std::string> SetScale(hf_settings& settings, const std::string& value) {
    const std::optional<double> scale = report::ReadScale(value);
    if (!scale) return "a number above 0 and up to 20";
    settings.fRender.fScale = *scale;
    return {};
}

/// "" takes them back.
std::optional<std::string> SetDigits(hf_settings& settings, const std::string& value) {
    const std::optional<int> digits = report::style::ReadDigits(value);
    if (!digits && !value.empty()) return "a number from 0 to 15";
    settings.fRender.fStyle.fDigits = digits;
    return {};
}

std::optional<std::string> Take(std::string& target, const std::string& value) {
    target = value;
    return {};
}

struct Key {
    std::string_view fName;
    Setter fSet;
};

constexpr Key kKeys[] = {
    {"pmml", [](hf_settings& all, const std::string& value) { return Take(all.fPmmlName, value); }},
    {"statxml", [](hf_settings& all, const std::string& value) { return Take(all.fStatXmlName, value); }},
    {"lang", SetLanguage},
    {"variables",
     [](hf_settings& all, const std::string& value) { return Choose(all.fRun.fVariables, kVariableLabels, value); }},
    {"values",
     [](hf_settings& all, const std::string& value) { return Choose(all.fRun.fValues, kValueLabels, value); }},
    {"templates", [](hf_settings& all, const std::string& value) { return Take(all.fRun.fTemplateFolder, value); }},
    {"title", [](hf_settings& all, const std::string& value) { return Take(all.fRender.fHtml.fTitle, value); }},
    {"author", [](hf_settings& all, const std::string& value) { return Take(all.fRender.fHtml.fAuthor, value); }},
    {"static",
     [](hf_settings& all, const std::string& value) { return Choose(all.fRender.fHtml.fScripts, kStatic, value); }},
    {"standalone",
     [](hf_settings& all, const std::string& value) { return Choose(all.fRender.fIsStandalone, kTruths, value); }},
    {"charts", [](hf_settings& all,
                  const std::string& value) { return Choose(all.fRender.fText.fHasChartValues, kTruths, value); }},
    {"color",
     [](hf_settings& all, const std::string& value) { return Choose(all.fRender.fText.fColor, kColors, value); }},
    {"style",
     [](hf_settings& all, const std::string& value) {
         return Choose(all.fRender.fStyle.fStyle, report::style::Styles(), value);
     }},
    {"digits", SetDigits},
    {"scale", SetScale},
    {"only",
     [](hf_settings& all, const std::string& value) -> std::optional<std::string> {
         all.fRender.fvOnly = report::items::SplitNames(value);
         return {};
     }},
};

std::string ListKeys() {
    std::string list;
    for (const Key& key : kKeys) list.append(list.empty() ? "" : ", ").append(key.fName);
    return list;
}

}  // namespace

std::optional<std::string> Set(hf_settings& settings, const std::string& key, const std::string& value) {
    const auto* found = std::ranges::find(kKeys, key, &Key::fName);
    if (found == std::end(kKeys)) {
        return "there is no setting " + unicode::Excerpt(key, kMostOfText) + "; there are " + ListKeys();
    }
    if (const auto expected = found->fSet(settings, value)) {
        return key + ": " + unicode::Excerpt(value, kMostOfText) + " is not " + *expected;
    }
    return {};
}

}  // namespace hierfit::interface

hf_settings* hf_settings_new(void) {
    try {
        return new hf_settings;
    } catch (const std::exception&) {
        return nullptr;
    }
}

int hf_settings_set(hf_settings* settings, const char* key, const char* value) {
    if (!settings || !key || !value) return HF_USAGE;
    try {
        settings->fError = hierfit::interface::Set(*settings, key, hierfit::unicode::MakeUtf8(value));
    } catch (const std::bad_alloc&) {
        settings->fError = hierfit::interface::kShortMemory;
    } catch (const std::exception& error) {
        settings->fError = error.what();
    }
    return settings->fError ? HF_USAGE : HF_OK;
}

const char* hf_settings_error(const hf_settings* settings) {
    return settings && settings->fError ? settings->fError->c_str() : nullptr;
}

void hf_settings_free(hf_settings* settings) { delete settings; }
