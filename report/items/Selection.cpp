#include "report/items/Selection.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "host/unicode/Excerpt.h"
#include "report/items/WordDistance.h"

namespace hierfit::report::items {

namespace {

constexpr std::size_t kMostOfName = 200;  // characters that a message shows, and that are compared

UnknownName FindNearest(const std::string& name, const std::vector<Entry>& entries) {
    const std::string word = name.substr(0, kMostOfName);
    std::vector<std::pair<std::size_t, const std::string*>> all;
    for (const Entry& entry : entries) {
        const std::size_t distance =
            std::min(DistanceBetween(word, entry.fAnchor), DistanceBetween(word, KindOfName(entry.fAnchor)));
        all.emplace_back(distance, &entry.fAnchor);
    }
    std::ranges::stable_sort(all, {}, &std::pair<std::size_t, const std::string*>::first);
    UnknownName unknown{name, {}, all.size() - std::min(all.size(), UnknownName::kMostNearest)};
    all.resize(all.size() - unknown.fFurther);
    for (const auto& [distance, anchor] : all) unknown.fvNearest.push_back(*anchor);
    return unknown;
}

/// The items that names choose, and where they stand in the list of entries.
class Choice {
  public:
    explicit Choice(const std::vector<Entry>& entries) : fEntries(entries) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            fPlaces[entries[i].fAnchor].push_back(i);
            fPlaces[KindOfName(entries[i].fAnchor)].push_back(i);
        }
    }

    /// False where nothing bears the name.
    bool Add(const std::string& name) {
        const auto places = fPlaces.find(name);
        if (places == fPlaces.end()) return false;
        for (const std::size_t place : places->second) AddWithAllBelow(place);
        return true;
    }

    bool Has(const document::Item& item) const { return fChosen.contains(&item); }

  private:
    void AddWithAllBelow(std::size_t place) {
        const int depth = fEntries[place].fDepth;
        fChosen.insert(fEntries[place].fpItem);
        while (++place < fEntries.size() && fEntries[place].fDepth > depth) fChosen.insert(fEntries[place].fpItem);
    }

    const std::vector<Entry>& fEntries;
    std::unordered_map<std::string_view, std::vector<std::size_t>> fPlaces;
    std::unordered_set<const document::Item*> fChosen;
};

void RemoveOthers(std::list<document::Item>& items, const Choice& choice) {
    std::erase_if(items, [&choice](document::Item& item) {
        auto* heading = std::get_if<document::Heading>(&item.fContent);
        if (!heading) return !choice.Has(item);
        RemoveOthers(heading->fItems, choice);
        return heading->fItems.empty() && !choice.Has(item);
    });
}

void GiveNames(std::list<document::Item>& items, std::vector<Entry>::const_iterator& entry) {
    for (document::Item& item : items) {
        item.fName = (entry++)->fAnchor;
        if (auto* heading = std::get_if<document::Heading>(&item.fContent)) GiveNames(heading->fItems, entry);
    }
}

}  // namespace

std::vector<std::string> SplitNames(std::string_view list) {
    constexpr std::string_view kBlanks = " \t\r\n";
    std::vector<std::string> names;
    while (!list.empty()) {
        std::string_view name = list.substr(0, list.find(','));
        list.remove_prefix(std::min(list.size(), name.size() + 1));
        name.remove_prefix(std::min(name.size(), name.find_first_not_of(kBlanks)));
        name = name.substr(0, name.find_last_not_of(kBlanks) + 1);
        if (!name.empty()) names.emplace_back(name);
    }
    return names;
}

std::string_view KindOfName(std::string_view name) { return name.substr(0, name.rfind('-')); }

bool Bears(const Entry& entry, std::string_view name) {
    return name == entry.fAnchor || name == KindOfName(entry.fAnchor);
}

std::optional<UnknownName> Select(document::Document& document, const std::vector<std::string>& names) {
    if (names.empty()) return {};
    const std::vector<Entry> entries = ListEntries(document);
    Choice choice(entries);
    for (const std::string& name : names) {
        if (!choice.Add(name)) return FindNearest(name, entries);
    }
    auto entry = entries.begin();
    GiveNames(document.fItems, entry);
    RemoveOthers(document.fItems, choice);
    return {};
}

std::string Describe(const UnknownName& unknown) {
    std::string text = "no item is named " + unicode::Excerpt(unknown.fName, kMostOfName);
    const char* between = "; there are ";
    for (const std::string& name : unknown.fvNearest) {
        text.append(between).append(name);
        between = ", ";
    }
    if (unknown.fFurther > 0) text += " and " + std::to_string(unknown.fFurther) + " more";
    return text;
}

}  // namespace hierfit::report::items
