#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hierfit::report {

/// Puts a JSON text together, one value after the other. Objects and lists are laid out on one line, or as a block with
/// a line for each member. Whoever calls keeps to the grammar: in an object, a key before each value.
class JsonOutput {
  public:
    enum class Layout : unsigned char { Line, Block };

    void BeginObject(Layout layout) { Begin('{', layout); }
    void EndObject() { End('}'); }
    void BeginList(Layout layout) { Begin('[', layout); }
    void EndList() { End(']'); }

    /// The key must need no escapes.
    void Key(std::string_view key);

    void Null() { Verbatim("null"); }
    void Boolean(bool value) { Verbatim(value ? "true" : "false"); }
    void Integer(int value);

    /// In UTF-8. Control characters are escaped, bytes that are no UTF-8 become U+FFFD.
    void String(std::string_view value);

    /// With a decimal point or exponent; "NaN", "Infinity" and "-Infinity" as strings.
    void Number(double value);

    /// A text where a number could stand as well. One that spells NaN or an infinity gets its first letter escaped:
    /// the same string to everybody, and no number to `JsonTokens`.
    void TextOrNumber(std::string_view value);

    /// A value that is JSON already.
    void Verbatim(std::string_view json);

    /// Makes room for so many bytes more, so that what is there need not move again and again.
    void MakeRoom(std::size_t bytes) { fOut.reserve(fOut.size() + bytes); }

    /// What was put together, with a line feed at its end.
    std::string Take();

  private:
    struct Frame {
        Layout fLayout;
        bool fIsEmpty;
    };

    void Begin(char bracket, Layout layout);
    void End(char bracket);
    void Separate(bool isIndented = true);
    void BreakLine() { fOut.append(1, '\n').append(2 * fvFrames.size(), ' '); }

    std::string fOut;
    std::vector<Frame> fvFrames;
    bool fAfterKey = false;
};

}  // namespace hierfit::report
