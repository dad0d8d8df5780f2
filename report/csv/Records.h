#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hierfit::report {

/// Writes records field by field.
class Records {
  public:
    void Add(std::string_view field);

    /// A record of one empty field is no empty line, which readers skip.
    void End();

    std::string Take() { return std::move(fOut); }

  private:
    std::string fOut;
    std::size_t fBegin = 0;  ///< of the record
    int fFields = 0;
};

/// The fields of a record, without its end.
std::string JoinFields(const std::vector<std::string>& fields);

}  // namespace hierfit::report
