#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/BpFormatSpec.h"
#include "host/Export.h"
#include "host/KEST_Variable.h"
#include "host/OBS.h"

namespace hierfit {

namespace document {
struct Text;
}

/// How a variable is shown; the user's setting decides between name and label, the value is kept with the text.
enum class BpShow { InList = 0, InText = 1, AsHeader = 2 };

/// How a data value is shown; the user's setting decides between value and label, the value is kept with the text.
enum class BpPreference { Plain = 0, InList = 1, AsHeader = 2 };

/// One piece of text for a title, label, cell, caption or note. Its words are fixed when it is made, in the language of
/// the run. Texts are immutable once made (a composite once finished) and copied by handle.
class HIERFIT_EXPORT BpCellText {
  public:
    virtual ~BpCellText() = default;

    /// A text of the same content.
    virtual std::unique_ptr<BpCellText> Replicate() const = 0;

    /// The words and their source.
    const std::shared_ptr<const document::Text>& GetText() const { return fpText; }

  protected:
    BpCellText() = default;
    explicit BpCellText(std::shared_ptr<const document::Text> text) : fpText(std::move(text)) {}
    BpCellText(const BpCellText&) = default;
    BpCellText& operator=(const BpCellText&) = default;

    std::shared_ptr<const document::Text> fpText;
};

/// A fixed text: true for a source text or string-table key that is translated, false for one printed unchanged.
class HIERFIT_EXPORT BpString : public BpCellText {
  public:
    BpString(const std::string& text, bool translate);
    std::unique_ptr<BpCellText> Replicate() const override { return std::make_unique<BpString>(*this); }
};

/// A number in one of the table formats.
class HIERFIT_EXPORT BpNumber : public BpCellText {
  public:
    BpNumber(double number, BpFormatSpec format);
    std::unique_ptr<BpCellText> Replicate() const override { return std::make_unique<BpNumber>(*this); }
};

/// A variable's name or label. A null variable gives an empty text.
class HIERFIT_EXPORT BpVariable : public BpCellText {
  public:
    BpVariable(const KEST_Variable* variable, BpShow show);
    std::unique_ptr<BpCellText> Replicate() const override { return std::make_unique<BpVariable>(*this); }
};

/// A value of a variable, as its value label or in the variable's print format. A null value is system-missing.
class HIERFIT_EXPORT BpDataValue : public BpCellText {
  public:
    BpDataValue(const KEST_Variable* variable, const OBS* value, BpPreference preference);
    BpDataValue(const KEST_Variable* variable, double value, BpPreference preference);
    std::unique_ptr<BpCellText> Replicate() const override { return std::make_unique<BpDataValue>(*this); }
};

/// A pattern with marks, filled by the texts that are added: `Add` fills the next mark. Between `Sublist` and
/// `EndSublist` the texts become the items of the next list.
///
/// A list pattern reads "[first:further:]n": n is the number of the sublist, `first` shapes its first item with the
/// marks %1, %2, ..., `further` each further item with ^1, ^2, .... With an empty `first`, all items take `further`; a
/// pattern with k different marks takes k texts an item.
class HIERFIT_EXPORT BpComposite : public BpCellText {
  public:
    BpComposite(const std::string& pattern, bool translate);

    void Add(const BpCellText& text);
    void Sublist();
    void EndSublist();

    /// Ends the composite: its words are put together. It must be called before the composite is used.
    void Finish();

    std::unique_ptr<BpCellText> Replicate() const override { return std::make_unique<BpComposite>(*this); }

  private:
    struct Building;
    std::shared_ptr<Building> fpBuilding;  ///< null once finished
};

/// A text used as a note.
class BpAnnotation {
  public:
    explicit BpAnnotation(const BpCellText& text) : fpText(text.Replicate()) {}
    const BpCellText& GetText() const { return *fpText; }

  private:
    std::unique_ptr<BpCellText> fpText;
};

}  // namespace hierfit
