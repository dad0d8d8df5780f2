#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "host/SDOMXMLWrapper.h"

namespace hierfit {

/// The elements that an iterator gives, for a range loop. One pass: an iterator does not start over.
class Elements {
  public:
    /// A null iterator gives no element.
    explicit Elements(SDOMXMLIterator* iterator) : fpIterator(iterator) {}

    /// The elements at a path below an element.
    Elements(const SDOMXMLWrapper& element, const char* path);

    bool Empty() const { return !fpIterator; }

    struct End {};
    class Position {
      public:
        explicit Position(SDOMXMLIterator* iterator) : fpIterator(iterator) { ++*this; }
        SDOMXMLWrapper& operator*() const { return *fpElement; }
        Position& operator++() {
            if (!fpIterator || !fpIterator->Next(&fpElement)) fpElement = nullptr;
            return *this;
        }
        bool operator!=(End) const { return fpElement != nullptr; }

      private:
        SDOMXMLIterator* fpIterator;
        SDOMXMLWrapper* fpElement = nullptr;
    };

    Position begin() const { return Position(fpIterator); }
    End end() const { return {}; }

  private:
    SDOMXMLIterator* fpIterator = nullptr;
};

/// The first element at a path below an element, null when there is none.
SDOMXMLWrapper* FirstElement(const SDOMXMLWrapper& element, const char* path);

/// An attribute's text, empty when the element has no such attribute.
std::string AttributeText(const SDOMXMLWrapper& element, const char* name);

/// A boolean attribute is true when its text is exactly that.
inline bool IsTrue(const std::string& text) { return text == "true"; }

/// A figure, or what stands for one that is not given.
double NumberOr(const std::string& text, double whenEmpty);
int IntegerOr(const std::string& text, int whenEmpty);

/// The position of a text in a table, the table's size for any other text.
template <std::size_t n>
int IndexOf(const std::array<std::string_view, n>& texts, std::string_view text) {
    std::size_t i = 0;
    while (i < n && texts[i] != text) ++i;
    return static_cast<int>(i);
}

/// The numbers of an array element, in place of what the vector held. The token for a missing figure gives the
/// system-missing value.
bool ReadNumbers(const SDOMXMLWrapper& array, std::vector<double>& numbers);

}  // namespace hierfit
