#include "host/language/Catalogue.h"

#include <filesystem>
#include <utility>

#include "host/language/FolderNames.h"
#include "host/language/WholeFile.h"

namespace hierfit::language {

namespace {

// The layout that gettext's manual gives: seven words, then two tables of (length, offset) pairs.
constexpr std::uint32_t kMagic = 0x950412de;
constexpr std::size_t kRevisionAt = 4;
constexpr std::size_t kCountAt = 8;
constexpr std::size_t kSourcesAt = 12;
constexpr std::size_t kTranslationsAt = 16;
constexpr std::size_t kHeaderSize = 28;
constexpr std::size_t kPairSize = 8;

constexpr std::size_t kSizeLimit = std::size_t{16} << 20;

}  // namespace

std::unique_ptr<Catalogue> Catalogue::Open(const std::string& path) {
    auto bytes = ReadWholeFile(path, kSizeLimit);
    return bytes ? FromBytes(std::move(*bytes)) : nullptr;
}

std::unique_ptr<Catalogue> Catalogue::FromBytes(std::string bytes) {
    std::unique_ptr<Catalogue> catalogue(new Catalogue(std::move(bytes)));
    return catalogue->ReadHeader() ? std::move(catalogue) : nullptr;
}

bool Catalogue::ReadHeader() {
    if (fBytes.size() < kHeaderSize) return false;
    if (Word(0) != kMagic) {
        fBigEndian = true;
        if (Word(0) != kMagic) return false;
    }
    fCount = Word(kCountAt);
    fSources = Word(kSourcesAt);
    fTranslations = Word(kTranslationsAt);
    return Word(kRevisionAt) == 0 && HoldsTable(fSources) && HoldsTable(fTranslations);
}

bool Catalogue::HoldsTable(std::uint32_t table) const {
    return table <= fBytes.size() && fCount <= (fBytes.size() - table) / kPairSize;
}

std::uint32_t Catalogue::Word(std::size_t offset) const {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const auto byte = static_cast<unsigned char>(fBytes[offset + (fBigEndian ? i : 3 - i)]);
        word = word << 8 | byte;
    }
    return word;
}

std::optional<std::string_view> Catalogue::Entry(std::uint32_t table, std::uint32_t index) const {
    const std::size_t pair = table + kPairSize * index;
    const std::size_t length = Word(pair);
    const std::size_t offset = Word(pair + 4);
    if (offset > fBytes.size() || length > fBytes.size() - offset) return std::nullopt;
    return std::string_view(fBytes).substr(offset, length);
}

std::optional<std::string_view> Catalogue::Find(std::string_view key) const {
    if (key.empty()) return std::nullopt;
    std::uint32_t first = 0;
    std::uint32_t last = fCount;
    while (first < last) {
        const std::uint32_t middle = first + (last - first) / 2;
        const auto source = Entry(fSources, middle);
        if (!source) return std::nullopt;
        const int order = key.compare(*source);
        if (order == 0) return Entry(fTranslations, middle);
        if (order < 0)
            last = middle;
        else
            first = middle + 1;
    }
    return std::nullopt;
}

std::vector<std::string> ListLanguages(const std::string& folder) {
    std::vector<std::string> languages{"C"};
    std::error_code unreadable;
    for (const std::string& name : ListFolder(folder, unreadable)) {
        const auto path = std::filesystem::path(folder) / name;
        if (path.extension() == ".mo" && std::filesystem::is_regular_file(path, unreadable))
            languages.push_back(path.stem().string());
    }
    return languages;
}

namespace {

/// A pattern may come from a document, and its arguments too: what they make together must not get out of proportion.
constexpr int kMostMarks = 32;

}  // namespace

std::string FillMarks(std::string_view text, const std::vector<std::string_view>& arguments) {
    std::string filled;
    filled.reserve(text.size());
    int left = kMostMarks;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char digit = text[i] == '^' && i + 1 < text.size() ? text[i + 1] : '0';
        const auto number = static_cast<std::size_t>(digit - '1');
        const bool isMark = digit >= '1' && digit <= '9' && number < arguments.size() && arguments[number].data();
        if (isMark && left > 0) {
            --left;
            filled += arguments[number];
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

}  // namespace hierfit::language
