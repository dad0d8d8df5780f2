#pragma once

#include <string>
#include <utility>
#include <variant>

#include "host/NeverHeld.h"
#include "host/SystemMissing.h"

namespace hierfit {

/// One data value, a number or a text. The union knows which of the two it holds, so a value that was loaded against
/// one variable cannot be misread when it is shown against another.
class OBS {
  public:
    OBS() = default;  ///< the system-missing number
    explicit OBS(double number) : fValue(number) {}
    explicit OBS(std::string text) : fValue(std::move(text)) {}

    bool IsText() const { return std::holds_alternative<std::string>(fValue); }

    /// The number; system-missing when a text is held.
    double Number() const { return IsText() ? kSystemMissing : std::get<double>(fValue); }

    /// The text in UTF-8; empty when a number is held.
    std::string Text() const { return IsText() ? std::get<std::string>(fValue) : std::string(); }

  private:
    std::variant<double, std::string, NeverHeld> fValue = kSystemMissing;
};

}  // namespace hierfit
