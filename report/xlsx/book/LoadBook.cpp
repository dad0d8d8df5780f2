#include "report/xlsx/book/LoadBook.h"

#include <dlfcn.h>

namespace hierfit::report::xlsx {

std::variant<HierfitMakeBook, std::string> LoadBook(const std::string& path) {
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!module) return std::string(dlerror());
    const auto make = reinterpret_cast<HierfitMakeBook>(dlsym(module, kHierfitMakeBook));
    if (!make) return path + " does not export " + kHierfitMakeBook;
    return make;
}

}  // namespace hierfit::report::xlsx
