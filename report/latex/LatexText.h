#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hierfit::report::latex {

/// What texts ask of the document that takes them in.
struct Scripts {
    bool fHasGreek = false;
    bool fHasHebrew = false;
    bool fHasArabic = false;
    bool fHasOthers = false;  ///< that pdflatex lacks
};

/// Where a text stands.
struct TextPlace {
    std::size_t fLongestWord;  ///< in characters; a longer one may break, every few characters at least
    std::string_view fWordBreak;
    std::string_view fLineBreak;  ///< for each line feed
    bool fIsParagraph = true;     ///< else what is written from right to left needs a box, or all of the text is turned
};

/// A break that leaves the line short; it needs no stretchable blanks before it.
inline constexpr std::string_view kShortLine = "\\hfil\\allowbreak\\hfilneg{}";

inline constexpr TextPlace kProse{40, kShortLine, "\\newline{}"};
inline constexpr TextPlace kTitle{24, kShortLine, " "};
inline constexpr TextPlace kCell{12, "\\allowbreak{}", "\\newline{}"};
inline constexpr TextPlace kLine{static_cast<std::size_t>(-1), {}, " ", false};

/// Appends a text, whatever it holds: what is markup becomes the sign itself, in every font encoding; control and
/// bidirectional characters become visible, such as "\u{202E}"; bytes that are no UTF-8 become U+FFFD. Signs of
/// mathematics that text fonts may lack are set in that of formulas.
void AppendText(std::string& out, std::string_view text, const TextPlace& place, Scripts& scripts);

/// A text whose control and bidirectional characters are visible, as `AppendText` shows them; line feeds stay.
std::string MakeVisible(std::string_view text);

/// Whether TeX can be told the name of a folder. It takes several blanks for one and passes over the first, drops
/// quotes, and reads neither control characters nor what is no UTF-8.
bool IsPath(std::string_view path);

/// Appends the name of a folder, such as can be told, as the begin of an argument of `\includegraphics`.
void AppendPath(std::string& out, std::string_view path);

}  // namespace hierfit::report::latex
