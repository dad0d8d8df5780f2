#include "report/style/Style.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <string>
#include <string_view>

#include "report/style/FigureKind.h"
#include "report/style/Figures.h"

namespace hierfit::report::style {

namespace {

using document::Text;

constexpr std::string_view kMinus = "\u2212";
constexpr std::string_view kEnDash = "\u2013";
constexpr std::string_view kComparison = "^1 - ^2";

/// Whether words are a negative number, of which text labels are none.
bool IsNegativeNumber(std::string_view words) {
    return words.size() > 1 && words.front() == '-' &&
           words.find_first_not_of("0123456789.,%e+-", 1) == std::string_view::npos;
}

void WriteMinus(std::string& words) {
    if (words.starts_with('-')) words.replace(0, 1, kMinus);
}

void Restyle(Text& text);

bool IsLetterOrDigit(char character) { return std::isalnum(static_cast<unsigned char>(character)) != 0; }

/// Where a figure stands that is no part of a word: "-1" in "x-1 = -1" is the last.
std::size_t FindFigure(std::string_view words, std::string_view figure, std::size_t from) {
    std::size_t place = words.find(figure, from);
    while (place != std::string_view::npos && place > 0 && IsLetterOrDigit(words[place - 1])) {
        place = words.find(figure, place + 1);
    }
    return place;
}

/// The words of a filled pattern change where those of what fills it change.
void RestylePattern(const document::PatternSource& pattern, std::string& words) {
    std::size_t from = 0;
    for (const document::Argument& argument : pattern.fvArguments) {
        for (const Text& filling : argument.fvTexts) {
            Text restyled = filling;
            Restyle(restyled);
            if (restyled.fWords == filling.fWords) continue;
            const std::size_t place = FindFigure(words, filling.fWords, from);
            if (place == std::string::npos) continue;
            words.replace(place, filling.fWords.size(), restyled.fWords);
            from = place + restyled.fWords.size();
        }
    }
}

/// "A - B" for two levels that are compared.
void RestyleComparison(const document::PatternSource& pattern, std::string& words) {
    if (pattern.fPattern.Get() != kComparison || pattern.fvArguments.size() != 2 || pattern.fvArguments[0].fIsSublist)
        return;
    const std::string& first = pattern.fvArguments[0].fvTexts.front().fWords;
    if (words.compare(0, first.size(), first) == 0 && words.compare(first.size(), 3, " - ") == 0) {
        words.replace(first.size() + 1, 1, kEnDash);
    }
}

void Restyle(Text& text) {
    if (const auto* pattern = std::get_if<document::PatternSource>(&text.fFrom)) {
        RestyleComparison(*pattern, text.fWords);
        RestylePattern(*pattern, text.fWords);
    } else if (std::holds_alternative<document::NumberSource>(text.fFrom)) {
        WriteMinus(text.fWords);
    } else if (std::holds_alternative<document::ValueSource>(text.fFrom) && IsNegativeNumber(text.fWords)) {
        WriteMinus(text.fWords);
    }
}

void RestyleAll(std::span<Text> texts) {
    for (Text& text : texts) Restyle(text);
}

void RestyleMembers(std::list<document::Member>& members) {
    for (document::Member& member : members) {
        if (auto* group = std::get_if<document::Group>(&member.fContent)) {
            Restyle(group->fLabel);
            RestyleMembers(group->fMembers);
            continue;
        }
        auto& category = std::get<document::Category>(member.fContent);
        Restyle(category.fLabel);
        RestyleAll(category.fvNotes);
    }
}

/// Whether a style leaves figures of a kind in the print format that they have.
bool Keeps(const FigureStyle& style, FigureKind kind) {
    return kind == FigureKind::Other || (!style.IsOwn() && kind != FigureKind::PValue);
}

void RestyleCells(document::Table& table, const FigureStyle& style) {
    const FigureKinds kinds(table);
    for (document::Cell& cell : table.fvCells) {
        const FigureKind kind = kinds.Of(cell);
        if (!Keeps(style, kind)) {
            const auto& source = std::get<document::NumberSource>(cell.fContent.fFrom);
            cell.fContent.fWords = WriteFigure(source.fNumber, source.fFormat, kind, style);
        }
        Restyle(cell.fContent);
        RestyleAll(cell.fvNotes);
    }
}

/// Restyles items of each kind.
struct ItemStyle {
    const FigureStyle& fStyle;

    void operator()(document::Heading& heading) const {
        Restyle(heading.fTitle);
        for (document::Item& item : heading.fItems) std::visit(*this, item.fContent);
    }

    void operator()(document::Table& table) const {
        Restyle(table.fTitle);
        RestyleAll(table.fvCaptions);
        RestyleAll(table.fvNotes);
        for (document::Dimension& dimension : table.fvDimensions) RestyleMembers(dimension.fMembers);
        RestyleCells(table, fStyle);
    }

    void operator()(document::Message& message) const { Restyle(message.fText); }

    void operator()(document::Chart&) const {}
};

}  // namespace

void Apply(document::Document& document, const FigureStyle& style) {
    for (document::Item& item : document.fItems) std::visit(ItemStyle{style}, item.fContent);
}

}  // namespace hierfit::report::style
