#pragma once

#include <compare>
#include <memory>
#include <optional>
#include <string>

/// What the module that writes workbooks offers. It is loaded only when one is asked for, since it brings a library
/// along.
namespace hierfit::report::xlsx {

/// What a sheet and its cells hold at most.
inline constexpr int kMostRows = 1048576;
inline constexpr int kMostColumns = 16384;
inline constexpr int kMostCharacters = 32767;  ///< of a cell's text, in units of UTF-16
inline constexpr int kMostOfName = 31;         ///< characters of a sheet's name

/// Left is where a sheet begins: the right of one from right to left.
enum class Align : unsigned char { Left, Right, Center };
enum class Rule : unsigned char { None, Thin, Thick };

/// How cells look.
struct Look {
    std::string fCode = {};  ///< the number format, at most `kMostOfCode` bytes; the general one if empty
    Align fAlign = Align::Left;
    int fIndent = 0;
    bool fIsBold = false;
    bool fIsLink = false;
    bool fIsTop = false;  ///< whether what is lower than its row stands at the row's top or at its bottom
    bool fWraps = false;
    Rule fAbove = Rule::None;
    Rule fBelow = Rule::None;

    auto operator<=>(const Look&) const = default;
};
inline constexpr std::size_t kMostOfCode = 127;

/// How a sheet is seen and printed. Rows and columns count from 0.
struct Page {
    int fFrozenRows = 0;
    int fFrozenColumns = 0;
    int fFirstTitleRow = 0;  ///< rows from here to the frozen ones are repeated on each page, if there are any
    bool fIsWide = false;    ///< landscape
    bool fFitsWidth = true;  ///< one page wide
};

/// A picture on a sheet.
struct SheetPicture {
    std::string fPng;
    double fScale = 1;   ///< of its pixels
    std::string fWords;  ///< for those who do not see it
};

/// One sheet. Cells are put row by row, each row's height ahead of its cells. Texts are UTF-8 without control
/// characters other than line feeds, and within `kMostCharacters`.
class Sheet {
  public:
    virtual ~Sheet() = default;
    virtual void SetPage(const Page& page) = 0;
    virtual void SetWidth(int column, double characters) = 0;
    virtual void SetHeight(int row, double points) = 0;
    virtual void PutBlank(int row, int column, int look) = 0;
    virtual void PutNumber(int row, int column, double number, int look) = 0;
    virtual void PutText(int row, int column, const std::string& text, int look) = 0;
    /// A text that leads to another sheet.
    virtual void PutLink(int row, int column, const std::string& sheet, const std::string& text, int look) = 0;
    /// One cell over several columns of a row.
    virtual void PutWide(int row, int firstColumn, int lastColumn, const std::string& text, int look) = 0;
    virtual void PutPicture(int row, int column, const SheetPicture& picture) = 0;
};

/// A workbook. The same calls give the same bytes. What fails in it is remembered until it is closed.
class Book {
  public:
    virtual ~Book() = default;
    virtual int AddLook(const Look& look) = 0;
    /// A sheet, which belongs to the book; its name is one that sheets can have. `isLarge`: its cells go to a file
    /// right away, so that it takes no memory, but a file that stays open; nothing if there cannot be one.
    virtual Sheet* AddSheet(const std::string& name, bool isLarge) = 0;
    /// The file's bytes; nothing when something failed, which `reason` then tells.
    virtual std::optional<std::string> Close(std::string& reason) = 0;
};

struct Properties {
    std::string fTitle;
    std::string fAuthor;
    std::string fProducer;
    bool fIsRightToLeft = false;  ///< whether sheets begin at their right
};

/// The module's one export.
extern "C" {
using HierfitMakeBook = void (*)(const Properties& properties, std::unique_ptr<Book>& book);
}
inline constexpr const char* kHierfitMakeBook = "HierfitMakeBook";

}  // namespace hierfit::report::xlsx
