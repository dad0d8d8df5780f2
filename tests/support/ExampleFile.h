#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace hierfit::test {

inline std::string ReadFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The text of a document of an example, such as ("oats", "model.statxml").
inline std::string ReadExample(const std::string& example, const std::string& file) {
    return ReadFile(std::string(HIERFIT_EXAMPLES) + "/" + example + "/" + file);
}

/// A text with the first place of another text replaced; the place must be there.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

/// A text so many times.
inline std::string Repeated(const std::string& text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

}  // namespace hierfit::test
