#include "host/language/FolderNames.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>
#include <string_view>

namespace hierfit::language {

namespace {

struct Close {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::error_code LastError() {
    if (errno == ENOMEM) throw std::bad_alloc();
    return {errno, std::generic_category()};
}

}  // namespace

std::vector<std::string> ListFolder(const std::string& folder, std::error_code& error) {
    error.clear();
    const std::unique_ptr<DIR, Close> open(opendir(folder.c_str()));
    if (!open) {
        error = LastError();
        return {};
    }
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = readdir(open.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
        errno = 0;
    }
    if (errno != 0) {
        error = LastError();
        return {};
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace hierfit::language
