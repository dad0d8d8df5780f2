#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// The chart library's wide string. It holds any Unicode text.
class HIERFIT_EXPORT ChartString {
  public:
    ChartString() = default;

    /// From plain ASCII text.
    explicit ChartString(const char* text);
    explicit ChartString(std::u32string text);

    ChartString& operator+=(const ChartString& other);

    /// Replaces every place of one text by another.
    void replaceSubstring(const ChartString& from, const ChartString& to);

    std::string toUTF8() const;
    const char32_t* xc_str() const { return fText.c_str(); }
    bool empty() const { return fText.empty(); }

  private:
    std::u32string fText;
};

/// Conversions to the chart library's string. Bytes that are no UTF-8 become U+FFFD.
class HIERFIT_EXPORT XUtility {
  public:
    /// From output-language text: what the string table gives, and text put together from it.
    static ChartString ChartStringFromOLANG(const std::string& text);

    /// From a variable's name or label.
    static ChartString ChartStringFromLocalCodePage(const std::string& text);
};

}  // namespace hierfit
