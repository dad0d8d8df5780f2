#include "program/documents/FindDocuments.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "host/language/FolderNames.h"
#include "host/unicode/Excerpt.h"
#include "program/documents/Suggestion.h"
#include "program/files/StandardError.h"

namespace hierfit::program {

namespace {

namespace fs = std::filesystem;

constexpr const char* kPmml = "model.pmml";
constexpr const char* kStatXml = "model.statxml";
constexpr std::size_t kMostNames = 5;
constexpr std::size_t kMostOfHead = 4096;  // bytes of a document that are looked through for its root element

std::string Name(const std::string& path) { return unicode::Excerpt(path, kMostOfText); }

std::string Join(const std::vector<std::string>& names) {
    std::string list;
    for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) list += (i > 0 ? ", " : "") + Name(names[i]);
    if (names.size() > kMostNames) list += fmt::format(" and {} more", names.size() - kMostNames);
    return list;
}

bool IsFile(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error) && !fs::is_directory(path, error);
}

bool HasEnding(const fs::path& path, std::string_view ending) {
    return std::ranges::equal(path.extension().string(), ending, {},
                              [](unsigned char byte) { return std::tolower(byte); });
}

/// What lies in a folder, each list by name.
struct Content {
    std::vector<std::string> fvPmml;
    std::vector<std::string> fvStatXml;
    std::vector<std::string> fvModels;  ///< folders in it that hold model.pmml and model.statxml
};

std::variant<Content, FileError> ReadFolder(const std::string& folder) {
    std::error_code error;
    Content content;
    for (const std::string& name : language::ListFolder(folder, error)) {
        const fs::path path = fs::path(folder) / name;
        if (HasEnding(path, ".pmml") && IsFile(path)) content.fvPmml.push_back(name);
        if (HasEnding(path, ".statxml") && IsFile(path)) content.fvStatXml.push_back(name);
        if (IsFile(path / kPmml) && IsFile(path / kStatXml)) content.fvModels.push_back(name);
    }
    if (error) return FileError{Name(folder) + ": " + error.message()};
    return content;
}

/// Why a folder has no pair of documents to read.
std::string DescribeContent(const std::string& base, const Content& content) {
    const auto& [pmml, statXml, models] = content;
    if (pmml.size() > 1 || statXml.size() > 1) {
        const bool isPmml = pmml.size() > 1;
        return fmt::format("there are {} {} documents, {}; name both documents", isPmml ? pmml.size() : statXml.size(),
                           isPmml ? "PMML" : "StatXML", Join(isPmml ? pmml : statXml));
    }
    if (!pmml.empty()) return "there is " + Name(pmml.front()) + ", but no StatXML document (.statxml)";
    if (!statXml.empty()) return "there is " + Name(statXml.front()) + ", but no PMML document (.pmml)";
    std::string text = "the folder holds no PMML and no StatXML document (.pmml, .statxml)";
    if (models.empty()) return text;
    return text + ", but folders that do: " + Join(models) +
           fmt::format(
               "; hierfit report {} shows one, "
               "hierfit batch -o DIR {}* all",
               Name(base + models.front()), Name(base));
}

std::variant<std::vector<std::string>, FileError> FindInFolder(const std::string& folder) {
    const std::string base = folder.ends_with('/') ? folder : folder + "/";
    std::vector<std::string> usual{base + kPmml, base + kStatXml};
    if (std::ranges::all_of(usual, [](const std::string& path) { return IsFile(path); })) return usual;
    const auto read = ReadFolder(folder);
    if (const auto* error = std::get_if<FileError>(&read)) return *error;
    const auto& content = std::get<Content>(read);
    if (content.fvPmml.size() == 1 && content.fvStatXml.size() == 1) {
        return std::vector{base + content.fvPmml.front(), base + content.fvStatXml.front()};
    }
    return FileError{Name(folder) + ": " + DescribeContent(base, content)};
}

FileError DescribeLone(const std::string& path) {
    std::string text = Name(path) + ": one argument must be a folder with the two documents";
    if (path == "-" || HasEnding(path, ".pmml")) text += "; give the StatXML document behind it";
    if (HasEnding(path, ".statxml")) text += "; give the PMML document before it";
    if (HasEnding(path, ".json")) text += "; hierfit render takes a saved document";
    return {std::move(text)};
}

/// The name of a document's root element without its prefix; empty where the head of the text shows none. Bytes of
/// zero are passed over, as those of UTF-16.
std::string RootOf(std::string_view text) {
    std::string head(text.substr(0, kMostOfHead));
    std::erase(head, '\0');
    std::size_t at = head.find('<');
    while (at != std::string::npos && at + 1 < head.size() && (head[at + 1] == '?' || head[at + 1] == '!')) {
        const bool isComment = head.compare(at, 4, "<!--") == 0;
        at = head.find(isComment ? "-->" : ">", at);
        if (at != std::string::npos) at = head.find('<', at);
    }
    if (at == std::string::npos) return {};
    const std::string name = head.substr(at + 1, head.find_first_of(" \t\r\n/>", at) - at - 1);
    return name.substr(name.find(':') + 1);
}

}  // namespace

std::variant<std::vector<std::string>, FileError> FindDocuments(const std::vector<std::string>& named) {
    if (named.size() == 1) {
        const std::string& path = named.front();
        if (IsFolder(path)) return FindInFolder(path);
        return path == "-" || Exists(path) ? DescribeLone(path) : DescribeMissing(path);
    }
    for (const std::string& path : named) {
        if (path == "-") continue;
        if (IsFolder(path)) return FileError{Name(path) + ": Is a directory; give a folder alone, or two documents"};
        if (!Exists(path)) return DescribeMissing(path);
    }
    if (named.front() == "-" && named.back() == "-") {
        return FileError{"standard input holds one document; name a file for the other"};
    }
    return named;
}

std::string DescribeSwap(const std::vector<std::string>& paths, std::string_view pmml, std::string_view statXml) {
    if (RootOf(pmml) != "StatXML" || RootOf(statXml) != "PMML") return {};
    return fmt::format("{} is the StatXML document and {} the PMML document; give the PMML document first",
                       Name(paths.front()), Name(paths.back()));
}

}  // namespace hierfit::program
