#pragma once

#include <string>
#include <string_view>

namespace hierfit::report {

/// What a piece of text is for the reader.
enum class Role { Plain, Title, Heading, Header, Rule, Information, Warning, Error };

/// Takes visible text by role, line by line, and puts colours on it if wanted. Blanks at the end of a line are never
/// written.
class Sink {
  public:
    explicit Sink(bool color) : fColor(color) {}

    /// Puts text at a column of the line, from 0, or right behind the text before it when that reaches further.
    void PutAt(int column, Role role, std::string_view text);
    void Put(Role role, std::string_view text) { PutAt(fWidth, role, text); }
    void EndLine();

    /// A line that repeats one character.
    void PutRule(int column, int width, std::string_view character);

    /// Lines of at most that width, 0 for no limit; the lead has the role and stands in front of the first.
    void WriteParagraph(Role role, std::string_view lead, std::string_view text, int width);

    /// An empty line; several of them, and those at the start, are one or none.
    void PartItems();

    std::string Take() { return std::move(fText); }

  private:
    std::string fText;
    bool fColor;
    int fWidth = 0;
};

}  // namespace hierfit::report
