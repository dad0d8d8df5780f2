#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace hierfit::chart {

/// What a reader ignored, each thing once and not without end.
class Remarks {
  public:
    void Add(std::string remark);
    std::vector<std::string> Take() { return std::move(fvRemarks); }

  private:
    std::vector<std::string> fvRemarks;
};

/// A name or value of the XML as a remark quotes it: in quotes, cut where it is long.
std::string Quote(std::string_view text);

}  // namespace hierfit::chart
