#include "report/archive/Archive.h"

#include <vector>

#include "report/archive/ArchiveModule.h"
#include "report/modules/FindSymbol.h"

namespace hierfit::report {

namespace {

void Append(void* context, const unsigned char* bytes, std::size_t size) {
    static_cast<std::string*>(context)->append(reinterpret_cast<const char*>(bytes), size);
}

}  // namespace

std::variant<Archive, std::string> Archive::Load(const std::string& path) {
    const auto found = FindSymbol(path, kHierfitGetArchiveFunctions);
    if (const auto* reason = std::get_if<std::string>(&found)) return *reason;
    return Archive(reinterpret_cast<HierfitGetArchiveFunctions>(std::get<void*>(found))());
}

std::optional<std::string> Archive::Pack(std::span<const ArchiveFile> files) const {
    std::vector<HierfitArchiveFile> given;
    for (const ArchiveFile& file : files) {
        given.push_back({file.fName.c_str(), file.fBytes.data(), file.fBytes.size(), file.fIsDense});
    }
    std::string archive;
    const bool isMade = fpFunctions->fpPack(given.data(), given.size(), &Append, &archive);
    return isMade ? std::optional(std::move(archive)) : std::nullopt;
}

}  // namespace hierfit::report
