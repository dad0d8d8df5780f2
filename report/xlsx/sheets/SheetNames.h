#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace hierfit::report::xlsx {

/// Names for sheets from those of items: at most `kMostOfName` characters, without those that no sheet's name has, and
/// all different, whatever their case.
class SheetNames {
  public:
    std::string Add(std::string_view item);

  private:
    std::unordered_set<std::string> fTaken;                 ///< in small letters
    std::unordered_map<std::string, std::size_t> fNumbers;  ///< the last ones that names were told apart by
};

}  // namespace hierfit::report::xlsx
