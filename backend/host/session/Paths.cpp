#include "host/session/Paths.h"

#include <dlfcn.h>

#include <filesystem>
#include <new>
#include <system_error>

namespace hierfit::session {

namespace {

std::filesystem::path FolderOfThisLibrary() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<const void*>(&FindPaths), &info) || !info.dli_fname) return {};
    std::error_code error;
    const std::filesystem::path library = std::filesystem::canonical(info.dli_fname, error);
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();
    return error ? std::filesystem::path() : library.parent_path();
}

}  // namespace

Paths FindPaths() {
    const std::filesystem::path folder = FolderOfThisLibrary();
    const std::filesystem::path module = (folder / HIERFIT_MODULE_FROM_LIBRARY).lexically_normal();
    return {(folder / HIERFIT_SHARE_FROM_LIBRARY).lexically_normal().string(), module.parent_path().string(),
            module.string()};
}

}  // namespace hierfit::session
