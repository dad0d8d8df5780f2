#include "host/pivot/text/TextIdentity.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

namespace hierfit::pivot {

namespace {

bool IsSameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool IsSame(const document::StringSource& a, const document::StringSource& b) { return a.fString == b.fString; }

bool IsSame(const document::NumberSource& a, const document::NumberSource& b) {
    return IsSameNumber(a.fNumber, b.fNumber) && a.fFormat.fName == b.fFormat.fName &&
           IsSameNumber(a.fFormat.fArgument, b.fFormat.fArgument);
}

bool IsSame(const document::VariableSource& a, const document::VariableSource& b) { return a.fVariable == b.fVariable; }

bool IsSame(const document::ValueSource& a, const document::ValueSource& b) {
    if (a.fVariable != b.fVariable || a.fValue.index() != b.fValue.index()) return false;
    const auto* number = std::get_if<double>(&a.fValue);
    return number ? IsSameNumber(*number, std::get<double>(b.fValue)) : a.fValue == b.fValue;
}

bool IsSame(const document::PatternSource& a, const document::PatternSource& b) {
    const auto isSameArgument = [](const document::Argument& one, const document::Argument& other) {
        return one.fIsSublist == other.fIsSublist &&
               std::equal(one.fvTexts.begin(), one.fvTexts.end(), other.fvTexts.begin(), other.fvTexts.end(),
                          IsSameLabel);
    };
    return a.fPattern == b.fPattern && std::equal(a.fvArguments.begin(), a.fvArguments.end(), b.fvArguments.begin(),
                                                  b.fvArguments.end(), isSameArgument);
}

/// Mixes the parts of a label into one number.
class Hasher {
  public:
    std::size_t Get() const { return fHash; }

    void Add(std::size_t part) { fHash = (fHash ^ part) * 0x9E3779B97F4A7C15u + (fHash >> 29); }
    void Add(const std::string& text) { Add(std::hash<std::string>()(text)); }
    void Add(const document::SharedText& text) { Add(text.Get()); }
    void Add(double number) { Add(std::isnan(number) ? 1 : std::hash<double>()(number)); }

    void Add(const document::StringSource& source) { Add(source.fString); }
    void Add(const document::NumberSource& source) {
        Add(source.fNumber);
        Add(static_cast<std::size_t>(source.fFormat.fName));
    }
    void Add(const document::VariableSource& source) { Add(source.fVariable); }
    void Add(const document::ValueSource& source) {
        Add(source.fVariable);
        std::visit([this](const auto& value) { Add(value); }, source.fValue);
    }
    void Add(const document::PatternSource& source) {
        Add(source.fPattern);
        for (const document::Argument& argument : source.fvArguments) {
            Add(argument.fvTexts.size());
            for (const document::Text& text : argument.fvTexts) Add(HashLabel(text));
        }
    }

  private:
    std::size_t fHash = 0;
};

}  // namespace

bool IsSameLabel(const document::Text& a, const document::Text& b) {
    const auto isSame = [&b](const auto& source) {
        const auto* other = std::get_if<std::decay_t<decltype(source)>>(&b.fFrom);
        return other && IsSame(source, *other);
    };
    return std::visit(isSame, a.fFrom);
}

std::size_t HashLabel(const document::Text& label) {
    Hasher hasher;
    hasher.Add(label.fFrom.index());
    std::visit([&hasher](const auto& source) { hasher.Add(source); }, label.fFrom);
    return hasher.Get();
}

}  // namespace hierfit::pivot
