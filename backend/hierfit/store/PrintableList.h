#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "hierfit/store/RegressionParameter.h"

namespace hierfit {

/// A literal value of a printable list.
struct PrintableValue {
    int fStorage = 0;  ///< 1 integer, 2 real, 3 string, 4 date, 5 time, 6 timestamp, 0 any other
    std::string fValue;
    bool fIsNull = false;
    std::string fLabel;
};

/// A message pattern with its arguments, which the output puts together in the user's language; or, with a map number,
/// a name that the string map of that number resolves.
struct PrintableList {
    std::string fPattern;
    bool fIsKey = false;
    int fMapId = -1;
    std::vector<PrintableList> fvLists;  ///< the arguments
    std::vector<PrintableValue> fvValues;
};

struct StringMapEntry {
    std::string fName;
    RegressionParameter fParam;
};

/// One of the document's tables of model terms.
struct StringMap {
    int fMapId = -1;
    std::vector<StringMapEntry> fvEntries;
    std::unordered_map<std::string, std::size_t> fEntryByName;  ///< of entries of one name, the first

    void Append(StringMapEntry entry) {
        fEntryByName.emplace(entry.fName, fvEntries.size());
        fvEntries.push_back(std::move(entry));
    }
};

/// All tables of model terms, in document order.
struct StringMapCollect {
    std::vector<StringMap> fvMaps;
    std::unordered_map<int, std::size_t> fMapById;  ///< of maps of one number, the first

    void Append(StringMap map) {
        fMapById.emplace(map.fMapId, fvMaps.size());
        fvMaps.push_back(std::move(map));
    }

    /// The term that a name stands for in the map of that number, null when there is none.
    const RegressionParameter* Find(int mapId, const std::string& name) const {
        const auto map = fMapById.find(mapId);
        if (map == fMapById.end()) return nullptr;
        const StringMap& found = fvMaps[map->second];
        const auto entry = found.fEntryByName.find(name);
        return entry == found.fEntryByName.end() ? nullptr : &found.fvEntries[entry->second].fParam;
    }
};

}  // namespace hierfit
