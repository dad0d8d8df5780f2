#include "report/modules/FindSymbol.h"

#include <dlfcn.h>

namespace hierfit::report {

std::variant<void*, std::string> FindSymbol(const std::string& path, const char* name) {
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!module) return std::string(dlerror());
    void* symbol = dlsym(module, name);
    if (!symbol) return path + " does not export " + name;
    return symbol;
}

}  // namespace hierfit::report
