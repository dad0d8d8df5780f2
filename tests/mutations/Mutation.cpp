#include "tests/mutations/Mutation.h"

#include <algorithm>

namespace hierfit::test {

namespace {

constexpr const char* kTokens[] = {
    "",     "0",     "-1",       "1",        "7",       "2147483648",  "1e308",    "-1e400", "nan",
    "true", "GLMM",  "NOMINAL",  "&lt;",     "\"a b",   "__MISSING__", "\xff",     "fixed",  "0.5",
    "^1",   "99999", "kGLMM_C9", "kGLMM_C8", "ORDINAL", "diagonal",    "symmetric"};

}  // namespace

std::string Mutator::Mutate(std::string text, std::string& what) {
    for (std::size_t count = 1 + Below(3); count > 0; --count) text = MutateOnce(std::move(text), what);
    return text;
}

/// From a start tag through its end tag, found by the indentation.
Mutator::Span Mutator::PickElement(const std::string& text) {
    const std::size_t begin = text.find("\n  ", Below(text.size()));
    if (begin == std::string::npos) return {0, 0};
    const std::size_t tag = text.find_first_not_of(" \n", begin);
    const std::size_t lineEnd = std::min(text.find('\n', tag), text.size());
    const std::string line = text.substr(tag, lineEnd - tag);
    const bool isWhole = line.ends_with("/>") || line.find("</") != std::string::npos;
    const std::string name = line.substr(1, line.find_first_of(" >") - 1);
    const std::string end = text.substr(begin, tag - begin) + "</" + name + ">";
    const std::size_t close = isWhole ? std::string::npos : text.find(end, tag);
    return {begin, close == std::string::npos ? lineEnd : close + end.size()};
}

/// A blank, a name and a quoted value.
Mutator::Span Mutator::PickAttribute(const std::string& text) {
    const std::size_t equals = text.find("=\"", Below(text.size()));
    const std::size_t begin = equals == std::string::npos ? equals : text.rfind(' ', equals);
    if (begin == std::string::npos) return {0, 0};
    return {begin, std::min(text.find('"', equals + 2), text.size() - 1) + 1};
}

/// A run of characters between blanks, quotes or tags.
Mutator::Span Mutator::PickToken(const std::string& text) {
    const char* const stops = " \"<>\n";
    const std::size_t begin = text.find_first_not_of(stops, Below(text.size()));
    if (begin == std::string::npos) return {0, 0};
    return {begin, std::min(text.find_first_of(stops, begin), text.size())};
}

std::string Mutator::MutateOnce(std::string text, std::string& what) {
    if (text.empty()) return text;
    const std::size_t kind = Below(7);
    const Span span = kind < 3 ? PickAttribute(text) : kind < 6 ? PickElement(text) : PickToken(text);
    const std::string piece = text.substr(span.fBegin, span.fEnd - span.fBegin);
    what += (what.empty() ? "" : ", ") + std::to_string(kind) + "@" + std::to_string(span.fBegin);
    switch (kind) {
        case 0:
        case 3:
            return text.erase(span.fBegin, piece.size());
        case 1:
            return text.replace(span.fBegin, piece.size(), piece.substr(0, piece.find('"') + 1) + "\"");
        case 2:
        case 4:
            return text.insert(span.fBegin, piece);
        case 5: {
            text.erase(span.fBegin, piece.size());
            const std::size_t place = text.find('\n', Below(text.size() + 1));
            return place == std::string::npos ? text : text.insert(place, piece);
        }
        default:
            return text.replace(span.fBegin, piece.size(), kTokens[Below(std::size(kTokens))]);
    }
}

}  // namespace hierfit::test
