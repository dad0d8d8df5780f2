#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace hierfit::chart {

/// One piece of chart XML, from one byte to before another.
struct MarkupPiece {
    enum class Kind {
        Text,
        StartTag,
        EmptyTag,  ///< start and end in one
        EndTag,
        Section,  ///< CDATA with its brackets
        Aside,    ///< comment, processing instruction, declaration
    };
    Kind fKind;
    std::size_t fBegin;
    std::size_t fEnd;
    std::string_view fName;  ///< of a tag
};

/// Takes chart XML apart, whether it is well-formed or not. It differs from XML in one thing: where a CDATA section
/// stands in an element of words, it ends where the element does and nowhere before, since what others write into it
/// may hold anything. It is a view: the text must outlive it. The time is linear in the text.
class ChartMarkup {
  public:
    explicit ChartMarkup(std::string_view xml) : fXml(xml) {}

    /// The next piece; false at the end.
    bool Next(MarkupPiece& piece);

  private:
    MarkupPiece ReadTag();
    std::size_t EndOf(std::string_view mark, std::size_t from) const;
    std::size_t EndOfTag() const;
    std::size_t EndOfSection();

    std::string_view fXml;
    std::size_t fAt = 0;
    std::string_view fOpen;                 ///< the element that has just begun; empty when a tag has ended it
    std::set<std::string_view> fvUnclosed;  ///< elements of words behind which no section ends any more
};

/// The XML that chart XML stands for: UTF-8, without the characters that XML forbids, and what ends a section split
/// where it stands within one.
std::string MakePlainXml(std::string xml);

}  // namespace hierfit::chart
