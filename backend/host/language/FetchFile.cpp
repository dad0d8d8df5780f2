#include "host/FetchFile.h"

#include <filesystem>

#include "host/context/RunContext.h"
#include "host/language/WholeFile.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

namespace {

constexpr std::size_t kSizeLimit = std::size_t{16} << 20;

/// A file of the user's own that cannot be read is worth a word: another one takes its place.
std::optional<std::string> ReadUsersOwn(context::RunContext& context, const std::string& name) {
    const std::string& folder = context.GetSettings().fTemplateFolder;
    if (folder.empty()) return std::nullopt;
    const std::string path = folder + '/' + name;
    auto text = language::ReadWholeFile(path, kSizeLimit);
    std::error_code error;
    if (!text && std::filesystem::exists(path, error))
        context.AddDiagnostic(2, unicode::Excerpt(name) + ": the file in the folder of templates cannot be read",
                              std::nullopt);
    return text;
}

}  // namespace

std::string FetchFile::fetch(const std::string& path, bool, bool) {
    auto text = ReadUsersOwn(context::RunContext::Current(), path.substr(path.rfind('/') + 1));
    if (!text) text = language::ReadWholeFile(path, kSizeLimit);
    return std::move(text).value_or(std::string());
}

}  // namespace hierfit
