#include "host/framework/SimpleArray.h"

#include <algorithm>
#include <optional>

namespace hierfit::framework {

namespace {

constexpr std::string_view kBlanks = " \t\n\r";

/// Takes a token up to its closing quote, and the quote, off the text behind its opening quote.
std::optional<std::string> TakeQuoted(std::string_view& text) {
    std::string token;
    while (true) {
        const std::size_t quote = text.find('"');
        if (quote == std::string_view::npos) return {};
        const bool isEscaped = quote > 0 && text[quote - 1] == '\\';
        token += text.substr(0, isEscaped ? quote - 1 : quote);
        text.remove_prefix(quote + 1);
        if (!isEscaped) return token;
        token += '"';
    }
}

std::string TakePlain(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
    std::string token(text.substr(0, end));
    text.remove_prefix(end);
    return token;
}

}  // namespace

bool SplitSimpleArray(std::string_view text, std::vector<std::string>& tokens) {
    tokens.clear();
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
        if (text.empty()) return true;
        if (text[0] != '"') {
            tokens.push_back(TakePlain(text));
            continue;
        }
        text.remove_prefix(1);
        std::optional<std::string> token = TakeQuoted(text);
        if (!token) {
            tokens.clear();
            return false;
        }
        tokens.push_back(std::move(*token));
    }
}

}  // namespace hierfit::framework
