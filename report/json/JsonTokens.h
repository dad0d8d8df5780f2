#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hierfit::report {

/// Why reading stopped; thrown within this folder only. Either the text is no JSON at `fOffset`, or its form is wrong
/// at `fPath`, seen from where the reader stands.
struct JsonFailure {
    static constexpr std::size_t kNoOffset = static_cast<std::size_t>(-1);

    std::string fText;
    std::size_t fOffset = kNoOffset;
    std::string fPath = {};
};

/// Takes a JSON text (RFC 8259) apart, value by value, in the order in which the values stand; nothing is kept of those
/// that were taken. The text must outlive it. Every operation throws `JsonFailure` where the text breaks the grammar.
///
/// An operation that takes a value must fit what `Peek` tells. `BeginObject` is followed by `NextKey` and one value in
/// turn until `NextKey` is false, `BeginList` by `NextElement` in the same way.
class JsonTokens {
  public:
    enum class Kind : unsigned char { Null, Boolean, Number, String, List, Object };

    static constexpr int kMaxDepth = 100;

    explicit JsonTokens(std::string_view text);

    /// The kind of the value that comes next.
    Kind Peek();

    void TakeNull() { TakeWord("null"); }
    bool TakeBoolean();

    /// The number as it is spelled.
    std::string_view TakeNumber();

    /// The string's text in UTF-8, good until the next call.
    std::string_view TakeString();

    /// Whether the string taken last was spelled with escapes.
    bool WasEscaped() const { return fWasEscaped; }

    void BeginObject() { Begin(); }
    bool NextKey(std::string_view& key);

    void BeginList() { Begin(); }
    bool NextElement() { return Next(']'); }

    /// Takes a value of any kind.
    void Skip();

    /// Makes sure that nothing follows.
    void Finish();

    std::size_t GetOffset() const { return fAt; }

    /// What can be gone back to within the same object or list.
    struct Mark {
        std::size_t fAt;
        int fDepth;
        bool fIsFirst;
    };
    Mark GetMark() const { return {fAt, fDepth, fIsFirst}; }
    void GoBack(const Mark& mark);

  private:
    [[noreturn]] void Fail(std::string text) const { FailAt(fAt, std::move(text)); }
    [[noreturn]] void FailAt(std::size_t offset, std::string text) const;
    char GetCharacter() const { return fAt < fText.size() ? fText[fAt] : '\0'; }
    void SkipBlanks();
    void Begin();
    bool Next(char closing);
    void TakeWord(std::string_view word);
    void TakeDigits();
    void TakeSpecial();
    void TakeEscape();
    char32_t TakeHexadecimal();
    char32_t TakeCodePoint();

    std::string_view fText;
    std::size_t fAt = 0;
    int fDepth = 0;
    bool fIsFirst = false;  ///< nothing was taken yet from the object or list begun last
    bool fWasEscaped = false;
    std::string fBuffer;  ///< a string that does not stand in the text as it is
};

}  // namespace hierfit::report
