#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/chart/picture/VariableSetting.h"
#include "host/chart/specification/Specification.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// One data variable as a chart shows it: its label, and each of its values as a number and as words. It borrows the
/// values, the field and the setting.
class ShownVariable {
  public:
    ShownVariable(const document::ChartVariable& variable, const Field* field, const VariableSetting* setting);

    std::size_t Rows() const { return fpVariable->fvValues.size(); }
    const document::ChartValue& At(std::size_t row) const { return fpVariable->fvValues[row]; }

    /// Whether any value was written.
    bool IsWritten() const { return fIsWritten; }

    /// The finite number at a row that is not the system-missing value; a text is none.
    std::optional<double> NumberAt(std::size_t row) const;

    const std::string& Label() const { return fLabel; }

    /// The label, cut to what each of many tips and headings has room for.
    const std::string& Name() const { return fName; }

    /// A value in words: prefix, then the label given for it, else its value label, else the number in the format, else
    /// the text as it is. Very long words are cut. Empty for a value that was never written.
    std::string Words(const document::ChartValue& value) const;

    /// A value as labels are looked for: a number in the shortest digits that give it back, a text as it is.
    static std::string Key(const document::ChartValue& value);

    /// Whether a value has a label of its own.
    bool IsLabelled(const document::ChartValue& value) const;

    /// The value as it is, in the shortest digits; empty where its words are just that.
    std::string ValueBehind(const document::ChartValue& value) const;

    /// Whether words of values say already which variable they are of.
    bool HasPrefix() const { return !fPrefix.empty(); }
    const std::string& Prefix() const { return fPrefix; }

    /// A text in the format of the variable where that is one of numbers and the whole text is a number; else as it is.
    std::string InFormat(const std::string& text) const;

    /// Words of a number that is a figure: in the format, but with as many decimals as show three significant digits of
    /// the variable's values, the same for all.
    std::string Figure(double number) const;

    const VariableSetting* Setting() const { return fpSetting; }

  private:
    std::string InFormat(double number) const;
    std::optional<std::string_view> GivenLabel(std::string_view key) const;
    std::optional<std::string_view> ValueLabel(const document::ChartValue& value) const;
    std::string Unprefixed(const document::ChartValue& value) const;

    const document::ChartVariable* fpVariable;
    const VariableSetting* fpSetting;
    std::string fLabel;
    std::string fName;
    std::string fPrefix;
    std::optional<KEST_Format> fFormat;
    std::optional<int> fFigureDecimals;  ///< nothing: all values are whole
    bool fIsWritten = false;
    std::unordered_map<std::string_view, std::string_view> fLabels;
    std::unordered_map<std::string_view, std::string_view> fLabelsOfStripped;  ///< by key without leading zeros
};

/// The variable of that name in the data of the run that is under way, or null.
const KEST_Variable* FindRunVariable(const std::string& name);

/// The label of the variable of that name in the run's data; the name where there is none.
std::string LabelOfNamed(const std::string& name);

/// The number at a row that a picture can place. Nothing without a variable or past its end.
std::optional<double> PlaceableAt(const ShownVariable* variable, std::size_t row);

/// The words of the value at a row; empty without a variable or past its end.
std::string WordsAt(const ShownVariable* variable, std::size_t row);

}  // namespace hierfit::chart
