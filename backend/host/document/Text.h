#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/document/SharedText.h"

namespace hierfit::document {

/// Number formats of the tables.
enum class FormatName : unsigned char {
    Coefficient,
    CoefficientSE,
    Significance,
    GeneralStat,
    Count,
    Percent,
    SigDigit
};

struct Format {
    FormatName fName;
    double fArgument = 0;  ///< used by SigDigit alone

    bool operator==(const Format&) const = default;
};

/// A source text or string-table key, translated or not.
struct StringSource {
    std::string fString;
    bool fTranslate;

    bool operator==(const StringSource&) const = default;
};

struct NumberSource {
    double fNumber;
    Format fFormat;

    bool operator==(const NumberSource&) const = default;
};

/// A variable's name or label; `fShow` is what the procedure asked for.
struct VariableSource {
    std::string fVariable;
    int fShow;

    bool operator==(const VariableSource&) const = default;
};

/// A value of a variable; `fPreference` is what the procedure asked for. A missing number is the system-missing value.
struct ValueSource {
    std::variant<double, SharedText> fValue;
    SharedText fVariable;
    int fPreference;

    bool operator==(const ValueSource&) const = default;
};

struct Argument;

/// A pattern with marks and what was added to fill them.
struct PatternSource {
    SharedText fPattern;
    bool fTranslate;
    std::vector<Argument> fvArguments;

    bool operator==(const PatternSource& other) const;
};

using Source = std::variant<StringSource, NumberSource, VariableSource, ValueSource, PatternSource>;

/// A text as the reader sees it, in the language of the run, and the source that it came from. UTF-8.
struct Text {
    std::string fWords;
    Source fFrom;

    bool operator==(const Text&) const = default;
};

/// What one `Add` gave, or all between `Sublist` and `EndSublist`.
struct Argument {
    bool fIsSublist;
    std::vector<Text> fvTexts;  ///< exactly one where it is no sublist

    bool operator==(const Argument&) const = default;
};

inline bool PatternSource::operator==(const PatternSource& other) const {
    return fPattern == other.fPattern && fTranslate == other.fTranslate && fvArguments == other.fvArguments;
}

}  // namespace hierfit::document
