#include "host/session/Module.h"

#include <dlfcn.h>

namespace hierfit::session {

std::variant<CFProcCustomFactory, std::string> LoadModule(const std::string& path) {
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!module) return std::string(dlerror());
    void* factory = dlsym(module, kCFProcCustomFactory);
    if (!factory) return path + " does not export " + kCFProcCustomFactory;
    return reinterpret_cast<CFProcCustomFactory>(factory);
}

}  // namespace hierfit::session
