#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hierfit::report::charts {

/// What the tips of many marks say alike, so that it need be said but once. Tips have the same number of lines; a line
/// is the same in all of them, or begins alike up to a colon or an equals sign, or differs.
class CommonTip {
  public:
    /// Borrows the tips.
    explicit CommonTip(const std::vector<std::string_view>& tips);

    /// Whether there is anything to leave out, and something left that tells one tip from another.
    bool IsUseful() const { return fIsUseful; }

    /// A tip with "\u2026" at the end of each line that differs, in place of what differs.
    std::string Form() const;

    /// What takes the places of those dots in one of the tips, a line for each.
    std::string RestOf(std::string_view tip) const;

  private:
    struct Line {
        std::string_view fText;  ///< all of it, or its beginning
        bool fIsWhole = true;
    };

    void Narrow(std::string_view tip);

    std::vector<Line> fvLines;
    bool fIsUseful = false;
};

}  // namespace hierfit::report::charts
