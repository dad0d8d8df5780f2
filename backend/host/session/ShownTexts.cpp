#include "host/session/ShownTexts.h"

#include <algorithm>
#include <variant>

namespace hierfit::session {

ShownTexts::ShownTexts(const document::Document& document) { Visit(document.fItems); }

bool ShownTexts::HasMessageWith(std::string_view words) const {
    return std::ranges::any_of(fvMessages,
                               [&](std::string_view message) { return message.find(words) != std::string_view::npos; });
}

void ShownTexts::Visit(const std::list<document::Item>& items) {
    for (const document::Item& item : items) std::visit([this](const auto& content) { Visit(content); }, item.fContent);
}

void ShownTexts::Visit(const document::Heading& heading) {
    Visit(heading.fTitle);
    Visit(heading.fItems);
}

void ShownTexts::Visit(const document::Table& table) {
    Visit(table.fTitle);
    Visit(table.fvCaptions);
    Visit(table.fvNotes);
    for (const document::Dimension& dimension : table.fvDimensions) Visit(dimension.fMembers);
    for (const document::Cell& cell : table.fvCells) {
        Visit(cell.fContent);
        Visit(cell.fvNotes);
    }
}

void ShownTexts::Visit(const document::Message& message) {
    Visit(message.fText);
    fvMessages.push_back(message.fText.fWords);
}

void ShownTexts::Visit(const std::list<document::Member>& members) {
    for (const document::Member& member : members) {
        if (const auto* category = std::get_if<document::Category>(&member.fContent)) {
            Visit(category->fLabel);
            Visit(category->fvNotes);
        } else {
            Visit(std::get<document::Group>(member.fContent).fLabel);
            Visit(std::get<document::Group>(member.fContent).fMembers);
        }
    }
}

void ShownTexts::Visit(const document::Text& text) {
    if (const auto* string = std::get_if<document::StringSource>(&text.fFrom)) {
        if (string->fTranslate) fKeys.insert(string->fString);
    } else if (const auto* pattern = std::get_if<document::PatternSource>(&text.fFrom)) {
        for (const document::Argument& argument : pattern->fvArguments) Visit(argument.fvTexts);
    }
}

void ShownTexts::Visit(const std::vector<document::Text>& texts) {
    for (const document::Text& text : texts) Visit(text);
}

}  // namespace hierfit::session
