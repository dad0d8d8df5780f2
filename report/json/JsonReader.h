#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "report/json/JsonTokens.h"

namespace hierfit::report {

/// A key of an object and what its value is read into: a reference, or one of the rules below.
template <typename Target>
struct Field {
    Field(std::string_view key, Target&& target) : fKey(key), fTarget(std::forward<Target>(target)) {}

    std::string_view fKey;
    Target fTarget;
    bool fIsSeen = false;
    bool fMayLack = false;  ///< its key may be absent; the target then stays as it is
};
template <typename Target>
Field(std::string_view, Target&&) -> Field<Target>;

template <typename Target>
Field<Target> Optional(std::string_view key, Target&& target) {
    Field<Target> field(key, std::forward<Target>(target));
    field.fMayLack = true;
    return field;
}

/// A whole number within limits.
struct Bounded {
    int& fTarget;
    int fLow;
    int fHigh;
};

/// A number for which null stands where it is system-missing.
struct Missable {
    double& fTarget;
};

/// Reads a document's forms from JSON and knows where in it it stands. Each form has an operation `Read(JsonReader&,
/// Form&)`, found beside this class; all of them throw `JsonFailure`. The text must outlive it.
class JsonReader {
  public:
    explicit JsonReader(std::string_view text) : fTokens(text), fTextSize(text.size()) {}

    JsonTokens& GetTokens() { return fTokens; }

    /// Where the reader stands, as a JSON pointer.
    std::string GetPath() const;

    /// The form is wrong: at `path`, a JSON pointer seen from where the reader stands.
    [[noreturn]] void Fail(std::string text, std::string path = {}) const;

    /// Makes sure of the kind of the next value.
    void Expect(JsonTokens::Kind kind, const char* failure);

    /// Reads an object; keys that no field has are skipped. Which were there, the fields know.
    template <typename... Target>
    void ReadFields(Field<Target>&... fields);

    /// Reads an object that has all these keys but the optional ones.
    template <typename... Target>
    void ReadObject(Field<Target>... fields);

    template <typename Target>
    void Require(const Field<Target>& field) const;

    /// Reads the value of a key that was taken: `readValue()` takes it. The key must outlive the reader.
    template <typename ReadValue>
    void ReadValueOf(std::string_view key, ReadValue readValue);

    /// Reads a list: `readElement(index)` takes each. Tells how many there were.
    template <typename ReadElement>
    std::size_t ReadList(ReadElement readElement);

    /// The text at the key "kind" of the object that comes next, which is not taken. Where that is not its first key,
    /// the object is looked through for it; empty when it has none.
    std::string FindKind();

  private:
    struct Step {
        std::string_view fKey;
        std::size_t fIndex;
    };
    static constexpr std::size_t kNoIndex = static_cast<std::size_t>(-1);
    static constexpr std::size_t kMaxElements = 10'000'000;

    template <typename Target>
    bool TryField(std::string_view key, Field<Target>& field);
    void CountElement();

    JsonTokens fTokens;
    std::size_t fTextSize;
    std::size_t fElements = 0;
    std::size_t fLookedThrough = 0;
    std::vector<Step> fvPath;  ///< left as it is when an operation throws, so that the place is known
};

void Read(JsonReader& in, bool& value);
void Read(JsonReader& in, int& value);
void Read(JsonReader& in, double& value);
void Read(JsonReader& in, std::string& value);
void Read(JsonReader& in, Bounded& value);
void Read(JsonReader& in, Missable& value);

/// Whether the string taken last spells NaN or an infinity, and then which.
std::optional<double> FindNamedNumber(std::string_view text);

template <typename Element>
void Read(JsonReader& in, std::optional<Element>& value);
template <typename Element>
void Read(JsonReader& in, std::vector<Element>& values);
template <typename Element>
void Read(JsonReader& in, std::deque<Element>& values);
template <typename Element>
void Read(JsonReader& in, std::list<Element>& values);
template <typename Element, std::size_t Size>
void Read(JsonReader& in, std::array<Element, Size>& values);

template <typename... Target>
void JsonReader::ReadFields(Field<Target>&... fields) {
    Expect(JsonTokens::Kind::Object, "object expected");
    fTokens.BeginObject();
    std::string_view key;
    while (fTokens.NextKey(key)) {
        if (!(TryField(key, fields) || ...)) fTokens.Skip();
    }
}

template <typename... Target>
void JsonReader::ReadObject(Field<Target>... fields) {
    ReadFields(fields...);
    (Require(fields), ...);
}

template <typename Target>
void JsonReader::Require(const Field<Target>& field) const {
    if (!field.fIsSeen && !field.fMayLack) Fail("key \"" + std::string(field.fKey) + "\" expected");
}

template <typename Target>
bool JsonReader::TryField(std::string_view key, Field<Target>& field) {
    if (key != field.fKey) return false;
    ReadValueOf(field.fKey, [&] {
        if (std::exchange(field.fIsSeen, true)) Fail("key expected once");
        Read(*this, field.fTarget);
    });
    return true;
}

template <typename ReadValue>
void JsonReader::ReadValueOf(std::string_view key, ReadValue readValue) {
    fvPath.push_back({key, kNoIndex});
    readValue();
    fvPath.pop_back();
}

template <typename ReadElement>
std::size_t JsonReader::ReadList(ReadElement readElement) {
    Expect(JsonTokens::Kind::List, "list expected");
    fTokens.BeginList();
    std::size_t count = 0;
    fvPath.push_back({{}, 0});
    for (; fTokens.NextElement(); ++count) {
        fvPath.back().fIndex = count;
        CountElement();
        readElement(count);
    }
    fvPath.pop_back();
    return count;
}

template <typename Element>
void Read(JsonReader& in, std::optional<Element>& value) {
    if (in.GetTokens().Peek() == JsonTokens::Kind::Null) {
        in.GetTokens().TakeNull();
    } else {
        Read(in, value.emplace());
    }
}

template <typename Element>
void Read(JsonReader& in, std::vector<Element>& values) {
    in.ReadList([&](std::size_t) { Read(in, values.emplace_back()); });
}

template <typename Element>
void Read(JsonReader& in, std::deque<Element>& values) {
    in.ReadList([&](std::size_t) { Read(in, values.emplace_back()); });
}

template <typename Element>
void Read(JsonReader& in, std::list<Element>& values) {
    in.ReadList([&](std::size_t) { Read(in, values.emplace_back()); });
}

template <typename Element, std::size_t Size>
void Read(JsonReader& in, std::array<Element, Size>& values) {
    const std::size_t count = in.ReadList([&](std::size_t index) {
        if (index < Size) {
            Read(in, values[index]);
        } else {
            in.GetTokens().Skip();
        }
    });
    if (count != Size) in.Fail("list of " + std::to_string(Size) + " expected");
}

}  // namespace hierfit::report
