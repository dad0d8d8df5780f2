#include "report/xlsx/cells/NumberCodes.h"

#include "report/xlsx/book/Book.h"

namespace hierfit::report::xlsx {

namespace {

// Formats for single figures and for marks leave room for the shapes, of which there are few in one document.
constexpr std::size_t kMostRare = 100;
constexpr std::size_t kMostMarked = 150;
constexpr std::size_t kMost = 200;

/// A number format with words behind each of its parts.
std::string AppendWords(const std::string& code, const std::string& words) {
    const std::string quoted = '"' + words + '"';
    std::string marked;
    for (const char c : code) {
        if (c == ';') marked += quoted;
        marked += c;
    }
    return marked + quoted;
}

}  // namespace

NumberCodes::NumberCodes() : fvCodes(1), fIndices{{"", 0}}, fShaped{} {}

int NumberCodes::Find(double number, std::string_view words, const std::string& marks) {
    const int index = FindUnmarked(number, words);
    return marks.empty() ? index : Mark(index, marks);
}

int NumberCodes::FindUnmarked(double number, std::string_view words) {
    const auto shape = ReadShape(words);
    if (!shape) return FindRare(number, words, nullptr);
    return ShowsWords(number, words, *shape) ? FindShaped(*shape) : FindRare(number, words, &*shape);
}

int NumberCodes::FindShaped(NumberShape shape) {
    int& index = fShaped[static_cast<std::size_t>(shape.fForm)][static_cast<std::size_t>(shape.fPlaces)];
    if (index == 0) index = Add(MakeCode(shape), kMost);
    return index;
}

int NumberCodes::FindRare(double number, std::string_view words, const NumberShape* shape) {
    auto code = shape ? MakeWordCode(number, words, *shape) : MakeLimitCode(number, words);
    if (!code) code = MakeWordCode(number, words, {});
    const int index = code ? Add(*code, kMostRare) : 0;
    if (index > 0) return index;
    ++fReshaped;
    return shape ? FindShaped({shape->fForm, shape->fPlaces + 1}) : 0;
}

int NumberCodes::Mark(int index, const std::string& marks) {
    const std::string& code = At(index);
    const int marked = Add(AppendWords(code.empty() ? "General" : code, marks), kMostMarked);
    if (marked > 0) return marked;
    ++fUnmarked;
    return index;
}

int NumberCodes::Add(const std::string& code, std::size_t most) {
    const auto found = fIndices.find(code);
    if (found != fIndices.end()) return found->second;
    if (fvCodes.size() >= most || code.size() > kMostOfCode) return 0;
    const int index = static_cast<int>(fvCodes.size());
    fvCodes.push_back(code);
    fIndices.emplace(code, index);
    return index;
}

}  // namespace hierfit::report::xlsx
